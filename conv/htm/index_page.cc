// A small index is one page; a large one has a page for each letter, or several where a letter has
// more than a page should hold.

#include "conv/htm/index_page.h"

#include <algorithm>

#include "conv/htm/html_text.h"

namespace {

using V = gVltValue;

constexpr std::size_t few_entries = 600; // that fit on one page
constexpr std::size_t page_bytes = 60000;
// Of one key. Nobody reads on beyond them, and each place has an entry by its full name.
constexpr std::size_t most_places = 200;

using gLines = std::span<gIndexLine const>;

// The entries with the same letter; all that begin with none are together.
struct gLetter {
  std::string id, title; // "a" and "A"; "other" and "#"
  gLines lines;
};

std::vector<gLetter> letters_of(gLines lines) {
  std::vector<gLetter> letters;
  while (!lines.empty()) {
    char const first = lines[0].sort[0];
    std::size_t count = 1;
    while (count < lines.size() && lines[count].sort[0] == first)
      ++count;
    bool const other = !Vlb::is_letter(first);
    letters.push_back({other ? "other" : std::string(1, first),
                       other ? "#" : std::string(1, Vlb::upper(first)), lines.first(count)});
    lines = lines.subspan(count);
  }
  return letters;
}

gLines take_while_same(gLines & lines, std::string gIndexLine::*field) {
  std::size_t count = 1;
  while (count < lines.size() && lines[count].*field == lines[0].*field)
    ++count;
  gLines const taken = lines.first(count);
  lines = lines.subspan(count);
  return taken;
}

// The places of an entry: one makes the entry itself a link, several are listed.
struct gPlaceTexts {
  std::string href, target, kind, list;

  void give(gVltValues & values) const {
    values.set(V::href, href).set(V::target, target).set(V::kind, kind);
  }
};

class gIndexText {
public:
  gIndexText(gSite const & site, bool simple) : site_(site), simple_(simple) {}

  // All entries of a key, which are taken from the front.
  std::string take_key(gLines & all) const {
    gLines lines = take_while_same(all, &gIndexLine::key);
    std::string const text = Html::escaped(lines[0].key);
    gPlaceTexts places;
    if (lines[0].phrase.empty())
      places = places_of(take_while_same(lines, &gIndexLine::phrase));
    std::string seconds;
    while (!lines.empty())
      add_second(take_while_same(lines, &gIndexLine::phrase), seconds);
    gVltValues values;
    places.give(values);
    values.set(V::key, text).set(V::text, places.list).set(V::items, seconds);
    std::string out;
    site_.rules.apply(gVltRule::index_key, values, out);
    return out;
  }

private:
  std::string href(gIndexLine const & line) const {
    if (simple_)
      return site_.addresses.file(site_.pages.of(line.unit));
    return line.anchor.empty() ? site_.addresses.href(line.unit)
                               : site_.addresses.href(line.unit, line.anchor, -1);
  }
  void add_second(gLines lines, std::string & out) const {
    std::string const text = Html::escaped(lines[0].phrase);
    gPlaceTexts const places = places_of(lines);
    gVltValues values;
    places.give(values);
    values.set(V::text, text).set(V::items, places.list);
    site_.rules.apply(gVltRule::index_second, values, out);
  }
  gPlaceTexts places_of(gLines lines) const {
    gPlaceTexts texts;
    if (lines.size() == 1) {
      texts.href = href(lines[0]);
      texts.target = Html::escaped(site_.unit(lines[0].unit).title);
      texts.kind = site_.kinds.of(lines[0].unit).word;
      return texts;
    }
    int number = 0;
    for (gIndexLine const & line : lines.first(std::min(lines.size(), most_places)))
      add_place(line, ++number, texts.list);
    if (lines.size() > most_places) {
      std::string const count = std::to_string(lines.size() - most_places);
      gVltValues more;
      more.set(V::href, "contents.htm").set(V::count, count);
      site_.rules.apply(gVltRule::index_more, more, texts.list);
    }
    return texts;
  }
  void add_place(gIndexLine const & line, int number, std::string & out) const {
    std::string const to = href(line), index = std::to_string(number);
    std::string const title = Html::escaped(site_.unit(line.unit).title);
    gVltValues values;
    values.set(V::href, to).set(V::title, title).set(V::number, index);
    values.set(V::kind, site_.kinds.of(line.unit).word);
    site_.rules.apply(gVltRule::index_place, values, out);
  }

