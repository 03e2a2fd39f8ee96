// Places are kept as hashes, so that a large site costs some bytes a link. The words of a dead link
// are found in its page again, which is rare.

#include "conv/htm/link_check.h"

#include <algorithm>
#include <tuple>

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

// Counts line feeds on the way through a text, as far as somebody asks.
class gLineCount {
public:
  explicit gLineCount(std::string_view text) : text_(text) {}
  // Places have to ascend.
  std::uint32_t line_at(std::size_t place) {
    line_ +=
        static_cast<std::uint32_t>(std::count(text_.data() + counted_, text_.data() + place, '\n'));
    counted_ = place;
    return line_;
  }

private:
  std::string_view text_;
  std::size_t counted_ = 0;
  std::uint32_t line_ = 1;
};

bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\n';
}

// Calls `work` with name, value and tag of each attribute; the tag as its place in the page.
void each_attribute(std::string_view html, auto const & work) {
  for (std::size_t at = html.find('<'); at < html.size(); at = html.find('<', at)) {
    if (html.substr(at, 4) == "<!--") {
      at = std::min(html.find("-->", at), html.size() - 1) + 1;
      continue;
    }
    std::size_t const tag = at;
    std::size_t name = ++at;
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

gLinkCheck::gHash gLinkCheck::hash_of(std::initializer_list<std::string_view> file,
                                      std::string_view anchor) {
  gHash hash = 14695981039346656037U; // FNV-1a
  auto const add = [&hash](char c) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  };
  for (std::string_view const part : file)
    std::ranges::for_each(part, add);
  if (!anchor.empty())
    add('#');
  std::ranges::for_each(anchor, add);
  return hash;
}

void gLinkCheck::add_link(gHash to, gWay way) {
  auto const [at, added] = links_.try_emplace(to, way);
  gWay & known = at->second;
  auto const order = [this](gWay const & one) { return std::tie(pages_[one.page], one.line); };
  if (!added && order(way) < order(known))
    known = way;
}

// A place that is known by now needs no link to it to be kept.
void gLinkCheck::add_page(std::string const & file, std::string_view html) {
  std::vector<gHash> places = {hash_of({file}, {})};
  std::vector<std::pair<gHash, std::uint32_t>> links;
  gLinkReader reader;
  gLineCount lines(html);
  each_attribute(html, [&](std::string_view name, std::string_view value, std::size_t tag) {
    if (name == "id") {
      places.push_back(hash_of({file}, reader.anchor_of(value)));
    } else if ((name == "href" || name == "src") && !leads_outside(value)) {
      gPlace const place = reader.place_of(file, value);
      links.emplace_back(hash_of({place.folder, place.path}, place.anchor), lines.line_at(tag));
    }
  });
  std::lock_guard const lock(mutex_);
  auto const page = static_cast<std::uint32_t>(pages_.size());
  pages_.push_back(file);
  places_.insert(places.begin(), places.end());
  for (auto const & [to, line] : links)
    if (!places_.contains(to))
      add_link(to, {page, line});
}

void gLinkCheck::report(gConversion const & conversion) const {
  struct gDead {
    std::string page, href;
    std::uint32_t line;
    auto operator<=>(gDead const &) const = default;
  };
  std::vector<gDead> dead;
  for (auto const & link : links_) {
    gHash const hash = link.first;
    gWay const way = link.second;
    if (places_.contains(hash))
      continue;
    std::string html;
    std::string const & page = pages_[way.page];
    gFileSystem::read_file(conversion.written(page), html);
    gLinkReader reader;
    gLineCount lines(html);
    each_attribute(html, [&](std::string_view name, std::string_view value, std::size_t tag) {
      if ((name != "href" && name != "src") || lines.line_at(tag) != way.line ||
          leads_outside(value))
        return;
      gPlace const place = reader.place_of(page, value);
      bool const is_file =
          place.anchor.empty() && gFileSystem::file_exists(conversion.written(place.file()));
      if (hash_of({place.folder, place.path}, place.anchor) == hash && !is_file)
        dead.push_back({page, std::string(value), way.line});
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
