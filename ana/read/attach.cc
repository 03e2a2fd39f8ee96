// Each block asks the rules in their order; the first that finds a declaration answers. Then each
// declaration keeps the blocks of its best rule. Nothing is looked up by name here: places decide.
#include "ana/read/attach.h"

#include <algorithm>
#include <array>
#include <limits>

#include "vlb/gstring.h"

namespace {

using namespace Decl;
constexpr auto npos = std::string_view::npos;
constexpr std::uint32_t widest_gap = 4; // lines between a documenting comment and its declaration

bool contains_word(std::string_view text, std::initializer_list<std::string_view> words) {
  return std::any_of(words.begin(), words.end(),
                     [&](std::string_view word) { return text.find(word) != npos; });
}

bool is_licence(std::string_view text) {
  return contains_word(text, {"opyright", "OPYRIGHT", "SPDX-License", "icense", "icence",
                              "ermission is hereby granted", "General Public License",
                              "distributed under"});
}

bool has_words(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    return Vlb::is_letter(c) || Vlb::is_digit(c) || static_cast<unsigned char>(c) >= 0x80;
  });
}

std::string_view trimmed(std::string_view text) {
  std::size_t const begin = std::min(text.find_first_not_of(" \t\n\r"), text.size());
  return text.substr(begin, text.find_last_not_of(" \t\n\r") + 1 - begin);
}

bool is_tool_switch(std::string_view words) {
  static constexpr std::string_view heads[] = {
      "NOLINT", "clang-format", "cppcheck", "IWYU",  "LINT", "lint ", "{{{",  "}}}",
      "$",      "coverity",     "TODO",     "FIXME", "XXX",  "-*-",   "vim:", "NB: clang"};
  return std::any_of(std::begin(heads), std::end(heads),
                     [&](std::string_view head) { return words.starts_with(head); });
}

// The end of code, and not of a sentence.
bool is_dead_code(std::string_view words, bool pascal) {
  if (words.empty())
    return false;
  char const last = words.back();
  bool const statement = last == ';' || (!pascal && (last == '{' || last == '}'));
  return statement ||
         (!pascal && words.front() == '#' && words.size() > 1 && Vlb::is_letter(words[1]) &&
          contains_word(words, {"#if", "#end", "#def", "#inc", "#else"}));
}

// Declarations by where they begin and end, for look-ups from a comment.
class Places {
public:
  explicit Places(gFileDeclarations const & file) : file_(file) {
    for (std::size_t i = 0; i < file.items.size(); ++i)
      if (is_documentable(file.items[i]))
        order_.push_back(static_cast<std::int32_t>(i));
    by_begin_ = order_;
    auto const begin = [&](std::int32_t i) { return item(i).whole.begin; };
    auto const end = [&](std::int32_t i) { return item(i).whole.end; };
    std::stable_sort(by_begin_.begin(), by_begin_.end(),
                     [&](auto a, auto b) { return begin(a) < begin(b); });
    by_end_ = order_;
    std::stable_sort(by_end_.begin(), by_end_.end(),
                     [&](auto a, auto b) { return end(a) < end(b); });
  }

  // The first declaration that begins at an offset; -1 for none. Of those that share their begin it
  // is the outermost.
  std::int32_t beginning_at(std::uint32_t offset) const {
    auto const at =
        std::lower_bound(by_begin_.begin(), by_begin_.end(), offset,
                         [&](auto i, auto place) { return item(i).whole.begin < place; });
    return at != by_begin_.end() && item(*at).whole.begin == offset ? *at : -1;
  }

  // The declaration that ends last at or in front of an offset, within the same scope.
  std::int32_t ending_at(std::uint32_t offset, std::int32_t scope) const {
    auto at = std::upper_bound(by_end_.begin(), by_end_.end(), offset,
                               [&](auto place, auto i) { return place < item(i).whole.end; });
    // Those that share an end stand beside each other; few declarations do.
    for (int tries = 0; at != by_end_.begin() && tries < 64; ++tries) {
      --at;
      if (item(*at).scope == scope)
        return first_of_statement(*at);
      if (item(*at).whole.end + 1 < offset && item(*at).scope < scope)
        break;
    }
    return -1;
  }

