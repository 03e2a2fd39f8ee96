// The rules of a script in use: every page is made of thousands of them, so a use is one loop over
// parts that appends to the text.

#include "conv/vlt/rules.h"

#include "conv/vlt/parser.h"

namespace {

void fill(gVltTemplate const & parts, gVltValues const & values, std::string & out) {
  for (std::size_t i = 0; i < parts.size();) {
    gVltPart const & part = parts[i];
    std::size_t next = i + 1;
    switch (part.kind) {
    case gVltPart::literal:
      out += part.text;
      break;
    case gVltPart::value:
      out += values[part.what];
      break;
    case gVltPart::when: {
      std::string_view const value = values[part.what];
      if (part.compares ? value != part.text : value.empty())
        next = static_cast<std::size_t>(part.jump);
      break;
    }
    case gVltPart::otherwise:
      next = static_cast<std::size_t>(part.jump);
      break;
    }
    i = next;
  }
}

void fill_without_rule(gVltValues const & values, std::string & out) {
  using enum gVltValue;
  for (gVltValue const value : {text, items, title, content})
    if (!values[value].empty()) {
      out += values[value];
      return;
    }
}

} // namespace

bool gVltRules::load(gPathstring const & script) {
  return gVltParser(*this).read(script);
}

void gVltRules::parse(std::string_view text, gPathstring const & path) {
  gVltParser(*this).parse(text, path);
}

void gVltRules::apply(gVltRule rule, std::string_view selector, gVltValues const & values,
                      std::string & out) const {
  gVariants const & variants = rules_[static_cast<std::size_t>(rule)];
  if (!selector.empty() && !variants.selected.empty())
    if (auto const found = variants.selected.find(selector); found != variants.selected.end())
      return fill(found->second, values, out);
  if (variants.defined)
    fill(variants.general, values, out);
  else
    fill_without_rule(values, out);
}

bool gVltRules::has(gVltRule rule, std::string_view selector) const {
  gVariants const & variants = rules_[static_cast<std::size_t>(rule)];
  return selector.empty() ? variants.defined : variants.selected.contains(selector);
}

std::string gVltRules::setting(std::string_view name, std::string_view fallback) const {
  auto const found = settings_.find(name);
  return std::string(found == settings_.end() ? fallback : std::string_view(found->second));
}
