// A row shows what a caller has to know at one glance: without the ";", the values of enumerations,
// and long values of macros and variables.

#include <algorithm>

#include "conv/atc/qualified_name.h"
#include "conv/htm/htm_setter.h"
#include "conv/htm/html_text.h"

namespace {

using V = gVltValue;

constexpr std::size_t longest = 320;
constexpr std::size_t longest_value = 60;
constexpr std::string_view define = "#define ";

std::string_view without_end(std::string_view text, std::string_view ends) {
  std::size_t const last = text.find_last_not_of(ends);
  return last == text.npos ? std::string_view() : text.substr(0, last + 1);
}

// What is left of a declaration behind its name; `end` is where the name and its parameters do.
std::string_view without_value(std::string_view text, gKnownFacts const & facts, std::size_t end) {
  if (facts.kind == "alias")
    return text;
  if (text.starts_with(define))
    return text.size() - end > longest_value ? text.substr(0, end) : text;
  if (facts.kind.starts_with("enum"))
    return without_end(text.substr(0, std::max(text.find('{', end), end)), " ");
  std::size_t const value = text.find_first_of("={", end);
  bool const routine = !facts.parameters.empty();
  return routine || value == text.npos || text.size() - value <= longest_value
             ? text
             : without_end(text.substr(0, value), " ");
}

// "detail::" of "lib::detail::f".
std::string scope_in_front(gUnitRecord const & unit) {
  std::string_view const scope = Atc::scope_of(unit);
  std::string_view const last = Atc::last_component(scope);
  std::string_view const name = unit.name;
  std::size_t const begin = scope.size() - last.size();
  std::size_t const end = name.size() - Atc::last_component(unit).size();
  return scope.empty() || begin > end ? std::string()
                                      : std::string(name.substr(begin, end - begin));
}

gStretch moved(gStretch one, std::size_t by) {
  auto const cut = static_cast<std::uint32_t>(by);
  return {one.begin - cut, one.end - cut};
}

} // namespace

std::string gHtmSetter::linked_head(int unit, std::string_view head) {
  constexpr std::size_t longest_head = 200;
  std::string out;
  if (head.empty() || head.size() > longest_head)
    return out;
  DeclarationText::set(
      head, gColours::language_of(site_.unit(unit).path), colours_,
      [&](std::string_view word, std::string & link) { return link_name(unit, word, link); }, out);
  return out;
}

std::string gHtmSetter::linked_signature(int unit, std::string_view text,
                                         DeclarationText::gOwnName const & own,
                                         std::span<gStretch const> differing) {
  std::string out;
  DeclarationText::set_with_name(
      text, gColours::language_of(site_.unit(unit).path), colours_,
      [&](std::string_view word, std::string & link) { return link_name(unit, word, link); }, own,
      differing, out);
  return out;
}

std::string gHtmSetter::words_of(int other, gNodeList const & words) {
  int const current = unit();
  set_unit(other);
  std::string text = set(words);
  set_unit(current);
  return text;
}

gMemberRow gHtmSetter::row_of(int unit, gRowPlace const & place, std::string const & to) {
  gUnitRecord const & record = site_.unit(unit);
  gKnownFacts const & facts = record.facts;
  std::string_view const whole = record.declaration;
  gMemberRow row;
  if (facts.name.empty() || facts.size != whole.size() || facts.name.end > whole.size())
    return row;
  std::string_view text = without_end(whole, ";");
  std::size_t const full = text.size();
  text = without_value(text, facts, std::max(facts.name.end, facts.parameters.end));
  // Pascal's stands behind the name, and stays there.
  gStretch const in_front =
      facts.template_head.end <= facts.name.begin ? facts.template_head : gStretch();
  std::size_t const head = text.starts_with(define)
                               ? define.size()
                               : std::min(text.find_first_not_of(' ', in_front.end), text.size());
  if (text.size() - head > longest || head > facts.name.begin || text.find('\n') != text.npos)
    return row;
  find_bound_names(unit, whole, facts);
  DeclarationText::gOwnName own{moved(facts.name, head), {}};
  std::string const name = escaped(facts.name.of(whole));
  std::string const own_place = to.empty() ? link_to(unit, {}).href : to;
  bool const is_named = whole.substr(0, facts.name.begin).ends_with("::");
  std::string const before =
      place.names_scope && !is_named ? Html::escaped(scope_in_front(record)) : std::string();
  rules().apply(gVltRule::own_name,
                gVltValues().set(V::text, name).set(V::href, own_place).set(V::scope, before),
                own.shown);
  std::vector<gStretch> differing;
  for (gStretch const one : place.differing)
    if (one.begin >= head)
      differing.push_back(moved(one, head));
  if (place.is_plain) {
    std::string_view const shown = text.substr(head);
    row.signature = Html::escaped(shown.substr(0, own.place.begin)) + own.shown +
                    Html::escaped(shown.substr(own.place.end));
    row.template_head = Html::escaped(in_front.of(whole));
  } else {
    row.signature = linked_signature(unit, text.substr(head), own, differing);
    row.template_head = linked_head(unit, in_front.of(whole));
  }
  row.is_all = !row.signature.empty() && text.size() == full &&
               row.template_head.empty() == in_front.empty();
  if (!place.is_plain)
    row.source = source_href(record.path, std::to_string(record.source_line));
  return row;
}
