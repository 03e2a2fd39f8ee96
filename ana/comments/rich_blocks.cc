// The stack of blocks: paragraphs, lists, quotations, tables.
#include <algorithm>
#include <utility>

#include "ana/comments/rich_text.h"
#include "ana/comments/words.h"

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

void gRichText::close_outer(Block block) {
  if (lost_blocks_ > 0)
    --lost_blocks_;
  else if (close_blocks_to(block))
    close_top();
}

void gRichText::close_list() {
  close_outer(Block::list);
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
  close_outer(Block::quote);
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

bool gRichText::in_table() const {
  for (std::size_t i = blocks_.size(); i > 0; --i)
    if (Block const block = blocks_[i - 1].block; block == Block::table || block == Block::list)
      return block == Block::table;
  return false;
}

void gRichText::open_caption() {
  if (in(Block::table) && blocks_.back().first_row) {
    blocks_.pop_back(); // it begins behind its caption
    in_caption_ = true;
  }
  open_format("b");
}

void gRichText::close_caption() {
  close_format("b");
  if (std::exchange(in_caption_, false))
    open_table();
}

void gRichText::open_row(bool head) {
  in_caption_ = false;
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

void gRichText::open_cell(bool head) {
  if (!close_blocks_to(Block::row))
    open_row(false);
  if (!in(Block::row))
    return;
  std::size_t const cells = ++blocks_.back().cells;
  Open & table = blocks_[blocks_.size() - 2];
  table.columns = std::max(table.columns, cells);
  Open & row = blocks_.back();
  if (row.first_row && head && cells == 1)
    table.head = row.head = true;
  else if (row.head && !head)
    table.head = false;
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
  close_outer(Block::table);
}

void gRichText::finish_table(Open const & table) {
  std::string head = "@b_table<><*";
  for (std::size_t i = 1; i < table.columns; ++i)
    head += ",*";
  head += table.head ? "><><1>\n" : "><><>\n";
  std::string & text = table.piece == pieces_.size() ? out_ : pieces_[table.piece].text;
  text.insert(table.place, head);
}
