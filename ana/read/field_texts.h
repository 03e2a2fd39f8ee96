// What the comment of a structure says of its fields: "@name: text".
#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

// Takes them out of `comment`, with the lines that go on below each; names and texts in the order
// of the comment. What isn't in `fields` stays.
std::vector<std::pair<std::string, std::string>>
take_field_texts(std::string & comment, std::set<std::string, std::less<>> const & fields);
