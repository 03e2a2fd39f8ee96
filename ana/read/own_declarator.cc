// Commas part the names. A bracket or a quote on the way back from a name to the comma in front of
// it tells that more than signs and words stand there; such a text stays as it is.
#include "ana/read/own_declarator.h"

namespace {

using Decl::gRange;
constexpr auto npos = std::string_view::npos;

// Behind the literal whose quote stands at `at`.
std::size_t behind_literal(std::string_view line, std::size_t at, bool pascal) {
  char const quote = line[at];
  for (++at; at < line.size() && line[at] != quote; ++at)
    at += !pascal && line[at] == '\\' ? 1 : 0;
  return at + 1;
}

// The next of `ends` outside of brackets, or the end; npos where a "<" may be a bracket.
std::size_t next_outside(std::string_view line, std::size_t at, std::string_view ends,
                         bool pascal) {
  int depth = 0;
  while (at < line.size()) {
    char const c = line[at];
    if (depth == 0 && ends.find(c) != npos)
      return at;
    if (c == '\'' || (c == '"' && !pascal)) {
      at = behind_literal(line, at, pascal);
      continue;
    }
    if (c == '<' && !pascal)
      return npos;
    depth += c == '(' || c == '[' || c == '{' ? 1 : c == ')' || c == ']' || c == '}' ? -1 : 0;
    ++at;
  }
  return line.size();
}

// Where the declarator with this name begins, behind the comma in front of it; npos if it isn't
// plain.
std::size_t begin_behind_comma(std::string_view line, std::size_t name) {
  std::size_t const at = line.substr(0, name).find_last_of(",()[]{}<>\"'");
  if (at == npos || line[at] != ',')
    return npos;
  return std::min(line.find_first_not_of(' ', at + 1), line.size());
}

// Of the first name: its signs belong to it, all in front is common to all.
std::size_t begin_of_first(std::string_view line, std::size_t name) {
  std::size_t const last = line.substr(0, name).find_last_not_of("*&^ ");
  return last == npos ? npos : std::min(line.find_first_not_of(' ', last + 1), line.size());
}

} // namespace

void cut_to_declarator(gString & line, gRange first, gRange own, Decl::gSyntax syntax,
                       std::span<gRange * const> parts) {
  bool const pascal = syntax == Decl::gSyntax::pascal;
  std::size_t const head = pascal ? first.begin : begin_of_first(line, first.begin);
  std::size_t const begin = pascal                     ? own.begin
                            : own.begin == first.begin ? head
                                                       : begin_behind_comma(line, own.begin);
  std::size_t const end = pascal ? own.end : next_outside(line, own.end, ",;", false);
  std::size_t const tail = pascal ? next_outside(line, own.end, ":=;", true)
                                  : line.size() - (line.ends_with(';') ? 1 : 0);
  if (head == npos || begin == npos || end == npos || tail == npos || head > begin ||
      own.end > end || end > tail || line[head == 0 ? 0 : head - 1] == ',')
    return;
  std::size_t const in_front = begin - head, between = tail - end;
  for (gRange * part : parts) {
    if (part->end <= head)
      continue;
    std::size_t const moved = part->begin >= tail                        ? in_front + between
                              : part->begin >= begin && part->end <= end ? in_front
                                                                         : npos;
    if (moved == npos)
      *part = {};
    else
      *part = {static_cast<std::uint32_t>(part->begin - moved),
               static_cast<std::uint32_t>(part->end - moved)};
  }
  line = gString(line.substr(0, head) + line.substr(begin, end - begin) + line.substr(tail));
}
