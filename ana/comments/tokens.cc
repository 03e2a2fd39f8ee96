// The words are bytes that no text has: comments lose them before they are read.
#include "ana/comments/tokens.h"

#include "ana/comments/html_elements.h"

std::string gTokens::add(gToken token) {
  tokens_.push_back(std::move(token));
  return begin_mark + std::to_string(tokens_.size() - 1) + end_mark;
}

std::string gTokens::plain(std::string_view text) const {
  std::string result;
  each(
      text, [&](std::string_view plain) { result += plain; },
      [&](gToken const & token) { result += token.raw; });
  return result;
}

void gTokens::play_alone(gToken const & token, gRichText & out) {
  switch (token.does) {
  case gToken::code:
    return out.code(token.a);
  case gToken::reference:
    return out.reference(token.a, token.b);
  case gToken::guess:
    return out.reference(token.a, token.b, gRichText::Sure::word);
  case gToken::formula:
    return out.formula(token.a, false);
  case gToken::display:
    return out.formula(token.a, true);
  case gToken::line_break:
    return out.line_break();
  case gToken::block:
    return out.block(token.a, token.b);
  case gToken::element:
    if (!Html::set(Html::tag_at(token.a), out))
      out.text(token.a);
    return;
  case gToken::html:
    out.end_paragraph();
    Html::set_text(token.a, out);
    return out.end_paragraph();
  case gToken::image:
    return out.image(token.a, token.b);
  case gToken::picture:
  case gToken::picture_in_line:
    return out.picture(token.a, token.b, token.does == gToken::picture_in_line, token.width);
  case gToken::anchor:
    return out.anchor(token.a);
  case gToken::copy_all:
    return out.copy(token.a, gRichPiece::copy_all);
  case gToken::copy_brief:
    return out.copy(token.a, gRichPiece::copy_brief);
  case gToken::copy_details:
    return out.copy(token.a, gRichPiece::copy_details);
  case gToken::open_list:
    return out.open_list(false);
  case gToken::open_numbering:
    return out.open_list(true);
  case gToken::open_item:
    return out.open_item();
  case gToken::close_list:
    return out.close_list();
  case gToken::open_table:
    return out.open_table();
  case gToken::open_head:
    return out.open_row(true);
  case gToken::open_row:
    return out.open_row(false);
  case gToken::open_cell:
    return out.open_cell();
  case gToken::close_table:
    return out.close_table();
  case gToken::open_quote:
    return out.open_quote();
  case gToken::close_quote:
    return out.close_quote();
  case gToken::paragraph:
    return out.end_paragraph();
  default:
    return out.text(token.a);
  }
}
