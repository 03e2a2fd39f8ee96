// Only a run as long as a token may be has been cut, so others cost a comparison.
#include "ana/parser/pre/cpp_long_words.h"

#include "vlb/gexception.h"
#include "vlb/gstring.h"
#include "vlb/messages.h"

namespace {

constexpr int limit = gScanBase::standard_size;

// `run` begins with a quote.
bool is_one_literal(std::string_view run) {
  std::size_t end = 1;
  while (end < run.size() && run[end] != run.front())
    end += run[end] == '\\' ? 2 : 1;
  return end == run.size() - 1;
}

// The digits of a number are no part of the name behind it.
std::size_t last_word(std::string_view run) {
  std::size_t at = run.size();
  while (at > 0 && Vlb::is_word(run[at - 1]))
    --at;
  while (at < run.size() && Vlb::is_digit(run[at]))
    ++at;
  return at;
}

std::size_t whole_words(std::string_view run) {
  bool const quote = run.front() == '"' || run.front() == '\'';
  return quote && is_one_literal(run) ? 0 : last_word(run);
}

} // namespace

void keep_words_whole(gScanBase & scanner) {
  if (scanner.length() < limit)
    return;
  std::size_t const whole = whole_words(scanner.token());
  if (whole == 0)
    throw gExcFatalErr(Msg::token_too_long, "", scanner.place());
  scanner.cut_to(static_cast<int>(whole));
}
