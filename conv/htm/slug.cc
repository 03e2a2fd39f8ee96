// A slug keeps as much of a name as is safe in a file's name and in an address, on every system.

#include "conv/htm/slug.h"

#include <algorithm>
#include <cstdio>

#include "vlb/gstring.h"

namespace {

constexpr std::size_t max_length = 80;

// How operators are spelled; longer ones come first.
struct gSpelling {
  std::string_view sign, word;
};
constexpr gSpelling spellings[] = {
    {"()", "call"}, {"[]", "index"}, {"\"\"", "literal"}, {"->", "arrow"},  {"+", "plus"},
    {"-", "minus"}, {"*", "star"},   {"/", "slash"},      {"%", "percent"}, {"^", "caret"},
    {"&", "and"},   {"|", "or"},     {"~", "tilde"},      {"!", "not"},     {"=", "eq"},
    {"<", "lt"},    {">", "gt"},     {",", "comma"},
};

bool is_kept(char c) {
  return Vlb::is_word(c) || c == '.' || c == '~';
}

void add_dash(std::string & slug) {
  if (!slug.empty() && slug.back() != '-')
    slug += '-';
}

// Behind the word "operator": spells the signs that follow. Returns where the name goes on.
std::size_t spell_operator(std::string_view name, std::size_t pos, std::string & slug) {
  std::size_t at = name.find_first_not_of(" \t", pos);
  if (at == std::string_view::npos)
    return pos;
  while (at < name.size()) {
    auto const * const found = std::ranges::find_if(spellings, [&](gSpelling const & spelling) {
      return name.substr(at).starts_with(spelling.sign);
    });
    if (found == std::end(spellings))
      break;
    add_dash(slug);
    slug += found->word;
    at += found->sign.size();
    pos = at;
  }
  return pos;
}

bool ends_with_operator(std::string_view slug) {
  return slug.ends_with("operator") && (slug.size() == 8 || !Vlb::is_word(slug[slug.size() - 9]));
}

void add_code_point(char32_t code, std::string & slug) {
  char text[16];
  std::snprintf(text, sizeof text, "u%04x", static_cast<unsigned>(code));
  slug += text;
}

std::string spelled(std::string_view name) {
  std::string slug;
  for (std::size_t pos = 0; pos < name.size();) {
    if (ends_with_operator(slug) && !Vlb::is_word(name[pos])) {
      std::size_t const behind = spell_operator(name, pos, slug);
      if (behind != pos) {
        pos = behind;
        continue;
      }
    }
    if (name.substr(pos).starts_with("::")) {
      slug += '.';
      pos += 2;
    } else if (static_cast<unsigned char>(name[pos]) >= 128) {
      add_code_point(Slug::next_code_point(name, pos), slug);
    } else if (is_kept(name[pos])) {
      slug += name[pos++];
    } else {
      add_dash(slug);
      ++pos;
    }
  }
  return slug;
}

void trim(std::string & slug) {
  slug.erase(slug.find_last_not_of("-.") + 1);
  slug.erase(0, slug.find_first_not_of("-."));
}

bool is_device(std::string_view name) {
  name = name.substr(0, name.find('.'));
  std::string const lower = Vlb::to_lower(name);
  if (lower == "con" || lower == "prn" || lower == "aux" || lower == "nul")
    return true;
  return lower.size() == 4 && (lower.starts_with("com") || lower.starts_with("lpt")) &&
         Vlb::is_digit(lower[3]);
}

bool is_generated(std::string_view name) {
  std::string const lower = Vlb::to_lower(name);
  return lower == "index" || lower == "idx" || lower.starts_with("idx-") || lower == "contents" ||
         lower.starts_with("contents-");
}

} // namespace

std::string Slug::of(std::string_view name) {
  std::string slug = spelled(name);
  trim(slug);
  if (slug.size() > max_length) {
    slug.resize(max_length);
    slug += '-' + hash({name});
  }
  return slug.empty() ? "unit" : slug;
}

std::string Slug::of_file(std::string_view name) {
  std::string slug = of(name);
  if (is_device(slug))
    slug.insert(std::min(slug.find('.'), slug.size()), "_");
  else if (is_generated(slug) || slug.front() == '_')
    slug += '_';
  return slug;
}

std::string Slug::hash(std::initializer_list<std::string_view> parts) {
  std::uint64_t value = 14695981039346656037U; // FNV-1a
  auto const add = [&](unsigned char byte) { value = (value ^ byte) * 1099511628211U; };
  for (std::string_view const part : parts) {
    std::ranges::for_each(part, add);
    add(0);
  }
  char text[8];
  std::snprintf(text, sizeof text, "%06x",
                static_cast<unsigned>((value ^ (value >> 32)) & 0xffffff));
  return text;
}

char32_t Slug::next_code_point(std::string_view text, std::size_t & pos) {
  auto const lead = static_cast<unsigned char>(text[pos++]);
  int const more = lead >= 0xf0 ? 3 : lead >= 0xe0 ? 2 : lead >= 0xc0 ? 1 : 0;
  if (more == 0 || pos + static_cast<std::size_t>(more) > text.size())
    return lead;
  char32_t code = lead & (0x3fU >> more);
  for (int i = 0; i < more; ++i)
    code = code << 6 | (static_cast<unsigned char>(text[pos++]) & 0x3fU);
  return code;
}
