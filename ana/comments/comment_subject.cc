// What a comment says that it is about, and which parameters it describes; told without reading it
// wholly where that can be.
#include <algorithm>
#include <cctype>

#include "ana/comments/commands.h"
#include "ana/comments/translate.h"
#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

constexpr auto npos = std::string_view::npos;

// Pascal's "@name" stands for the name of what is described.
bool tells_subject(std::string_view word, std::string_view next, bool pascal) {
  if (word.empty())
    return next == "{" || next == "}";
  if (pascal && word == "name")
    return false;
  gCommandKind const kind = Commands::find(word).kind;
  return kind == gCommandKind::topic || kind == gCommandKind::about ||
         kind == gCommandKind::group || word == "cond" || word == "endcond";
}

// The heading of a group, or nothing but what opens or closes one.
bool is_about_what_follows(gTranslated const & text) {
  return std::ranges::any_of(text.groups, [&](gCommentGroup const & one) {
    return one.kind == gCommentGroup::heading ||
           (one.kind != gCommentGroup::member && text.parts.empty());
  });
}

} // namespace

// Few comments have such a command, and only those are read twice.
gCommentSubject comment_subject(std::string_view comment, bool pascal) {
  for (std::size_t at = comment.find_first_of("@\\"); at != npos;
       at = comment.find_first_of("@\\", at + 1)) {
    std::size_t end = at + 1;
    while (end < comment.size() && std::isalpha(static_cast<unsigned char>(comment[end])))
      ++end;
    if (!tells_subject(comment.substr(at + 1, end - at - 1), comment.substr(end, 1), pascal))
      continue;
    std::string_view const front = comment.substr(0, at);
    bool const at_head = trimmed(front.substr(front.find_last_of('\n') + 1)).empty();
    // "@file: text" describes a parameter, unless the comment begins with it.
    bool const parameter = comment.substr(end).starts_with(':') && !trimmed(front).empty();
    if (!at_head || parameter)
      continue;
    gTranslated text = translate(comment, nullptr, {});
    bool const names = text.kind == gTranslated::about || text.kind == gTranslated::topic;
    if (!names && is_about_what_follows(text))
      return {gTranslated::nothing, {}};
    return names ? gCommentSubject{text.kind, std::move(text.name)} : gCommentSubject();
  }
  return {};
}

std::set<std::string, std::less<>> described_parameters(std::string_view comment) {
  std::set<std::string, std::less<>> names;
  for (std::size_t at = 0; (at = comment.find("param", at)) != npos;) {
    bool const command = at > 0 && (comment[at - 1] == '@' || comment[at - 1] == '\\');
    at += std::string_view("param").size();
    if (!command)
      continue;
    std::string_view rest = comment.substr(at, comment.find('\n', at) - at);
    if (rest.starts_with('['))
      rest.remove_prefix(std::min(rest.find(']'), rest.size() - 1) + 1);
    rest = trimmed(rest.substr(rest.starts_with('(')));
    std::size_t end = 0;
    while (end < rest.size() && Vlb::is_word(rest[end]))
      ++end;
    names.emplace(rest.substr(0, end));
  }
  return names;
}
