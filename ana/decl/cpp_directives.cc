#include "ana/decl/cpp_directives.h"

#include <algorithm>

namespace Decl {

namespace {

bool is_literal(std::string_view text, std::string_view number, std::string_view word) {
  return text == number || text == word;
}

void set_macro(gDirective & one, std::vector<gToken> const & tokens) {
  gToken const & first = tokens.front();
  if (first.type != token_word)
    return;
  one.name = {first.begin, first.end};
  std::size_t value = 1;
  if (value < tokens.size() && tokens[1].type == '(' && tokens[1].begin == first.end) {
    while (value < tokens.size() && tokens[value].type != ')')
      ++value;
    value = std::min(value + 1, tokens.size());
    one.parameters = {tokens[1].begin, tokens[value - 1].end};
  }
  one.value = {};
  if (value < tokens.size())
    one.value = {tokens[value].begin, one.whole.end};
}

} // namespace

void set_directive_kind(gDirective & one, std::string_view word) {
  if (word == "if" || word == "ifdef" || word == "ifndef")
    one.kind = gDirective::if_;
  else if (word.starts_with("elif"))
    one.kind = gDirective::elif;
  else if (word == "else")
    one.kind = gDirective::else_;
  else if (word == "endif")
    one.kind = gDirective::endif;
  else if (word == "define")
    one.kind = gDirective::define;
  else if (word == "undef")
    one.kind = gDirective::undef;
  else if (word == "include" || word == "include_next" || word == "import")
    one.kind = gDirective::include;
  one.of_name = word.ends_with("def");
  one.negated = word.ends_with("ndef") && word != "undef";
}

void set_directive_parts(gDirective & one, std::string_view text,
                         std::vector<gToken> const & tokens) {
  if (tokens.empty())
    return;
  gToken const & first = tokens.front();
  one.whole.end = tokens.back().end;
  one.value = {first.begin, one.whole.end};
  if (one.kind == gDirective::if_ || one.kind == gDirective::elif) {
    one.literally_zero = !one.of_name && is_literal(one.value.of(text), "0", "false");
    one.literally_one = !one.of_name && is_literal(one.value.of(text), "1", "true");
  } else if (one.kind == gDirective::define || one.kind == gDirective::undef)
    set_macro(one, tokens);
}

} // namespace Decl
