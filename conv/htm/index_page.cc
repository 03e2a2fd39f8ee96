// A small index is one page; a large one has a page for each letter, or several where a letter has
// more than a page should hold.

#include "conv/htm/index_page.h"

#include <algorithm>

#include "conv/atc/qualified_name.h"
#include "conv/htm/html_text.h"

namespace {

using V = gVltValue;

constexpr std::size_t few_entries = 600; // that fit on one page
constexpr std::size_t page_bytes = 60000;
// Of one key. Nobody reads on beyond them, and each place has an entry by its full name.
constexpr std::size_t most_places = 200;

using gKeys = std::span<gIndexKey const>;
using gPlaceList = std::vector<gIndexPlace>;

// The keys with the same letter; all that begin with none are together.
struct gLetter {
  std::string id, title; // "a" and "A"; "other" and "#"
  gKeys keys;
};

std::vector<gLetter> letters_of(gKeys keys) {
  std::vector<gLetter> letters;
  while (!keys.empty()) {
    std::string const & title = keys[0].letter;
    std::size_t count = 1;
    while (count < keys.size() && keys[count].letter == title)
      ++count;
    letters.push_back({title == "#" ? "other" : Vlb::to_lower(title), title, keys.first(count)});
    keys = keys.subspan(count);
  }
  return letters;
}

// The places of an entry: one makes the entry itself a link, several are listed.
struct gPlaceTexts {
  std::string href, target, scope, kind, list;

  void give(gVltValues & values) const {
    values.set(V::title, scope).set(V::href, href).set(V::target, target).set(V::kind, kind);
  }
};

class gIndexText {
public:
  gIndexText(gSite const & site, bool simple) : site_(site), simple_(simple) {}

