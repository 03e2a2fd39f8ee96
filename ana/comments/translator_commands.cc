// What the commands at the head of a line do to the comment.
#include <algorithm>
#include <cctype>

#include "ana/comments/picture_command.h"
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

// Such a text never goes on with a part.
bool describes(std::string_view command) {
  static constexpr std::string_view words[] = {"brief", "short", "details", "abstract"};
  return std::ranges::find(words, command) != std::end(words);
}

// The name in "name rest" or, where a type stands in front, in "int Type::name(int x)".
std::string_view named_in(std::string_view text, bool typed) {
  std::string_view const head = trimmed(text.substr(0, text.find('(')));
  std::size_t const space = head.find_last_of(" *&");
  return typed && space != npos ? head.substr(space + 1) : head.substr(0, head.find(' '));
}

// "{1,2} text": a cell's size, and what a row or a division looks like.
std::string_view without_attributes(std::string_view text) {
  return text.starts_with('{') ? trimmed(text.substr(std::min(text.find('}'), text.size() - 1) + 1))
                               : text;
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
    result_.id = named_in(rest, command.name.starts_with("qml"));
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
void gCommentTranslator::take_about(gCommand const & command, std::string_view rest) {
  // A type stands in front of what has one.
  static constexpr std::string_view typed[] = {"var", "variable", "property", "typedef"};
  if (std::ranges::find(typed, command.name) != std::end(typed) && rest.find('(') == npos) {
    rest = trimmed(rest.substr(0, rest.find_first_of("=[;{")));
    rest = rest.substr(rest.find_last_of(" \t") + 1);
  }
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

// One of the things that "\sa" refers to: a name with or without words, an address, a title in
// braces, or text.
void gCommentTranslator::take_see(std::string_view word) {
  gRichText & out = part().text;
  std::size_t length = 0;
  std::string const target = reference_target(word);
  std::string const first = overload_target(word, length);
  std::string_view const behind = trimmed(word.substr(std::min(length, word.size())));
  if (is_web_address(word) && word.find_first_of(" <") == npos) {
    out.open_link(word);
    out.text(word);
    out.close_link();
  } else if (word.find(' ') == npos && !target.empty() && word[0] != '{') {
    while (word.starts_with('#'))
      word.remove_prefix(1);
    out.reference(target, word);
  } else if (word.substr(0, length).find('#') != npos && !first.empty() && !behind.empty()) {
    out.open_reference(reference_target(word.substr(0, length)));
    set_running(behind, out); // "Name#member(int) words", as Java has it
    out.close_link();
  } else {
    std::string const text =
        inline_.read(word[0] == '{' ? "\\l" + std::string(word) : std::string(word));
    tokens_.set(text, out,
                [this](std::string_view words, gRichText & to) { set_running(words, to); });
  }
}

// Commas part what is referred to, but for those in brackets.
void gCommentTranslator::take_references(std::string_view rest) {
  if (part().entry != "@see" || break_pending_)
    open_part("@see", part_indent_);
  flush();
  int depth = 0;
  std::size_t begin = 0;
  for (std::size_t i = 0; i <= rest.size(); ++i) {
    char const c = i < rest.size() ? rest[i] : ',';
    depth += is_one_of(c, "({") ? 1 : is_one_of(c, ")}") && depth > 0 ? -1 : 0;
    if (c != ',' || (depth > 0 && i < rest.size()))
      continue;
    std::string_view const word = trimmed(rest.substr(begin, i - begin));
    begin = i + 1;
    if (word.empty())
      continue;
    if (!part().text.at_begin())
      part().text.text(", ");
    take_see(word);
  }
}

// The title of a topic, of a paragraph, or words that stand below a title or a picture.
void gCommentTranslator::take_title(gCommand const & command, std::string_view rest) {
  if (command.target == "text") {
    body_ += "\n\n";
    add_token({gToken::format, std::string(rest), "em", {}}, part_indent_);
    body_ += "\n\n";
  } else if (command.name == "title" && result_.kind == gTranslated::topic && !has_text()) {
    result_.name = rest;
    for (gCommentGroup & group : result_.groups)
      if (group.kind == gCommentGroup::topic && group.id == result_.id)
        group.title = rest;
    result_.title_id = title_id(rest);
  } else if (rest.empty()) {
    body_ += "\n\n"; // another paragraph
  } else {
    take_heading({}, "{" + std::string(rest) + "}");
  }
}

void gCommentTranslator::take_heading(std::string_view level, std::string_view rest) {
  std::string const words(rest);
  flush();
  if (part().entry != "@description" && parblocks_ == 0)
    open_part("@description", part_indent_);
  std::string_view title = words;
  std::string_view const id = take_word(title);
  bool const braced = id.starts_with('{') || title.empty();
  if (!braced && !title.starts_with('{'))
    part().text.anchor(id);
  std::string_view const shown = braced ? without_braces(words) : without_braces(title);
  put_heading(level.empty() ? 3 : level[0] - '0', shown.empty() ? id : shown);
}

void gCommentTranslator::put_heading(int level, std::string_view words) {
  part().text.open_heading(level);
  set_running(words, part().text);
  part().text.close_heading();
}

void gCommentTranslator::take_image(gCommand const & command, std::string_view rest,
                                    std::size_t indent) {
  gPictureCommand const image = picture_command(rest, true);
  if (image.elsewhere)
    return;
  gToken token = inline_.picture_token(image);
  if (image.in_line || command.name == "inlineimage") {
    if (token.does == gToken::picture)
      token.does = gToken::picture_in_line;
    add(tokens_.add(std::move(token)) + " " + std::string(trimmed(rest.substr(image.length))),
        indent);
    return;
  }
  body_ += "\n\n";
  add_token(std::move(token), indent);
  body_ += "\n\n";
}

// Empty where it isn't to be had.
std::string gCommentTranslator::picture(std::string_view name) {
  if (!options_.files || name.empty() || is_web_address(name))
    return {};
  std::string path = options_.files->picture(name);
  if (path.empty())
    ++result_.missing[std::string(name)];
  return path;
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
    opened_.push_back(does == open_table);
  break_pending_ = false;
  body_ += "\n\n";
  add_token({does, {}, {}, {}}, indent);
  body_ += "\n\n";
  if (does == open_head || does == open_row) {
    rest = without_attributes(rest);
    if (!rest.empty())
      read_pieces({rest, rest, indent});
  }
  if (!begins && does != close_quote && !opened_.empty() && opened_.back() == (does == close_table))
    opened_.pop_back();
}

// What stands behind "@parblock", if a text begins so: its paragraphs belong to the part.
std::string_view gCommentTranslator::in_parblock(std::string_view text) {
  std::size_t length = 0;
  if (Commands::at(text, length).name != "parblock")
    return text;
  ++parblocks_;
  return trimmed(text.substr(length));
}

void gCommentTranslator::take_entry(gCommand const & command, std::string_view rest) {
  if (command.name == "xrefitem") { // key "Title" "Title of the list" text
    take_word(rest);
    std::size_t const first = rest.find('"', 1), second = rest.find('"', first + 1);
    std::size_t const last = second == npos ? npos : rest.find('"', second + 1);
    if (rest.starts_with('"') && last != npos) {
      body_ = "**" + std::string(rest.substr(1, first - 1)) + ":** ";
      rest = trimmed(rest.substr(last + 1));
    }
  }
  if (std::size_t const end = rest.find(']'); rest.starts_with('[') && end != npos) // "[5.15] text"
    rest = (kept_.emplace_back(rest.substr(1, end - 1)) += ": ") += trimmed(rest.substr(end + 1));
  body_ += in_parblock(rest);
  // A version is all that such a line says; a sentence below is about something else.
  bool const digits = !rest.empty() && Vlb::is_digit(rest.back());
  if (command.name == "since" && digits && std::ranges::count(rest, ' ') < 3)
    break_pending_ = true;
}

void gCommentTranslator::take_command(gCommand const & command, std::string_view rest,
                                      std::size_t indent) {
  using enum gCommandKind;
  switch (command.kind) {
  case entry:
    open_part(command.target, indent);
    if (rest.starts_with(": "))
      rest = trimmed(rest.substr(1));
    take_entry(command, rest);
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
    take_title(command, rest);
    break;
  case heading:
    if (Vlb::is_digit(command.name.back())) { // those have no identifier, and are found by words
      flush();
      part().text.anchor(title_id(rest));
      put_heading(command.target[0] - '0', rest);
    } else {
      take_heading(command.target, rest);
    }
    break;
  case item:
    if (!opened_.empty()) {
      body_ += "\n\n";
      break_pending_ = false;
      gToken::Does const does = in_table() ? gToken::open_cell : gToken::open_item;
      add(tokens_.add({does, {}, {}, {}}) + " " +
              std::string(in_table() ? without_attributes(rest) : rest),
          indent);
    } else {
      add("- " + std::string(rest), indent);
    }
    break;
  case topic:
    take_topic(command, rest);
    break;
  case about:
    take_about(command, rest);
    break;
  case group:
    take_group(command, rest);
    break;
  case text:
    if (part().entry != "@description" && (break_pending_ || describes(command.name)))
      open_part("@description", indent);
    if (command.name == "details")
      body_ += "\n\n";
    if (!rest.empty()) {
      read_piece(rest, indent);
      behind_brief_ = true;
      indent_known_ = false;
    }
    break;
  case switch_:
    if (command.name == "endcond")
      result_.groups.push_back({gCommentGroup::show, {}, {}});
    if (command.name == "parblock")
      ++parblocks_;
    if (command.name == "endparblock" && parblocks_ > 0) {
      --parblocks_;
      break_pending_ = true;
    }
    // The line of an overload may hold the whole declaration.
    if (!rest.empty() && (command.name != "overload" || !rest.ends_with(')')))
      read_piece(rest, indent);
    break;
  case begin:
  case end:
    begin_or_end(command, rest, indent);
    break;
  case image:
    take_image(command, rest, indent);
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
