// Comments written for other documentation systems, or for none, in the mark-up of text units.
#pragma once

#include <string>
#include <string_view>

struct gForeignText {
  enum Kind {
    nothing, // decoration, switches of tools
    unit,    // the description of the element beside it
    about,   // the description of the element that it names
    topic    // a text of its own
  };
  Kind kind = nothing;
  std::string name; // of the element, or the title of the topic
  std::string text; // mark-up; has at most as many line feeds as the comment
};

// The inside of a comment, without its frame; `behind` says that its opener ended in "<".
gForeignText translate_comment(std::string_view comment, bool behind = false);

// Running text: words, formats, references.
std::string translate_inline(std::string_view text);

// The pieces that it is made of.
std::string code_text(std::string_view text);
// "b" or "em".
std::string formatted_text(std::string_view command, std::string_view text);
// A reference to a program element, with a text; plain text if the target is no name.
std::string reference_to(std::string_view target, std::string_view text);
// The name in "#name", "ns::name(int)" and the like; empty if it is none.
std::string foreign_target(std::string_view word);

// `limit`, or the begin of the character of UTF-8 that it would cut.
std::size_t character_end(std::string_view text, std::size_t limit);
