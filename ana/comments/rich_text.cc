// Two stacks: blocks, and the formats of the paragraph. A block that begins ends the paragraph, so
// formats never reach over it. Blanks are written only when a word follows.
#include "ana/comments/rich_text.h"

#include <algorithm>
#include <utility>

#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

constexpr std::size_t deepest_formats = 40;

std::string_view format_head(std::string_view format) {
  static constexpr std::pair<std::string_view, std::string_view> named[] = {
      {"ul", "@ul<>{"},
      {"del", "@fmt<del>{"},
      {"sup", "@fmt<sup>{"},
      {"sub", "@fmt<sub>{"},
      {"mark", "@fmt<mark>{"}};
  for (auto const & [name, head] : named)
    if (name == format)
      return head;
  return {};
}

// Bytes that an address can't have.
std::string escaped_address(std::string_view address) {
  static constexpr char digits[] = "0123456789ABCDEF";
  std::string result;
  for (char c : address) {
    auto const byte = static_cast<unsigned char>(c);
    bool const plain =
        byte < 0x80 && (Vlb::is_word(c) ||
                        std::string_view("~-.+!*(),%#@?=;:/$&'").find(c) != std::string_view::npos);
    if (plain)
      result += c;
    else
      (result += '%').append({digits[byte >> 4], digits[byte & 15]});
  }
  return result;
}

} // namespace

bool is_web_address(std::string_view address) {
  for (std::string_view const scheme : {"http://", "https://", "ftp://", "mailto:"})
    if (address.size() > scheme.size() && Vlb::to_lower(address.substr(0, scheme.size())) == scheme)
      return true;
  return false;
}

void gRichText::put_escaped(std::string_view words, bool one_line) {
  for (char c : words) {
    if (one_line && is_white(c))
      c = ' ';
    else if (is_control(c) && !is_white(c))
      continue;
    if (std::string_view("\\@{}<>").find(c) != std::string_view::npos)
      out_ += '\\';
    out_ += c;
  }
}

void gRichText::put_param(std::string_view words) {
  out_ += '<';
  put_escaped(words, true);
  out_ += '>';
}

// Text or an inline command comes: the paragraph begins if none is open.
void gRichText::begin_inline() {
  if (!in_paragraph_) {
    if (in(Block::list)) // text between items belongs to none; it makes one
      open_item();
    else if (in(Block::table) || in(Block::row))
      open_cell();
    if (behind_paragraph_)
      put("@endp\n");
    behind_paragraph_ = false;
    blank_pending_ = false;
    in_paragraph_ = true;
  }
  if (blank_pending_)
    out_ += ' ';
  blank_pending_ = fresh_line_ = false;
  shows_ = true;
  if (!blocks_.empty())
    blocks_.back().any = true;
}

void gRichText::begin_block() {
  end_paragraph();
  if (in(Block::list))
    open_item();
  else if (in(Block::table) || in(Block::row))
    open_cell();
  else if (in(Block::heading))
    close_top();
  behind_paragraph_ = false;
  if (out_.empty() ? !pieces_.empty() : out_.back() != '\n')
    out_ += '\n';
}

void gRichText::text(std::string_view words) {
  for (std::size_t at = 0; at < words.size();) {
    std::size_t end = at;
    while (end < words.size() && is_white(words[end]))
      ++end;
    if (end > at)
      blank_pending_ = in_paragraph_ && !fresh_line_;
    at = end;
    while (end < words.size() && !is_white(words[end]))
      ++end;
    if (end > at) {
      begin_inline();
      put_escaped(words.substr(at, end - at), true);
    }
    at = end;
  }
}

void gRichText::line_break() {
  if (!in_paragraph_)
    return;
  put("@endl\n");
  blank_pending_ = false;
  fresh_line_ = true;
}

void gRichText::code(std::string_view words) {
  if (words.empty())
    return;
  open_format("tt");
  text(words);
  close_format("tt");
}

void gRichText::open_format(std::string_view format) {
  if (formats_.size() >= deepest_formats) {
    ++lost_formats_;
    return;
  }
  begin_inline();
  exact_ = exact_ || !formats_.empty();
  formats_.emplace_back(format);
  std::string_view const head = format_head(format);
  if (head.empty())
    out_ += "@" + std::string(format) + "{";
  else
    put(head);
}

