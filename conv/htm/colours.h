// A light scanner that tells what to colour in program text. It knows words, not grammar, and takes
// any text.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "conv/vlt/rules.h"

enum class gColour : unsigned char { none, word, keyword, comment, string, number, directive };

struct gColoured {
  gColour colour;
  std::string_view text;
};

enum class gLanguage : unsigned char { cpp, pascal };

class gColours {
public:
  explicit gColours(gVltRules const & rules);
  gColours(gColours const &) = delete;
  gColours & operator=(gColours const &) = delete;

  // By the extension of the file.
  static gLanguage language_of(std::string_view path);

  // What a line begins in, for the next call; 0 at the start of a text.
  using gState = unsigned char;
  // Splits one line, without its line end, into stretches that are the line together.
  void split(gLanguage language, std::string_view line, gState & state,
             std::vector<gColoured> & out) const;
  // Appends a stretch as finished text.
  void set(gColoured const & stretch, std::string & out) const;
  // A whole text.
  void set(gLanguage language, std::string_view text, std::string & out) const;

private:
  struct gFrame {
    std::string before, behind; // what the rule puts around the text
  };
  using gWords = std::unordered_set<std::string_view>;

  bool is_keyword(gLanguage language, std::string_view word) const;

  std::string words_[2]; // the lists, by language; the sets look into them
  gWords keywords_[2];
  gFrame frames_[7];
};