  gSite const & site_;
  bool simple_;
};

// The pages of an index.
class gIndexPages {
public:
  gIndexPages(gPageWriter & writer, gSite const & site, gNavigation const & navigation,
              std::vector<gLetter> const & letters, bool simple)
      : writer_(writer),
        site_(site),
        navigation_(navigation),
        letters_(letters),
        texts_(site, simple),
        title_(site.rules.setting("index_title", "Index")) {}

  void write_one() {
    std::string items;
    for (gLetter const & letter : letters_) {
      std::string keys;
      for (gLines lines = letter.lines; !lines.empty();)
        keys += texts_.take_key(lines);
      wrap_letter(letter, keys, items);
    }
    write_page("idx.htm", title_, links({}, "#idx-"), items);
  }
  void write_many() {
    std::string ranges;
    for (gLetter const & letter : letters_)
      write_letter(letter, ranges);
    write_page("idx.htm", title_, links({}, {}), ranges);
  }

private:
  static std::string file(gLetter const & letter, std::size_t part) {
    return "idx-" + letter.id + (part > 0 ? "-" + std::to_string(part + 1) : "") + ".htm";
  }
  static gNeighbour neighbour(gLetter const & letter, std::size_t part) {
    return {file(letter, part), letter.title + " " + std::to_string(part + 1)};
  }
  // To all letters: to their places if `anchor` is given, else to their pages.
  std::string links(std::string_view current, std::string_view anchor) const {
    std::string out;
    for (gLetter const & letter : letters_) {
      std::string const to = anchor.empty() ? file(letter, 0) : std::string(anchor) + letter.id;
      gVltValues values;
      values.set(V::href, to).set(V::title, letter.title);
      values.set(V::current, letter.id == current ? "1" : "");
      site_.rules.apply(gVltRule::index_link, values, out);
    }
    return out;
  }
  void wrap_letter(gLetter const & letter, std::string const & items, std::string & out) const {
    std::string const id = "idx-" + letter.id;
    gVltValues values;
    values.set(V::id, id).set(V::title, letter.title).set(V::items, items);
    site_.rules.apply(gVltRule::index_letter, values, out);
  }
  void add_range(std::string const & range, std::string const & file, std::string & out) const {
    std::string const text = Html::escaped(range);
    gVltValues values;
    values.set(V::key, text).set(V::href, file);
    site_.rules.apply(gVltRule::index_key, values, out);
  }
  void write_letter(gLetter const & letter, std::string & ranges) {
    std::string range_links;
    gLines lines = letter.lines;
    for (std::size_t part = 0; !lines.empty(); ++part) {
      gLines const before = lines;
      std::string keys, items;
      while (!lines.empty() && keys.size() < page_bytes)
        keys += texts_.take_key(lines);
      gIndexLine const & last = before[before.size() - lines.size() - 1];
      std::string const range = before[0].key + " – " + last.key;
      add_range(range, file(letter, part), range_links);
      wrap_letter(letter, keys, items);
      write_page(file(letter, part), title_ + ": " + range, links(letter.id, {}), items,
                 part > 0 ? neighbour(letter, part - 1) : gNeighbour(),
                 lines.empty() ? gNeighbour() : neighbour(letter, part + 1));
    }
    wrap_letter(letter, range_links, ranges);
  }
  void write_page(std::string const & name, std::string const & title, std::string const & nav,
                  std::string const & items, gNeighbour before = {}, gNeighbour behind = {}) {
    gPageFrame frame;
    frame.style = "index";
    frame.file = name;
    frame.title = title;
    frame.crumbs = navigation_.crumbs(-1, title_, "");
    frame.contents = navigation_.tree(-1);
    frame.previous = std::move(before);
    frame.next = std::move(behind);
    std::string const shown = Html::escaped(title);
    gVltValues values;
    values.set(V::title, shown).set(V::text, nav).set(V::items, items);
    site_.rules.apply(gVltRule::index_page, values, frame.content);
    writer_.write(frame);
  }

  gPageWriter & writer_;
  gSite const & site_;
  gNavigation const & navigation_;
  std::vector<gLetter> const & letters_;
  gIndexText texts_;
  std::string title_;
};

} // namespace

void Index::write(gPageWriter & writer, gSite const & site, gNavigation const & navigation,
                  std::vector<gIndexLine> const & lines, bool simple) {
  std::vector<gLetter> const letters = letters_of(lines);
  gIndexPages pages(writer, site, navigation, letters, simple);
  if (lines.size() <= few_entries)
    pages.write_one();
  else
    pages.write_many();
}
