// Read from the end: the signs of an operator and what stands in angle brackets part nothing.
#include "conv/atc/qualified_name.h"

#include "conv/atc/document.h"
#include "vlb/gstring.h"

namespace {

std::size_t operator_at(std::string_view name) {
  constexpr std::string_view word = "operator";
  std::size_t const at = name.rfind(word);
  if (at == name.npos || (at > 0 && Atc::separator_before(name, at) == 0))
    return name.npos;
  std::size_t const behind = at + word.size();
  return behind < name.size() && !Vlb::is_word(name[behind]) ? at : name.npos;
}

// A headline such as "Version 1.2", whose points part nothing.
bool is_title(std::string_view name) {
  int open = 0;
  for (char const c : name) {
    if (open == 0 && c == ' ')
      return true;
    open += (c == '<') - (c == '>');
  }
  return false;
}

// Of the last part.
std::size_t begin_of_last(std::string_view name) {
  if (std::size_t const sign = operator_at(name); sign != name.npos)
    return sign;
  std::size_t const least = is_title(name) ? 2 : 1;
  int open = 0;
  for (std::size_t at = name.size(); at > 0; --at) {
    if (open == 0 && at < name.size() && Atc::separator_before(name, at) >= least)
      return at;
    open += (name[at - 1] == '>') - (name[at - 1] == '<');
  }
  return 0;
}

} // namespace

std::size_t Atc::separator_before(std::string_view name, std::size_t at) {
  if (at >= 2 && name[at - 1] == ':' && name[at - 2] == ':')
    return 2;
  return at >= 1 && name[at - 1] == '.' ? 1 : 0;
}

std::string_view Atc::scope_of(std::string_view name) {
  std::size_t const at = begin_of_last(name);
  return name.substr(0, at - separator_before(name, at));
}

std::string_view Atc::last_component(std::string_view name) {
  return name.substr(begin_of_last(name));
}

std::string_view Atc::last_component(gUnitRecord const & unit) {
  std::string_view const name = unit.name;
  return unit.facts.known ? name.substr(name.size() - unit.facts.last_part) : last_component(name);
}

std::string_view Atc::scope_of(gUnitRecord const & unit) {
  std::string_view const name = unit.name;
  std::size_t const at = name.size() - last_component(unit).size();
  return name.substr(0, at - separator_before(name, at));
}
