// The words that a search can find.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace SearchWords {

// Lower case, for the alphabets that have cases side by side: Latin, Greek, Cyrillic.
void lower(std::string_view text, std::string & out);
// The words of a text, as they stand there: runs of letters, digits and "_" of two characters or
// more, cut where they are longer than any name.
void split(std::string_view text, std::vector<std::string_view> & out);
// The pieces of a word by "_" and capitals: "readHTMLFile" has read, HTML, File. Empty if the word
// is one piece.
void split_name(std::string_view word, std::vector<std::string_view> & out);

} // namespace SearchWords
