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

struct gPlace {
  std::string file, anchor;
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
  std::size_t const colon = href.find(':');
  return href.starts_with("//") || (colon != href.npos && colon < href.find_first_of("/?#"));
}

// The path from the folder of a page, without steps up.
std::string joined(std::string_view from, std::string path) {
  std::string_view folder = from.substr(0, from.rfind('/') + 1); // npos + 1 is 0
  std::size_t begin = 0;
  for (;;) {
    if (path.compare(begin, 2, "./") == 0) {
      begin += 2;
    } else if (path.compare(begin, 3, "../") == 0) {
      begin += 3;
      folder.remove_suffix(folder.empty() ? 0 : 1);
      folder = folder.substr(0, folder.rfind('/') + 1);
    } else {
      break;
    }
  }
  return std::string(folder) + path.substr(begin);
}

gPlace place_of(std::string_view from, std::string_view href) {
  std::size_t const sign = href.find('#');
  std::string const path = decoded(href.substr(0, std::min(sign, href.find('?'))));
  std::string const anchor = sign == href.npos ? std::string() : decoded(href.substr(sign + 1));
  return {path.empty() ? std::string(from) : joined(from, path), anchor};
}

// Calls `work` with name, value and line of each attribute of each tag.
void each_attribute(std::string_view html, auto const & work) {
  std::uint32_t line = 1;
  std::size_t counted = 0;
  for (std::size_t at = html.find('<'); at < html.size(); at = html.find('<', at)) {
    line += static_cast<std::uint32_t>(std::count(html.data() + counted, html.data() + at, '\n'));
    counted = at;
    if (html.substr(at).starts_with("<!--")) {
      at = std::min(html.find("-->", at), html.size() - 1) + 1;
      continue;
    }
    for (++at; at < html.size() && html[at] != '>';) {
      std::size_t const sign = html.find_first_of("=>", at);
      if (sign == html.npos || sign + 1 >= html.size())
        return;
      if (html[sign] == '>') {
        at = sign;
        continue;
      }
      std::size_t const blank = html.find_last_of(" \t\n<", sign) + 1;
      char const quote = html[sign + 1];
      if (quote != '"' && quote != '\'') {
        at = sign + 1;
        continue;
      }
      std::size_t const end = html.find(quote, sign + 2);
      if (end == html.npos)
        return;
      work(html.substr(blank, sign - blank), html.substr(sign + 2, end - sign - 2), line);
      at = end + 1;
    }
  }
}

} // namespace

gLinkCheck::gHash gLinkCheck::hash_of(std::string_view file, std::string_view anchor) {
  gHash hash = 14695981039346656037U; // FNV-1a
  auto const add = [&hash](char c) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  };
  std::ranges::for_each(file, add);
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

void gLinkCheck::add_page(std::string const & file, std::string_view html) {
  std::vector<gHash> places = {hash_of(file, {})};
  std::vector<std::pair<gHash, std::uint32_t>> links;
  each_attribute(html, [&](std::string_view name, std::string_view value, std::uint32_t line) {
    if (name == "id") {
      places.push_back(hash_of(file, decoded(value)));
    } else if ((name == "href" || name == "src") && !leads_outside(value)) {
      gPlace const place = place_of(file, value);
      links.emplace_back(hash_of(place.file, place.anchor), line);
    }
  });
  std::lock_guard const lock(mutex_);
  auto const page = static_cast<std::uint32_t>(pages_.size());
  pages_.push_back(file);
  places_.insert(places.begin(), places.end());
  for (auto const & [to, line] : links)
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
    each_attribute(html, [&](std::string_view name, std::string_view value, std::uint32_t line) {
      if (line != way.line || (name != "href" && name != "src") || leads_outside(value))
        return;
      gPlace const place = place_of(page, value);
      bool const is_file =
          place.anchor.empty() && gFileSystem::file_exists(conversion.written(place.file));
      if (hash_of(place.file, place.anchor) == hash && !is_file)
        dead.push_back({page, std::string(value), line});
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
