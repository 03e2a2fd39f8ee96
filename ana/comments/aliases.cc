// One pass over the comment; the text of an alias is read in the same way, one step deeper.
#include "ana/comments/aliases.h"

#include <algorithm>
#include <vector>

#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

constexpr auto npos = std::string_view::npos;
constexpr int deepest = 8;
constexpr std::size_t longest_braces = 4000;
constexpr std::size_t most_growth = 64u << 10; // bytes that a comment may gain

class Expansion {
public:
  Expansion(gAliases const & aliases, std::size_t room) : aliases_(aliases), room_(room) {}
  void expand(std::string_view text, int depth);
  std::string take() { return std::move(out_); }

private:
  std::size_t alias(std::string_view text, int depth);

  gAliases const & aliases_;
  std::size_t room_; // bytes of the result
  std::string out_;
};

// The text of "{a,b}" without its braces; its length with them in `length`, 0 if there is none.
std::string_view braces_at(std::string_view text, std::size_t & length) {
  length = 0;
  int depth = 0;
  for (std::size_t i = 0; i < std::min(text.size(), longest_braces); ++i) {
    bool const escaped = i > 0 && text[i - 1] == '\\';
    depth += escaped ? 0 : (text[i] == '{') - (text[i] == '}');
    if (depth == 0) {
      length = i > 0 ? i + 1 : 0;
      return text.substr(std::min<std::size_t>(1, i), i > 0 ? i - 1 : 0);
    }
  }
  return {};
}

std::string plain(std::string_view argument) {
  std::string result;
  for (std::size_t i = 0; i < argument.size(); ++i) {
    bool const escape =
        argument[i] == '\\' && i + 1 < argument.size() && is_one_of(argument[i + 1], ",{}");
    i += escape;
    result += argument[i];
  }
  return result;
}

std::vector<std::string> arguments_of(std::string_view inner) {
  std::vector<std::string> arguments;
  std::size_t begin = 0;
  int depth = 0;
  for (std::size_t i = 0; i <= inner.size(); ++i) {
    bool const escaped = i > 0 && i < inner.size() && inner[i - 1] == '\\';
    char const c = i < inner.size() && !escaped ? inner[i] : '\0';
    depth += (c == '{') - (c == '}');
    if (i == inner.size() || (c == ',' && depth == 0)) {
      arguments.push_back(plain(inner.substr(begin, i - begin)));
      begin = i + 1;
    }
  }
  return arguments;
}

// "^^" ends a line, and so does "\n" where it isn't the begin of a word.
std::string filled(std::string_view text, std::vector<std::string> const & arguments) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char const next = i + 1 < text.size() ? text[i + 1] : '\0';
    bool const number = text[i] == '\\' && next >= '1' && next <= '9';
    bool const feed =
        (text[i] == '^' && next == '^') ||
        (text[i] == '\\' && next == 'n' && (i + 2 == text.size() || !Vlb::is_word(text[i + 2])));
    if (number && static_cast<std::size_t>(next - '1') < arguments.size())
      result += arguments[static_cast<std::size_t>(next - '1')];
    else if (feed)
      result += '\n';
    else
      result += text[i];
    i += feed || number;
  }
  return result;
}

// Puts one in place of the command that the text begins with; how long that is, 0 if it is none.
std::size_t Expansion::alias(std::string_view text, int depth) {
  std::size_t end = 1;
  while (end < text.size() && Vlb::is_word(text[end]))
    ++end;
  std::string const name(text.substr(1, end - 1));
  std::size_t length = 0;
  std::string_view const inner = end < text.size() && text[end] == '{'
                                     ? braces_at(text.substr(end), length)
                                     : std::string_view();
  std::vector<std::string> arguments;
  auto found = aliases_.end();
  if (length > 0) {
    arguments = arguments_of(inner);
    found = aliases_.find(name + "{" + std::to_string(arguments.size()) + "}");
    if (found == aliases_.end() && (found = aliases_.find(name + "{1}")) != aliases_.end())
      arguments = {plain(inner)};
  }
  if (found == aliases_.end()) {
    found = aliases_.find(name);
    length = 0;
  }
  if (found == aliases_.end())
    return 0;
  std::string const shown = filled(found->second, arguments);
  if (depth < deepest && out_.size() + shown.size() <= room_)
    expand(shown, depth + 1);
  else
    out_ += text.substr(0, end + length);
  return end + length;
}

void Expansion::expand(std::string_view text, int depth) {
  for (std::size_t at = 0; at < text.size();) {
    bool const command = (text[at] == '@' || text[at] == '\\') && at + 1 < text.size() &&
                         (is_letter(text[at + 1]) || text[at + 1] == '_') &&
                         (at == 0 || (text[at - 1] != '\\' && text[at - 1] != '@' &&
                                      (text[at] == '\\' || !Vlb::is_word(text[at - 1]))));
    std::size_t const length = command ? alias(text.substr(at), depth) : 0;
    if (length == 0)
      out_ += text[at];
    at += std::max<std::size_t>(length, 1);
  }
}

} // namespace

gAliases aliases_of(std::string_view list, std::string_view standard) {
  gAliases aliases;
  std::string one;
  for (std::size_t i = 0; i <= list.size(); ++i) {
    bool const escape = list.substr(std::min(i, list.size())).starts_with("\\;");
    if (i < list.size() && (escape || list[i] != ';')) {
      i += escape;
      one += list[i];
      continue;
    }
    std::size_t const equals = one.find('=');
    if (std::string const name(trimmed(std::string_view(one).substr(0, equals)));
        !name.empty() && (equals != npos || !standard.empty()))
      aliases.insert_or_assign(
          name, std::string(equals == npos ? standard
                                           : trimmed(std::string_view(one).substr(equals + 1))));
    one.clear();
  }
  return aliases;
}

std::string with_aliases(std::string comment, gAliases const & aliases) {
  if (aliases.empty() || comment.find_first_of("@\\") == npos)
    return comment;
  Expansion expansion(aliases, comment.size() + most_growth);
  expansion.expand(comment, 0);
  return expansion.take();
}
