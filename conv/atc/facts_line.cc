// Stretches count the bytes that the writer wrote. A text that wasn't UTF-8 has become longer
// since, but each of its bytes is one character now.
#include "conv/atc/facts_line.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

constexpr std::size_t stretch_count = 5;

std::array<gStretch *, stretch_count> stretches_of(gKnownFacts & facts) {
  return {&facts.name, &facts.template_head, &facts.parameters, &facts.bases, &facts.result};
}

// Takes a number off the front; false if there is none.
template <class Number> bool take_number(std::string_view & text, Number & number) {
  auto const [last, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc())
    return false;
  text.remove_prefix(static_cast<std::size_t>(last - text.data()));
  return true;
}

bool whole_number(std::string_view text, auto & number) {
  return text.empty() || (take_number(text, number) && text.empty());
}

// "4-9", or nothing.
bool read_stretch(std::string_view text, std::uint32_t size, gStretch & stretch) {
  if (text.empty())
    return true;
  gStretch read;
  bool const two = take_number(text, read.begin) && text.starts_with('-');
  if (!two)
    return false;
  text.remove_prefix(1);
  if (!take_number(text, read.end) || !text.empty() || read.begin > read.end || read.end > size)
    return false;
  stretch = read;
  return true;
}

bool read_stretches(std::string_view text, gKnownFacts & facts) {
  bool good = true;
  for (gStretch * const stretch : stretches_of(facts)) {
    std::size_t const end = std::min(text.find(','), text.size());
    good = read_stretch(text.substr(0, end), facts.size, *stretch) && good;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return good && text.empty();
}

bool continues(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// Where characters begin, and the end of the text.
std::vector<std::uint32_t> starts_of(std::string_view text) {
  std::vector<std::uint32_t> starts;
  for (std::size_t at = 0; at < text.size(); ++at)
    if (!continues(text[at]))
      starts.push_back(static_cast<std::uint32_t>(at));
  starts.push_back(static_cast<std::uint32_t>(text.size()));
  return starts;
}

} // namespace

bool gKnownFacts::has_mark(std::string_view word) const {
  std::string_view rest = marks;
  while (!rest.empty()) {
    std::size_t const end = std::min(rest.find(','), rest.size());
    if (rest.substr(0, end) == word)
      return true;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return false;
}

bool Atc::read_facts(std::vector<std::string> const & params, gKnownFacts & facts) {
  std::string const & name = params[1];
  std::string const & last = params[2];
  facts.known = true;
  facts.kind = params[0];
  facts.last_part = static_cast<std::uint32_t>(last.size());
  facts.access = params[3];
  facts.marks = params[4];
  // That a macro is there if nobody made another before says nothing.
  if (params[5] != "!defined(" + name + ")")
    facts.condition = params[5];
  bool good = name.ends_with(last);
  if (!good)
    facts.last_part = static_cast<std::uint32_t>(name.size());
  good = whole_number(params[6], facts.column) && good;
  good = whole_number(params[7], facts.end_line) && good;
  good = whole_number(params[8], facts.size) && good;
  return read_stretches(params[9], facts) && good;
}

bool Atc::fit_to(std::string_view text, gKnownFacts & facts) {
  if (facts.size == 0 || facts.size > text.size())
    return false;
  if (facts.size == text.size())
    return true;
  std::vector<std::uint32_t> const starts = starts_of(text);
  if (starts.size() != std::size_t(facts.size) + 1)
    return false;
  for (gStretch * const stretch : stretches_of(facts))
    *stretch = {starts[stretch->begin], starts[stretch->end]};
  facts.size = static_cast<std::uint32_t>(text.size());
  return true;
}
