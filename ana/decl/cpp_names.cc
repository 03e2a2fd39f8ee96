#include "ana/decl/cpp_names.h"

namespace Decl {

namespace {

class ChainReader {
public:
  ChainReader(gSource const & source, std::uint32_t at, std::uint32_t last)
      : source_(source),
        last_(last),
        at_(at) {
    chain_.first = chain_.last = chain_.qualifier_last = at;
  }

  gChain run() {
    if (source_.type(at_) == token_scope)
      ++at_;
    while (at_ < last_ && part()) {
    }
    return chain_;
  }

private:
  gSource const & source_;
  std::uint32_t last_, at_;
  gChain chain_;

  // True if another one follows.
  bool part() {
    if (source_.is_word(at_, gWord::template_) && chain_.last != chain_.first)
      ++at_;
    if (source_.is_word(at_, gWord::operator_))
      return operator_name();
    if (source_.type(at_) == '~' && (source_.is_name(at_ + 1)))
      return last_name(gChain::destructor, at_ + 2);
    if (source_.type(at_) == '*' && chain_.last != chain_.first)
      return last_name(gChain::member_pointer, at_ + 1);
    if (!source_.is_name(at_))
      return false;
    last_name(gChain::plain, at_ + 1);
    if (source_.type(at_) == '<' && at_ < last_ && source_.partner(at_) != no_token)
      at_ = source_.behind(at_);
    chain_.arguments_last = chain_.last = at_;
    if (at_ >= last_ || source_.type(at_) != token_scope)
      return false;
    std::uint32_t const next = at_ + 1;
    bool const goes_on = source_.is_name(next) || source_.type(next) == '~' ||
                         source_.type(next) == '*' || source_.is_word(next, gWord::operator_) ||
                         source_.is_word(next, gWord::template_);
    if (!goes_on)
      return false;
    chain_.last_part = chain_.name_first;
    chain_.qualifier_last = at_;
    at_ = next;
    return true;
  }

  bool last_name(gChain::Kind kind, std::uint32_t end) {
    chain_.kind = kind;
    chain_.name_first = at_;
    chain_.name_last = chain_.arguments_last = chain_.last = end;
    at_ = end;
    return false;
  }

  bool operator_name() {
    std::uint32_t end = behind_operator(source_, at_);
    bool const conversion = end == at_ + 1;
    while (conversion && end < last_ && source_.type(end) != '(')
      end = source_.type(end) == '<' && source_.partner(end) != no_token ? source_.behind(end)
                                                                         : end + 1;
    std::uint32_t const name = end;
    // "operator+<>" of a specialisation; "operator<" alone took its sign already.
    if (!conversion && end < last_ && source_.type(end) == '<' && source_.partner(end) != no_token)
      end = source_.behind(end);
    last_name(conversion ? gChain::conversion : gChain::operator_, name);
    chain_.arguments_last = chain_.last = end;
    return false;
  }
};

} // namespace

std::uint32_t behind_operator(gSource const & source, std::uint32_t at) {
  ++at;
  std::uint8_t const kind = source.type(at);
  if (kind == '(' || kind == '[')
    return source.partner(at) == at + 1 ? at + 2 : at;
  if (kind == token_string) {
    bool const apart = source[at].end - source[at].begin == 2 && source.is_name(at + 1);
    return apart ? at + 2 : at + 1;
  }
  if (source.is_word(at, gWord::statement) || source.is_word(at, gWord::delete_)) {
    ++at; // new, delete
    return source.type(at) == '[' && source.partner(at) == at + 1 ? at + 2 : at;
  }
  for (int signs = 0; signs < 3; ++signs, ++at) {
    std::uint8_t const sign = source.type(at);
    if (sign == token_word || sign == '(' || sign == '{' || sign == ';' || sign == token_scope ||
        sign == token_end || sign == token_string || sign == token_number)
      break;
    bool const arguments =
        signs > 0 && sign == '<' &&
        (signs > 1 || source.type(at - 1) != '<' || source[at - 1].end != source[at].begin);
    if (arguments)
      break;
  }
  return at;
}

gChain read_chain(gSource const & source, std::uint32_t at, std::uint32_t last) {
  return ChainReader(source, at, last).run();
}

bool names_constructor(gSource const & source, gChain const & chain) {
  if (chain.kind == gChain::destructor || chain.kind == gChain::conversion ||
      chain.kind == gChain::operator_)
    return true;
  return chain.last_part != no_token &&
         source.spelling(chain.last_part) == source.spelling(chain.name_first);
}

} // namespace Decl
