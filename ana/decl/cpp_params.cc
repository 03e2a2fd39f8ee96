#include "ana/decl/cpp_params.h"

#include "ana/decl/cpp_declarators.h"

namespace Decl {

namespace {

bool is_opener(std::uint8_t type) {
  return type == '(' || type == '[' || type == '{';
}

// Behind a stretch up to `stop` or the end; template arguments are one token.
std::uint32_t find(gSource const & source, std::uint32_t at, std::uint32_t last,
                   std::uint8_t stop) {
  while (at < last && source.type(at) != stop) {
    std::uint8_t const type = source.type(at);
    bool const jump = is_opener(type) || (type == '<' && source.partner(at) != no_token);
    at = jump ? source.behind(at) : at + 1;
  }
  return std::min(at, last);
}

gParam read_one(gSource const & source, std::uint32_t first, std::uint32_t last) {
  gParam one;
  one.whole = source.range(first, last);
  std::uint32_t const equals = find(source, first, last, '=');
  if (equals < last)
    one.value = source.range(equals + 1, last);
  if (source.type(first) == token_ellipsis) {
    one.type = one.whole;
    return one;
  }
  gDeclaratorPlace place;
  place.parameter = true;
  gDeclarator const declarator = read_declarator(source, first, equals, place);
  if (declarator.name.empty() || declarator.name.qualifier_last != declarator.name.first) {
    one.type = source.range(first, equals);
    return one;
  }
  one.name = source.range(declarator.name.name_first, declarator.name.name_last);
  bool const around = declarator.pointer || declarator.function ||
                      declarator.name.name_last != equals; // "int (*f)(int)", "int a[2]"
  one.type = source.range(first, around ? equals : declarator.name.first);
  return one;
}

} // namespace

void read_parameters(gSource const & source, std::uint32_t open, std::vector<gParam> & to) {
  std::uint32_t const close = source.partner(open);
  if (close == no_token || close == open + 1)
    return;
  if (close == open + 2 && source.is_word(open + 1, gWord::void_))
    return;
  source.link_angles(open + 1, close);
  for (std::uint32_t at = open + 1; at < close;) {
    std::uint32_t const comma = find(source, at, close, ',');
    if (comma > at)
      to.push_back(read_one(source, at, comma));
    at = comma + 1;
  }
}

} // namespace Decl
