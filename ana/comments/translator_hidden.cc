// What isn't for all readers: text under a condition, private text, text in other languages, and
// lines for other programs. A line loses it before it is read. What is hidden over several lines
// ends at its closing command, or with the comment.
#include <algorithm>

#include "ana/comments/condition.h"
#include "ana/comments/translator.h"
#include "ana/comments/words.h"

namespace {

constexpr auto npos = std::string_view::npos;

// Commands within a line stand behind a blank, or behind the bar of a table.
bool stands_alone(std::string_view text, std::size_t at) {
  return at == 0 || is_one_of(text[at - 1], " \t|");
}

// "\~german" begins a text in that language, "\~" one in all; 0 for what isn't that.
std::size_t language_length(std::string_view text) {
  static constexpr std::string_view languages[] = {
      "afrikaans", "arabic",    "brazilian",  "bulgarian", "catalan",    "chinese", "croatian",
      "czech",     "danish",    "dutch",      "english",   "esperanto",  "finnish", "french",
      "german",    "greek",     "hindi",      "hungarian", "indonesian", "italian", "japanese",
      "korean",    "latvian",   "lithuanian", "norwegian", "persian",    "polish",  "portuguese",
      "romanian",  "russian",   "serbian",    "slovak",    "slovene",    "spanish", "swedish",
      "turkish",   "ukrainian", "vietnamese"};
  if (text.size() < 2 || text[1] != '~')
    return 0;
  std::size_t end = 2;
  while (end < text.size() && is_letter(text[end]))
    ++end;
  bool const ends = end == text.size() || ends_word(text[end]);
  std::string_view const name = text.substr(2, end - 2);
  bool const known = name.empty() || std::ranges::find(languages, name) != std::end(languages);
  return ends && known ? end : 0;
}

} // namespace

bool gCommentTranslator::is_set(std::string_view condition) const {
  return condition_holds(condition, options_.sections);
}

bool gCommentTranslator::is_shown() const {
  return !other_language_ && (conditions_.empty() || conditions_.back().shown);
}

void gCommentTranslator::condition(std::string_view word, std::string_view rest) {
  if (word == "if" || word == "ifnot") {
    bool const around = conditions_.empty() || conditions_.back().shown;
    bool const holds = is_set(rest) == (word == "if");
    conditions_.push_back({around, around && holds, holds});
    return;
  }
  if (conditions_.empty())
    return;
  Condition & open = conditions_.back();
  if (word == "endif") {
    conditions_.pop_back();
  } else {
    bool const holds = !open.held && (word == "else" || is_set(rest));
    open.shown = open.around && holds;
    open.held = open.held || holds;
  }
}

// The text without what conditions and languages leave out, and without their commands.
std::string_view gCommentTranslator::shown_of(std::string_view text) {
  std::string kept;
  std::size_t from = 0;
  bool any = false;
  for (std::size_t at = text.find_first_of("@\\"); at != npos;
       at = text.find_first_of("@\\", std::max(at + 1, from))) {
    if (!stands_alone(text, at) || (at == 0 && !described_name(text).empty()))
      continue;
    std::size_t length = 0;
    gCommand const command = Commands::at(text.substr(at), length);
    std::size_t const language = language_length(text.substr(at));
    if (language == 0 && command.kind != gCommandKind::branch)
      continue;
    if (is_shown())
      kept += text.substr(from, at - from);
    any = true;
    from = at + length;
    if (language > 0) {
      from = at + language;
      other_language_ = language > 2 && text.substr(at + 2, language - 2) != "english";
    } else {
      bool const asks = command.name != "else" && command.name != "endif";
      std::string_view const rest = text.substr(from);
      std::size_t const asked = asks ? condition_length(rest) : 0;
      condition(command.name, rest.substr(0, asked));
      from += asked;
    }
  }
  if (!any)
    return is_shown() ? text : std::string_view();
  if (is_shown())
    kept += text.substr(from);
  return trimmed(kept_.emplace_back(std::move(kept)));
}

// Goes on to the line where the closing command stands; the text of that line is what stands behind
// it. False if it never comes; then all lines are behind.
bool gCommentTranslator::skip_hidden(gCommand const & command, std::size_t & i, std::size_t from,
                                     std::size_t & depth) {
  std::string const end(command.target);
  for (std::size_t const first = i; i < lines_.size(); ++i) {
    std::string_view const line = lines_[i].text;
    std::size_t length = 0;
    if (i != first && command.kind == gCommandKind::hidden &&
        Commands::at(line, length).name == command.name)
      ++depth;
    std::size_t const begin = i == first ? from : 0;
    for (std::size_t at = line.find(end, begin); !end.empty() && at != npos;
         at = line.find(end, at + 1))
      if (at > 0 && (line[at - 1] == '@' || line[at - 1] == '\\') && --depth == 0) {
        lines_[i].text = trimmed(line.substr(at + end.size()));
        return true;
      }
  }
  return false;
}

// Lines that aren't for readers, from a command in this line on. False if it has none; else what
// stands behind them is left as text of the line that `i` is at then.
bool gCommentTranslator::hide(std::size_t & i) {
  std::string_view const text = lines_[i].text;
  std::size_t at = text.find_first_of("@\\"), length = 0;
  gCommand command;
  for (; at != npos; at = text.find_first_of("@\\", at + 1)) {
    if (!stands_alone(text, at) || (at == 0 && !described_name(text).empty()))
      continue;
    command = Commands::at(text.substr(at), length);
    if (command.kind == gCommandKind::hidden || (at == 0 && command.kind == gCommandKind::dropped))
      break;
  }
  if (at == npos)
    return false;
  bool const hidden = command.kind == gCommandKind::hidden, named = command.name == "cond";
  std::string_view const rest = text.substr(at + length);
  std::size_t const label = named ? condition_length(rest) : 0;
  if (std::string_view const front = trimmed(text.substr(0, at)); !front.empty())
    read_words(front, lines_[i]);
  if (hidden && (options_.internal || (named && is_set(rest.substr(0, label))))) {
    if (named)
      result_.groups.push_back({gCommentGroup::hide, {}, {}});
    lines_[i].text = trimmed(rest.substr(label));
    return true;
  }
  result_.excluded = result_.excluded || (hidden && command.target.empty());
  flush();
  std::size_t depth = 1;
  if (!skip_hidden(command, i, at + length, depth))
    // What isn't closed in the comment goes on behind it.
    for (; named && depth > 0; --depth)
      result_.groups.push_back({gCommentGroup::hide, "cond", {}});
  return true;
}
