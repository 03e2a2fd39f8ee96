// Comments that say nothing to a reader of the documentation.
#pragma once

#include <string_view>

// Words without opener and closer, as comment_text() gives them.

// Whose code it is, and on what conditions.
bool is_licence(std::string_view words);
// A description may speak of licences, too: this one may be either.
bool may_be_licence(std::string_view words);
// A heading for a stretch of the file. `comment` is whole, with opener and closer.
bool is_caption(std::string_view comment);
// The same in words alone.
bool is_group_title(std::string_view words);
// What declarations are called when there are several, such as "getters"; in lower case.
bool is_kind_word(std::string_view word);
bool has_words(std::string_view text);
// "//! [name]" with its opener: where a part of an example begins or ends.
bool is_part_mark(std::string_view comment);
// For a formatter, a checker or an editor, or a note of what is left to do.
bool is_tool_switch(std::string_view words, bool pascal);
// Code that is commented out: all lines end like code.
bool is_dead_code(std::string_view words, bool pascal);
