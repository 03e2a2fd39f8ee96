// Sorted lists of indexes, a binary search each: comments are many.
#include "ana/read/attach_places.h"

#include <algorithm>
#include <array>

#include "ana/decl/cpp_words.h"
#include "vlb/gstring.h"

namespace {

using namespace Decl;

bool is_documentable(gDeclaration const & one) {
  return one.kind != gKind::none && one.kind != gKind::using_declaration;
}

// What may stand between a declaration's end and the comment behind it.
bool is_only_signs(std::string_view text) {
  constexpr std::size_t most = 16;
  return text.size() <= most && text.find_first_not_of(" \t\r\n;,)}") == text.npos;
}

bool is_section_word(std::string_view text) {
  static constexpr std::array<std::string_view, 9> words = {
      "const",          "type",      "var",         "threadvar",
      "resourcestring", "class var", "class const", "class threadvar",
      "class type"};
  std::string const lower = Vlb::to_lower(text.substr(0, text.find_last_not_of(" \t") + 1));
  return std::find(words.begin(), words.end(), lower) != words.end();
}

// Behind the ")" that closes the "(" at `at`; npos if there is none.
std::size_t behind_arguments(std::string_view text, std::size_t at) {
  int depth = 0;
  for (; at < text.size(); ++at) {
    if (text[at] == '"') {
      for (++at; at < text.size() && text[at] != '"'; ++at)
        at += text[at] == '\\' ? 1 : 0;
    } else if (text[at] == '(') {
      ++depth;
    } else if (text[at] == ')' && --depth == 0) {
      return at + 1;
    }
  }
  return text.npos;
}

// What opens or closes a stretch, or declares something by itself, isn't about what follows.
bool may_annotate(std::string_view macro) {
  static constexpr std::array<std::string_view, 5> parts = {"BEGIN", "END", "DECLARE", "REGISTER",
                                                            "NAMESPACE"};
  return is_capital(macro) && word_of(macro) == gWord::name &&
         std::ranges::none_of(parts, [&](auto part) { return macro.find(part) != macro.npos; });
}

// Lines that hold the call of a macro each, the next line behind the last one at once.
bool are_annotations(std::string_view text) {
  while (!text.empty()) {
    std::size_t const open = std::min(text.find_first_of("( \t\r\n"), text.size());
    std::size_t const begin = text.find_first_not_of(" \t", open);
    if (begin == text.npos || text[begin] != '(' || !may_annotate(text.substr(0, open)))
      return false;
    std::size_t const end = behind_arguments(text, begin);
    if (end == text.npos)
      return false;
    std::size_t const next = std::min(text.find_first_not_of(" \t\r\n", end), text.size());
    if (std::ranges::count(text.substr(end, next - end), '\n') != 1)
      return false;
    text.remove_prefix(next);
  }
  return true;
}

} // namespace

gAttachPlaces::gAttachPlaces(std::string_view text, gFileDeclarations const & file, bool pascal)
    : text_(text),
      file_(file),
      pascal_(pascal),
      lines_(text),
      next_(::next_of_statement(file)) {
  sort();
  link();
}

bool gAttachPlaces::is_macro(gDeclaration const & one) {
  return one.kind == gKind::macro || one.kind == gKind::function_macro;
}

void gAttachPlaces::sort() {
  // What only keeps a file from being read twice isn't what the text in front is about.
  for (std::size_t i = 0; i < file_.items.size(); ++i)
    if (is_documentable(file_.items[i]) && static_cast<std::int32_t>(i) != file_.guard)
      by_begin_.push_back(static_cast<std::int32_t>(i));
  by_end_ = by_name_ = by_begin_;
  std::ranges::stable_sort(by_begin_, {}, [&](auto i) { return item(i).whole.begin; });
  std::ranges::stable_sort(by_end_, {}, [&](auto i) { return item(i).whole.end; });
  std::ranges::stable_sort(by_name_, {}, [&](auto i) { return item(i).name.begin; });
}

// From the end, so that of each scope the statement that follows is known.
void gAttachPlaces::link() {
  siblings_.assign(file_.items.size(), -1);
  std::vector<std::int32_t> following(file_.items.size() + 1, -1); // by scope
  for (std::size_t i = file_.items.size(); i-- > 0;) {
    auto const one = static_cast<std::int32_t>(i);
    if (first_of_statement(one) != one)
      continue;
    std::int32_t & place = following[index(file_.items[i].scope + 1)];
    siblings_[i] = place;
    place = one;
  }
}

std::int32_t gAttachPlaces::first_of_statement(std::int32_t i) const {
  std::int32_t const first = item(i).statement;
  return first >= 0 && index(first) < file_.items.size() ? first : i;
}

