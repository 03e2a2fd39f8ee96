// An opener is two or three characters that say what the comment is, and perhaps "<" behind them.
// Only what all lines have in common is a frame: a list that begins its lines with "*" stays.
#include "ana/read/comment_blocks.h"

#include <algorithm>
#include <span>

#include "ana/read/comment_noise.h"
#include "vlb/gstring.h"

namespace {

using Decl::gComment;
constexpr auto npos = std::string_view::npos;

struct Opener {
  std::size_t length = 0; // with "<"
  bool line = false;      // ends with its line
  bool documenting = false;
  bool behind = false;
};

// "<" behind a documenting opener, unless it begins an element such as "<b>".
bool points_back(std::string_view rest) {
  if (!rest.starts_with('<'))
    return false;
  bool const element = rest.size() > 1 && (Vlb::is_word(rest[1]) || rest[1] == '/');
  return !element || rest.substr(0, rest.find('\n')).find('>') == npos;
}

Opener opener_of(std::string_view comment, bool pascal) {
  Opener opener;
  auto const take = [&](std::string_view word, bool documenting) {
    if (opener.length > 0 || !comment.starts_with(word))
      return;
    opener.length = word.size();
    opener.documenting = documenting;
  };
  opener.line = comment.starts_with("//");
  // A rule of slashes or stars is drawing.
  bool const rule = comment.starts_with("////") || comment.starts_with("/***") ||
                    (pascal && (comment.starts_with("{****") || comment.starts_with("(****")));
  if (!rule) {
    take("///", true);
    take("//!", true);
    take("/**", comment.size() > 3 && comment[3] != '/');
    take("/*!", true);
  }
  if (pascal) {
    take("{**", !rule);
    take("{!", true);
    take("(**", !rule && comment.size() > 3 && comment[3] != ')');
    take("(*!", true);
    take("(*", false);
    take("{", false);
  }
  take("//", false);
  take("/*", false);
  if (rule)
    opener.length = std::min(comment.find_first_not_of(comment[1], 1), comment.size());
  if (opener.length == 3 && opener.line == false && comment.substr(0, 4) == "/**/")
    opener.length = 2; // empty
  opener.behind = (opener.documenting || pascal) && points_back(comment.substr(opener.length));
  opener.documenting = opener.documenting || opener.behind;
  opener.length += opener.behind;
  return opener;
}

// Tabs reach to every `width`th column.
std::size_t column_of(std::string_view text, gComment const & comment, std::size_t width) {
  std::size_t column = 0;
  for (char c : text.substr(comment.whole.begin - (comment.column - 1), comment.column - 1))
    column += c == '\t' ? width - column % width : 1;
  return column;
}

bool below_each_other(std::string_view text, gComment const & one, gComment const & other) {
  return column_of(text, one, 8) == column_of(text, other, 8) ||
         column_of(text, one, 4) == column_of(text, other, 4);
}

// On one line that has no code, and no switch for the compiler.
bool is_row(std::string_view text, gComment const & one) {
  std::string_view const whole = one.whole.of(text);
  bool const is_switch = whole.starts_with("{$") || whole.starts_with("(*$");
  return one.line == one.end_line && one.line_start && !is_switch;
}

// "/* one */" above "/* two */": the rows of a box are equally long; others have words, and neither
// is a heading.
bool go_on_as_rows(std::string_view text, gComment const & one, gComment const & next) {
  if (one.column != next.column || text[one.whole.begin] != text[next.whole.begin])
    return false;
  std::string_view const first = one.whole.of(text), second = next.whole.of(text);
  if (first.size() == second.size() && first.size() > 20)
    return true;
  auto const says = [](std::string_view row) {
    return has_words(row) && !is_caption(row) && std::ranges::count(row, ' ') > 2;
  };
  return says(first) && says(second);
}

// "/// @{": what stands below it is about the first thing between the brackets.
bool is_bracket(std::string_view text, gComment const & comment) {
  std::string_view words = comment.whole.of(text);
  words.remove_prefix(std::min(words.find_first_not_of("/! \t"), words.size()));
  words = words.substr(0, words.find_last_not_of(" \t\r") + 1);
  return words == "@{" || words == "@}" || words == "\\{" || words == "\\}";
}

// Behind code the column tells what goes on from what stands in front of the next declaration.
bool continues(std::string_view text, gComment const & head, gComment const & before,
               Opener const & first, gComment const & next, Opener const & opener) {
  if (first.line != opener.line || next.line != before.end_line + 1 || !next.line_start ||
      first.documenting != opener.documenting || (opener.behind && !first.behind) ||
      is_bracket(text, before))
    return false;
  if (head.line_start)
    return first.line || (!first.documenting && is_row(text, before) && is_row(text, next) &&
                          go_on_as_rows(text, before, next));
  return (first.behind && opener.behind) || below_each_other(text, before, next);
}

std::string_view closer_of(std::string_view comment, bool pascal) {
  if (comment.starts_with("//"))
    return {};
  for (std::string_view closer :
       {std::string_view("*/"), std::string_view("*)"), std::string_view("}")})
    if ((pascal || closer == "*/") && comment.ends_with(closer))
      return closer;
  return {};
}

struct Line {
  std::string_view text;
  bool inner = false; // not the first of its comment
  bool framed = true; // has the frame, if there is one
};

void add_lines(std::vector<Line> & lines, std::string_view inside) {
  for (bool inner = false;; inner = true) {
    std::size_t const feed = inside.find('\n');
    lines.push_back({inside.substr(0, feed), inner, true});
    if (feed == npos)
      return;
    inside.remove_prefix(feed + 1);
  }
}

std::size_t indent_of(std::string_view line) {
  return std::min(line.find_first_not_of(" \t"), line.size());
}

bool has_command(std::string_view line, std::initializer_list<std::string_view> words) {
  return std::ranges::any_of(words, [line](std::string_view word) {
    std::size_t const at = line.find(word);
    return at != npos && at > 0 && (line[at - 1] == '\\' || line[at - 1] == '@') &&
           (at + word.size() == line.size() || !Vlb::is_letter(line[at + word.size()]));
  });
}

// Programs are often pasted between framed lines as they are; a star in front of one of theirs is
// no frame then.
void find_bare_code(std::vector<Line> & lines) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::string_view const opener = lines[i].text;
    if (!has_command(opener, {"code", "verbatim"}) ||
        has_command(opener, {"endcode", "endverbatim"}))
      continue;
    std::size_t const begin = i + 1;
    while (++i < lines.size() && !has_command(lines[i].text, {"endcode", "endverbatim"})) {
    }
    std::size_t const at = indent_of(opener);
    if (i == lines.size() || !lines[begin - 1].inner)
      continue;
    auto const code = std::span(lines).subspan(begin, i - begin);
    bool const bare = std::ranges::any_of(code, [&](Line const & line) {
      std::size_t const first = indent_of(line.text);
      return first < line.text.size() && line.text[first] != opener[at];
    });
    for (Line & line : code)
      line.framed = !bare;
  }
}