// Whatever was opened behind it ends, too.
void gRichText::close_format(std::string_view format) {
  if (lost_formats_ > 0) {
    --lost_formats_;
    return;
  }
  std::size_t const base = blocks_.empty() ? 0 : blocks_.back().formats;
  for (std::size_t i = formats_.size(); i > base; --i)
    if (formats_[i - 1] == format)
      return close_formats(i - 1);
}

void gRichText::close_formats(std::size_t left) {
  while (formats_.size() > left) {
    put("} ");
    formats_.pop_back();
  }
}

void gRichText::open_link(std::string_view address) {
  bool const place = places_ && !address.empty() && address.find(':') == address.npos;
  if ((!is_web_address(address) && !place) || formats_.size() >= deepest_formats) {
    formats_.size() >= deepest_formats ? void(++lost_formats_) : open_format("plain");
    return;
  }
  begin_inline();
  exact_ = exact_ || !formats_.empty();
  formats_.emplace_back("plain");
  put("@href");
  put_param(escaped_address(address));
  put("{");
}

void gRichText::close_link() {
  close_format("plain");
}

void gRichText::target(std::string_view name, gRichPiece::Kind kind) {
  pieces_.push_back({gRichPiece::code, std::move(out_)});
  pieces_.push_back({kind, std::string(name)});
  out_.clear();
}

void gRichText::reference(std::string_view name, std::string_view shown, Sure sure) {
  begin_inline();
  exact_ = true;
  target(name, sure == Sure::yes ? gRichPiece::reference : gRichPiece::guess);
  put(sure == Sure::name ? "{@code{" : "{@tt{");
  put_escaped(shown, true);
  put("} } ");
  if (sure != Sure::yes) // whoever drops the reference finds its text alone
    pieces_.push_back({gRichPiece::code, std::exchange(out_, {})});
}

void gRichText::open_reference(std::string_view name) {
  if (formats_.size() >= deepest_formats) {
    ++lost_formats_;
    return;
  }
  begin_inline();
  exact_ = true;
  formats_.emplace_back("plain");
  target(name, gRichPiece::reference);
  put("{");
}

void gRichText::image(std::string_view address, std::string_view shown) {
  if (places_)
    return;
  if (!is_web_address(address)) // a file that isn't there
    return text(shown);
  begin_inline();
  exact_ = exact_ || !formats_.empty();
  put("@image");
  put_param(address);
  put("{");
  put_escaped(shown.empty() ? address : shown, true);
  put("} ");
}

void gRichText::picture(std::string_view path, std::string_view shown, bool in_line,
                        std::string_view width) {
  if (!in_line)
    end_paragraph();
  begin_inline();
  exact_ = true;
  put("@picture");
  put_param(path);
  put_param(in_line ? "inline" : "block");
  put_param(width);
  put("{");
  put_escaped(shown, true);
  put("} ");
  if (!in_line)
    end_paragraph();
}

void gRichText::formula(std::string_view source, bool display) {
  begin_inline();
  exact_ = exact_ || !formats_.empty();
  put("@formula");
  put_param(display ? "display" : "inline");
  put_param(source);
  put(" ");
}

void gRichText::copy(std::string_view name, gRichPiece::Kind kind) {
  if (in(Block::heading))
    return;
  if (kind == gRichPiece::copy_all && has_open(Block::table))
    kind = gRichPiece::copy_brief;
  bool const paragraph = kind != gRichPiece::copy_brief;
  if (paragraph)
    end_paragraph();
  begin_inline();
  exact_ = true;
  target(name, kind);
  if (paragraph)
    end_paragraph();
}

gRichPieces gRichText::take() {
  close_to(0);
  if (!shows_)
    return {};
  pieces_.push_back({gRichPiece::code, std::move(out_)});
  if (exact_)
    pieces_.front().text.insert(0, "@exact\n");
  std::erase_if(pieces_, [](gRichPiece const & one) {
    return one.kind == gRichPiece::code && one.text.empty();
  });
  return std::move(pieces_);
}

void gRichText::anchor(std::string_view name) {
  begin_inline();
  target(name, gRichPiece::anchor);
}
