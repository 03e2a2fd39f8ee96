// "int f(a, b) int a; char * b; {": the list has names, whose types are declared behind it. Readers
// are shown "int f(int a, char * b)".
#include "ana/decl/cpp_reader.h"

namespace Decl {

namespace {

// By name; what isn't declared is an "int".
using gDeclared = std::map<std::string_view, std::string>;

// The words of the type that all declarators of a statement share.
std::uint32_t behind_words(gSource const & source, std::uint32_t first, std::uint32_t name) {
  std::uint32_t at = first;
  while (at < name && source.type(at) == token_word)
    ++at;
  return at;
}

void declare_one(gSource const & source, std::uint32_t first, std::uint32_t last,
                 gDeclared & declared) {
  std::string words;
  gDeclaratorPlace place;
  for (std::uint32_t at = first; at < last;) {
    gDeclarator const one = read_declarator(source, at, last, place);
    if (one.name.empty())
      return;
    if (at == first) {
      std::uint32_t const behind = behind_words(source, first, one.name.first);
      words = one_line(source.text, source.range(first, behind));
      at = behind;
    }
    std::string const rest = one_line(source.text, source.range(at, one.last));
    declared[source.spelling(one.name.name_first)] =
        words + (words.empty() || rest.empty() ? "" : " ") + rest;
    place.type_known = true;
    at = one.last + 1;
  }
}

} // namespace

void gCppReader::old_style_parameters(gDeclaration & item, std::uint32_t first,
                                      std::uint32_t last) {
  gDeclared declared;
  for (std::uint32_t at = first, begin = first; at < last; ++at) {
    if (source_.type(at) == '(' || source_.type(at) == '[')
      at = source_.behind(at) - 1;
    else if (source_.type(at) == ';') {
      declare_one(source_, begin, at, declared);
      begin = at + 1;
    }
  }
  std::string list = "(";
  for (std::size_t i = item.first_param; i < out_.parameters.size(); ++i) {
    gParam & param = out_.parameters[i];
    param.name = param.whole;
    param.type = {};
    std::string_view const name = param.name.of(source_.text);
    auto const found = declared.find(name);
    list += (list.size() > 1 ? ", " : "") +
            (found == declared.end() ? "int " + std::string(name) : found->second);
  }
  item.spelled_list = static_cast<std::int32_t>(out_.spelled.size());
  out_.spelled.push_back(list + ")");
}

} // namespace Decl
