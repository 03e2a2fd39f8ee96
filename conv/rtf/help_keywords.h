// Index entries as keywords of help topics.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class gHelpKeywords {
public:
  // The separator is a text of the user's, of which the first character counts, since a help
  // compiler knows separators of one character only.
  gHelpKeywords(std::string_view separator, std::string place_holder);

  char separator() const { return separator_; }
  // The keywords that the fields of an entry come to (text, key, text, second key, text), as plain
  // text: a key, or a key and what stands below it.
  std::vector<std::string> of(std::string const (&fields)[5]) const;
  // For a footnote: each once, in their order.
  static std::string joined(std::vector<std::string> const & keywords);

private:
  std::string cleaned(std::string_view text) const;

  char separator_;
  std::string place_holder_;
};
