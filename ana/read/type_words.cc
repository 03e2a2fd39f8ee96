// A type is its core (words and template arguments) with signs behind it. Within the core "const"
// may stand anywhere; it is moved behind it. Template arguments are types of their own.
#include "ana/read/type_words.h"

#include <algorithm>
#include <list>

#include "vlb/gstring.h"

namespace {

bool is_one_of(std::string_view word, std::initializer_list<std::string_view> list) {
  return std::find(list.begin(), list.end(), word) != list.end();
}

// Arguments within arguments beyond this depth are taken as they are written.
constexpr int deepest_arguments = 20;

// Says nothing about which type it is.
bool is_noise(std::string_view word) {
  return is_one_of(word, {"struct", "class", "enum", "union", "typename", "register", "volatile",
                          "restrict", "__restrict", "__restrict__", "inline", "extern"});
}

// Behind the ">" that belongs to the "<" at `at`; `at` itself if there is none.
std::size_t behind_arguments(gTypeWords const & words, std::size_t at) {
  int depth = 0, round = 0;
  for (std::size_t i = at; i < words.size(); ++i) {
    round += (words[i] == "(") - (words[i] == ")");
    if (round > 0)
      continue;
    depth += (words[i] == "<") - (words[i] == ">");
    if (depth == 0)
      return i + 1;
  }
  return at;
}

gTypeWords part(gTypeWords const & words, std::size_t begin, std::size_t end) {
  return {words.begin() + static_cast<std::ptrdiff_t>(begin),
          words.begin() + static_cast<std::ptrdiff_t>(end)};
}

std::string type(gTypeWords words, bool copied, int depth);

// "<const A&, 3>" with each argument in its one spelling.
std::string arguments(gTypeWords const & words, std::size_t begin, std::size_t end, int depth) {
  if (depth > deepest_arguments)
    return joined_words(part(words, begin, end));
  std::string text = "<";
  int nested = 0;
  std::size_t from = begin + 1;
  for (std::size_t i = begin + 1; i < end; ++i) {
    bool const last = i + 1 == end;
    if (last || (nested == 0 && words[i] == ",")) {
      text += type(part(words, from, i), false, depth + 1);
      text += words[i];
      from = i + 1;
    }
    nested += is_one_of(words[i], {"<", "(", "["}) - is_one_of(words[i], {">", ")", "]"});
  }
  return text;
}

// "int" says nothing beside "unsigned" and "long".
void drop_int(gTypeWords & core) {
  auto const sized = [](std::string_view word) {
    return is_one_of(word, {"unsigned", "long", "short"});
  };
  if (std::any_of(core.begin(), core.end(), sized))
    std::erase_if(core, [](std::string_view word) { return word == "int" || word == "signed"; });
}

// Pointers in brackets of their own, "(*)[3]" and "(*)(int)", lose them: nothing else can be meant
// where arrays and functions decay.
void decay(gTypeWords & signs) {
  if (signs.size() > 3 && signs[0] == "(" && signs[1] == "*" && signs[2] == ")" &&
      is_one_of(signs[3], {"[", "("})) {
    signs.erase(signs.begin());
    signs.erase(signs.begin() + 1);
    if (signs[1] == "(")
      signs.erase(signs.begin());
    return;
  }
  auto const array = std::find(signs.begin(), signs.end(), "[");
  bool const outermost = std::find(signs.begin(), array, "(") == array;
  if (array == signs.end() || !outermost)
    return;
  auto const end = std::find(array, signs.end(), "]");
  *array = "*";
  signs.erase(array + 1, end == signs.end() ? end : end + 1);
}

std::string type(gTypeWords words, bool copied, int depth) {
  std::erase_if(words, is_noise);
  gTypeWords core;
  core.reserve(words.size() + 1);
  std::list<std::string> made; // arguments, which the core borrows
  bool constant = false;
  std::size_t at = 0;
  for (; at < words.size(); ++at) {
    std::string_view const word = words[at];
    std::size_t const behind = word == "<" ? behind_arguments(words, at) : at;
    if (behind != at) {
      core.push_back(made.emplace_back(arguments(words, at, behind, depth)));
      at = behind - 1;
    } else if (word == "const") {
      constant = true;
    } else if (Vlb::is_word(word[0]) || word == ":" || word[0] == '$') {
      core.push_back(word);
    } else {
      break;
    }
  }
  gTypeWords signs = part(words, at, words.size());
  drop_int(core);
  if (copied) {
    while (!signs.empty() && signs.back() == "const")
      signs.pop_back();
    decay(signs);
  }
  if (constant && !(copied && signs.empty()))
    core.emplace_back("const");
  core.insert(core.end(), signs.begin(), signs.end());
  return joined_words(core);
}

} // namespace

gTypeWords type_words(std::string_view text) {
  gTypeWords words;
  words.reserve(text.size() / 3 + 1);
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
      words.push_back(text.substr(at, end - at));
      at = end;
    } else {
      if (static_cast<unsigned char>(c) > ' ' && c != '\\')
        words.push_back(text.substr(at, 1));
      ++at;
    }
  }
  return words;
}

std::string joined_words(gTypeWords const & words) {
  std::string text;
  for (std::string_view const word : words) {
    if (!text.empty() && !word.empty() && Vlb::is_word(text.back()) && Vlb::is_word(word[0]))
      text += ' ';
    text += word;
  }
  return text;
}

std::string parameter_type(gTypeWords words) {
  return type(std::move(words), true, 0);
}

std::string plain_type(gTypeWords words) {
  return type(std::move(words), false, 0);
}

std::string without_qualifiers(std::string_view signature) {
  std::string text;
  for (std::size_t at = 0; at < signature.size(); ++at) {
    if (signature.substr(at).starts_with("::")) {
      while (!text.empty() && Vlb::is_word(text.back()))
        text.pop_back();
      ++at;
    } else {
      text += signature[at];
    }
  }
  return text;
}
