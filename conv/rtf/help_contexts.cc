// Names are made valid and then told apart by a number behind them.

#include "conv/rtf/help_contexts.h"

#include "vlb/gstring.h"

namespace {

constexpr std::size_t longest = 200; // help compilers take 255 bytes

std::string valid_form(std::string_view name) {
  std::string valid;
  for (char const c : name.substr(0, longest))
    valid += Vlb::is_word(c) || c == '.' ? Vlb::upper(c) : '_';
  return valid.empty() ? "TOPIC" : valid;
}

} // namespace

gHelpContexts::gHelpContexts(gDocument const & document) {
  for (std::string const & name : document.help_ids)
    of(name);
  for (auto const & [name, place] : document.help_aliases) {
    std::string const upper = Vlb::to_upper(name);
    if (!names_.contains(upper) && !aliases_.contains(upper))
      aliases_[upper] = fresh(name);
  }
  units_.reserve(document.units.size());
  for (std::size_t i = 0; i < document.units.size(); ++i) {
    std::string const & label = document.units[i].label;
    gTarget const found = document.find_label(label);
    // A damaged set may have a label twice.
    bool const own = found.bookmark.empty() && found.unit == static_cast<int>(i);
    units_.push_back(own ? of(label) : fresh(label));
  }
}

std::string const & gHelpContexts::of(std::string_view name) {
  auto const [place, is_new] = names_.try_emplace(Vlb::to_upper(name));
  if (is_new)
    place->second = fresh(name);
  return place->second;
}

std::string const * gHelpContexts::of_alias(std::string_view name) const {
  auto const found = aliases_.find(Vlb::to_upper(name));
  return found == aliases_.end() ? nullptr : &found->second;
}

std::string gHelpContexts::fresh(std::string_view wish) {
  std::string const valid = valid_form(wish);
  std::string context = valid;
  while (!used_.insert(context).second)
    context = valid + "_" + std::to_string(++tried_[valid] + 1);
  return context;
}
