// Places are kept as hashes, so that a large site costs some bytes a link. Words and line of a dead
// link are found in its page again, which is rare.

#include "conv/htm/link_check.h"

#include <algorithm>
#include <functional>
#include <tuple>
#include <utility>

#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

constexpr std::size_t most_reports = 100;

// What a link leads to; the file is folder and path together.
struct gPlace {
  std::string_view folder, path, anchor;
  std::string file() const { return std::string(folder) + std::string(path); }
};

int digit_of(char c) {
  return c >= '0' && c <= '9'   ? c - '0'
         : c >= 'a' && c <= 'f' ? c - 'a' + 10
         : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                : -1;
}

// Entities of markup and bytes in hexadecimal digits as what they mean.
std::string decoded(std::string_view text) {
  static constexpr std::pair<std::string_view, char> entities[] = {
      {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&#39;", '\''}};
  std::string out;
  for (std::size_t at = 0; at < text.size(); ++at) {
    auto const * const entity = std::ranges::find_if(
        entities, [&](auto const & one) { return text.substr(at).starts_with(one.first); });
    if (entity != std::end(entities)) {
      out += entity->second;
      at += entity->first.size() - 1;
    } else if (text[at] == '%' && at + 2 < text.size() && digit_of(text[at + 1]) >= 0 &&
               digit_of(text[at + 2]) >= 0) {
      out += static_cast<char>(digit_of(text[at + 1]) * 16 + digit_of(text[at + 2]));
      at += 2;
    } else {
      out += text[at];
    }
  }
  return out;
}

bool leads_outside(std::string_view href) {
  if (href.starts_with('#'))
    return false;
  if (href.starts_with("//"))
    return true;
  auto const sign = std::ranges::find_if(
      href, [](char c) { return c == ':' || c == '/' || c == '?' || c == '#'; });
  return sign != href.end() && *sign == ':';
}

// Takes the steps up in front of a path out of it and out of the folder that it starts from.
void step_up(std::string_view & folder, std::string_view & path) {
  for (;;) {
    if (path.starts_with("./")) {
      path.remove_prefix(2);
    } else if (path.starts_with("../")) {
      path.remove_prefix(3);
      folder.remove_suffix(folder.empty() ? 0 : 1);
      folder = folder.substr(0, folder.rfind('/') + 1);
    } else {
      return;
    }
  }
}

// Reads links without making texts of their own, but where something is to be decoded: a large site
// has some hundred a page.
class gLinkReader {
public:
  // Views of `from`, `href` and this reader, good up to the next call.
  gPlace place_of(std::string_view from, std::string_view href) {
    std::size_t const sign = href.find('#');
    gPlace place;
    place.path = plain(href.substr(0, std::min(sign, href.find('?'))), path_);
    place.anchor = sign == href.npos ? std::string_view() : anchor_of(href.substr(sign + 1));
    place.folder = from;
    if (!place.path.empty()) {
      place.folder = from.substr(0, from.rfind('/') + 1); // npos + 1 is 0
      step_up(place.folder, place.path);
    }
    return place;
  }
  std::string_view anchor_of(std::string_view text) { return plain(text, anchor_); }

private:
  static std::string_view plain(std::string_view text, std::string & memory) {
    if (std::ranges::none_of(text, [](char c) { return c == '&' || c == '%'; }))
      return text;
    memory = decoded(text);
    return memory;
  }

  std::string path_, anchor_;
};

std::uint64_t hash_of_place(std::uint64_t file, std::string_view anchor) {
  std::uint64_t const hash =
      anchor.empty() ? file : file * 0x9E3779B97F4A7C15U + std::hash<std::string_view>()(anchor);
  return hash == 0 ? 1 : hash;
}

// The hashes of what links of one page lead to.
class gPlaceHashes {
public:
  explicit gPlaceHashes(std::string_view page) : page_(page), own_(hash_of(page)) {}

  std::uint64_t of_anchor(std::string_view anchor) {
    return hash_of_place(own_, reader_.anchor_of(anchor));
  }
  std::uint64_t of_link(std::string_view href) {
    gPlace const place = reader_.place_of(page_, href);
    return hash_of_place(place.path.empty() ? own_ : file_of(place), place.anchor);
  }
  gPlace place_of(std::string_view href) { return reader_.place_of(page_, href); }

private:
  static std::uint64_t hash_of(std::string_view file) {
    return std::hash<std::string_view>()(file);
  }
  std::uint64_t file_of(gPlace const & place) {
    if (place.folder.empty())
      return hash_of(place.path);
    (file_ = place.folder) += place.path;
    return hash_of(file_);
  }

  std::string_view page_;
  std::uint64_t own_;
  gLinkReader reader_;
  std::string file_;
};

std::uint32_t line_at(std::string_view text, std::size_t place) {
  return static_cast<std::uint32_t>(std::ranges::count(text.substr(0, place), '\n')) + 1;
}

bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\n';
}

// Calls `work` with name, value and tag of each attribute; the tag as its place in the page.
void each_attribute(std::string_view html, auto const & work) {
  for (std::size_t at = html.find('<'); at < html.size(); at = html.find('<', at)) {
    std::size_t const tag = at++;
    if (html.substr(at).starts_with("!--"))
      at = std::min(html.find("-->", at), html.size());
    if (at < html.size() && (html[at] == '/' || html[at] == '!' || html[at] == '-'))
      continue;
    std::size_t name = at;
    for (; at < html.size() && html[at] != '>'; ++at) {
      if (is_blank(html[at]))
        name = at + 1;
      if (html[at] != '=' || at + 1 >= html.size() || (html[at + 1] != '"' && html[at + 1] != '\''))
        continue;
      std::size_t const value = at + 2;
      std::size_t const end = html.find(html[at + 1], value);
      if (end == html.npos)
        return;
      work(html.substr(name, at - name), html.substr(value, end - value), tag);
      at = end;
    }
  }
}

} // namespace

