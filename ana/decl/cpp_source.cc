#include "ana/decl/cpp_source.h"

#include <algorithm>

namespace Decl {

bool gSource::ends_declarator(std::uint32_t at) const {
  std::uint8_t const before = at > 0 ? tokens[at - 1].type : std::uint8_t(';');
  bool const typed = before == token_word || before == '*';
  std::uint8_t const next = tokens[at + 1].type;
  return typed && (next == ';' || next == ')' || next == '[' ||
                   (next == ',' && tokens[at].word != gWord::class_));
}

bool gSource::is_name(std::uint32_t at) const {
  if (tokens[at].type != token_word)
    return false;
  switch (tokens[at].word) {
  case gWord::name:
  case gWord::override_:
  case gWord::final_:
  case gWord::module_:
  case gWord::import_:
  case gWord::signals:
  case gWord::slots:
    return true;
  // Words of C++ are names in C: "int private;", "f(int class)".
  case gWord::public_:
  case gWord::protected_:
  case gWord::private_:
  case gWord::namespace_:
  case gWord::virtual_:
  case gWord::friend_:
  case gWord::explicit_:
  case gWord::export_:
  case gWord::template_:
  case gWord::class_:
  case gWord::operator_:
  case gWord::this_:
    return ends_declarator(at);
  default:
    return false;
  }
}

std::uint32_t gSource::behind(std::uint32_t at) const {
  std::uint32_t const link = tokens[at].link;
  if (link == no_token || link <= at)
    return at + 1;
  // A bracket that was never closed ends in front of what ends it.
  return tokens[link].link == at ? link + 1 : link;
}

gRange gSource::range(std::uint32_t first, std::uint32_t last) const {
  if (first >= last)
    return {};
  return {tokens[first].begin, tokens[last - 1].end};
}

bool is_attribute_shape(std::string_view text) {
  static constexpr std::string_view parts[] = {
      "EXPORT",      "IMPORT",    "_API",     "API_",   "DEPRECATED", "INLINE",
      "NORETURN",    "NODISCARD", "ATTR",     "DECL",   "EXTERN",     "NOEXCEPT",
      "CONSTEXPR",   "OVERRIDE",  "CALLBACK", "_CALL",  "PURE",       "UNUSED",
      "WARN_UNUSED", "VISIB",     "HIDDEN",   "PUBLIC", "ALWAYS",     "FINAL"};
  // "DECLARE_MAP(x)" is a declaration of its own.
  bool const declares = text.starts_with("DECLARE") || text.find("_DECLARE") != text.npos;
  return !declares && Decl::is_capital(text) &&
         std::ranges::any_of(parts,
                             [&](std::string_view part) { return text.find(part) != text.npos; });
}

gMacroSense gSource::sense(std::uint32_t at) const {
  return macros.sense(spelling(at));
}

bool gSource::is_attribute_macro(std::uint32_t at) const {
  if (!is_name(at))
    return false;
  switch (sense(at)) {
  case gMacroSense::nothing:
  case gMacroSense::attribute:
    return true;
  case gMacroSense::unknown:
  case gMacroSense::mixed:
    break;
  default:
    return false;
  }
  return is_attribute_shape(spelling(at));
}

bool gSource::is_known_attribute(std::uint32_t at) const {
  gMacroSense const known = is_name(at) ? sense(at) : gMacroSense::unknown;
  return known == gMacroSense::nothing || known == gMacroSense::attribute;
}

// In an expression nothing that begins a value follows template arguments.
bool gSource::closes_arguments(std::uint32_t angle, bool in_values) const {
  std::uint8_t const next = tokens[angle + 1].type;
  return !in_values || (next != token_word && next != token_number && next != token_string);
}

void gSource::link_angles(std::uint32_t first, std::uint32_t last, bool in_values) const {
  std::vector<std::uint32_t> open;
  for (std::uint32_t at = first; at < last;) {
    std::uint8_t const kind = tokens[at].type;
    if (kind == '<' && at > 0 && (is_name(at - 1) || is_word(at - 1, gWord::template_)))
      open.push_back(at);
    else if (kind == '>' && !open.empty() && closes_arguments(at, in_values)) {
      tokens[open.back()].link = at;
      tokens[at].link = open.back();
      open.pop_back();
    } else if (kind == ';')
      open.clear();
    at = kind == '(' || kind == '[' || kind == '{' ? behind(at) : at + 1;
  }
}

} // namespace Decl
