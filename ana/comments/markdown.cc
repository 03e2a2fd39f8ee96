// The parser calls back for each block, format and text in their order; each call is one of the
// rich text, but for what has to be gathered: program text, and the words that stand for a picture.
#include "ana/comments/markdown.h"

#include <md4c.h>

#include "ana/comments/html_elements.h"

namespace {

class Markdown {
public:
  Markdown(gMarkdownOptions const & options, gRichText & out) : options_(options), out_(out) {}
  void run(std::string_view text);

private:
  void enter(MD_BLOCKTYPE type, void const * detail);
  void leave(MD_BLOCKTYPE type);
  void enter(MD_SPANTYPE type, void const * detail);
  void leave(MD_SPANTYPE type);
  void text(MD_TEXTTYPE type, std::string_view text);
  void running(std::string_view text);
  void end_html();
  void end_tag();
  static std::string value_of(MD_ATTRIBUTE const & attribute);

  gMarkdownOptions const & options_;
  gRichText & out_;
  std::string gathered_;  // program text, HTML or the words of a picture
  std::string tag_;       // within a line
  std::string language_;  // of the block
  std::string address_;   // of the picture
  bool in_block_ = false; // of program text
  bool in_code_ = false;  // the same within a line
  bool in_html_ = false;  // a block of HTML
  int pictures_ = 0;      // that are open
  bool head_ = false;     // of a table
};

// Parts of an attribute are text or entities.
std::string Markdown::value_of(MD_ATTRIBUTE const & attribute) {
  std::string value;
  for (int i = 0; attribute.text && attribute.substr_offsets[i] < attribute.size; ++i) {
    std::string_view const part(attribute.text + attribute.substr_offsets[i],
                                attribute.substr_offsets[i + 1] - attribute.substr_offsets[i]);
    std::size_t length = 0;
    std::string const character =
        attribute.substr_types[i] == MD_TEXT_ENTITY ? Html::entity_at(part, length) : "";
    value += length > 0 ? character : std::string(part);
  }
  return value;
}

void Markdown::running(std::string_view text) {
  if (pictures_ > 0)
    gathered_ += text;
  else if (options_.set_text)
    options_.set_text(text, out_);
  else
    out_.text(text);
}

void Markdown::enter(MD_BLOCKTYPE type, void const * detail) {
  end_tag();
  switch (type) {
  case MD_BLOCK_QUOTE:
    return out_.open_quote();
  case MD_BLOCK_UL:
    return out_.open_list(false);
  case MD_BLOCK_OL:
    return out_.open_list(true);
  case MD_BLOCK_LI: {
    auto const & item = *static_cast<MD_BLOCK_LI_DETAIL const *>(detail);
    out_.open_item();
    if (item.is_task)
      out_.text(item.task_mark == ' ' ? "\u2610 " : "\u2611 ");
    return;
  }
  case MD_BLOCK_HR:
    return out_.rule();
  case MD_BLOCK_H:
    return out_.open_heading(
        static_cast<int>(static_cast<MD_BLOCK_H_DETAIL const *>(detail)->level));
  case MD_BLOCK_CODE:
    in_block_ = true;
    language_ = value_of(static_cast<MD_BLOCK_CODE_DETAIL const *>(detail)->lang);
    return;
  case MD_BLOCK_HTML:
    in_html_ = true;
    return;
  case MD_BLOCK_P:
    return out_.begin_paragraph();
  case MD_BLOCK_TABLE:
    return out_.open_table();
  case MD_BLOCK_THEAD:
    head_ = true;
    return;
  case MD_BLOCK_TR:
    return out_.open_row(head_);
  case MD_BLOCK_TH:
  case MD_BLOCK_TD:
    return out_.open_cell();
  default:
    return;
  }
}

void Markdown::leave(MD_BLOCKTYPE type) {
  end_tag();
  switch (type) {
  case MD_BLOCK_QUOTE:
    return out_.close_quote();
  case MD_BLOCK_UL:
  case MD_BLOCK_OL:
    return out_.close_list();
  case MD_BLOCK_LI:
    return out_.close_item();
  case MD_BLOCK_H:
    return out_.close_heading();
  case MD_BLOCK_CODE:
    in_block_ = false;
    out_.block(options_.plain ? options_.plain(gathered_) : gathered_, language_);
    return gathered_.clear();
  case MD_BLOCK_HTML:
    return end_html();
  case MD_BLOCK_P:
    return out_.end_paragraph();
  case MD_BLOCK_THEAD:
    head_ = false;
    return;
  case MD_BLOCK_TABLE:
    return out_.close_table();
  case MD_BLOCK_TH:
  case MD_BLOCK_TD:
    return out_.close_cell();
  default:
    return;
  }
}

void Markdown::end_tag() {
  if (tag_.empty())
    return;
  Html::set_text(tag_, out_);
  tag_.clear();
}

void Markdown::end_html() {
  in_html_ = false;
  out_.end_paragraph();
  std::string_view const html = gathered_;
  Html::set_text(html, out_);
  gathered_.clear();
}

void Markdown::enter(MD_SPANTYPE type, void const * detail) {
  end_tag();
  if (pictures_ > 0 && type != MD_SPAN_IMG)
    return;
  switch (type) {
  case MD_SPAN_EM:
    return out_.open_format("em");
  case MD_SPAN_STRONG:
    return out_.open_format("b");
  case MD_SPAN_DEL:
    return out_.open_format("del");
  case MD_SPAN_A:
    return out_.open_link(value_of(static_cast<MD_SPAN_A_DETAIL const *>(detail)->href));
  case MD_SPAN_IMG:
    if (pictures_++ == 0)
      address_ = value_of(static_cast<MD_SPAN_IMG_DETAIL const *>(detail)->src);
    return;
  case MD_SPAN_CODE:
    in_code_ = true;
    return;
  default:
    return;
  }
}

void Markdown::leave(MD_SPANTYPE type) {
  end_tag();
  if (pictures_ > 0 && type != MD_SPAN_IMG)
    return;
  switch (type) {
  case MD_SPAN_EM:
    return out_.close_format("em");
  case MD_SPAN_STRONG:
    return out_.close_format("b");
  case MD_SPAN_DEL:
    return out_.close_format("del");
  case MD_SPAN_A:
    return out_.close_link();
  case MD_SPAN_IMG:
    if (--pictures_ > 0)
      return;
    if (std::string const path = options_.picture ? options_.picture(address_) : ""; !path.empty())
      out_.picture(path, gathered_, true, {});
    else
      out_.image(address_, gathered_);
    return gathered_.clear();
  case MD_SPAN_CODE:
    in_code_ = false;
    out_.code(options_.plain ? options_.plain(gathered_) : gathered_);
    return gathered_.clear();
  default:
    return;
  }
}

void Markdown::text(MD_TEXTTYPE type, std::string_view text) {
  if (in_block_ || in_code_ || in_html_) {
    gathered_ += text;
    return;
  }
  if (type != MD_TEXT_HTML)
    end_tag();
  std::size_t length = 0;
  switch (type) {
  case MD_TEXT_NULLCHAR:
    return running("\uFFFD");
  case MD_TEXT_BR:
    return pictures_ > 0 ? void(gathered_ += ' ') : out_.line_break();
  case MD_TEXT_SOFTBR:
    return running("\n");
  case MD_TEXT_ENTITY: {
    std::string const character = Html::entity_at(text, length);
    if (pictures_ > 0)
      gathered_ += length > 0 ? character : text;
    else
      out_.text(length > 0 ? character : text);
    return;
  }
  case MD_TEXT_HTML: // a tag may come in several lines
    if (pictures_ == 0)
      tag_ += text;
    return;
  default:
    return running(text);
  }
}

void Markdown::run(std::string_view text) {
  MD_PARSER parser{};
  parser.flags = MD_FLAG_TABLES | MD_FLAG_TASKLISTS | MD_FLAG_STRIKETHROUGH |
                 (options_.html ? 0 : MD_FLAG_NOHTML) |
                 (options_.bare_links ? MD_FLAG_PERMISSIVEURLAUTOLINKS : 0);
  parser.enter_block = [](MD_BLOCKTYPE type, void * detail, void * self) {
    static_cast<Markdown *>(self)->enter(type, detail);
    return 0;
  };
  parser.leave_block = [](MD_BLOCKTYPE type, void *, void * self) {
    static_cast<Markdown *>(self)->leave(type);
    return 0;
  };
  parser.enter_span = [](MD_SPANTYPE type, void * detail, void * self) {
    static_cast<Markdown *>(self)->enter(type, detail);
    return 0;
  };
  parser.leave_span = [](MD_SPANTYPE type, void *, void * self) {
    static_cast<Markdown *>(self)->leave(type);
    return 0;
  };
  parser.text = [](MD_TEXTTYPE type, MD_CHAR const * part, MD_SIZE size, void * self) {
    static_cast<Markdown *>(self)->text(type, std::string_view(part, size));
    return 0;
  };
  // It fails without memory alone; then the words are there at least.
  if (md_parse(text.data(), static_cast<MD_SIZE>(text.size()), &parser, this) != 0)
    out_.text(text);
}

} // namespace

void set_markdown(std::string_view text, gMarkdownOptions const & options, gRichText & out) {
  Markdown(options, out).run(text);
}

gRichPieces markdown_page(std::string_view text) {
  gRichText out(true);
  out.keep_places();
  gMarkdownOptions options;
  options.bare_links = true;
  set_markdown(text, options, out);
  return out.take();
}
