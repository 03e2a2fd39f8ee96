// Words repeat all the time, so a table of texts makes the bytes small, and texts that were shared
// are shared again.
#include "ana/read/facts_archive.h"

#include "ana/anadat/pieces.h"

namespace Facts {

void gWriter::bits(std::uint64_t value) {
  for (; value > 0x7F; value >>= 7)
    bytes_ += static_cast<char>(value | 0x80);
  bytes_ += static_cast<char>(value);
}

// 0 begins a new text and 1 one with a mark; the others are the known ones.
void gWriter::shared_text(std::string_view text, unsigned char mark) {
  auto const [at, is_new] = texts_[mark].try_emplace(text, count_ + 2);
  if (!is_new) {
    bits(at->second);
    return;
  }
  ++count_;
  bits(mark ? 1 : 0);
  if (mark)
    bits(mark);
  bits(text.size());
  bytes_ += text;
}

void gWriter::pieces(gStrList const & list) {
  bits(list.size());
  for (cRef<gString> const & piece : list)
    shared_text(*piece, piece->mark());
}

std::uint64_t gReader::next() {
  std::uint64_t value = 0;
  for (int shift = 0; shift < 64 && !rest_.empty(); shift += 7) {
    auto const byte = static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(1);
    value |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
    if (byte < 0x80)
      return good_ ? value : 0;
  }
  good_ = false;
  return 0;
}

std::size_t gReader::count() {
  std::uint64_t const n = next();
  require(n <= rest_.size());
  return good_ ? static_cast<std::size_t>(n) : 0;
}

cRef<gString> const & gReader::shared_text() {
  std::uint64_t const number = next();
  require(number < texts_.size() + 2);
  if (!good_)
    return empty_;
  if (number > 1)
    return texts_[number - 2];
  std::uint64_t const mark = number ? next() : 0;
  require(mark <= static_cast<std::uint64_t>(gPiece::copy));
  std::size_t const size = count();
  texts_.push_back(make_ref<gString>(rest_.substr(0, size)));
  texts_.back()->set_mark(static_cast<unsigned char>(mark));
  rest_.remove_prefix(size);
  return texts_.back();
}

void gReader::pieces(gStrList & list) {
  for (std::size_t n = count(); n > 0 && good_; --n)
    list.push_back(shared_text());
}

} // namespace Facts
