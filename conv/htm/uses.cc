// A clause begins with the word "uses" and ends with a ";". Paths and comments in it are left out.

#include "conv/htm/uses.h"

#include <algorithm>

#include "conv/htm/relation_list.h"
#include "vlb/gstring.h"
#include "vlb/source_bytes.h"

namespace {

constexpr std::size_t most = 60; // names of a list

// Words and signs of Pascal one behind the other, without comments and texts in quotes.
class gTokens {
public:
  explicit gTokens(std::string_view text) : text_(text) {}

  // Empty at the end.
  std::string_view next() {
    while (at_ < text_.size() && skip()) {
    }
    std::size_t const begin = at_;
    while (at_ < text_.size() && (Vlb::is_word(text_[at_]) || (at_ > begin && text_[at_] == '.')))
      ++at_;
    if (at_ == begin && at_ < text_.size())
      ++at_;
    return text_.substr(begin, at_ - begin);
  }

private:
  bool skip() {
    std::string_view const rest = text_.substr(at_);
    if (static_cast<unsigned char>(rest[0]) <= ' ')
      return ++at_, true;
    for (auto const & [open, close] : {std::pair("{", "}"), {"(*", "*)"}, {"//", "\n"}, {"'", "'"}})
      if (rest.starts_with(open)) {
        std::size_t const end = rest.find(close, std::string_view(open).size());
        at_ += end == rest.npos ? rest.size() : end + std::string_view(close).size();
        return true;
      }
    return false;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

} // namespace

std::vector<std::string> Uses::names_in(std::string_view text) {
  std::vector<std::string> names;
  gTokens tokens(text);
  bool in_clause = false, at_name = false;
  for (std::string_view token; !(token = tokens.next()).empty();) {
    std::string const word = Vlb::to_lower(token);
    if (!in_clause) {
      in_clause = at_name = word == "uses";
    } else if (token == ";") {
      in_clause = false;
    } else if (token == ",") {
      at_name = true;
    } else if (at_name && Vlb::is_word(token[0])) {
      at_name = false; // behind it may stand "in 'path'"
      if (std::ranges::find(names, std::string(token)) == names.end())
        names.emplace_back(token);
    }
  }
  return names;
}

gUses::gUses(gSite const & site) : site_(site) {
  std::vector<int> readers;
  for (int i = 0; i < static_cast<int>(site.document.units.size()); ++i) {
    gUnitRecord const & unit = site.unit(i);
    std::string const & kind = unit.facts.kind;
    if (site.pages.of(i) < 0 || (kind != "unit" && kind != "program" && kind != "library"))
      continue;
    units_.try_emplace(Vlb::to_lower(unit.name), i);
    readers.push_back(i);
  }
  for (int const unit : readers)
    read(unit);
}

void gUses::read(int unit) {
  std::string text;
  if (!Vlb::read_source(gPathstring(site_.unit(unit).path), text))
    return;
  uses_[unit] = Uses::names_in(text);
  for (std::string const & name : uses_[unit])
    if (auto const found = units_.find(Vlb::to_lower(name)); found != units_.end())
      used_by_[found->second].push_back(site_.unit(unit).name);
}

void gUses::add(std::string_view what, std::vector<std::string> const & names, int page,
                std::string & out) const {
  gRelationList list(site_, page, most);
  for (std::string const & name : names) {
    auto const found = units_.find(Vlb::to_lower(name));
    list.add(found == units_.end() ? -1 : found->second, name);
  }
  list.put(what, out);
}

std::string gUses::of(int unit) const {
  std::string out;
  int const page = site_.pages.of(unit);
  if (auto const found = uses_.find(unit); found != uses_.end() && !found->second.empty())
    add("uses", found->second, page, out);
  if (auto const found = used_by_.find(unit); found != used_by_.end())
    add("used", found->second, page, out);
  return out;
}