// The one character that begins all inner lines with text, if there is one.
char frame_of(std::vector<Line> const & lines) {
  char frame = 0;
  for (Line const & line : lines) {
    std::size_t const at = indent_of(line.text);
    if (!line.inner || !line.framed || at == line.text.size())
      continue;
    char const c = line.text[at];
    if ((frame != 0 && c != frame) || (c != '*' && c != '|' && c != '#' && c != '!'))
      return 0;
    frame = c;
  }
  return frame;
}

// What ends all lines with text, if there are several: the right side of a box; "" for none.
std::string_view right_frame_of(std::vector<Line> const & lines) {
  std::string_view frame;
  std::size_t count = 0;
  for (Line const & line : lines) {
    std::string_view const text = line.text.substr(0, line.text.find_last_not_of(" \t\r") + 1);
    if (indent_of(text) == text.size())
      continue;
    std::string_view const end = text.substr(text.size() - (text.ends_with("//") ? 2 : 1));
    if ((end != "*" && end != "|" && end != "#" && end != "//") || (count > 0 && end != frame))
      return {};
    frame = end;
    ++count;
  }
  return count > 1 ? frame : std::string_view();
}

std::string_view without_right_frame(std::string_view line, std::string_view frame) {
  line = line.substr(0, line.find_last_not_of(" \t\r") + 1);
  while (!frame.empty() && line.ends_with(frame))
    line.remove_suffix(frame.size());
  return line.substr(0, line.find_last_not_of(" \t\r") + 1);
}

std::string_view without_frame(std::string_view line, char frame) {
  std::size_t at = indent_of(line);
  if (at == line.size() || line[at] != frame)
    return line;
  while (at < line.size() && line[at] == frame)
    ++at;
  return line.substr(at);
}

} // namespace

std::vector<gCommentBlock> comment_blocks(std::string_view text,
                                          std::vector<gComment> const & comments, bool pascal) {
  std::vector<gCommentBlock> blocks;
  Opener first;
  for (std::size_t i = 0; i < comments.size(); ++i) {
    gComment const & comment = comments[i];
    Opener const opener = opener_of(comment.whole.of(text), pascal);
    if (!blocks.empty() &&
        continues(text, comments[blocks.back().first], comments[i - 1], first, comment, opener)) {
      blocks.back().last = i;
      blocks.back().end = comment.whole.end;
      blocks.back().end_line = comment.end_line;
      continue;
    }
    first = opener;
    blocks.push_back({comment.whole.begin, comment.whole.end, comment.line, comment.end_line, i, i,
                      opener.documenting, opener.behind});
  }
  return blocks;
}

std::string comment_text(std::string_view text, gCommentBlock const & block,
                         std::vector<gComment> const & comments, bool pascal) {
  std::vector<Line> lines;
  for (std::size_t i = block.first; i <= block.last; ++i) {
    std::string_view const whole = comments[i].whole.of(text);
    std::size_t const opener = opener_of(whole, pascal).length;
    std::size_t const closer = closer_of(whole, pascal).size();
    add_lines(lines, opener + closer <= whole.size()
                         ? whole.substr(opener, whole.size() - opener - closer)
                         : std::string_view());
  }
  find_bare_code(lines);
  char const frame = frame_of(lines);
  std::string_view const right_frame = right_frame_of(lines);
  std::string result;
  for (Line const & line : lines) {
    if (&line != lines.data())
      result += '\n';
    std::string_view words = line.text;
    if (line.inner && line.framed && frame != 0)
      words = without_frame(words, frame);
    result += without_right_frame(words, right_frame);
  }
  // The last star of a frame stands in front of the closer.
  while (result.ends_with('*'))
    result.pop_back();
  return result;
}