std::uint32_t gAttachPlaces::line_feeds(std::uint32_t begin, std::uint32_t end) const {
  return begin >= end ? 0 : line_of(end) - line_of(begin);
}

std::int32_t gAttachPlaces::beginning_at(std::uint32_t offset) const {
  auto const at =
      std::ranges::lower_bound(by_begin_, offset, {}, [&](auto i) { return item(i).whole.begin; });
  if (at != by_begin_.end() && item(*at).whole.begin == offset)
    return *at;
  return pascal_ ? behind_section_word(offset) : -1;
}

std::int32_t gAttachPlaces::behind_annotations(std::uint32_t offset) const {
  constexpr std::uint32_t longest = 2000;
  auto const at =
      std::ranges::upper_bound(by_begin_, offset, {}, [&](auto i) { return item(i).whole.begin; });
  if (pascal_ || at == by_begin_.end() || item(*at).whole.begin > offset + longest)
    return -1;
  return are_annotations(gRange{offset, item(*at).whole.begin}.of(text_)) ? *at : -1;
}

std::int32_t gAttachPlaces::behind_section_word(std::uint32_t offset) const {
  constexpr std::uint32_t longest = 40;
  auto const at =
      std::ranges::upper_bound(by_begin_, offset, {}, [&](auto i) { return item(i).whole.begin; });
  if (at == by_begin_.end() || item(*at).whole.begin > offset + longest)
    return -1;
  return is_section_word(gRange{offset, item(*at).whole.begin}.of(text_)) ? *at : -1;
}

std::int32_t gAttachPlaces::ending_at(std::uint32_t offset, std::int32_t scope) const {
  auto at =
      std::ranges::upper_bound(by_end_, offset, {}, [&](auto i) { return item(i).whole.end; });
  // Those that share an end stand beside each other; few declarations do.
  for (int tries = 0; at != by_end_.begin() && tries < 64; ++tries) {
    gDeclaration const & one = item(*--at);
    if (!is_only_signs(gRange{one.whole.end, offset}.of(text_)))
      break;
    if (one.scope == scope)
      return first_of_statement(*at);
  }
  return -1;
}

std::int32_t gAttachPlaces::declarator_before(std::int32_t first, std::uint32_t offset) const {
  auto const at =
      std::ranges::lower_bound(by_name_, offset, {}, [&](auto i) { return item(i).name.begin; });
  return at != by_name_.begin() && first_of_statement(*(at - 1)) == first ? *(at - 1) : -1;
}

std::int32_t gAttachPlaces::declarator_behind(std::int32_t first, std::uint32_t offset) const {
  auto const at =
      std::ranges::lower_bound(by_name_, offset, {}, [&](auto i) { return item(i).name.begin; });
  return at != by_name_.end() && first_of_statement(*at) == first ? *at : -1;
}

std::int32_t gAttachPlaces::first_macro(std::uint32_t begin, std::uint32_t end) const {
  auto at =
      std::ranges::lower_bound(by_begin_, begin, {}, [&](auto i) { return item(i).whole.begin; });
  for (; at != by_begin_.end() && item(*at).whole.begin < end; ++at)
    if (is_macro(item(*at)))
      return *at;
  return -1;
}

std::int32_t gAttachPlaces::last_macro(std::uint32_t begin, std::uint32_t end) const {
  auto at = std::ranges::upper_bound(by_end_, end, {}, [&](auto i) { return item(i).whole.end; });
  while (at != by_end_.begin() && item(*--at).whole.end > begin)
    if (is_macro(item(*at)))
      return *at;
  return -1;
}

bool gAttachPlaces::has_include(std::uint32_t begin, std::uint32_t end) const {
  auto const at = std::ranges::lower_bound(file_.includes, begin, {},
                                           [](auto & one) { return one.name.begin; });
  return at != file_.includes.end() && at->name.begin < end;
}

std::vector<std::int32_t> next_of_statement(gFileDeclarations const & file) {
  std::vector<std::int32_t> next(file.items.size(), -1);
  std::vector<std::int32_t> last(file.items.size(), -1); // by the first of a statement
  for (std::size_t i = 0; i < file.items.size(); ++i) {
    auto const one = static_cast<std::int32_t>(i);
    std::int32_t const first = file.items[i].statement;
    if (first < 0 || first > one)
      continue;
    std::int32_t & before = last[static_cast<std::size_t>(first)];
    if (before >= 0)
      next[static_cast<std::size_t>(before)] = one;
    before = one;
  }
  return next;
}
