// What stands between signs within a line: {@link Name}, `code`, <element>.
#include "ana/comments/inline_commands.h"

#include <algorithm>
#include <utility>

#include "ana/comments/html_elements.h"
#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

constexpr std::size_t npos = std::string_view::npos;

// Lines lose the blanks that all of them have in front, and the empty ones in front of them.
std::string without_margin(std::string_view lines) {
  lines.remove_prefix(std::min(lines.find_first_not_of(" \t"), lines.size()));
  lines.remove_prefix(lines.starts_with('\n'));
  std::size_t const margin = std::min(lines.find_first_not_of(" \t"), lines.size());
  std::string result;
  for (std::size_t at = 0; at < lines.size();) {
    std::size_t const end = std::min(lines.find('\n', at), lines.size());
    std::string_view const line = lines.substr(at, end - at);
    std::size_t const blanks = std::min(line.find_first_not_of(" \t"), line.size());
    (result += line.substr(std::min(blanks, margin))) += '\n';
    at = end + 1;
  }
  return result;
}

} // namespace

// {@link Name text}, {@code text}
bool gInlineCommands::braced_command() {
  if (at(at_ + 1) != '@')
    return false;
  std::size_t name_end = at_ + 2;
  while (is_letter(at(name_end)))
    ++name_end;
  std::size_t const from = at_;
  std::string_view const whole = braced();
  if (at_ == from || name_end >= at_)
    return false;
  std::string_view const name = text_.substr(from + 2, name_end - from - 2);
  std::string_view const inner = trimmed(whole.substr(std::min(name.size() + 1, whole.size())));
  if (name == "link" || name == "linkplain") {
    std::size_t const space = std::min(inner.find_first_of(" \t\n"), inner.size());
    std::string const target = reference_target(inner.substr(0, space));
    std::string const shown(trimmed(inner.substr(space)));
    if (is_web_address(inner.substr(0, space)))
      put({gToken::link,
           std::string(inner.substr(0, space)),
           shown.empty() ? std::string(inner) : shown,
           {}},
          from);
    else if (target.empty())
      put({gToken::text, std::string(inner), {}, {}}, from);
    else if (shown.empty())
      put({gToken::reference, target, std::string(inner), {}}, from);
    else
      put({gToken::reference_text, target, shown, {}}, from);
  } else if (name == "value" && !reference_target(inner).empty()) {
    put({gToken::reference,
         reference_target(inner),
         std::string(inner.substr(inner.starts_with('#'))),
         {}},
        from);
  } else if (name == "code" || name == "literal" || name == "value" || name == "systemProperty") {
    put({gToken::code, tokens_.plain(inner), {}, {}}, from);
  } else if (name == "return") {
    put({gToken::text, "Returns " + std::string(inner) + ".", {}, {}}, from);
  } else if (name == "snippet") {
    std::size_t const colon = inner.find(':'); // attributes stand in front
    if (colon != npos)
      put({gToken::block, without_margin(tokens_.plain(inner.substr(colon + 1))), {}, {}}, from);
  } else if (name == "inheritDoc") {
    put({gToken::copy_all, {}, {}, {}}, from);
  } else if (name == "docRoot" || name == "index") {
    // says nothing by itself
  } else {
    put({gToken::text, std::string(inner), {}, {}}, from);
  }
  return true;
}

gToken gInlineCommands::picture_token(gPictureCommand const & image) const {
  std::string const file(image.file), shown(image.shown);
  std::string path = find_picture_ ? find_picture_(image.file) : std::string();
  if (path.empty())
    return {gToken::image, file, shown, {}};
  return {image.in_line ? gToken::picture_in_line : gToken::picture,
          std::move(path),
          shown,
          {},
          std::string(image.width)};
}

// "\inlineimage a.png" and "\image{inline} html a.png "words"" within a line.
bool gInlineCommands::picture(gCommand const & command, std::size_t end) {
  std::size_t const from = at_;
  gPictureCommand image = picture_command(text_.substr(end, farthest), false);
  image.in_line = image.in_line || command.name == "inlineimage";
  at_ = end + image.length;
  if (!image.elsewhere && !image.file.empty())
    put(picture_token(image), from);
  return true;
}

// A run of backticks up to one as long; as it stands.
bool gInlineCommands::program_text() {
  std::size_t const count = std::min(text_.find_first_not_of('`', at_), text_.size()) - at_;
  std::string_view const mark = text_.substr(at_, count);
  std::size_t end = at_ + count;
  if (count > 2 || no_close_[3] > at_) {
    out_ += mark;
    at_ = end;
    return true;
  }
  std::string_view const near = text_.substr(0, at_ + farthest);
  while ((end = near.find(mark, end)) != npos && at(end + count) == '`')
    end = std::min(near.find_first_not_of('`', end), near.size());
  std::size_t const quote =
      count == 1 ? near.substr(0, near.find_first_of(" \n", at_)).find('\'', at_) : npos;
  std::size_t const from = at_;
  if (quote != npos && quote < end && quote > at_ + 1) { // `name'
    at_ = quote + 1;
    put({gToken::code, std::string(text_.substr(from + 1, quote - from - 1)), {}, {}}, from);
  } else if (end == npos || text_.substr(at_, end - at_).find("\n\n") != npos) {
    no_close_[3] = end == npos ? at_ + farthest / 2 : 0;
    out_ += mark;
    at_ += count;
  } else {
    at_ = end + count;
    out_ += text_.substr(from, at_ - from);
  }
  return true;
}

bool gInlineCommands::element() {
  if (std::string_view const near = text_.substr(at_, farthest); near.starts_with("<![CDATA[")) {
    std::size_t const end = near.find("]]>");
    if (end == npos)
      return false;
    std::size_t const from = std::exchange(at_, at_ + end + 3);
    put({gToken::text, Html::program_text(near.substr(0, end + 3)), {}, {}}, from);
    return true;
  }
  if (!text_.substr(at_).starts_with("<!--") && !is_letter(at(at_ + 1)) && at(at_ + 1) != '/')
    return false;
  gHtmlTag const tag = Html::tag_at(text_.substr(at_));
  if (tag.length == 0 || (tag.name != "!--" && !Html::is_known(tag.name)) ||
      (!tag.closing && behind_word() && tag.name.size() == 1) ||
      (tag.name == "a" && !tag.closing && tag.attributes.empty()))
    return false;
  std::size_t const from = at_;
  at_ += tag.length;
  if (tag.name == "inheritdoc") {
    std::string name = Html::attribute(tag.attributes, "cref");
    if (name.size() > 2 && name[1] == ':') // "M:" of a method
      name.erase(0, 2);
    std::size_t length = 0;
    if (!tag.closing)
      put({gToken::copy_all, overload_target(name, length), {}, {}}, from);
    return true;
  }
  if (tag.name == "img") {
    std::string const file = Html::attribute(tag.attributes, "src");
    std::string const shown = Html::attribute(tag.attributes, "alt");
    std::string width = Html::attribute(tag.attributes, "width");
    if (!width.empty() && Vlb::is_digit(width.back()))
      width += "px";
    put(picture_token({file, shown, picture_width(width), true, false, 0}), from);
    return true;
  }
  put({gToken::element, std::string(text_.substr(from, tag.length)), {}, {}}, from);
  return true;
}
