// Each block asks the rules in their order; the first that finds a declaration answers. Then each
// declaration keeps the blocks of its best rule. Places decide; a name counts only where a comment
// says itself what it is about.
#include "ana/read/attach.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "ana/comments/translate.h"
#include "ana/comments/words.h"
#include "ana/read/attach_choice.h"
#include "ana/read/attach_headings.h"
#include "ana/read/attach_places.h"
#include "ana/read/comment_noise.h"
#include "ana/read/unit_kinds.h"
#include "vlb/gstring.h"

namespace {

using namespace Decl;
constexpr std::uint32_t widest_gap = 4; // lines between a documenting comment and its declaration

// What holds a whole file has its comment in front.
bool is_file(gDeclaration const & one) {
  return one.kind == gKind::unit || one.kind == gKind::program || one.kind == gKind::library ||
         one.kind == gKind::package;
}

class Attaching {
public:
  Attaching(std::string_view text, gFileDeclarations const & file,
            std::vector<gCommentBlock> const & blocks, bool pascal)
      : text_(text),
        file_(file),
        blocks_(blocks),
        pascal_(pascal),
        places_(text, file, pascal),
        remarks_(file.items.size(), 0) {
    for (gDeclaration const & one : file.items)
      if (!one.body.empty() && is_class_like(one.kind))
        types_.insert(one.name.of(text));
  }

  std::vector<gAttachment> run();

private:
  enum Remark : unsigned char { in_parameter_list = 1, among_declarators = 2, behind_values = 4 };

  gComment const & head(std::size_t block) const { return file_.comments[blocks_[block].first]; }
  gComment const & tail(std::size_t block) const { return file_.comments[blocks_[block].last]; }
  std::string words(std::size_t block) const {
    return comment_text(text_, blocks_[block], file_.comments, pascal_);
  }
  void note_remarks();
  bool has_remark(std::int32_t declaration, Remark kind) const {
    return (remarks_[static_cast<std::size_t>(declaration)] & kind) != 0;
  }
  bool heads_the_file(std::size_t block, std::string_view text) const;
  gLeftOut noise(std::size_t block) const;
  gAttachment decide(std::size_t block) const;
  gAttachment in_parameters(std::size_t block) const;
  std::int32_t declarator_in_front(std::size_t block) const;
  std::int32_t declarator_below(std::size_t block) const;
  std::int32_t before(std::size_t block) const;
  bool stands_before_value(std::size_t block) const;
  std::int32_t behind(std::size_t block) const;
  std::int32_t inside(std::size_t block) const;
  std::int32_t below(std::size_t block) const;
  std::int32_t last_declarator(std::int32_t first) const;
  bool declares_several(std::int32_t first) const;
  bool behind_the_name(gComment const & comment, gDeclaration const & one) const;
  bool behind_the_brace(std::size_t block) const;
  bool documented_between(std::size_t block, std::uint32_t code) const;
  bool names_it_alone(std::size_t block, std::int32_t declaration, gAttachRule rule) const;
  std::int32_t unit_above(std::size_t block) const;
  bool says_nothing_about(std::size_t block, std::int32_t declaration, gAttachRule rule) const;
  bool is_about(gCommentSubject const & subject, std::int32_t declaration) const;

