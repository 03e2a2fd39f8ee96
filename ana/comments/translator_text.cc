// How the lines of a part become its text.
#include <algorithm>
#include <utility>

#include "ana/comments/html_elements.h"
#include "ana/comments/markdown.h"
#include "ana/comments/translator.h"
#include "ana/comments/words.h"

namespace {

constexpr std::string_view description = "@description";
constexpr auto npos = std::string_view::npos;

// Several parameters may share a text: "x,y the place".
void put_names(std::string_view names, gRichText & text) {
  bool const several = names.find_first_of("(<\"'") == npos;
  for (std::size_t begin = 0; begin < names.size();) {
    std::size_t const end = std::min(several ? names.find(',', begin) : npos, names.size());
    if (begin > 0)
      text.text(", ");
    text.code(names.substr(begin, end - begin));
    begin = end + 1;
  }
}

} // namespace

void gCommentTranslator::set_running(std::string_view text, gRichText & out) {
  std::string const inner = inline_.read(text);
  tokens_.set(inner, out, [](std::string_view words, gRichText & to) { to.text(words); });
}

// The part so far becomes text.
void gCommentTranslator::flush() {
  if (!blank_body()) {
    std::string const markdown = inline_.read(body_);
    gMarkdownOptions options;
    options.html = false;
    options.plain = [this](std::string_view text) { return tokens_.plain(text); };
    options.picture = [this](std::string_view name) { return picture(name); };
    options.set_text = [this](std::string_view text, gRichText & out) {
      tokens_.set(text, out,
                  [this](std::string_view words, gRichText & to) { set_running(words, to); });
    };
    std::size_t const depth = part().text.depth();
    set_markdown(markdown, options, part().text);
    if (opened_.empty())
      part().text.close_to(depth);
  }
  body_.clear();
  indent_known_ = false;
  body_indent_ = 0;
}

void gCommentTranslator::open_part(std::string_view entry, std::size_t indent) {
  flush();
  in_item_ = break_pending_ = false;
  parblocks_ = 0;
  part_indent_ = indent;
  if (!opened_.empty())
    part().text.close_to(0);
  opened_.clear();
  auto const at = std::ranges::find(parts_, entry, &Part::entry);
  part_ = static_cast<std::size_t>(at - parts_.begin());
  if (at == parts_.end())
    parts_.push_back({std::string(entry), gRichText(), false});
  else
    part().text.close_to(0);
  part().listed = false;
}

// "[in,out] name - text". Items of one kind that follow each other are one list.
void gCommentTranslator::open_named(std::string_view entry, std::string_view rest,
                                    std::size_t indent) {
  auto const [direction, name, words] = named_item(rest);
  if (name.empty())
    return;
  if (entry == "@parameter" && name.size() > 2 && name.front() == '<' && name.back() == '>')
    return open_named("@tparam",
                      std::string(name.substr(1, name.size() - 2)) + " " + std::string(words),
                      indent); // "<T>", as Java has it
  flush();
  if (part().entry != entry || !part().listed)
    open_part(entry, indent);
  break_pending_ = false;
  gRichText & text = part().text;
  text.close_to(part().listed ? 1 : 0);
  if (!part().listed)
    text.open_list(false);
  part().listed = true;
  text.open_item();
  if (entry == "@throws" && !reference_target(name).empty())
    text.reference(reference_target(name), name, gRichText::Sure::name);
  else
    put_names(tokens_.plain(name), text);
  text.text(" ");
  if (!direction.empty())
    text.text("(" + std::string(direction) + ") ");
  text.join();
  in_item_ = true;
  part_indent_ = item_indent_ = indent;
  body_ = in_parblock(words);
}

// A line of text. Behind an empty line it is another paragraph, or the part has ended.
void gCommentTranslator::add(std::string_view text, std::size_t indent) {
  if (break_pending_) {
    bool const begins = !has_text() && (part().entry == "@warning" || part().entry == "@note");
    bool const goes_on = indent > (in_item_ ? item_indent_ : part_indent_) || begins ||
                         !opened_.empty() || parblocks_ > 0;
    if (std::exchange(behind_brief_, false)) {
      body_indent_ = 0;
      indent_known_ = true;
    }
    if (part().entry != description && !goes_on)
      open_part(description, indent);
    else if (!body_.empty())
      body_ += body_.back() == '\n' ? "\n" : "\n\n";
    break_pending_ = false;
  }
  if (!body_.empty() && body_.back() != '\n')
    body_ += '\n';
  // What goes on behind a command stands under its text.
  if (!indent_known_) {
    bool const flush_left = part().entry == description && !in_item_ && !behind_brief_;
    body_indent_ = flush_left ? 0 : indent;
    indent_known_ = true;
  }
  std::size_t blanks = indent - std::min(indent, body_indent_);
  bool const tag = text[0] == '<' && Html::is_block(Html::tag_at(text).name);
  if (tag || !opened_.empty())
    blanks = 0;
  body_.append(blanks, ' ');
  body_ += text;
}

void gCommentTranslator::add_token(gToken token, std::size_t indent) {
  add(tokens_.add(std::move(token)), indent);
}

void gCommentTranslator::add_block(std::string lines, std::string_view language,
                                   std::size_t indent) {
  gToken token{gToken::block, std::move(lines), std::string(language), {}};
  token.raw = token.a;
  bool const pending = break_pending_;
  break_pending_ = false;
  if (pending && in_item_ && indent <= item_indent_)
    break_pending_ = true;
  // The text of a quotation would go on without a mark.
  std::size_t const line = body_.rfind('\n', body_.empty() ? 0 : body_.size() - 1);
  if (std::string_view(body_).substr(line == npos ? 0 : line + 1).starts_with('>'))
    body_ += "\n\n";
  add_token(std::move(token), indent);
  body_ += '\n';
}
