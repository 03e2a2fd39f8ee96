// Line by line, so that the memory needed is that of one page. A line where a documented thing
// begins leads back to its documentation.

#include "conv/htm/source_pages.h"

#include <algorithm>

#include "conv/atc/encoding.h"
#include "conv/htm/html_text.h"
#include "vlb/source_bytes.h"

namespace {

using V = gVltValue;

std::string_view next_line(std::string_view & text) {
  std::size_t const end = std::min(text.find('\n'), text.size());
  std::string_view const line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

// Bytes beside the text of the lines, and those of them that links back may take in a page that has
// no room for colours.
constexpr std::size_t most_markup = 80000, most_links = 20000;
// Bytes of links from names, and the lines in which one of them is enough.
constexpr std::size_t most_name_links = 24000, lines_of_a_screen = 25;

std::size_t text_size(std::vector<std::string_view> const & lines) {
  std::size_t size = 0;
  for (std::string_view const line : lines)
    size += line.size() + 1;
  return size;
}

gNeighbour part_link(gSource const & source, std::size_t part, std::string const & title) {
  return {"../" + gSourceAddresses::page(source, part),
          Html::escaped(title) + " " + std::to_string(part + 1)};
}

} // namespace

gSourcePages::gUnits gSourcePages::units_of(gSite const & site) {
  gUnits units;
  for (int unit = 0; unit < static_cast<int>(site.document.units.size()); ++unit)
    units[site.unit(unit).path].push_back(unit);
  return units;
}

gSourcePages::gSourcePages(gConversion & conversion, gSite const & site, gColours const & colours,
                           gNavigation const & navigation, gUnits const & units,
                           gKnownWords const & words, gIncludes const & includes)
    : site_(site),
      colours_(colours),
      navigation_(navigation),
      words_(words),
      includes_(includes),
      writer_(conversion, site),
      units_(units) {}

void gSourcePages::write(gSource const & source) {
  std::string bytes, text;
  if (Vlb::read_source(source.path, bytes))
    Atc::append_utf8(bytes, text);
  write_source(source, text);
}

void gSourcePages::write_source(gSource const & source, std::string_view text) {
  gUnitLines units;
  if (auto const found = units_.find(source.path); found != units_.end())
    for (int const unit : found->second)
      units.try_emplace(static_cast<std::size_t>(site_.unit(unit).source_line), unit);
  path_ = source.path;
  language_ = gColours::language_of(path_);
  gColours::gState state = 0;
  std::string items;
  for (std::size_t number = 0; number < gSourceAddresses::parts(source); ++number) {
    gPart part{number * gSourceAddresses::lines_per_page, {}};
    std::size_t const end = std::min(part.first + gSourceAddresses::lines_per_page, source.lines);
    while (part.first + part.lines.size() < end)
      part.lines.push_back(next_line(text));
    gColours::gState const before = state;
    set_lines(part, units, true, state, items);
    if (items.size() > text_size(part.lines) + most_markup) {
      gColours::gState again = before;
      set_lines(part, units, false, again, items);
    }
    write_part(source, number, units, items);
  }
}

void gSourcePages::set_line(std::string_view line, std::size_t number, gColours::gState & state,
                            std::string & text) {
  colours_.split(language_, line, state, stretches_);
  for (gColoured const & stretch : stretches_)
    if (stretch.colour != gColour::word || !link_word(stretch.text, number, text))
      colours_.set(stretch, text);
}

// Where it is declared, a name would lead to what links back here.
bool gSourcePages::is_declared_in(int unit, std::size_t number) const {
  gUnitRecord const & one = site_.unit(unit);
  return static_cast<std::size_t>(one.source_line) == number && one.path == path_;
}

// A page full of links is slow, and hard to read.
bool gSourcePages::link_word(std::string_view word, std::size_t number, std::string & text) {
  int const unit = words_.unit_of(word);
  if (unit < 0 || link_bytes_ > most_name_links || is_declared_in(unit, number))
    return false;
  auto const [last, added] = linked_.try_emplace(word, number);
  if (!added && number < last->second + lines_of_a_screen)
    return false;
  last->second = number;
  std::string const to = "../" + site_.addresses.href(unit), name = Html::escaped(word);
  link_bytes_ += to.size() + name.size();
  site_.rules.apply(gVltRule::name_link, gVltValues().set(V::text, name).set(V::href, to), text);
  return true;
}

// Without colours links back are set as long as there is room for them.
void gSourcePages::set_lines(gPart const & part, gUnitLines const & units, bool coloured,
                             gColours::gState & state, std::string & items) {
  items.clear();
  linked_.clear();
  link_bytes_ = 0;
  std::size_t links = 0;
  std::string text, href, title;
  for (std::size_t i = 0; i < part.lines.size(); ++i) {
    text.clear();
    std::size_t const number = part.first + i + 1;
    if (coloured)
      set_line(part.lines[i], number, state, text);
    else
      Html::escape(part.lines[i], text);
    std::string const digits = std::to_string(number), id = "L" + digits;
    gVltValues values;
    values.set(V::id, id).set(V::line, digits).set(V::number, digits).set(V::text, text);
    auto const found = units.find(number);
    if (found != units.end() && (coloured || links < most_links)) {
      href = "../" + site_.addresses.href(found->second);
      title = Html::escaped(site_.unit(found->second).title);
      links += href.size() + title.size();
      values.set(V::href, href).set(V::title, title);
    }
    site_.rules.apply(gVltRule::source_line, values, items);
  }
}

// What is declared on a page. Of more than fit beside it, types and namespaces alone.
std::string gSourcePages::outline_of(gSource const & source, std::size_t part,
                                     gUnitLines const & units) const {
  constexpr std::size_t most = 120;
  std::size_t const first = part * gSourceAddresses::lines_per_page + 1;
  auto const begin = units.lower_bound(first);
  auto const end =
      units.lower_bound(std::min(first + gSourceAddresses::lines_per_page, source.lines + 1));
  bool const long_list = static_cast<std::size_t>(std::distance(begin, end)) > most;
  std::string items, out;
  std::size_t count = 0;
  for (auto at = begin; at != end && count < most; ++at) {
    gKind const & kind = site_.kinds.of(at->second);
    bool const inner = !site_.unit(at->second).facts.access.empty();
    if (long_list && inner)
      continue;
    ++count;
    std::string const href = "#L" + std::to_string(at->first);
    std::string const title = Html::breakable(Site::contents_title(site_.unit(at->second)));
    gVltValues values;
    values.set(V::href, href).set(V::title, title).set(V::level, inner ? "2" : "1");
    values.set(V::kind, kind.word).set(V::kind_class, kind.css);
    site_.rules.apply(gVltRule::toc_item, kind.selector, values, items);
  }
  if (count > 1)
    site_.rules.apply(gVltRule::toc, gVltValues().set(V::items, items), out);
  return out;
}

void gSourcePages::write_part(gSource const & source, std::size_t part, gUnitLines const & units,
                              std::string const & items) {
  gPageFrame frame;
  frame.style = "source";
  frame.file = gSourceAddresses::page(source, part);
  frame.title = source.shown;
  frame.on_page = outline_of(source, part, units);
  int const page = includes_.page_of(source.path);
  frame.crumbs =
      page < 0 ? navigation_.crumbs(-1, source.shown, "../")
               : navigation_.crumbs(page, site_.rules.setting("source_title", "Source"), "../");
  if (part > 0)
    frame.previous = part_link(source, part - 1, source.shown);
  if (part + 1 < gSourceAddresses::parts(source))
    frame.next = part_link(source, part + 1, source.shown);
  std::string const title = Html::escaped(source.shown);
  std::string const lines = std::to_string(source.lines);
  std::string const count = std::to_string(gSourceAddresses::parts(source));
  std::string const number = std::to_string(part + 1);
  gVltValues values;
  values.set(V::title, title).set(V::path, title).set(V::items, items).set(V::count, lines);
  values.set(V::columns, count).set(V::number, number);
  site_.rules.apply(gVltRule::source_page, values, frame.content);
  writer_.write(frame);
}
