// The finished text is looked at, so that what a user's script adds counts, too. Word processors
// don't tell bookmarks apart by case.

#include "conv/rtf/rtf_links.h"

#include <algorithm>
#include <set>
#include <string>

#include "vlb/gmsghandler.h"
#include "vlb/gstring.h"
#include "vlb/messages.h"

namespace {

constexpr std::size_t most_reports = 20;

// Answers what stands behind each `before`, up to one of `ends`, with its place.
template <class Work>
void each(std::string_view text, std::string_view before, std::string_view ends,
          Work const & work) {
  for (std::size_t at = 0; (at = text.find(before, at)) != text.npos;) {
    at += before.size();
    std::size_t const end = std::min(text.find_first_of(ends, at), text.size());
    work(Vlb::to_upper(text.substr(at, end - at)), at);
    at = end;
  }
}

class gPlaces {
public:
  gPlaces(std::string_view text, gPathstring const & path) : text_(text), path_(path) {}

  void add(std::string_view before) {
    each(text_, before, "}",
         [this](std::string name, std::size_t) { places_.insert(std::move(name)); });
  }
  void check(std::string_view before, std::string_view ends) {
    each(text_, before, ends, [this](std::string const & name, std::size_t at) {
      if (places_.contains(name) || !dead_.insert(name).second || dead_.size() > most_reports)
        return;
      auto const end = text_.begin() + static_cast<std::ptrdiff_t>(at);
      auto const line = std::count(text_.begin(), end, '\n');
      Msg::log(Msg::dead_link, name, {path_, static_cast<int>(line) + 1});
    });
  }
  void finish() const {
    if (dead_.size() > most_reports)
      Msg::log(Msg::more_dead_links, std::to_string(dead_.size() - most_reports));
  }

private:
  std::string_view text_;
  gPathstring const & path_;
  std::set<std::string> places_, dead_;
};

} // namespace

void Rtf::report_dead_links(std::string_view text, gPathstring const & path) {
  gPlaces places(text, path);
  places.add("\\bkmkstart ");
  places.check("HYPERLINK \\\\l \"", "\"}");
  places.check("PAGEREF ", " }");
  places.finish();
}

void Rtf::report_dead_jumps(std::string_view text, gPathstring const & path) {
  gPlaces places(text, path);
  places.add("#{\\footnote ");
  places.check("{\\v ", ">}@");
  places.finish();
}
