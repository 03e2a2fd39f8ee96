// Two stacks: blocks, and the formats of the paragraph. A block that begins ends the paragraph, so
// formats never reach over it. Blanks are written only when a word follows.
#include "ana/comments/rich_text.h"

#include <algorithm>
#include <utility>

#include "vlb/gstring.h"

namespace {

constexpr std::size_t deepest_formats = 40;

bool is_white(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

bool is_control(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

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
  if (!is_web_address(address) || formats_.size() >= deepest_formats) {
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
  if (shown.empty() && !is_web_address(address))
    return;
  begin_inline();
  exact_ = exact_ || !formats_.empty();
  put("@image");
  put_param(address);
  put("{");
  put_escaped(shown.empty() ? address : shown, true);
  put("} ");
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
  begin_inline();
  target(name, kind);
}

void gRichText::begin_paragraph() {
  if (!std::exchange(joins_, false))
    end_paragraph();
}

void gRichText::end_paragraph() {
  joins_ = false;
  close_formats(blocks_.empty() ? 0 : blocks_.back().formats);
  lost_formats_ = 0;
  behind_paragraph_ = behind_paragraph_ || in_paragraph_;
  in_paragraph_ = blank_pending_ = false;
}

void gRichText::block(std::string_view lines, std::string_view language) {
  if (std::ranges::all_of(lines, is_white))
    return;
  begin_block();
  shows_ = true;
  put("@b_verbatim");
  if (!language.empty())
    put_param(language);
  put("\n");
  // Within the block "@" alone begins a command, and a backslash protects punctuation.
  for (char c : lines) {
    if (is_control(c) && !is_white(c))
      continue;
    if (c == '@' || c == '\\')
      out_ += '\\';
    if (c != '\r')
      out_ += c;
  }
  if (out_.back() != '\n')
    out_ += '\n';
  put("@e_verbatim\n");
}

void gRichText::rule() {
  begin_block();
  put("@rule\n");
}

// In lists, quotes and tables a headline is a bold line.
void gRichText::open_heading(int level) {
  begin_block();
  bool const real = blocks_.empty() || nested_deep();
  blocks_.push_back({Block::heading});
  blocks_.back().formats = formats_.size();
  blocks_.back().numbered = real;
  std::string const depth = std::to_string(std::clamp(level, 1, 3));
  if (!real)
    open_format("b");
  else
    put(sections_ ? "@sub<" + depth + ">{" : std::string("@subentry<2> @subtitle{"));
  in_paragraph_ = fresh_line_ = true;
}

void gRichText::close_heading() {
  if (in(Block::heading))
    close_top();
}

void gRichText::open_list(bool numbered) {
  if (nested_deep()) {
    ++lost_blocks_;
    return;
  }
  begin_block();
  blocks_.push_back({Block::list, numbered});
  blocks_.back().formats = formats_.size();
  put(numbered ? "@b_numbering<>\n" : "@b_enum<>\n");
}

void gRichText::open_item() {
  if (lost_blocks_ > 0)
    return end_paragraph();
  if (!close_blocks_to(Block::list))
    open_list(false);
  if (!in(Block::list))
    return;
  Open & list = blocks_.back();
  put(list.numbered ? "@numbering " : "@enum ");
  list.any = true;
  Open item{Block::item};
  item.formats = formats_.size();
  blocks_.push_back(item);
  in_paragraph_ = behind_paragraph_ = blank_pending_ = false;
}

void gRichText::close_item() {
  if (lost_blocks_ == 0 && close_blocks_to(Block::item))
    close_top();
}

void gRichText::close_list() {
  if (lost_blocks_ > 0) {
    --lost_blocks_;
    return;
  }
  if (close_blocks_to(Block::list))
    close_top();
}

void gRichText::open_quote() {
  if (nested_deep()) {
    ++lost_blocks_;
    return;
  }
  begin_block();
  blocks_.push_back({Block::quote});
  blocks_.back().formats = formats_.size();
  put("@b_quote\n");
}

void gRichText::close_quote() {
  if (lost_blocks_ > 0) {
    --lost_blocks_;
    return;
  }
  if (close_blocks_to(Block::quote))
    close_top();
}

// Closes what stands in the innermost open block of this kind; false if none is open. A cell ends
// the search, but for its own parts: what stands in it closes nothing around it.
bool gRichText::close_blocks_to(Block block) {
  std::size_t found = blocks_.size();
  bool const table_part = block == Block::table || block == Block::row || block == Block::cell;
  while (found > 0 && blocks_[found - 1].block != block) {
    Block const at = blocks_[found - 1].block;
    bool const wall = at == Block::quote || at == Block::heading ||
                      (at == Block::cell && !table_part) || (at == Block::list && table_part);
    if (wall && at != Block::heading)
      return false;
    --found;
  }
  if (found == 0)
    return false;
  close_to(found);
  return true;
}

bool gRichText::has_open(Block block) const {
  return std::ranges::any_of(blocks_, [&](Open const & one) { return one.block == block; });
}

void gRichText::close_to(std::size_t depth) {
  end_paragraph();
  while (blocks_.size() > depth)
    close_top();
}

void gRichText::close_top() {
  end_paragraph();
  Open const top = blocks_.back();
  behind_paragraph_ = false;
  switch (top.block) {
  case Block::list:
    put(top.numbered ? "\n@e_numbering\n" : "\n@e_enum\n");
    break;
  case Block::item:
  case Block::row:
  case Block::cell:
    put("\n");
    break;
  case Block::quote:
    put("\n@e_quote\n");
    break;
  case Block::table:
    finish_table(top);
    put("\n@e_table\n");
    break;
  case Block::heading:
    if (top.numbered)
      put(sections_ ? "}\n@text\n" : "}\n");
    else
      behind_paragraph_ = true;
    break;
  }
  blocks_.pop_back();
  if (!blocks_.empty())
    blocks_.back().any = true;
}

void gRichText::open_table() {
  if (nested_deep() || has_open(Block::table)) {
    ++lost_blocks_;
    return;
  }
  begin_block();
  Open table{Block::table};
  table.formats = formats_.size();
  // The head is written when the columns are known.
  table.piece = pieces_.size();
  table.place = out_.size();
  blocks_.push_back(table);
}

void gRichText::open_row(bool head) {
  if (!close_blocks_to(Block::table))
    open_table();
  if (!in(Block::table))
    return;
  Open & table = blocks_.back();
  table.head = table.head || (table.first_row && head);
  Open row{Block::row};
  row.formats = formats_.size();
  row.first_row = table.first_row;
  table.first_row = false;
  blocks_.push_back(row);
  put("@row ");
}

void gRichText::open_cell() {
  if (!close_blocks_to(Block::row))
    open_row(false);
  if (!in(Block::row))
    return;
  std::size_t const cells = ++blocks_.back().cells;
  Open & table = blocks_[blocks_.size() - 2];
  table.columns = std::max(table.columns, cells);
  Open cell{Block::cell};
  cell.formats = formats_.size();
  blocks_.push_back(cell);
  put("@cell ");
  exact_ = true;
  in_paragraph_ = behind_paragraph_ = blank_pending_ = false;
}

void gRichText::close_cell() {
  if (close_blocks_to(Block::cell))
    close_top();
}

void gRichText::close_table() {
  if (lost_blocks_ > 0) {
    --lost_blocks_;
    return;
  }
  if (close_blocks_to(Block::table))
    close_top();
}

void gRichText::finish_table(Open const & table) {
  std::string head = "@b_table<><*";
  for (std::size_t i = 1; i < table.columns; ++i)
    head += ",*";
  head += table.head ? "><><1>\n" : "><><>\n";
  std::string & text = table.piece == pieces_.size() ? out_ : pieces_[table.piece].text;
  text.insert(table.place, head);
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