  std::int32_t first_of_statement(std::int32_t i) const {
    std::int32_t const first = item(i).statement;
    return first >= 0 && static_cast<std::size_t>(first) < file_.items.size() ? first : i;
  }

  // The first macro that is defined in a stretch of text, and the last one that ends in it; -1 for
  // none. Directives aren't code: nothing else tells that they are there.
  std::int32_t first_macro(std::uint32_t begin, std::uint32_t end) const {
    auto at = std::lower_bound(by_begin_.begin(), by_begin_.end(), begin,
                               [&](auto i, auto place) { return item(i).whole.begin < place; });
    for (; at != by_begin_.end() && item(*at).whole.begin < end; ++at)
      if (is_macro(item(*at)))
        return *at;
    return -1;
  }
  std::int32_t last_macro(std::uint32_t begin, std::uint32_t end) const {
    auto at = std::upper_bound(by_end_.begin(), by_end_.end(), end,
                               [&](auto place, auto i) { return place < item(i).whole.end; });
    while (at != by_end_.begin() && item(*--at).whole.end > begin)
      if (is_macro(item(*at)))
        return *at;
    return -1;
  }
  bool has_include(std::uint32_t begin, std::uint32_t end) const {
    auto const at =
        std::lower_bound(file_.includes.begin(), file_.includes.end(), begin,
                         [](auto const & one, auto place) { return one.name.begin < place; });
    return at != file_.includes.end() && at->name.begin < end;
  }

  gDeclaration const & item(std::int32_t i) const {
    return file_.items[static_cast<std::size_t>(i)];
  }

private:
  static bool is_macro(gDeclaration const & one) {
    return one.kind == gKind::macro || one.kind == gKind::function_macro;
  }

  static bool is_documentable(gDeclaration const & one) {
    return one.kind != gKind::none && one.kind != gKind::using_declaration;
  }

  gFileDeclarations const & file_;
  std::vector<std::int32_t> order_, by_begin_, by_end_;
};

class Attaching {
public:
  Attaching(std::string_view text, gFileDeclarations const & file,
            std::vector<gCommentBlock> const & blocks, bool pascal)
      : text_(text),
        file_(file),
        blocks_(blocks),
        pascal_(pascal),
        places_(file) {}

  std::vector<gAttachment> run();

private:
  gComment const & head(std::size_t block) const { return file_.comments[blocks_[block].first]; }
  gComment const & tail(std::size_t block) const { return file_.comments[blocks_[block].last]; }
  gLeftOut noise(std::size_t block) const;
  gAttachment decide(std::size_t block) const;
  gAttachment in_parameters(std::size_t block) const;
  std::int32_t before(std::size_t block) const;
  std::int32_t behind(std::size_t block) const;
  std::int32_t inside(std::size_t block) const;
  std::int32_t below(std::size_t block) const;
  std::uint32_t line_feeds(std::uint32_t begin, std::uint32_t end) const;
  bool documented_between(std::size_t block, std::uint32_t code) const;
  bool names_it_alone(std::size_t block, std::int32_t declaration) const;
  void keep_the_best(std::vector<gAttachment> & found) const;

  std::string_view text_;
  gFileDeclarations const & file_;
  std::vector<gCommentBlock> const & blocks_;
  bool pascal_;
  Places places_;
};

std::uint32_t Attaching::line_feeds(std::uint32_t begin, std::uint32_t end) const {
  if (begin >= end)
    return 0;
  std::string_view const part = text_.substr(begin, end - begin);
  return static_cast<std::uint32_t>(std::count(part.begin(), part.end(), '\n'));
}

gLeftOut Attaching::noise(std::size_t block) const {
  gCommentBlock const & one = blocks_[block];
  gComment const & comment = head(block);
  if (comment.place == gComment::outside)
    return gLeftOut::in_code_out;
  if (comment.place == gComment::body)
    return gLeftOut::in_body;
  std::string_view const whole = text_.substr(one.begin, one.end - one.begin);
  if (!has_words(whole))
    return gLeftOut::drawing;
  if (one.documenting)
    return gLeftOut::taken;
  // The first comment of a file may be a licence, but never one directly above a declaration that
  // it documents.
  if (comment.code_before == 0 && is_licence(whole))
    return gLeftOut::licence;
  std::string const words = comment_text(text_, one, file_.comments, pascal_);
  std::string_view const bare = trimmed(words);
  if (is_tool_switch(bare))
    return gLeftOut::tool_switch;
  return is_dead_code(bare, pascal_) ? gLeftOut::dead_code : gLeftOut::taken;
}

