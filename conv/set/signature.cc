// A parameter is cut at its default; its name is the word behind a type. Pascal has names first.

#include "conv/set/signature.h"

#include <algorithm>

#include "vlb/gstring.h"

namespace {

constexpr std::size_t longest = 120; // bytes of a type; longer ones are cut

// Blanks between words alone.
std::string tidy(std::string_view text) {
  std::string out;
  bool blank = false;
  for (char const c : text) {
    if (c == ' ' || c == '\t' || c == '\n' || c == '\r') {
      blank = true;
      continue;
    }
    if (blank && !out.empty() && Vlb::is_word(out.back()) && Vlb::is_word(c))
      out += ' ';
    blank = false;
    out += c;
  }
  if (out.size() > longest)
    out.resize(longest);
  while (!out.empty() && (static_cast<unsigned char>(out.back()) & 0x80) != 0)
    out.pop_back(); // half a character
  return out;
}

// The parts between separators that stand in no brackets. `less` opens one.
std::vector<std::string_view> parts_of(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  int depth = 0;
  char quote = 0;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char const c = text[i];
    if (quote != 0) {
      i += c == '\\' ? 1 : 0;
      quote = c == quote ? char(0) : quote;
    } else if (c == '"' || (c == '\'' && (i == 0 || !Vlb::is_word(text[i - 1])))) {
      quote = c;
    } else if (c == '(' || c == '[' || c == '{' || c == '<') {
      ++depth;
    } else if (c == ')' || c == ']' || c == '}' || (c == '>' && i > 0 && text[i - 1] != '-')) {
      --depth;
    } else if (c == separator && depth <= 0) {
      parts.push_back(text.substr(begin, i - begin));
      begin = i + 1;
    }
  }
  parts.push_back(text.substr(begin));
  return parts;
}

std::string_view trimmed(std::string_view text) {
  std::size_t const begin = std::min(text.find_first_not_of(" \t\r\n"), text.size());
  std::size_t const end = text.find_last_not_of(" \t\r\n");
  return end == text.npos ? std::string_view() : text.substr(begin, end + 1 - begin);
}

std::string_view last_word(std::string_view text) {
  std::size_t begin = text.size();
  while (begin > 0 && Vlb::is_word(text[begin - 1]))
    --begin;
  return text.substr(begin);
}

template <std::size_t Count>
bool is_one_of(std::string_view word, std::string_view const (&words)[Count]) {
  return std::ranges::find(words, word) != std::end(words);
}

constexpr std::string_view type_words[] = {"const", "volatile", "unsigned", "signed", "int",
                                           "char",  "short",    "long",     "float",  "double",
                                           "bool",  "void",     "auto",     "wchar_t"};
constexpr std::string_view prefixes[] = {"const", "volatile", "struct", "class",
                                         "enum",  "typename", "union",  "register"};

bool is_only_prefix(std::string_view text) {
  while (!text.empty()) {
    std::string_view const word = last_word(text);
    if (word.empty() || !is_one_of(word, prefixes))
      return false;
    text = trimmed(text.substr(0, text.size() - word.size()));
  }
  return true;
}

std::string type_of_parameter(std::string_view parameter) {
  parameter = trimmed(parts_of(parameter, '=')[0]);
  std::size_t const behind = parameter.size();
  std::size_t const bounds = parameter.ends_with(']') ? parameter.find('[') : behind;
  std::string_view const head = trimmed(parameter.substr(0, bounds));
  std::string_view const name = last_word(head);
  std::string_view const type = trimmed(head.substr(0, head.size() - name.size()));
  bool const has_name = !name.empty() && !type.empty() && !type.ends_with("::") &&
                        !is_one_of(name, type_words) && !is_only_prefix(type);
  std::string result(has_name ? type : head);
  if (bounds < behind)
    result += parameter.substr(bounds);
  return tidy(result);
}

void add_pascal(std::string_view group, std::vector<std::string> & out) {
  std::size_t const colon = group.find(':');
  std::string const type =
      colon == group.npos ? std::string() : tidy(parts_of(group.substr(colon + 1), '=')[0]);
  for (std::size_t names = parts_of(group.substr(0, colon), ',').size(); names > 0; --names)
    out.push_back(type);
}

// What stands in front of a result without being of it.
std::string result_of(std::string_view text) {
  text = trimmed(text);
  for (bool again = true; again;) {
    again = false;
    for (std::string_view const word :
         {"static", "inline", "constexpr", "consteval", "extern", "virtual", "explicit", "friend"})
      if (text.starts_with(word) && text.size() > word.size() && !Vlb::is_word(text[word.size()])) {
        text = trimmed(text.substr(word.size()));
        again = true;
      }
  }
  return tidy(text);
}

// Behind the parameters: "const -> Box;".
std::string trailing_result(std::string_view text) {
  std::size_t const arrow = text.find("->");
  if (arrow == text.npos)
    return {};
  text = text.substr(arrow + 2);
  return tidy(text.substr(0, std::min({text.find(';'), text.find('{'), text.find(" requires ")})));
}

bool is_routine_kind(std::string_view kind) {
  return kind.ends_with("function") || kind.ends_with("method") || kind == "operator";
}

bool is_pascal(std::string_view list) {
  std::size_t const colon = list.find(':');
  return colon != list.npos && colon + 1 < list.size() && list[colon + 1] != ':';
}

} // namespace

gSignature Declaration::signature_of(gUnitRecord const & unit) {
  gSignature signature;
  gKnownFacts const & facts = unit.facts;
  std::string_view const text = unit.declaration;
  if (facts.size == 0 || facts.size != text.size())
    return signature;
  std::string_view list = facts.parameters.of(text);
  std::string_view const result = facts.result.of(text);
  signature.is_routine = !list.empty() || is_routine_kind(facts.kind);
  if (!signature.is_routine)
    return signature;
  signature.result = result_of(result);
  std::string_view const behind = list.empty() ? list : text.substr(facts.parameters.end);
  if (signature.result == "auto")
    if (std::string const trailing = trailing_result(behind); !trailing.empty())
      signature.result = trailing;
  if (list.size() < 2)
    return signature;
  list = trimmed(list.substr(1, list.size() - 2));
  if (list.empty() || list == "void")
    return signature;
  if (is_pascal(list))
    for (std::string_view const group : parts_of(list, ';'))
      add_pascal(group, signature.parameters);
  else
    for (std::string_view const parameter : parts_of(list, ','))
      signature.parameters.push_back(type_of_parameter(parameter));
  return signature;
}

std::vector<gParameter> Declaration::parameters_of(gUnitRecord const & unit) {
  std::vector<gParameter> parameters;
  std::string_view const text = unit.declaration;
  if (unit.facts.size == 0 || unit.facts.size != text.size())
    return parameters;
  std::string_view list = unit.facts.parameters.of(text);
  if (list.size() < 2)
    return parameters;
  list = trimmed(list.substr(1, list.size() - 2));
  if (list.empty() || list == "void")
    return parameters;
  bool const pascal = is_pascal(list);
  for (std::string_view part : parts_of(list, pascal ? ';' : ',')) {
    part = trimmed(part);
    auto const begin = static_cast<std::uint32_t>(part.data() - text.data());
    std::size_t const colon = pascal ? part.find(':') : part.npos;
    std::string type = !pascal              ? type_of_parameter(part)
                       : colon == part.npos ? std::string()
                                            : tidy(parts_of(part.substr(colon + 1), '=')[0]);
    parameters.push_back({{begin, begin + static_cast<std::uint32_t>(part.size())}, type});
  }
  return parameters;
}