  std::string_view text_;
  gFileDeclarations const & file_;
  std::vector<gCommentBlock> const & blocks_;
  bool pascal_;
  gAttachPlaces places_;
  std::vector<unsigned char> remarks_; // by declaration: union of Remark
  std::unordered_set<std::string_view> types_;
};

// Comments within a declaration, since they tell how the one behind it is meant.
void Attaching::note_remarks() {
  for (gComment const & one : file_.comments) {
    bool const last = one.code_behind < text_.size() &&
                      (text_[one.code_behind] == '}' || text_[one.code_behind] == ')');
    if (one.place == gComment::values && one.scope >= 0 && last && !one.line_start)
      remarks_[static_cast<std::size_t>(one.scope)] |= behind_values;
    if (one.declaration < 0)
      continue;
    unsigned char & all = remarks_[static_cast<std::size_t>(one.declaration)];
    if (one.place == gComment::parameters)
      all |= in_parameter_list;
    else if (one.place == gComment::within && one.code_before > 0 &&
             text_[one.code_before - 1] == ',')
      all |= among_declarators;
  }
}

// The first comment of a file is a licence if it speaks of one, but for "Checks the license." in
// front of what does so.
bool Attaching::heads_the_file(std::size_t block, std::string_view text) const {
  if (is_licence(text) || !may_be_licence(text))
    return is_licence(text);
  std::int32_t const next = before(block);
  return next < 0 || is_file(places_.item(next));
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
  if (!one.behind && is_part_mark(whole))
    return gLeftOut::tool_switch;
  if (one.documenting)
    return gLeftOut::taken;
  if (comment.code_before == 0 && heads_the_file(block, whole))
    return gLeftOut::licence;
  if (comment.line_start && is_caption(whole))
    return gLeftOut::heading;
  std::string const text = words(block);
  if (is_tool_switch(text, pascal_))
    return gLeftOut::tool_switch;
  return is_dead_code(text, pascal_) ? gLeftOut::dead_code : gLeftOut::taken;
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
  std::int32_t found = macro >= 0 ? macro : places_.beginning_at(last.code_behind);
  if (found < 0)
    found = places_.behind_annotations(last.code_behind);
  if (found < 0)
    return -1;
  std::uint32_t const code = std::min(places_.item(found).whole.begin, last.code_behind);
  std::uint32_t const feeds = places_.line_feeds(one.end, code);
  if (places_.has_include(one.end, code))
    return -1;
  if (one.documenting)
    return feeds > widest_gap || documented_between(block, code) ? -1 : found;
  bool const direct = block + 1 == blocks_.size() || blocks_[block + 1].begin >= code;
  // Behind other code on its line it belongs to that.
  bool const alone = head(block).line_start || stands_before_value(block);
  return direct && feeds <= 1 && alone ? found : -1;
}

// "{ /* of a */ a, /* of b */ b }", unless the last value has its comment behind.
bool Attaching::stands_before_value(std::size_t block) const {
  gComment const & one = head(block);
  if (one.place != gComment::values || one.code_before == 0 || one.scope < 0 ||
      places_.line_feeds(one.whole.begin, one.code_behind) > 0)
    return false;
  char const sign = text_[one.code_before - 1];
  return (sign == ',' || sign == '{' || sign == '(') && !has_remark(one.scope, behind_values);
}

bool Attaching::declares_several(std::int32_t first) const {
  return places_.item(first).body.empty() && places_.next_of_statement(first) >= 0;
}

std::int32_t Attaching::last_declarator(std::int32_t first) const {
  return places_.declarator_before(first, places_.item(first).whole.end);
}

// "int width, /* of width */", and the last one of several that have comments of their own.
std::int32_t Attaching::declarator_in_front(std::size_t block) const {
  gComment const & comment = head(block);
  if (comment.code_before == 0 || (comment.line_start && !blocks_[block].behind))
    return -1;
  char const sign = text_[comment.code_before - 1];
  if (comment.place == gComment::within && comment.declaration >= 0) {
    std::int32_t const first = places_.first_of_statement(comment.declaration);
    bool const parted = sign == ',' || text_.substr(comment.code_behind).starts_with(',');
    return parted && declares_several(first) ? places_.declarator_before(first, comment.whole.begin)
                                             : -1;
  }
  std::int32_t const first = behind(block);
  bool const each = first >= 0 && declares_several(first) && has_remark(first, among_declarators);
  return each ? last_declarator(first) : -1;
}

// Alone on its line between two declarators.
std::int32_t Attaching::declarator_below(std::size_t block) const {
  gComment const & comment = head(block);
  if (comment.place != gComment::within || comment.declaration < 0 || !comment.line_start ||
      blocks_[block].behind || comment.code_before == 0 || text_[comment.code_before - 1] != ',')
    return -1;
  std::int32_t const first = places_.first_of_statement(comment.declaration);
  if (!declares_several(first))
    return -1;
  std::int32_t const found = places_.declarator_behind(first, comment.whole.begin);
  return found >= 0 && places_.item(found).line <= blocks_[block].end_line + 1 ? found : -1;
}

// The declaration in front, if nothing else stands between it and the comment.
std::int32_t Attaching::behind(std::size_t block) const {
  gComment const & first = head(block);
  std::int32_t const macro = places_.last_macro(first.code_before, first.whole.begin);
  std::uint32_t const code = macro >= 0 ? places_.item(macro).whole.end : first.code_before;
  if (code == 0)
    return -1;
  std::uint32_t const feeds = places_.line_feeds(code, first.whole.begin);
  if (feeds > 0 && !(blocks_[block].behind && feeds == 1))
    return -1;
  std::int32_t const found = macro >= 0 ? macro : places_.ending_at(code, first.scope);
  if (found < 0 || blocks_[block].documenting)
    return found;
  // Behind a closing bracket stands what it closes, as in "} // namespace x"; behind the last of
  // several lines of parameters with remarks, the remark on the last one.
  gDeclaration const & one = places_.item(found);
  bool const closes = !one.body.empty() && one.line != one.end_line;
  bool const of_parameter = has_remark(found, in_parameter_list) &&
                            places_.line_feeds(one.whole.begin, one.whole.end) > 0;
  return closes || of_parameter ? -1 : found;
}

// Behind name, parameter list or what follows that, and not among initialisers or bases.
bool Attaching::behind_the_name(gComment const & comment, gDeclaration const & one) const {
  constexpr std::uint32_t longest = 200;
  std::uint32_t const code = comment.code_before;
  if (code == one.text.end && one.initialiser.empty() && one.bases.empty())
    return true;
  std::uint32_t const begin = one.parameter_list.empty() ? one.name.end : one.parameter_list.end;
  if (begin > code || code > one.text.end || code > begin + longest)
    return false;
  std::string_view const between = gRange{begin, code}.of(text_);
  bool const opened = code > 0 && (text_[code - 1] == '(' || text_[code - 1] == ',');
  bool const trails = !one.trailing.empty() && one.trailing.begin <= code && !opened;
  return trails || between.find_first_of(pascal_ ? "=(" : "({=,:") == between.npos;
}

// Behind the bracket that opens a body, on the line of the head; a plain one alone in the rest of
// its line.
bool Attaching::behind_the_brace(std::size_t block) const {
  gComment const & first = head(block);
  if ((first.place != gComment::between && first.place != gComment::values) || first.line_start ||
      first.scope < 0)
    return false;
  gDeclaration const & one = places_.item(first.scope);
  bool const directly = !one.body.empty() && first.code_before >= one.body.begin &&
                        first.code_before <= one.body.begin + 1;
  if (!directly || blocks_[block].behind)
    return directly;
  bool const is_type = one.kind != gKind::name_space && !is_file(one);
  return is_type && !blocks_[block].documenting &&
         places_.line_feeds(tail(block).whole.end, tail(block).code_behind) > 0;
}

// Between head and body, or behind the brace that opens a body.
std::int32_t Attaching::inside(std::size_t block) const {
  gComment const & first = head(block);
  if (behind_the_brace(block))
    return first.scope;
  if (first.place != gComment::within || first.declaration < 0)
    return -1;
  std::int32_t const found = places_.first_of_statement(first.declaration);
  bool const fits = blocks_[block].documenting || behind_the_name(first, places_.item(found));
  return fits ? found : -1;
}

// Some describe a declaration below it, with an empty line behind.
std::int32_t Attaching::below(std::size_t block) const {
  gComment const & first = head(block);
  if (!first.line_start || first.code_before == 0 ||
      places_.line_feeds(first.code_before, first.whole.begin) != 1)
    return -1;
  if (std::int32_t const unit = unit_above(block); unit >= 0)
    return unit;
  gComment const & last = tail(block);
  bool const alone = places_.line_feeds(last.whole.end, last.code_behind) > 1 ||
                     last.code_behind >= text_.size() || text_[last.code_behind] == '}';
  return alone ? places_.ending_at(first.code_before, first.scope) : -1;
}

// A heading such as "// Widget" says nothing about the class, and one with the name of another type
// was left behind when the declarations were moved.
bool Attaching::names_it_alone(std::size_t block, std::int32_t declaration,
                               gAttachRule rule) const {
  std::string const text = words(block);
  std::string_view name = trimmed(text);
  while (!name.empty() && !Vlb::is_word(name.back()))
    name.remove_suffix(1);
  return name == places_.item(declaration).name.of(text_) ||
         (rule == gAttachRule::plain_before && types_.contains(name));
}

// Between "unit a;" and "interface" a text is the unit's; the unit, or -1.
std::int32_t Attaching::unit_above(std::size_t block) const {
  constexpr std::string_view word = "interface";
  gCommentBlock const & one = blocks_[block];
  std::string_view const whole = text_.substr(one.begin, one.end - one.begin);
  if (!pascal_ || Vlb::to_lower(text_.substr(tail(block).code_behind, word.size())) != word ||
      may_be_licence(whole) || std::ranges::count(whole, ' ') < 4)
    return -1;
  auto const unit = std::ranges::find_if(file_.items, is_file);
  return unit != file_.items.end() && unit->name.end <= head(block).code_before
             ? static_cast<std::int32_t>(unit - file_.items.begin())
             : -1;
}

bool Attaching::says_nothing_about(std::size_t block, std::int32_t declaration,
                                   gAttachRule rule) const {
  return !blocks_[block].documenting &&
         (names_it_alone(block, declaration, rule) ||
          (is_file(places_.item(declaration)) && rule != gAttachRule::plain_before &&
           unit_above(block) != declaration));
}

// The name that the comment says, but for its scopes, is one that the statement declares.
bool Attaching::is_about(gCommentSubject const & subject, std::int32_t declaration) const {
  if (subject.kind == gTranslated::unit || subject.kind == gTranslated::nothing)
    return subject.kind == gTranslated::unit;
  std::string_view said = subject.name;
  bool const space = said.starts_with("Namespace "), macro = said.starts_with("Macro ");
  if (subject.kind == gTranslated::topic) {
    if (!space && !macro)
      return false;
    said = trimmed(said.substr(said.find(' ')));
    said = said.substr(0, said.find(' '));
  }
  said.remove_prefix(said.find_last_of(":.#") + 1); // to the begin if there is none
  for (std::int32_t i = declaration; i >= 0; i = places_.next_of_statement(i)) {
    gDeclaration const & one = places_.item(i);
    std::string_view const name = one.name.of(text_);
    bool const fits = subject.kind == gTranslated::about ||
                      (space ? one.kind == gKind::name_space : gAttachPlaces::is_macro(one));
    if (fits && (pascal_ ? Vlb::to_lower(name) == Vlb::to_lower(said) : name == said))
      return true;
  }
  return false;
}

// In a parameter list a comment is about the parameter in front of it, or the one that follows.
gAttachment Attaching::in_parameters(std::size_t block) const {
  gComment const & first = head(block);
  // A remark such as "/* unused */" isn't about the parameter.
  if (first.declaration < 0 || !blocks_[block].documenting)
    return {};
  gDeclaration const & one = places_.item(first.declaration);
  auto const begin = file_.parameters.begin() + one.first_param, end = begin + one.params;
  auto const next = std::partition_point(
      begin, end, [&](gParam const & param) { return param.whole.begin < first.whole.begin; });
  bool const in_front = next != begin && text_[first.code_before - 1] == ',' &&
                        places_.line_feeds(first.whole.end, first.code_behind) == 0;
  bool const follows =
      next != end && !blocks_[block].behind && (next == begin || first.line_start || in_front);
  auto const index = static_cast<std::int32_t>(next - begin) - (follows ? 0 : 1);
  if (index < 0)
    return {};
  return {gAttachRule::inside, gLeftOut::taken, first.declaration, index};
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
  static constexpr std::array<Try, 6> tries = {{
      {gAttachRule::before, gAttachRule::plain_before, &Attaching::declarator_below},
      {gAttachRule::before, gAttachRule::plain_before, &Attaching::before},
      {gAttachRule::behind, gAttachRule::plain_behind, &Attaching::declarator_in_front},
      {gAttachRule::behind, gAttachRule::plain_behind, &Attaching::behind},
      {gAttachRule::inside, gAttachRule::plain_inside, &Attaching::inside},
      {gAttachRule::none, gAttachRule::plain_below, &Attaching::below},
  }};
  for (Try const & one : tries) {
    gAttachRule const rule = documenting ? one.documenting : one.plain;
    if (rule == gAttachRule::none)
      continue;
    std::int32_t const declaration = (this->*one.find)(block);
    if (declaration < 0)
      continue;
    if (!says_nothing_about(block, declaration, rule) &&
        is_about(comment_subject(words(block), pascal_), declaration))
      found = {rule, gLeftOut::taken, declaration, -1};
    break;
  }
  return found;
}

std::vector<gAttachment> Attaching::run() {
  note_remarks();
  std::vector<gAttachment> found;
  found.reserve(blocks_.size());
  for (std::size_t i = 0; i < blocks_.size(); ++i)
    found.push_back(decide(i));
  choose_attachments(found, blocks_, places_);
  find_headings(text_, file_, blocks_, pascal_, places_, found);
  // Where it heads nothing, a title is no text all the same.
  for (std::size_t i = 0; i < found.size(); ++i)
    if (found[i].rule == gAttachRule::plain_before && head(i).line_start &&
        is_group_title(words(i)))
      found[i] = {gAttachRule::none, gLeftOut::heading, -1, -1};
  return found;
}

} // namespace

std::vector<gAttachment> attach(std::string_view text, gFileDeclarations const & file,
                                std::vector<gCommentBlock> const & blocks, bool pascal) {
  return Attaching(text, file, blocks, pascal).run();
}
