// Comments that name what they describe, "@name: text" and "name() - text", and elements that stand
// for parts.
#include "ana/comments/translator.h"

#include "ana/comments/html_elements.h"
#include "ana/comments/name_marks.h"
#include "ana/comments/words.h"
#include "vlb/gstring.h"

// The name in "@name: text", which describes what is declared or a part of it, or "" if it is a
// command.
std::string_view gCommentTranslator::described_name(std::string_view text) const {
  std::string_view const name = hints_ ? Comments::name_described_in(text) : std::string_view();
  if (name.empty())
    return {};
  if (hints_->parameters.contains(name))
    return name;
  switch (Commands::find(name).kind) {
  case gCommandKind::none:
  case gCommandKind::line:
  case gCommandKind::topic:
  case gCommandKind::about:
  case gCommandKind::group:
    return name;
  default:
    return {};
  }
}

bool gCommentTranslator::read_described(std::string_view text, std::size_t indent) {
  std::string_view const name = described_name(text);
  if (name.empty())
    return false;
  // "@open: opens it" at the field of that name.
  if (name == hints_->name && !headed_ && part_ == 0 && !has_text()) {
    add(trimmed(text.substr(name.size() + 2)), indent);
    return headed_ = true;
  }
  switch (hints_->declared) {
  case gCommentHints::routine: {
    std::string_view const words = trimmed(text.substr(name.size() + 2));
    open_named("@parameter",
               std::string(name) + " " + std::string(headed_ ? without_annotations(words) : words),
               indent);
    return true;
  }
  case gCommentHints::enumeration:
    open_named("@values", text.substr(1), indent);
    return true;
  case gCommentHints::other:
    break;
  }
  add("- `" + std::string(name) + "` " + std::string(trimmed(text.substr(name.size() + 2))),
      indent);
  return true;
}

// "name() - what it does", "struct name - what it is": where the words begin; 0 for other text.
std::size_t gCommentTranslator::behind_dash(std::string_view text) const {
  std::string_view rest = text;
  for (std::string_view const kind : {"struct ", "union ", "enum ", "typedef ", "define "})
    if (rest.starts_with(kind)) {
      rest.remove_prefix(kind.size());
      break;
    }
  if (!rest.starts_with(hints_->name))
    return 0;
  rest.remove_prefix(hints_->name.size());
  if (rest.starts_with("()"))
    rest.remove_prefix(2);
  std::size_t const dash = rest.find_first_not_of(" \t");
  bool const parted = dash != rest.npos && dash > 0 && rest[dash] == '-' && dash + 1 < rest.size();
  std::size_t const words = parted ? rest.find_first_not_of(" \t", dash + 1) : rest.npos;
  return words != rest.npos && words > dash + 1 ? text.size() - rest.size() + words : 0;
}

// A comment that is headed by the name of what it describes has labels for commands.
bool gCommentTranslator::read_label(std::string_view text, std::size_t indent) {
  static constexpr std::pair<std::string_view, std::string_view> labels[] = {
      {"Returns:", "@return"},
      {"Return:", "@return"},
      {"Return value:", "@return"},
      {"Since:", "@since"},
      {"Deprecated:", "@deprecated"}};
  if (!hints_ || hints_->name.empty())
    return false;
  bool const first = !headed_ && part_ == 0 && !has_text();
  if (std::size_t const behind = first ? behind_dash(text) : 0; behind > 0) {
    add(text.substr(behind), indent);
    return headed_ = true;
  }
  std::string_view const behind = text.substr(std::min(hints_->name.size(), text.size()));
  if (first && text.starts_with(hints_->name) && behind.starts_with(':') &&
      without_annotations(trimmed(behind.substr(1))).empty())
    return headed_ = true;
  for (auto const & [label, entry] : labels)
    if (headed_ && text.starts_with(label)) {
      open_part(entry, indent);
      body_ = without_annotations(trimmed(text.substr(label.size())));
      return true;
    }
  return false;
}

// The elements that stand for parts of a comment, as commands.
std::string gCommentTranslator::from_xml(std::string_view text) const {
  static constexpr std::pair<std::string_view, std::string_view> parts[] = {
      {"<param ", "@param "},    {"<typeparam ", "@tparam "}, {"<exception ", "@throws "},
      {"<returns>", "@return "}, {"<remarks>", "@note "},     {"<value>", "@return "},
      {"<example>", "@note "},   {"<seealso ", "@see "},      {"<permission ", "@note "}};
  for (auto const & [element, command] : parts) {
    if (!text.starts_with(element))
      continue;
    gHtmlTag const tag = Html::tag_at(text);
    if (tag.length == 0)
      break;
    std::string name = Html::attribute(tag.attributes, "name");
    if (name.empty())
      name = Html::attribute(tag.attributes, "cref");
    if (name.size() > 2 && name[1] == ':')
      name.erase(0, 2);
    std::string_view rest = text.substr(tag.length);
    std::string const close = "</" + tag.name + ">";
    if (rest.ends_with(close))
      rest.remove_suffix(close.size());
    if (tag.name == "permission")
      name = "`" + name + "`";
    std::string const address = Html::attribute(tag.attributes, "href");
    if (tag.name == "seealso" && !trimmed(rest).empty())
      return std::string(command) + "\\l{" + (name.empty() ? address : name) + "}{" +
             std::string(rest) + "}";
    return std::string(command) + (name.empty() ? address : name) + " " + std::string(rest);
  }
  for (std::string_view const close :
       {"</param>", "</typeparam>", "</exception>", "</returns>", "</remarks>", "</value>",
        "</example>", "</seealso>", "</permission>"})
    if (text.ends_with(close))
      return std::string(text.substr(0, text.size() - close.size()));
  return std::string(text);
}
