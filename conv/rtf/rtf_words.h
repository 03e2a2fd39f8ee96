// Walks over RTF: groups, control words and text.
#pragma once

#include <string_view>

namespace Rtf {

// Goes through a stretch of RTF that lives as long as the reader. Total: whatever stands there is
// one of the kinds.
class gWordReader {
public:
  enum Kind { open_group, close_group, control, plain };

  explicit gWordReader(std::string_view rtf) : rtf_(rtf) {}
  // The next token; false at the end. Line ends are passed over.
  bool next();
  Kind kind() const { return kind_; }
  // The token as it stands, a blank behind a control word left out.
  std::string_view token() const { return token_; }
  // The name of a control word, without its number; empty for other tokens.
  std::string_view word() const { return word_; }
  int number(int fallback) const { return has_number_ ? number_ : fallback; }
  // How many groups are open, the one that `open` began counted.
  int depth() const { return depth_; }
  // Behind `open`: goes behind the group's end. The whole group, braces included.
  std::string_view skip_group();

private:
  void take_control();
  void take_binary();

  std::string_view rtf_;
  std::size_t pos_ = 0;
  Kind kind_ = plain;
  std::string_view token_, word_;
  int number_ = 0;
  bool has_number_ = false;
  int depth_ = 0;
};

// The word that says what a group is: "fonttbl" of {\fonttbl ...}, "listtable" of
// {\*\listtable ...}; empty if it begins otherwise.
std::string_view destination(std::string_view group);

} // namespace Rtf
