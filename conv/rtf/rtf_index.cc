// The index as it stands at the end of a document.

#include "conv/rtf/rtf_document.h"

#include "conv/rtf/rtf_text.h"
#include "conv/set/index_lines.h"

using V = gVltValue;

namespace {

// A unit that stands in the document twice is none.
bool overloads(gUnitRecord const & one, gUnitRecord const & other) {
  return !one.name.empty() && one.name == other.name && one.parent == other.parent &&
         (one.source_line != other.source_line || one.path != other.path);
}

} // namespace

std::string gRtfDocument::index() const {
  std::string letter, keys, items;
  auto const end_letter = [&] {
    if (!keys.empty())
      rules_.apply(gVltRule::index_letter, gVltValues().set(V::title, letter).set(V::items, keys),
                   items);
    keys.clear();
  };
  for (gIndexKey const & key : Index::keys_of(document_, conversion_.input().index_place_holder)) {
    if (key.letter != letter)
      end_letter();
    letter = key.letter;
    std::string phrases;
    for (gIndexPhrase const & phrase : key.phrases) {
      std::string const text = setter_.escaped(phrase.text), places = index_places(phrase.places);
      rules_.apply(gVltRule::index_second, gVltValues().set(V::text, text).set(V::items, places),
                   phrases);
    }
    std::string const text = setter_.escaped(key.text), places = index_places(key.places);
    gVltValues values;
    values.set(V::key, text).set(V::text, places).set(V::items, phrases);
    rules_.apply(gVltRule::index_key, values, keys);
  }
  end_letter();
  std::string out;
  if (!items.empty())
    rules_.apply(gVltRule::document_index,
                 gVltValues().set(V::items, items).set(V::mark, heads_differ_ ? "1" : ""), out);
  return out;
}

std::string gRtfDocument::index_places(std::vector<gIndexPlace> const & places) const {
  std::string out;
  int index = 0;
  gUnitRecord const * before = nullptr;
  for (gIndexPlace const & place : places) {
    gUnitRecord const & unit = document_.units[static_cast<std::size_t>(place.unit)];
    if (before && overloads(*before, unit))
      continue; // likely on the same page
    before = &unit;
    std::string const href = Rtf::bookmark(place.label.empty() ? unit.label : place.label);
    std::string const number = std::to_string(++index), title = setter_.escaped(unit.title);
    gVltValues values;
    values.set(V::href, href).set(V::number, number).set(V::title, title);
    rules_.apply(gVltRule::index_place, values, out);
  }
  return out;
}
