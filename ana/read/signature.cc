// A type is taken to its words and signs. "const int", "int const" and "int" are one for a
// parameter; "struct T" is T; "unsigned" is "unsigned int".
#include "ana/read/signature.h"

#include <algorithm>
#include <vector>

#include "vlb/gstring.h"

namespace {

using namespace Decl;
using Words = std::vector<std::string>;

// Words and single signs; comments go.
Words words_of(std::string_view text) {
  Words words;
  for (std::size_t at = 0; at < text.size();) {
    char const c = text[at];
    if (c == '/' && text.substr(at).starts_with("/*")) {
      std::size_t const end = text.find("*/", at + 2);
      at = end == std::string_view::npos ? text.size() : end + 2;
    } else if (c == '/' && text.substr(at).starts_with("//")) {
      at = std::min(text.find('\n', at), text.size());
    } else if (Vlb::is_word(c)) {
      std::size_t end = at;
      while (end < text.size() && Vlb::is_word(text[end]))
        ++end;
      words.emplace_back(text.substr(at, end - at));
      at = end;
    } else {
      if (static_cast<unsigned char>(c) > ' ' && c != '\\')
        words.emplace_back(1, c);
      ++at;
    }
  }
  return words;
}

bool is_one_of(std::string const & word, std::initializer_list<std::string_view> list) {
  return std::find(list.begin(), list.end(), word) != list.end();
}

std::string joined(Words const & words) {
  std::string text;
  for (std::string const & word : words) {
    if (!text.empty() && Vlb::is_word(text.back()) && Vlb::is_word(word[0]))
      text += ' ';
    text += word;
  }
  return text;
}

// "const" in front of the first sign moves behind the word that it belongs to, and is dropped where
// the parameter is a copy.
std::string cpp_type(std::string_view text) {
  Words words = words_of(text);
  std::erase_if(words, [](std::string const & word) {
    return is_one_of(word, {"struct", "class", "enum", "union", "typename", "register", "volatile",
                            "restrict", "__restrict", "__restrict__", "inline", "extern"});
  });
  auto const sign = std::find_if(words.begin(), words.end(), [](std::string const & word) {
    return !Vlb::is_word(word[0]) && word != ":";
  });
  bool const copied = sign == words.end();
  std::size_t const head = static_cast<std::size_t>(sign - words.begin());
  bool constant = false;
  Words result;
  for (std::size_t i = 0; i < head; ++i) {
    if (words[i] == "const")
      constant = true;
    else
      result.push_back(words[i]);
  }
  if (std::find(result.begin(), result.end(), "unsigned") != result.end() ||
      std::find(result.begin(), result.end(), "long") != result.end() ||
      std::find(result.begin(), result.end(), "short") != result.end())
    std::erase_if(result,
                  [](std::string const & word) { return word == "int" || word == "signed"; });
  if (constant && !copied)
    result.emplace_back("const");
  result.insert(result.end(), sign, words.end());
  return joined(result);
}

std::string pascal_type(std::string_view text) {
  std::string type = Vlb::to_lower(joined(words_of(text)));
  return type;
}

// The whole parameter without its name and default.
std::string type_text(std::string_view text, gParam const & param) {
  std::uint32_t const end = param.value.empty() ? param.whole.end : param.value.begin;
  std::string type;
  if (param.name.empty() || param.name.begin < param.whole.begin || param.name.end > end)
    type = gRange{param.whole.begin, end}.of(text);
  else
    type = std::string(gRange{param.whole.begin, param.name.begin}.of(text)) + " " +
           std::string(gRange{param.name.end, end}.of(text));
  std::size_t const last = type.find_last_not_of(" \t\n=:");
  type.resize(last == std::string::npos ? 0 : last + 1);
  return type;
}

} // namespace

std::string signature(std::string_view text, gFileDeclarations const & file,
                      gDeclaration const & one, bool pascal) {
  if (one.parameter_list.empty() && one.params == 0)
    return {};
  std::string result = "(";
  for (std::uint32_t i = 0; i < one.params; ++i) {
    gParam const & param = file.parameters[one.first_param + i];
    std::string const type =
        pascal ? pascal_type(param.type.of(text)) : cpp_type(type_text(text, param));
    if (type == "void" && one.params == 1)
      break;
    result += (i > 0 ? "," : "") + type;
  }
  result += ')';
  for (std::string const & word : words_of(one.trailing.of(text))) {
    if (!is_one_of(word, {"const", "volatile", "&"}))
      break;
    result += word;
  }
  return result;
}
