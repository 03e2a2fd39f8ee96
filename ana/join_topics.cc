// Reads gCodeElems. Changes gNamedUnits and gUnnamedUnits.
// Several comments may tell of one topic: the one that defines it takes the texts of the others.
// Pages that another page names as those below it learn of it. Who names a topic that nobody
// defines hears of it once.

#include <algorithm>
#include <map>

#include "ana/anadat/pieces.h"
#include "ana/anadat/tables.h"
#include "ana/stages.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

constexpr std::string_view undefined = "undefined";

template <class Use> void each_word(std::string_view words, Use use) {
  while (!words.empty()) {
    std::size_t const end = std::min(words.find(' '), words.size());
    use(gString(words.substr(0, end)));
    words.remove_prefix(std::min(end + 1, words.size()));
  }
}

class Topics {
public:
  void run();

private:
  using Units = std::vector<cRef<gDocUnit>>;

  void collect();
  void join(Units & units);
  void place_pages();
  void drop();
  void report_unknown() const;

  std::map<gString, Units> topics_; // by their places
  std::map<gDocUnit const *, bool> joined_;
};

template <class Use> void each_unit(Use use) {
  for (auto const * table : {&gNamedUnits, &gUnnamedUnits})
    for (auto const & file : *table)
      for (auto const & [place, unit] : *file.value)
        use(unit);
}

// 0 for one that defines it; behind that, one that has a title for it.
int rank_of(gDocUnit const & unit) {
  gString const & joins = unit.get_attr("JOINS");
  return joins == undefined ? 0 : joins == "title" ? 1 : 2;
}

void Topics::collect() {
  each_unit([&](cRef<gDocUnit> const & unit) {
    if (gString const & place = unit->get_attr("TOPIC"); place != undefined)
      topics_[place].push_back(unit);
  });
}

void add_topics(gDocUnit & unit, gString const & topics) {
  if (topics == undefined || topics.empty())
    return;
  gString all = unit.get_attr("TOPICS");
  if (all == undefined)
    all.clear();
  each_word(topics, [&](gString const & one) {
    if ((" " + all + " ").find(" " + one + " ") == all.npos)
      all += (all.empty() ? "" : " ") + one;
  });
  unit.set_attr("TOPICS", all);
}

// A text that is joined to another loses its headline and the place, which come first.
gStrList behind_place(gSubText const & text) {
  auto const place = std::ranges::find_if(text, [](cRef<gString> const & piece) {
    return Vlb::piece_kind(*piece) == gPiece::bookmark;
  });
  gStrList pieces;
  constexpr int of_place = 3; // pieces
  if (std::distance(place, text.end()) > of_place)
    std::for_each(std::next(place, of_place), text.end(),
                  [&](cRef<gString> const & piece) { pieces.push_back(piece); });
  return pieces;
}

void Topics::join(Units & units) {
  std::ranges::stable_sort(units, {}, [](cRef<gDocUnit> const & one) { return rank_of(*one); });
  gDocUnit & kept = *units.front();
  for (std::size_t i = 1; i < units.size(); ++i) {
    add_topics(kept, units[i]->get_attr("TOPICS"));
    if (gSubText const * const text = std::as_const(*units[i]).subentries().find("text"))
      kept.add_subentry("text", behind_place(*text));
    joined_[units[i].get()] = true;
  }
}

void Topics::place_pages() {
  each_unit([&](cRef<gDocUnit> const & unit) {
    gString const own = unit->get_attr("TOPIC");
    gString const & below = unit->get_attr("BELOW");
    if (own != undefined && below != undefined)
      each_word(below, [&](gString const & place) {
        if (auto const page = topics_.find(place); page != topics_.end())
          add_topics(*page->second.front(), own);
      });
  });
}

void Topics::drop() {
  if (joined_.empty())
    return;
  for (auto const & file : gNamedUnits)
    file.value->erase_if([&](auto const & unit) { return joined_.contains(unit.get()); });
}

void Topics::report_unknown() const {
  std::map<gString, std::pair<std::size_t, gLoc>> unknown;
  auto const note = [&](gString const & topic, gLoc const & place) {
    if (!topics_.contains(topic))
      ++unknown.try_emplace(topic, 0, place).first->second.first;
  };
  for (auto const & file : gCodeElems)
    for (auto const & [place, element] : *file.value)
      if (element->groups)
        for (gString const & topic : element->groups->topics)
          note(topic, element->loc);
  each_unit([&](cRef<gDocUnit> const & unit) {
    if (gString const & topics = unit->get_attr("TOPICS"); topics != undefined)
      each_word(topics, [&](gString const & topic) { note(topic, unit->loc()); });
  });
  for (auto const & [topic, found] : unknown)
    Msg::log(Msg::undefined_topic,
             topic + (found.first > 1 ? " (" + std::to_string(found.first) + " times)" : ""),
             found.second);
}

void Topics::run() {
  collect();
  for (auto & [place, units] : topics_)
    join(units);
  drop();
  place_pages();
  report_unknown();
}

} // namespace

void ana_join_topics() {
  Topics().run();
}
