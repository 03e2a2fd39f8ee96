#include "app/options/text_rules.h"

#include <algorithm>

#include "store/cerr.h"

namespace Vapp {

namespace {

gCheck refuse(std::string message) {
  return gRefusal{field_none, std::move(message)};
}
gCheck refuse(gRefusedField field, std::string message) {
  return gRefusal{field, std::move(message)};
}

bool is_word_start(char c) {
  return Vlb::is_letter(c) || c == '_';
}
std::string quoted(char c) {
  return std::string("'") + c + "'";
}

gCheck check_at_keyword(std::string_view keyword) {
  if (keyword.size() < 2 || !is_word_start(keyword[1]))
    return refuse(field_keyword, "@-keyword must start with a letter or '_'.");
  for (char c : keyword.substr(2))
    if (!Vlb::is_word(c))
      return refuse(field_keyword, "Illegal character in @-keyword: " + quoted(c));
  return std::nullopt;
}

gCheck check_plain_keyword(std::string_view keyword, std::string_view separators) {
  if (!is_word_start(keyword[0]))
    return refuse(field_keyword, "Keyword must start with a letter, '@', or '_'.");
  for (char c : keyword.substr(1))
    if (!Vlb::is_word(c) && c != '-' && c != ' ')
      return refuse(field_keyword, "Illegal character in keyword: " + quoted(c));
  if (keyword.find(' ') != keyword.npos && separators.empty())
    return refuse(field_both, "Keywords containing spaces must have a separator.");
  return std::nullopt;
}

} // namespace

std::string fill_text(std::string_view text, std::initializer_list<std::string_view> arguments) {
  std::string filled;
  for (std::string_view argument : arguments) {
    std::size_t const at = std::min(text.find("%s"), text.size());
    filled.append(text.substr(0, at)).append(argument);
    text.remove_prefix(std::min(at + 2, text.size()));
  }
  return filled.append(text);
}

std::string join(std::vector<std::string> const & names) {
  std::string joined;
  for (std::string const & name : names)
    joined += (joined.empty() ? "" : ", ") + name;
  return joined;
}

void publish(gRefusal const & refusal) {
  unsigned const code = refusal.field == field_none ? 1 : static_cast<unsigned>(refusal.field);
  cat::publish_error(code, refusal.message);
}

gCheck check_identifier(std::string const & text) {
  if (text.empty())
    return refuse("");
  if (!cat::is_ident(text))
    return refuse(fill_text("'%s' is not a valid identifier.", {text}));
  return std::nullopt;
}

gCheck check_subentry_name(std::string const & text) {
  if (text.starts_with('@') && cat::is_ident(text.substr(1)))
    return std::nullopt;
  return refuse(text.empty() ? "" : fill_text("'%s' is not a valid identifier.", {text}));
}

gCheck check_macro_name(std::string const & text) {
  if (!cat::is_ident(text))
    return refuse(fill_text("'%s' is not a C/C++ identifier.", {text}));
  return std::nullopt;
}

gCheck check_attribute_value(std::string const & text, cObj const & record) {
  if (text.empty())
    return refuse("");
  if (text.find_first_of("$!=,>") != text.npos)
    return refuse(
        fill_text("Attribute values cannot contain the following characters:\n%s", {"$ ! = , >"}));
  for (char const * values : {"valpre", "valusr"})
    if (record.at(values) / text)
      return refuse(fill_text("Attribute value '%s' already exists.", {text}));
  return std::nullopt;
}

gCheck check_keyword(std::string const & keyword, std::string const & separators) {
  auto const is_keyword_character = [](char c) { return Vlb::is_word(c) || c == '-'; };
  if (std::any_of(separators.begin(), separators.end(), is_keyword_character))
    return refuse(field_separators, "Alphanumeric characters, '_', and '-'\n"
                                    "cannot be used as keyword separators.");
  if (keyword.empty())
    return refuse(field_keyword, "Keyword must start with a letter, '@', or '_'.");
  return keyword[0] == '@' ? check_at_keyword(keyword) : check_plain_keyword(keyword, separators);
}

gCheck check_subject_separator(std::string const & text) {
  auto const is_refused = [](char c) { return Vlb::is_word(c) || Vlb::is_space(c); };
  if (std::any_of(text.begin(), text.end(), is_refused))
    return refuse("Alphanumeric characters and '_' cannot\nbe used as subject line separators.");
  return std::nullopt;
}

gCheck check_subject_line(int idspec, int slspec, std::string const & slsep) {
  if (idspec > 1 && slspec != 0 && slsep.empty())
    return refuse("Please specify a separator.");
  return std::nullopt;
}

} // namespace Vapp
