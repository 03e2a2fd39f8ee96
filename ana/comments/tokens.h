// What commands in running text do, set aside while Markdown is read: each stands in the text as a
// word that Markdown leaves alone, and is done when the word comes out again.
#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "ana/comments/rich_text.h"

struct gToken {
  enum Does : unsigned char {
    text,
    code,
    format, // `b` names it, `a` is running text
    reference,
    guess,
    reference_text, // `a` the target, `b` running text
    link,           // `a` the address, `b` running text or nothing
    formula,
    display,
    line_break,
    block,   // `b`: the language
    element, // a tag of HTML
    html,    // a text in HTML
    image,
    picture, // `a` its file, `b` the text below it
    picture_in_line,
    anchor,
    copy_all,
    copy_brief,
    copy_details,
    open_list,
    open_numbering,
    open_item,
    close_list,
    open_table,
    open_head,
    open_row,
    open_cell,
    close_table,
    open_quote,
    close_quote,
    paragraph,
  };
  Does does = text;
  std::string a, b;
  std::string raw;        // what stood there, for program text
  std::string width = {}; // of a picture
};

// Without the bytes that stand around tokens, and without carriage returns.
std::string without_marks(std::string_view comment);

class gTokens {
public:
  // The word that stands for it.
  std::string add(gToken token);
  // Sets text that may hold such words; `running` sets text that was left for later.
  template <class Running> void set(std::string_view text, gRichText & out, Running running) const {
    each(
        text, [&](std::string_view plain) { out.text(plain); },
        [&](gToken const & token) { play(token, out, running); });
  }
  // The text with what stood there.
  std::string plain(std::string_view text) const;

private:
  template <class Plain, class Use> void each(std::string_view text, Plain plain, Use use) const {
    while (!text.empty()) {
      std::size_t const mark = text.find(begin_mark);
      plain(text.substr(0, mark));
      if (mark == text.npos)
        return;
      std::size_t const end = text.find(end_mark, mark);
      std::size_t number = 0;
      for (char c : text.substr(mark + 1, end - mark - 1))
        number = number * 10 + static_cast<std::size_t>(c - '0');
      if (end == text.npos || number >= tokens_.size())
        return;
      use(tokens_[number]);
      text.remove_prefix(end + 1);
    }
  }
  template <class Running> void play(gToken const & token, gRichText & out, Running running) const {
    if (token.does == gToken::format) {
      out.open_format(token.b);
      running(token.a, out);
      out.close_format(token.b);
    } else if (token.does == gToken::reference_text) {
      out.open_reference(token.a);
      running(token.b, out);
      out.close_link();
    } else if (token.does == gToken::link) {
      out.open_link(token.a);
      if (token.b.empty())
        out.text(token.a);
      else
        running(token.b, out);
      out.close_link();
    } else {
      play_alone(token, out);
    }
  }
  static void play_alone(gToken const & token, gRichText & out);

  static constexpr char begin_mark = '\x01', end_mark = '\x02';
  // Running text within a token makes others while it is played, so tokens mustn't move.
  std::deque<gToken> tokens_;
};
