// What the commands at the head of a line do to the comment.
#include <algorithm>
#include <cctype>

#include "ana/comments/translator.h"
#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

constexpr auto npos = std::string_view::npos;

// Takes the first word off.
std::string_view take_word(std::string_view & text) {
  std::size_t const end = std::min(text.find_first_of(" \t"), text.size());
  std::string_view const word = text.substr(0, end);
  text = trimmed(text.substr(end));
  return word;
}

std::string_view without_quotes(std::string_view text) {
  if (text.size() > 1 && text.front() == '"' && text.back() == '"')
    return text.substr(1, text.size() - 2);
  return text;
}

std::string_view without_braces(std::string_view text) {
  if (text.size() > 1 && text.front() == '{' && text.back() == '}')
    return text.substr(1, text.size() - 2);
  return text;
}

} // namespace

void gCommentTranslator::take_topic(gCommand const & command, std::string_view rest) {
  if (result_.kind == gTranslated::topic)
    return;
  result_.kind = gTranslated::topic;
  if (command.kind == gCommandKind::group)
    result_.sort = "topic";
  else if (command.name == "page" || command.name == "mainpage" || command.name == "file")
    result_.sort = command.name;
  if (command.name == "mainpage")
    result_.id = "index"; // references call it so
  if (command.target == "id" || command.kind == gCommandKind::group)
    result_.id = take_word(rest);
  else if (!command.target.empty())
    result_.id = rest.substr(0, rest.find_first_of(" ("));
  bool const titled =
      command.target == "id" || command.target.empty() || command.kind == gCommandKind::group;
  std::string_view const title = without_quotes(rest);
  result_.name =
      titled ? std::string(title.empty() ? std::string_view(result_.id) : title)
             : std::string(command.target) + " " + std::string(rest.substr(0, rest.find('(')));
  if (result_.name.empty() && command.name == "mainpage")
    result_.name = "Introduction";
  gRichText text(true);
  std::swap(parts_[0].text, text);
}

void gCommentTranslator::take_group(gCommand const & command, std::string_view rest) {
  if (command.target == "topic" || command.target == "join") {
    std::string_view title = rest;
    std::string const id(take_word(title));
    bool const joins = command.target == "join";
    result_.groups.push_back({joins ? gCommentGroup::joins : gCommentGroup::topic, id,
                              std::string(without_quotes(title))});
    take_topic(command, rest);
  } else if (command.target == "heading") {
    result_.groups.push_back({gCommentGroup::heading, {}, std::string(rest)});
  } else {
    while (!rest.empty())
      result_.groups.push_back({gCommentGroup::member, std::string(take_word(rest)), {}});
  }
}

// The name in "void ns::A::f(int)" or "Name header.h".
void gCommentTranslator::take_about(std::string_view rest) {
  std::size_t const op = rest.find("operator");
  std::string_view const head = rest.substr(0, rest.find('(', op == npos ? 0 : op + 10));
  std::size_t const space = trimmed(head).rfind(' ');
  bool const is_function = head.size() < rest.size();
  std::string_view const name = !is_function    ? rest.substr(0, rest.find_first_of(" \t"))
                                : space == npos ? trimmed(head)
                                                : trimmed(trimmed(head).substr(space + 1));
  std::string const target =
      reference_target(name.substr(std::min(name.find_first_not_of("*&"), name.size())));
  if (target.empty() || result_.kind == gTranslated::topic)
    return;
  result_.kind = gTranslated::about;
  result_.name = target;
}

// Words that are names become references, commas stay between them.
void gCommentTranslator::take_references(std::string_view rest) {
  if (part().entry != "@see" || break_pending_)
    open_part("@see", part_indent_);
  flush();
  gRichText & out = part().text;
  for (std::size_t begin = 0; begin < rest.size();) {
    std::size_t const comma = rest.find(',', begin);
    std::size_t const bracket = rest.find('(', begin);
    std::size_t const inner = bracket < comma ? rest.find(')', bracket) : npos;
    std::size_t const end = std::min(inner == npos ? comma : rest.find(',', inner), rest.size());
    std::string_view word = trimmed(rest.substr(begin, end - begin));
    begin = end + 1;
    if (word.empty())
      continue;
    if (!out.at_begin())
      out.text(", ");
    std::string const target = reference_target(word);
    if (is_web_address(word) && word.find_first_of(" <") == npos) {
      out.open_link(word);
      out.text(word);
      out.close_link();
    } else if (word.find(' ') == npos && !target.empty()) {
      while (word.starts_with('#'))
        word.remove_prefix(1);
      out.reference(target, word);
    } else {
      std::string const text = inline_.read(word);
      tokens_.set(text, out,
                  [this](std::string_view words, gRichText & to) { set_running(words, to); });
    }
  }
}

