// A document template: what a result takes over from it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "conv/rtf/rtf_words.h"
#include "vlb/gpathstring.h"

// Font and colour tables, style sheet, list tables and page settings of an RTF document. Without a
// readable template: a plain head with one font and no styles.
class gRtfTemplate {
public:
  gRtfTemplate();
  // False, after a report, if the file can't be read or is no RTF; the plain head stays.
  bool load(gPathstring const & path);
  void parse(std::string_view text);

  // The opening of a document up to its first paragraph, without the closing brace of the end.
  // Asked for when all styles are resolved, since that may add colours.
  std::string head() const;
  // The space between the margins, in twips.
  int text_width() const { return text_width_; }
  // Of the style Normal, in half points.
  int font_size() const { return font_size_; }
  // Replaces each "\colour{RRGGBB}" by the number of the colour, as in \cf\colour{1D4E7A}, and each
  // "\style{NAME}" by the control words of the style. A name that the template
  // doesn't have is reported once and gets those of the style Normal.
  std::string resolve_styles(std::string_view text);

private:
  void take_group(Rtf::gWordReader & reader);
  std::string style_words(std::string_view name);
  std::string colour_number(std::string_view hex);

  gPathstring path_;
  std::string words_, fonts_, groups_; // of the head
  std::vector<int> colours_;
  std::map<std::string, std::string, std::less<>> styles_; // by names in lower case
  std::set<std::string, std::less<>> missing_;
  int text_width_ = 0, font_size_ = 24;
};
