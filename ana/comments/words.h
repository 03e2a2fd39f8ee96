// What the readers of comments know of words.
#pragma once

#include <string>
#include <string_view>

bool is_letter(char c);
bool is_white(char c);
bool is_control(char c);
// A blank, an end of a line, or the zero byte that stands for the end of a text.
bool ends_word(char c);
// Never for the zero byte.
bool is_one_of(char c, std::string_view set);
// Without blanks, tabs and ends of lines at both ends.
std::string_view trimmed(std::string_view text);

// The name by which references find a title: blanks would end it.
std::string title_id(std::string_view title);

// What stands behind notes to tools such as "(transfer none) (nullable): ".
std::string_view without_annotations(std::string_view text);

// "[in,out] {type} name - text": what stands behind the command of a parameter or an exception.
struct gNamedItem {
  std::string_view direction, name, text;
};
gNamedItem named_item(std::string_view rest);