  void add_key(gIndexKey const & key, std::string & out) const {
    std::string const text = Html::escaped(key.text);
    gPlaceTexts const places = places_of(key.places, key.text);
    std::string phrases;
    for (gIndexPhrase const & phrase : key.phrases)
      add_phrase(phrase, phrases);
    gVltValues values;
    places.give(values);
    values.set(V::key, text).set(V::text, places.list).set(V::items, phrases);
    site_.rules.apply(gVltRule::index_key, values, out);
  }

private:
  std::string href(gIndexPlace const & place) const {
    if (simple_)
      return site_.addresses.file(site_.pages.of(place.unit));
    std::string const & anchor = site_.entries.of(place.label);
    return anchor.empty() ? site_.addresses.href(place.unit)
                          : site_.addresses.href(place.unit, anchor, -1);
  }
  // A list of places with the names of members alone would say the same again and again.
  std::string title_of(gIndexPlace const & place) const {
    gUnitRecord const & record = site_.unit(place.unit);
    return Html::escaped(Site::is_named(record) ? record.name : record.title);
  }
  void add_phrase(gIndexPhrase const & phrase, std::string & out) const {
    std::string const text = Html::escaped(phrase.text);
    gPlaceTexts const places = places_of(phrase.places, {});
    gVltValues values;
    places.give(values);
    values.set(V::text, text).set(V::items, places.list);
    site_.rules.apply(gVltRule::index_second, values, out);
  }
  gPlaceTexts places_of(gPlaceList const & all, std::string_view key) const {
    gPlaceTexts texts;
    gPlaceList const places = one_of_each(all);
    if (places.size() == 1) {
      texts.href = href(places[0]);
      texts.target = title_of(places[0]);
      texts.scope = scope_beside(places[0], key);
      texts.kind = site_.kinds.of(places[0].unit).word;
      return texts;
    }
    for (std::size_t i = 0; i < std::min(places.size(), most_places); ++i)
      add_place(places[i], key, i + 1, texts.list);
    if (places.size() > most_places) {
      std::string const count = site_.number(places.size() - most_places);
      gVltValues more;
      more.set(V::href, "contents.htm").set(V::count, count);
      site_.rules.apply(gVltRule::index_more, more, texts.list);
    }
    return texts;
  }
  // The page of a class has its constructors.
  bool is_told_by_class(gIndexPlace const & place, gPlaceList const & places) const {
    gUnitRecord const & record = site_.unit(place.unit);
    if (site_.kinds.of(place.unit).selector != "constructor")
      return false;
    std::string_view const scope = Atc::scope_of(record);
    return std::ranges::any_of(
        places, [&](gIndexPlace const & other) { return site_.unit(other.unit).name == scope; });
  }
  // Overloads are one place, the first of them.
  gPlaceList one_of_each(gPlaceList const & places) const {
    gPlaceList result;
    std::size_t const few = 1000; // of more, each is looked at alone
    for (gIndexPlace const & place : places)
      if (places.size() <= few && is_told_by_class(place, places))
        continue;
      else if (result.empty() || !Site::joins(site_, {result.back().unit, 1, {}}, place.unit))
        result.push_back(place);
    return result;
  }
  // What a name stands in, where the name itself is the key; else nothing.
  std::string scope_beside(gIndexPlace const & place, std::string_view key) const {
    gUnitRecord const & record = site_.unit(place.unit);
    bool const told = record.facts.known && key == Atc::last_component(record);
    return told ? Html::escaped(Atc::scope_of(record)) : std::string();
  }
  // Of names without a scope their sources tell them apart.
  std::string title_beside(gIndexPlace const & place, std::string_view key) const {
    gUnitRecord const & record = site_.unit(place.unit);
    if (!record.facts.known || key != record.name)
      return title_of(place);
    return Html::escaped(site_.sources.shown(record.path));
  }
  void add_place(gIndexPlace const & place, std::string_view key, std::size_t number,
                 std::string & out) const {
    std::string const to = href(place), index = std::to_string(number);
    std::string title = scope_beside(place, key);
    if (title.empty())
      title = title_beside(place, key);
    gVltValues values;
    values.set(V::href, to).set(V::title, title).set(V::number, index);
    values.set(V::kind, site_.kinds.of(place.unit).word);
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
      std::string list;
      for (gIndexKey const & key : letter.keys)
        texts_.add_key(key, list);
      wrap_letter(letter, list, items);
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
    gKeys keys = letter.keys;
    for (std::size_t part = 0; !keys.empty(); ++part) {
      std::size_t count = 0;
      std::string list, items;
      while (count < keys.size() && list.size() < page_bytes)
        texts_.add_key(keys[count++], list);
      std::string const range = keys[0].text + " – " + keys[count - 1].text;
      keys = keys.subspan(count);
      add_range(range, file(letter, part), range_links);
      wrap_letter(letter, list, items);
      write_page(file(letter, part), title_ + ": " + range, links(letter.id, {}), items,
                 part > 0 ? neighbour(letter, part - 1) : gNeighbour(),
                 keys.empty() ? gNeighbour() : neighbour(letter, part + 1));
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

// "Box::add" beside "add" says nothing more.
bool repeats_a_name(gSite const & site, gIndexKey const & key) {
  return key.phrases.empty() && !key.places.empty() &&
         std::ranges::all_of(key.places, [&](gIndexPlace const & place) {
           gUnitRecord const & record = site.unit(place.unit);
           return record.facts.known && key.text == record.name && !Atc::scope_of(record).empty();
         });
}

} // namespace

void Index::write(gPageWriter & writer, gSite const & site, gNavigation const & navigation,
                  std::vector<gIndexKey> keys, bool simple) {
  std::erase_if(keys, [&](gIndexKey const & key) { return repeats_a_name(site, key); });
  std::vector<gLetter> const letters = letters_of(keys);
  gIndexPages pages(writer, site, navigation, letters, simple);
  std::size_t entries = 0;
  for (gIndexKey const & key : keys)
    entries += 1 + key.phrases.size();
  if (entries <= few_entries)
    pages.write_one();
  else
    pages.write_many();
}
