// A style that the script has a word for gives it. For other styles the declaration tells.

#include "conv/set/kinds.h"

#include <algorithm>

#include "vlb/gstring.h"

namespace {

// The selector of the rule that names this style; empty if there is none.
std::string selector_of(std::string const & style, gVltRules const & rules) {
  for (std::string const & form : {style, Vlb::to_lower(style)})
    if (!form.empty() && rules.has(gVltRule::kind, form))
      return form;
  return {};
}

struct gOpening {
  std::string_view word, kind;
};
constexpr gOpening openings[] = {
    {"class", "class"},       {"struct", "struct"},       {"union", "union"},
    {"enum", "enum"},         {"namespace", "namespace"}, {"concept", "concept"},
    {"typedef", "type"},      {"using", "type"},          {"#define", "macro"},
    {"function", "function"}, {"procedure", "function"},  {"property", "property"},
    {"unit", "unit"},
};

// Leaves out "template <...>" and the blank behind it.
std::string_view without_template(std::string_view declaration) {
  if (!declaration.starts_with("template"))
    return declaration;
  int depth = 0;
  for (std::size_t i = 8; i < declaration.size(); ++i) {
    depth += declaration[i] == '<' ? 1 : declaration[i] == '>' ? -1 : 0;
    if (declaration[i] != '>' || depth != 0)
      continue;
    declaration.remove_prefix(i + 1);
    declaration.remove_prefix(std::min(declaration.find_first_not_of(" \n"), declaration.size()));
    return declaration;
  }
  return declaration;
}

std::string_view kind_of_declaration(std::string_view declaration) {
  declaration = without_template(declaration);
  for (gOpening const & opening : openings)
    if (declaration.starts_with(opening.word) && declaration.size() > opening.word.size() &&
        !Vlb::is_word(declaration[opening.word.size()]))
      return opening.kind;
  return declaration.find('(') != std::string_view::npos ? "function" : "var";
}

// Kinds that readers tell apart and scripts need not.
constexpr gOpening coarser[] = {
    {"enum class", "enum"},
    {"enumeration", "enum"},
    {"enumerator", "member"},
    {"constructor", "method"},
    {"destructor", "method"},
    {"operator", "function"},
    {"conversion", "operator"},
    {"friend", "function"},
    {"variable", "var"},
    {"bit field", "member"},
    {"typedef", "type"},
    {"alias", "type"},
    {"alias template", "alias"},
    {"using", "type"},
    {"deduction guide", "function"},
    {"function macro", "macro"},
    {"module", "unit"},
    {"signal", "event"},
    {"slot", "method"},
    {"program", "unit"},
    {"library", "unit"},
    {"package", "unit"},
    {"interface", "class"},
    {"dispinterface", "class"},
    {"object", "class"},
    {"record", "struct"},
    {"class helper", "class"},
    {"record helper", "record"},
    {"type helper", "type"},
    {"class reference", "type"},
    {"set", "type"},
    {"constant", "var"},
    {"typed constant", "constant"},
    {"resource string", "constant"},
    {"thread variable", "var"},
    {"procedure", "function"},
    {"class method", "method"},
    {"message method", "method"},
};

// The selector for what the reader of the source told; empty if the script has none.
std::string selector_of_kind(std::string const & kind, gVltRules const & rules) {
  if (std::string own = selector_of(kind, rules); !own.empty())
    return own;
  auto const * const found = std::ranges::find(coarser, kind, &gOpening::word);
  return found == std::end(coarser) ? std::string()
                                    : selector_of_kind(std::string(found->kind), rules);
}

// A style that is named after a type of units says less than the kind does.
bool is_unit_type(std::string_view style) {
  for (std::string_view const type :
       {"class", "function", "member", "method", "event", "property", "type", "var", "unit"})
    if (style == type)
      return true;
  return false;
}

gKind make_kind(std::string const & selector, gVltRules const & rules) {
  gKind kind;
  if (selector.empty())
    return kind;
  rules.apply(gVltRule::kind, selector, gVltValues().set(gVltValue::name, selector), kind.word);
  kind.selector = selector;
  for (char const c : Vlb::to_lower(kind.word.empty() ? selector : kind.word))
    if (Vlb::is_letter(c))
      kind.css += c;
    else if (!kind.css.empty() && kind.css.back() != '-')
      kind.css += '-';
  return kind;
}

} // namespace

gKinds::gKinds(gDocument const & document, gVltRules const & rules) : kinds_(1) {
  std::map<std::string, std::string> by_style; // the selectors
  std::map<std::string, std::uint16_t> known = {{"", 0}};
  of_.reserve(document.units.size());
  for (gUnitRecord const & unit : document.units) {
    auto const [style, is_new] = by_style.try_emplace(unit.style);
    if (is_new)
      style->second = selector_of(unit.style, rules);
    std::string selector = style->second;
    if (!unit.facts.kind.empty() && (selector.empty() || is_unit_type(selector)))
      if (std::string told = selector_of_kind(unit.facts.kind, rules); !told.empty())
        selector = told;
    if (selector.empty() && !unit.declaration.empty())
      selector = selector_of(std::string(kind_of_declaration(unit.declaration)), rules);
    auto const [kind, fresh] =
        known.try_emplace(selector, static_cast<std::uint16_t>(kinds_.size()));
    if (fresh)
      kinds_.push_back(make_kind(selector, rules));
    of_.push_back(kind->second);
  }
}
