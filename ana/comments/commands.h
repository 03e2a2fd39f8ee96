// The commands of comments and what each of them is.
#pragma once

#include <span>
#include <string_view>

enum class gCommandKind : unsigned char {
  none,      // no known command
  switch_,   // the word goes, its text stays: it says something to tools alone
  text,      // the same, as text of the description
  line,      // goes with its line
  entry,     // begins a subentry
  named,     // begins a subentry of items that begin with a name: parameters, exceptions
  refs,      // begins the list of references
  title,     // the line is a title within the text
  heading,   // the same with a level, and an identifier in front
  item,      // an item of a list
  topic,     // the comment is a text of its own; the line is its title
  about,     // the comment is about the program element that the line names
  group,     // tells of groups
  block,     // lines up to the closing command, as they stand
  dropped,   // lines up to the closing command, for other programs
  hidden,    // the same, kept private; without its end up to that of the comment
  branch,    // a condition
  begin,     // opens a list, table or quotation
  end,       // closes it
  code_word, // the next word is code
  em_word,   // the next word is emphasised
  bold_word, // the next word is bold
  word,      // the next word is shown as it is
  brace,     // the text in braces, or the next word, has a format
  bracket,   // the text in brackets has a format or a place
  ref,       // a reference, with an optional text in quotes
  target,    // the same with both in braces
  link,      // a reference with its text, up to the closing command
  anchor,    // the next word names a place
  image,     // a picture, with an optional text in quotes
  formula,   // up to the closing command
  line_end,  // a line ends here
  copy,      // the text of another element; that of the base needs no name
  file,      // shows a file or a part of it
};

struct gCommand {
  std::string_view name;
  gCommandKind kind = gCommandKind::none;
  std::string_view target = {}; // subentry, closing command, format, level
  std::string_view where = {};  // letters, see commands.def
};

namespace Commands {
// Without "@" or "\". The kind `none` for a word that isn't known. Case counts.
gCommand find(std::string_view name);
std::span<gCommand const> all();
// "@name" or "\name" at the head of a text; how much of it that takes in `length`.
gCommand at(std::string_view text, std::size_t & length);
// Whether it begins a new part of the comment wherever it stands.
bool begins_part(gCommandKind kind);
} // namespace Commands
