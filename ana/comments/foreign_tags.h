// The tags of other documentation systems, and what each of them means here.
#pragma once

#include <string_view>

enum class gTagKind {
  none,      // no known tag
  ignored,   // the word goes, its text stays
  entry,     // text of a subentry
  named,     // a subentry of items that begin with a name: parameters, exceptions
  refs,      // references
  title,     // the line is a title within the text
  item,      // an item of a list
  topic,     // the comment is a text of its own; the line is its title
  about,     // the comment is about the program element that the line names
  line,      // goes with its line
  block,     // lines up to the closing tag, as they stand
  code_word, // the next word is code
  em_word,   // the next word is emphasised
  bold_word, // the next word is bold
  ref,       // a reference, with an optional text in quotes
  link,      // a reference with its text, up to the closing tag
  formula,   // up to the same tag
  line_end   // a line ends here
};

struct gForeignTag {
  std::string_view name;
  gTagKind kind = gTagKind::none;
  std::string_view target = {}; // subentry, closing tag, or what is put in front of a title
};

// Without "@" or "\". The kind `none` for a word that isn't known.
gForeignTag find_foreign_tag(std::string_view name);

// An element of HTML or XML within running text.
struct gForeignElement {
  std::string_view name;
  std::string_view open;  // a format in whose braces the content stands, or what replaces the mark
  std::string_view close; // what replaces the closing mark
};

// By its name in lower case; null for one that isn't known.
gForeignElement const * find_foreign_element(std::string_view name);

// Whether the tag begins a new part of the comment wherever it stands.
bool begins_part(gTagKind kind);
