// Changes gNamedUnits and gUnnamedUnits.
// Who refers to a page, a topic or a section without words of his own means its title: an
// identifier says nothing to a reader.

#include <unordered_map>

#include "ana/anadat/pieces.h"
#include "ana/anadat/tables.h"
#include "ana/read/rich_pieces.h"
#include "ana/stages.h"
#include "app/options/run_flags.h"

namespace {

// What stands in the brace that the text begins with; empty if it doesn't end here.
std::string_view braced(std::string_view text) {
  int depth = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\\')
      ++at;
    else
      depth += (text[at] == '{') - (text[at] == '}');
    if (depth == 0)
      return text.substr(1, at - 1);
  }
  return {};
}

// It stands in front of the first place, in many pieces.
std::string own_headline(gSubText const & text) {
  std::string front;
  for (cRef<gString> const & piece : text) {
    if (Vlb::piece_kind(*piece) != gPiece::plain)
      break;
    front += *piece;
  }
  constexpr std::string_view command = "@hdline";
  std::size_t const at = front.find(command);
  std::size_t const brace = at == front.npos ? at : front.find('{', at);
  return brace == front.npos ? std::string()
                             : std::string(braced(std::string_view(front).substr(brace)));
}

template <class Use> void each_unit(Use use) {
  for (auto const * table : {&gNamedUnits, &gUnnamedUnits})
    for (auto const & file : *table)
      for (auto const & [place, unit] : *file.value)
        use(*unit);
}

class Titles {
public:
  void run();

private:
  void collect(gDocUnit const & unit, gSubText const & text);
  bool refers(gStrList const & text) const;
  void put_titles(gStrList & text) const;
  std::string shown(gString const & target, std::string_view text) const;

  std::unordered_map<std::string, std::string> titles_; // in intermediate code, by place
};

// A headline directly behind a place; that of the text itself in front of its own.
void Titles::collect(gDocUnit const & unit, gSubText const & text) {
  if (gString const & topic = unit.get_attr("TOPIC"); topic != "undefined")
    titles_.emplace(topic, own_headline(text));
  for (auto it = text.begin(); it != text.end(); ++it) {
    if (Vlb::piece_kind(**it) != gPiece::bookmark || std::distance(it, text.end()) < 4)
      continue;
    gString const & place = **++it;
    std::string_view const behind = **std::next(it, 2);
    std::size_t const at = behind.find_first_not_of(" \n");
    for (std::string_view const word : {"@sub<", "@subentry<2> @subtitle"})
      if (at != behind.npos && behind.substr(at).starts_with(word))
        titles_.emplace(place,
                        braced(behind.substr(std::min(behind.find('{', at), behind.size()))));
    ++it;
  }
}

bool Titles::refers(gStrList const & text) const {
  for (auto it = text.begin(); it != text.end(); ++it)
    if (Vlb::piece_kind(**it) == gPiece::reference && std::distance(it, text.end()) > 3 &&
        !shown(**std::next(it, 2), **std::next(it, 3)).empty())
      return true;
  return false;
}

// The text behind a reference with the title in place of the identifier; empty if it has words.
std::string Titles::shown(gString const & target, std::string_view text) const {
  constexpr std::string_view head = "{@tt{", tail = "} } ";
  if (!text.starts_with(head))
    return {};
  std::string_view const name = braced(text.substr(head.size() - 1));
  auto const title = titles_.find(place_name(target));
  if (title == titles_.end() || title->second.empty() ||
      !text.substr(head.size() + name.size()).starts_with(tail) ||
      place_name(name) != place_name(target))
    return {};
  return "{" + title->second + "} " +
         std::string(text.substr(head.size() + name.size() + tail.size()));
}

void Titles::put_titles(gStrList & text) const {
  for (auto it = text.begin(); it != text.end(); ++it) {
    if (Vlb::piece_kind(**it) != gPiece::reference || std::distance(it, text.end()) < 4)
      continue;
    auto const target = std::next(it, 2);
    it = std::next(it, 3);
    if (std::string const words = shown(**target, **it); !words.empty())
      text.set(it, gString(words));
  }
}

void Titles::run() {
  each_unit([&](gDocUnit const & unit) {
    for (gSubEntries::Entry const & entry : unit.subentries())
      if (Vlb::has_piece(entry.text, gPiece::bookmark))
        collect(unit, entry.text);
  });
  if (titles_.empty())
    return;
  each_unit([&](gDocUnit & unit) {
    Vapp::poll_break();
    std::vector<gString> names;
    for (gSubEntries::Entry const & entry : std::as_const(unit).subentries())
      if (refers(entry.text))
        names.push_back(*entry.name);
    for (gString const & name : names)
      put_titles(*unit.subentries().find(name));
  });
}

} // namespace

void ana_title_references() {
  Titles().run();
}