// Another documenting comment between this one and the declaration has it.
bool Attaching::documented_between(std::size_t block, std::uint32_t code) const {
  for (std::size_t next = block + 1; next < blocks_.size() && blocks_[next].begin < code; ++next)
    if (blocks_[next].documenting && !blocks_[next].behind)
      return true;
  return false;
}

std::int32_t Attaching::before(std::size_t block) const {
  gCommentBlock const & one = blocks_[block];
  gComment const & last = tail(block);
  if (one.behind || last.place == gComment::body)
    return -1;
  std::int32_t const macro = places_.first_macro(one.end, last.code_behind);
  std::int32_t const found = macro >= 0 ? macro : places_.beginning_at(last.code_behind);
  if (found < 0)
    return -1;
  std::uint32_t const code = places_.item(found).whole.begin;
  std::uint32_t const feeds = line_feeds(one.end, code);
  if (places_.has_include(one.end, code))
    return -1;
  if (one.documenting)
    return feeds > widest_gap || documented_between(block, code) ? -1 : found;
  bool const direct = block + 1 == blocks_.size() || blocks_[block + 1].begin >= code;
  // Behind other code on its line it belongs to that.
  bool const alone = head(block).line_start;
  return direct && feeds <= 1 && alone ? found : -1;
}

// The declaration in front, if nothing else stands between it and the comment.
std::int32_t Attaching::behind(std::size_t block) const {
  gComment const & first = head(block);
  std::int32_t const macro = places_.last_macro(first.code_before, first.whole.begin);
  std::uint32_t const code = macro >= 0 ? places_.item(macro).whole.end : first.code_before;
  if (code == 0)
    return -1;
  std::uint32_t const feeds = line_feeds(code, first.whole.begin);
  if (feeds > 0 && !(blocks_[block].behind && feeds == 1))
    return -1;
  std::int32_t const found = macro >= 0 ? macro : places_.ending_at(code, first.scope);
  if (found < 0 || line_feeds(places_.item(found).whole.end, code) > 0)
    return -1;
  // Behind a closing bracket stands what it closes, as in "} // namespace x".
  gDeclaration const & one = places_.item(found);
  bool const closes = !one.body.empty() && one.line != one.end_line;
  return closes && !blocks_[block].documenting ? -1 : found;
}

// Between head and body, or behind the brace that opens a body.
std::int32_t Attaching::inside(std::size_t block) const {
  gComment const & first = head(block);
  if (first.place == gComment::within && first.declaration >= 0)
    return places_.first_of_statement(first.declaration);
  bool const behind_brace = first.place == gComment::between && !first.line_start &&
                            first.scope >= 0 && blocks_[block].behind &&
                            places_.item(first.scope).body.begin + 1 == first.code_before;
  return behind_brace ? first.scope : -1;
}

// Some describe a declaration below it, with an empty line behind.
std::int32_t Attaching::below(std::size_t block) const {
  gComment const & first = head(block);
  if (!first.line_start || first.code_before == 0 ||
      line_feeds(first.code_before, first.whole.begin) != 1)
    return -1;
  gComment const & last = tail(block);
  bool const alone = line_feeds(last.whole.end, last.code_behind) > 1 ||
                     last.code_behind >= text_.size() || text_[last.code_behind] == '}';
  return alone ? places_.ending_at(first.code_before, first.scope) : -1;
}

// A heading such as "// Widget" says nothing about the class.
bool Attaching::names_it_alone(std::size_t block, std::int32_t declaration) const {
  std::string const words = comment_text(text_, blocks_[block], file_.comments, pascal_);
  std::string_view name = trimmed(words);
  while (!name.empty() && !Vlb::is_word(name.back()))
    name.remove_suffix(1);
  return name == places_.item(declaration).name.of(text_);
}

