// Nobody writes "these three": what tells a heading is that it is short, no sentence, and that what
// follows stands close together without comments of its own. In doubt it stays a text.
#include "ana/read/attach_headings.h"

#include <algorithm>
#include <array>

#include "ana/comments/words.h"
#include "ana/read/comment_noise.h"
#include "vlb/gstring.h"

namespace {

using namespace Decl;

constexpr std::size_t longest = 60;        // of a heading
constexpr std::size_t most_words = 8;      // of it
constexpr std::size_t shortest_ruler = 8;  // signs
constexpr std::uint32_t most_lines = 5;    // of a banner
constexpr std::int32_t most_headed = 1000; // declarations

bool is_value(gDeclaration const & one) {
  return one.kind == gKind::constant || one.kind == gKind::resource_string ||
         (one.kind == gKind::macro && !one.initialiser.empty());
}

bool is_routine(gDeclaration const & one) {
  return !one.parameter_list.empty() || one.params > 0 || one.kind == gKind::procedure ||
         one.kind == gKind::function || one.kind == gKind::method ||
         one.kind == gKind::class_method || one.kind == gKind::constructor ||
         one.kind == gKind::destructor || one.kind == gKind::property;
}

// "-------", "=======", "*******".
bool has_ruler(std::string_view text) {
  std::size_t run = 0;
  for (std::size_t i = 1; i < text.size() && run + 1 < shortest_ruler; ++i) {
    constexpr std::string_view signs = "-=*_~#/+";
    run = text[i] == text[i - 1] && signs.find(text[i]) != signs.npos ? run + 1 : 0;
  }
  return run + 1 >= shortest_ruler;
}

std::vector<std::string> words_of(std::string_view line) {
  std::vector<std::string> words;
  bool within = false;
  for (char const c : line) {
    if (Vlb::is_word(c) && !within)
      words.emplace_back();
    within = Vlb::is_word(c);
    if (within)
      words.back() += c;
  }
  for (std::string & word : words)
    word = Vlb::to_lower(word);
  return words;
}

// "Opens the file": what one routine does.
bool begins_with_verb(std::vector<std::string> const & words) {
  static constexpr std::array<std::string_view, 14> verbs = {
      "get",  "set", "add",  "create", "return", "enable", "disable",
      "make", "do",  "call", "check",  "fill",   "is",     "if"};
  return words.size() > 1 && ((words[0].ends_with('s') && !is_kind_word(words[0])) ||
                              std::ranges::find(verbs, words[0]) != verbs.end());
}

class Headings {
public:
  Headings(std::string_view text, gFileDeclarations const & file,
           std::vector<gCommentBlock> const & blocks, bool pascal, gAttachPlaces const & places,
           std::vector<gAttachment> & found)
      : text_(text),
        file_(file),
        blocks_(blocks),
        pascal_(pascal),
        places_(places),
        found_(found),
        described_(places.size(), false) {}

  void run() {
    for (gAttachment const & one : found_)
      if (one.declaration >= 0 && one.param < 0)
        described_[static_cast<std::size_t>(one.declaration)] = true;
    for (std::size_t i = 0; i < found_.size(); ++i)
      if (found_[i].rule == gAttachRule::plain_before)
        look_at(i);
  }

private:
  std::string_view text_;
  gFileDeclarations const & file_;
  std::vector<gCommentBlock> const & blocks_;
  bool pascal_;
  gAttachPlaces const & places_;
  std::vector<gAttachment> & found_;
  std::vector<bool> described_; // by declaration

  void look_at(std::size_t block) {
    gCommentBlock const & one = blocks_[block];
    bool const banner = has_ruler(text_.substr(one.begin, one.end - one.begin));
    if (one.end_line - one.line >= (banner ? most_lines : 1))
      return;
    std::int32_t const first = places_.first_of_statement(found_[block].declaration);
    std::string const words = comment_text(text_, one, file_.comments, pascal_);
    std::string const heading = heading_of(words);
    std::int32_t last = first;
    std::int32_t const count = count_headed(first, last);
    if (heading.empty() || !heads(heading, first, count, banner))
      return;
    found_[block] = {gAttachRule::none, gLeftOut::heading, -1, -1, first, last};
  }

  // Those that follow without an empty line or a comment of their own, and are of the same sort.
  std::int32_t count_headed(std::int32_t first, std::int32_t & last) const {
    std::int32_t count = 1;
    for (std::int32_t next = places_.next_sibling(first); next >= 0 && count < most_headed;
         next = places_.next_sibling(next)) {
      gDeclaration const & before = places_.item(last);
      gDeclaration const & one = places_.item(next);
      bool const close = places_.line_of(one.whole.begin) <= before.end_line + 1;
      bool const alike = is_value(one) == is_value(before) && is_routine(one) == is_routine(before);
      if (!close || !alike || described_[static_cast<std::size_t>(next)])
        break;
      last = next;
      ++count;
    }
    return count;
  }

  bool heads(std::string const & heading, std::int32_t first, std::int32_t count,
             bool banner) const {
    gDeclaration const & one = places_.item(first);
    std::vector<std::string> const words = words_of(heading);
    std::string const own = Vlb::to_lower(std::string(one.name.of(text_)));
    if (words.empty() || words.size() > most_words || std::ranges::find(words, own) != words.end())
      return false;
    bool const verb = begins_with_verb(words);
    bool const of_kind = !verb && std::ranges::any_of(words, is_kind_word);
    if (is_value(one) && count >= 3)
      return true;
    if (banner)
      return of_kind || (count >= 2 && !verb);
    return pascal_ && is_routine(one) && count >= 2 && of_kind;
  }
};

} // namespace

std::string heading_of(std::string_view words) {
  constexpr std::string_view signs = " \t\r\n-=*_~#/+|";
  std::size_t const begin = words.find_first_not_of(signs);
  if (begin == words.npos)
    return {};
  words = words.substr(begin, words.find_last_not_of(signs) + 1 - begin);
  bool const sentence = words.ends_with('.') || words.ends_with('!') || words.ends_with('?') ||
                        words.ends_with(';') || words.find(". ") != words.npos;
  if (words.size() > longest || sentence || words.find_first_of("\n@\\") != words.npos)
    return {};
  return std::string(words.ends_with(':') ? words.substr(0, words.size() - 1) : words);
}

void find_headings(std::string_view text, gFileDeclarations const & file,
                   std::vector<gCommentBlock> const & blocks, bool pascal,
                   gAttachPlaces const & places, std::vector<gAttachment> & found) {
  Headings(text, file, blocks, pascal, places, found).run();
}
