// A block in a comment is indented like the comment; that says nothing to a reader.

#include "conv/set/block_text.h"

#include <algorithm>
#include <vector>

namespace {

std::vector<std::string_view> lines_of(std::string_view text) {
  std::vector<std::string_view> lines;
  for (std::size_t at = 0; at <= text.size();) {
    std::size_t const end = std::min(text.find('\n', at), text.size());
    std::string_view const line = text.substr(at, end - at);
    lines.push_back(line.substr(0, line.find_last_not_of(" \t\r") + 1));
    at = end + 1;
  }
  return lines;
}

} // namespace

std::string block_text(std::string_view text) {
  std::vector<std::string_view> const lines = lines_of(text);
  std::size_t common = text.size();
  for (std::string_view const line : lines)
    common = std::min(common, std::min(line.find_first_not_of(' '), text.size()));
  std::string out;
  for (std::string_view const line : lines) {
    out += line.substr(std::min(common, line.size()));
    out += '\n';
  }
  out.erase(out.find_last_not_of('\n') + 1);
  return out.substr(std::min(out.find_first_not_of('\n'), out.size()));
}