// In a parameter list a comment is about the parameter in front of it, or the one that follows.
gAttachment Attaching::in_parameters(std::size_t block) const {
  gComment const & first = head(block);
  gAttachment found;
  if (first.declaration < 0)
    return found;
  // A remark such as "/* unused */" isn't about the parameter.
  if (!blocks_[block].documenting)
    return found;
  gDeclaration const & one = places_.item(first.declaration);
  std::int32_t last = -1;
  for (std::uint32_t i = 0; i < one.params; ++i) {
    gParam const & param = file_.parameters[one.first_param + i];
    if (param.whole.begin < first.whole.begin)
      last = static_cast<std::int32_t>(i);
    else if (last < 0 || (first.line_start && !blocks_[block].behind))
      return {gAttachRule::inside, gLeftOut::taken, first.declaration,
              static_cast<std::int32_t>(i)};
    else
      break;
  }
  if (last >= 0)
    found = {gAttachRule::inside, gLeftOut::taken, first.declaration, last};
  return found;
}

// What holds a whole file has its comment in front.
bool is_file(gDeclaration const & one) {
  return one.kind == gKind::unit || one.kind == gKind::program || one.kind == gKind::library ||
         one.kind == gKind::package;
}

gAttachment Attaching::decide(std::size_t block) const {
  gAttachment found;
  found.left_out = noise(block);
  if (found.left_out != gLeftOut::taken)
    return found;
  found.left_out = gLeftOut::nothing_near;
  if (head(block).place == gComment::parameters)
    return in_parameters(block);
  bool const documenting = blocks_[block].documenting;
  struct Try {
    gAttachRule documenting, plain;
    std::int32_t (Attaching::*find)(std::size_t) const;
  };
  static constexpr std::array<Try, 4> tries = {{
      {gAttachRule::before, gAttachRule::plain_before, &Attaching::before},
      {gAttachRule::behind, gAttachRule::plain_behind, &Attaching::behind},
      {gAttachRule::inside, gAttachRule::plain_inside, &Attaching::inside},
      {gAttachRule::none, gAttachRule::plain_below, &Attaching::below},
  }};
  for (Try const & one : tries) {
    gAttachRule const rule = documenting ? one.documenting : one.plain;
    if (rule == gAttachRule::none)
      continue;
    found.declaration = (this->*one.find)(block);
    if (found.declaration < 0)
      continue;
    if (!documenting &&
        (names_it_alone(block, found.declaration) ||
         (rule != gAttachRule::plain_before && is_file(places_.item(found.declaration)))))
      break;
    found.rule = rule;
    found.left_out = gLeftOut::taken;
    return found;
  }
  found.declaration = -1;
  return found;
}

// A front comment of two kinds: the nearest documenting one was chosen above; of plain ones the
// rules are ordered.
void Attaching::keep_the_best(std::vector<gAttachment> & found) const {
  std::vector<gAttachRule> best(file_.items.size(), gAttachRule::none);
  for (gAttachment const & one : found)
    if (one.declaration >= 0 && one.param < 0) {
      gAttachRule & rule = best[static_cast<std::size_t>(one.declaration)];
      rule = std::min(rule, one.rule);
    }
  for (gAttachment & one : found) {
    if (one.declaration < 0 || one.param >= 0)
      continue;
    gAttachRule const rule = best[static_cast<std::size_t>(one.declaration)];
    // What is written behind adds to what stands in front.
    bool const adds = one.rule == gAttachRule::behind && rule == gAttachRule::before;
    if (one.rule == rule || adds)
      continue;
    one = {gAttachRule::none, gLeftOut::another, -1, -1};
  }
}

std::vector<gAttachment> Attaching::run() {
  std::vector<gAttachment> found;
  found.reserve(blocks_.size());
  for (std::size_t i = 0; i < blocks_.size(); ++i)
    found.push_back(decide(i));
  keep_the_best(found);
  return found;
}

} // namespace

std::vector<gAttachment> attach(std::string_view text, gFileDeclarations const & file,
                                std::vector<gCommentBlock> const & blocks, bool pascal) {
  return Attaching(text, file, blocks, pascal).run();
}