void gCommentTranslator::take_heading(std::string_view level, std::string_view rest) {
  std::string const words(rest);
  flush();
  std::string_view title = words;
  std::string_view const id = take_word(title);
  bool const braced = id.starts_with('{') || title.empty();
  if (!braced && !title.starts_with('{'))
    part().text.anchor(id);
  std::string_view const shown = braced ? without_braces(words) : without_braces(title);
  part().text.open_heading(level.empty() ? 3 : level[0] - '0');
  set_running(shown.empty() ? id : shown, part().text);
  part().text.close_heading();
}

// "\image html file.png "text"", "@inlineimage file.png text"
void gCommentTranslator::take_image(std::string_view rest, std::size_t indent) {
  std::string_view file = take_word(rest);
  static constexpr std::string_view formats[] = {"html", "latex", "rtf", "docbook", "xml"};
  if (std::ranges::find(formats, file) != std::end(formats)) {
    if (file != "html")
      return;
    file = take_word(rest);
  }
  if (file.starts_with('{'))
    file = without_braces(file);
  std::size_t const quote = rest.find('"');
  std::string_view shown = quote == npos ? rest : rest.substr(quote + 1);
  shown = shown.substr(0, shown.find('"'));
  add_token({gToken::image, std::string(file), std::string(trimmed(shown)), {}}, indent);
}

void gCommentTranslator::begin_or_end(gCommand const & command, std::string_view rest,
                                      std::size_t indent) {
  using enum gToken::Does;
  gToken::Does does = paragraph;
  bool const begins = command.kind == gCommandKind::begin;
  if (command.target == "list")
    does = !begins ? close_list
           : rest.starts_with('1') || rest.starts_with('a') || rest.starts_with('i')
               ? open_numbering
               : open_list;
  else if (command.target == "quote")
    does = begins ? open_quote : close_quote;
  else if (command.target == "table")
    does = begins ? open_table : close_table;
  else
    does = command.target == "head" ? open_head : open_row;
  if (begins && (does == open_list || does == open_numbering || does == open_table))
    ++lists_;
  break_pending_ = false;
  body_ += "\n\n";
  add_token({does, {}, {}, {}}, indent);
  body_ += "\n";
  if (does == open_head || does == open_row)
    if (!rest.empty())
      read_piece(rest, indent);
  if (!begins && lists_ > 0 && does != close_quote)
    --lists_;
}

void gCommentTranslator::take_command(gCommand const & command, std::string_view rest,
                                      std::size_t indent) {
  using enum gCommandKind;
  switch (command.kind) {
  case entry:
    open_part(command.target, indent);
    if (command.name == "xrefitem")
      take_word(rest);
    if (rest.starts_with(": "))
      rest = trimmed(rest.substr(1));
    body_ = rest;
    break;
  case named:
    open_named(command.target, rest, indent);
    break;
  case refs:
    flush();
    take_references(rest);
    break_pending_ = true;
    break;
  case title:
    take_heading({}, "{" + std::string(rest) + "}");
    break;
  case heading:
    // Those with a number in their names have no identifier.
    take_heading(command.target, Vlb::is_digit(command.name.back()) ? "{" + std::string(rest) + "}"
                                                                    : std::string(rest));
    break;
  case item:
    if (lists_ > 0) {
      body_ += "\n\n";
      break_pending_ = false;
      add(tokens_.add({gToken::open_item, {}, {}, {}}) + " " + std::string(rest), indent);
    } else {
      add("- " + std::string(rest), indent);
    }
    break;
  case topic:
    take_topic(command, rest);
    break;
  case about:
    take_about(rest);
    break;
  case group:
    take_group(command, rest);
    break;
  case text:
    if (break_pending_ && part().entry != "@description")
      open_part("@description", indent);
    if (command.name == "details")
      body_ += "\n\n";
    if (!rest.empty())
      read_piece(rest, indent);
    break;
  case switch_:
    if (command.name == "endcond")
      result_.groups.push_back({gCommentGroup::show, {}, {}});
    if (!rest.empty())
      read_piece(rest, indent);
    break;
  case begin:
  case end:
    begin_or_end(command, rest, indent);
    break;
  case image:
    take_image(rest, indent);
    break;
  case copy:
    add("@" + std::string(command.name) + " " + std::string(rest), indent);
    break;
  case file:
    take_file(command, rest, indent);
    break;
  default: // goes with its line
    break;
  }
}

gTranslated translate(std::string_view comment, gCommentHints const * hints,
                      gCommentOptions const & options) {
  return gCommentTranslator(comment, hints, options).read();
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

namespace {

bool tells_subject(std::string_view word, std::string_view next) {
  if (word.empty())
    return next == "{" || next == "}";
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
gCommentSubject comment_subject(std::string_view comment) {
  for (std::size_t at = comment.find_first_of("@\\"); at != npos;
       at = comment.find_first_of("@\\", at + 1)) {
    std::size_t end = at + 1;
    while (end < comment.size() && std::isalpha(static_cast<unsigned char>(comment[end])))
      ++end;
    if (!tells_subject(comment.substr(at + 1, end - at - 1), comment.substr(end, 1)))
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