// The slot of the hash, or the empty one where it belongs.
gLinkCheck::gSlot & gLinkCheck::slot_of(gHash hash) {
  std::size_t const mask = slots_.size() - 1;
  std::size_t at = hash & mask;
  while (slots_[at].hash != 0 && slots_[at].hash != hash)
    at = (at + 1) & mask;
  return slots_[at];
}

void gLinkCheck::make_room(std::size_t more) {
  std::size_t size = std::max<std::size_t>(slots_.size(), 1024);
  while (size < 2 * (taken_ + more))
    size *= 2;
  if (size == slots_.size())
    return;
  std::vector<gSlot> const old = std::exchange(slots_, std::vector<gSlot>(size));
  for (gSlot const & slot : old)
    if (slot.hash != 0)
      slot_of(slot.hash) = slot;
}

void gLinkCheck::add_link(gHash to, gWay way) {
  gSlot & slot = slot_of(to);
  auto const order = [this](gWay const & one) { return std::tie(pages_[one.page], one.place); };
  if (slot.hash == 0) {
    slot = {to, way};
    ++taken_;
  } else if (slot.way.page != gWay::is_there && order(way) < order(slot.way)) {
    slot.way = way;
  }
}

void gLinkCheck::add_page(std::string const & file, std::string_view html) {
  gPlaceHashes hashes(file);
  std::vector<gHash> places = {hashes.of_anchor({})};
  std::vector<std::pair<gHash, std::uint32_t>> links;
  each_attribute(html, [&](std::string_view name, std::string_view value, std::size_t tag) {
    if (name == "id")
      places.push_back(hashes.of_anchor(value));
    else if ((name == "href" || name == "src") && !leads_outside(value))
      links.emplace_back(hashes.of_link(value), static_cast<std::uint32_t>(tag));
  });
  std::lock_guard const lock(mutex_);
  auto const page = static_cast<std::uint32_t>(pages_.size());
  pages_.push_back(file);
  make_room(places.size() + links.size());
  for (gHash const hash : places) {
    gSlot & slot = slot_of(hash);
    taken_ += slot.hash == 0 ? 1 : 0;
    slot = {hash, {gWay::is_there, 0}};
  }
  for (auto const & [to, place] : links)
    add_link(to, {page, place});
}

void gLinkCheck::report(gConversion const & conversion) const {
  struct gDead {
    std::string page, href;
    std::uint32_t line;
    auto operator<=>(gDead const &) const = default;
  };
  std::vector<gDead> dead;
  for (gSlot const & slot : slots_) {
    if (slot.hash == 0 || slot.way.page == gWay::is_there)
      continue;
    std::string html;
    std::string const & page = pages_[slot.way.page];
    gFileSystem::read_file(conversion.written(page), html);
    gPlaceHashes hashes(page);
    each_attribute(html, [&](std::string_view name, std::string_view value, std::size_t tag) {
      if (tag != slot.way.place || (name != "href" && name != "src") ||
          hashes.of_link(value) != slot.hash)
        return;
      gPlace const place = hashes.place_of(value);
      if (place.anchor.empty() && gFileSystem::file_exists(conversion.written(place.file())))
        return;
      dead.push_back({page, std::string(value), line_at(html, tag)});
    });
  }
  std::ranges::sort(dead);
  dead.erase(std::unique(dead.begin(), dead.end()), dead.end());
  for (std::size_t i = 0; i < std::min(dead.size(), most_reports); ++i)
    Msg::log(Msg::dead_link, dead[i].href,
             {gPathstring(conversion.input().folder).append(dead[i].page),
              static_cast<int>(dead[i].line)});
  if (dead.size() > most_reports)
    Msg::log(Msg::more_dead_links, std::to_string(dead.size() - most_reports));
}
