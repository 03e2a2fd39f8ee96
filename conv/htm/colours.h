// A light scanner that tells what to colour in program text. It knows words, not grammar, and takes
// any text.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "conv/vlt/rules.h"

enum class gColour : unsigned char {
  none,
  word,
  keyword,
  comment,
  string,
  number,
  directive,
  // Stretches with colours in them
  differing, // what tells overloads apart
  arrow,     // "->", which no line may part
  last
};

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
  // What stands around a stretch of this colour.
  std::string_view before(gColour colour) const { return frame(colour).before; }
  std::string_view behind(gColour colour) const { return frame(colour).behind; }
  // A whole text.
  void set(gLanguage language, std::string_view text, std::string & out) const;

private:
  struct gFrame {
    std::string before, behind; // what the rule puts around the text
  };
  using gWords = std::unordered_set<std::string_view>;

  static constexpr auto colour_count = static_cast<std::size_t>(gColour::last);

  gFrame const & frame(gColour colour) const { return frames_[static_cast<std::size_t>(colour)]; }
  bool is_keyword(gLanguage language, std::string_view word) const;

  std::string words_[2]; // the lists, by language; the sets look into them
  gWords keywords_[2];
  gFrame frames_[colour_count];
};
