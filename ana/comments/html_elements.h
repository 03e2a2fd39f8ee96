// HTML and XML in comments: a list of elements that are safe and mean something to a reader. What
// isn't in the list is text like any other.
#pragma once

#include <string>
#include <string_view>

#include "ana/comments/rich_text.h"

struct gHtmlTag {
  std::string name; // in lower case
  std::string_view attributes;
  bool closing = false;
  bool alone = false;     // "<name/>"
  std::size_t length = 0; // of the whole tag, in bytes; 0 if there is none
};

namespace Html {

// The tag or comment that the text begins with.
gHtmlTag tag_at(std::string_view text);
// The value of an attribute, with its entities resolved; empty if there is none.
std::string attribute(std::string_view attributes, std::string_view name);
// Whether an element is known.
bool is_known(std::string_view name);
// Whether it stands for a block.
bool is_block(std::string_view name);
// Sets what a tag stands for; false if it is text.
bool set(gHtmlTag const & tag, gRichText & out);
// The character that an entity such as "&lt;" at the begin of the text stands for, in UTF-8; empty
// if it is none. Its length in `length`.
std::string entity_at(std::string_view text, std::size_t & length);
// Program text between tags as its author meant it: entities are characters, what stands in CDATA
// stands for itself.
std::string program_text(std::string_view text);
// Sets program text in "<pre>", which the text begins with; its length, 0 if it has no end.
std::size_t set_program(std::string_view text, gRichText & out);
// Sets a text with tags and entities; all else in it is text.
void set_text(std::string_view text, gRichText & out);

} // namespace Html
