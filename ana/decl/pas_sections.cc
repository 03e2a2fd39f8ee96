// What stands at the outermost level of a file: heads, sections, uses clauses.
#include <algorithm>

#include "ana/decl/pas_reader.h"

namespace Decl {

gPasReader::gPasReader(gPasSource const & source, gFileDeclarations & out)
    : view_(source),
      out_(out) {}

void gPasReader::read(gPascalContext const & given) {
  gPascalContext const context =
      given.section == gPascalContext::any && given.block == Block::none ? guess() : given;
  section_ = context.section;
  Frame file;
  file.kind = section_ == gPascalContext::members ? Frame::members : Frame::file;
  file.block = context.block;
  file.access = context.access;
  file.end = view_.size();
  frames_.push_back(file);
  note_state();
  if (section_ == gPascalContext::body)
    return;
  if (section_ == gPascalContext::values) {
    values(0, view_.size(), -1);
    return;
  }
  while (!frames_.empty()) {
    if (at_ >= limit())
      leave_frame();
    else if (frame().kind == Frame::file)
      file_step();
    else
      member_step();
  }
  unit_end();
}

void gPasReader::note_state() {
  gPasState state;
  state.token = at_;
  state.context.section = in_class() ? gPascalContext::members : section_;
  state.context.block = frame().block;
  state.context.access = frame().access;
  if (!states_.empty() && states_.back().token == at_)
    states_.back() = state;
  else
    states_.push_back(state);
}

// One declaration, or one word that opens a section.
void gPasReader::file_step() {
  gPasWord const word = view_.word(at_);
  if (view_.sign(at_) == ';') {
    ++at_;
  } else if (view_.sign(at_) == '[') {
    attribute();
  } else if (is_routine(at_)) {
    routine();
  } else if (word == gPasWord::property ||
             (word == gPasWord::class_ && view_.word(at_ + 1) == gPasWord::property)) {
    property();
  } else if (goes_on_with_units()) {
    uses_clause();
  } else if (!section_head(word)) {
    other_step();
  }
}

// An entry of the block. An include file may have parts that belong elsewhere: to a class, or among
// statements.
void gPasReader::other_step() {
  bool const included = !has_head_;
  char const behind = view_.sign(at_ + 1);
  bool const named = view_.is_name(at_);
  bool const entry_like = named && (behind == ':' || behind == '=' || behind == '<');
  if (view_.word(at_) == gPasWord::final &&
      (view_.word(at_ + 1) == gPasWord::var || view_.word(at_ + 1) == gPasWord::class_)) {
    ++at_;
  } else if (included && access_word(view_.word(at_))) {
    frame().kind = Frame::members;
  } else if (included && lists_units() && !ends_uses(at_)) {
    uses_clause();
  } else if (named && frame().block != Block::none && fits(frame().block)) {
    entry(frame().block);
  } else if (entry_like && (included || frame().block != Block::none)) {
    if (!included)
      report(at_, at_, "the word that begins the section is missing");
    frame().block = guess_of_name(at_);
    note_state();
    entry(frame().block);
  } else if (included && begins_statement()) {
    skip_statements();
  } else {
    fault("no declaration");
  }
}

void gPasReader::skip_statements() {
  gPascalContext::Section const section = section_;
  section_ = gPascalContext::body;
  note_state();
  while (at_ < limit() && !view_.begins_other(at_))
    at_ = view_.behind(at_);
  section_ = section;
}

bool gPasReader::section_head(gPasWord word) {
  bool const first = !has_head_ && view_.is_name(at_ + 1);
  switch (word) {
  case gPasWord::unit:
    unit_head(gKind::unit);
    return true;
  case gPasWord::program:
    unit_head(gKind::program);
    return true;
  case gPasWord::library:
    if (first)
      unit_head(gKind::library);
    return first;
  case gPasWord::package:
    if (first)
      unit_head(gKind::package);
    return first;
  case gPasWord::interface:
    enter_section(gPascalContext::interface);
    return true;
  case gPasWord::implementation:
    enter_section(gPascalContext::implementation);
    return true;
  case gPasWord::initialization:
  case gPasWord::finalization:
    skip_rest();
    return true;
  case gPasWord::uses:
    uses_clause();
    return true;
  case gPasWord::contains:
  case gPasWord::requires_:
    if (view_.sign(at_ + 1) == pas_word_sign)
      uses_clause();
    return view_.sign(at_ + 1) == pas_word_sign || frame().block == Block::none;
  case gPasWord::exports:
  case gPasWord::label:
    skip_to_semicolon();
    return true;
  case gPasWord::type:
    open_block(Block::types);
    return true;
  case gPasWord::const_:
    open_block(Block::constants);
    return true;
  case gPasWord::resourcestring:
    open_block(Block::resource_strings);
    return true;
  case gPasWord::threadvar:
  case gPasWord::var:
    frame().class_part = word == gPasWord::threadvar; // kept to tell the two apart
    open_block(Block::variables);
    return true;
  case gPasWord::begin:
  case gPasWord::asm_:
    statements();
    return true;
  case gPasWord::end:
    if (view_.sign(at_ + 1) != '.')
      return false;
    at_ += 2;
    return true;
  default:
    return false;
  }
}

void gPasReader::open_block(Block block) {
  frame().block = block;
  frame().in_uses = false;
  ++at_;
  note_state();
}

void gPasReader::enter_section(gPascalContext::Section section) {
  section_ = section;
  open_block(Block::none);
}

// "unit a.b;": all that follows belongs to it.
void gPasReader::unit_head(gKind kind) {
  std::uint32_t const begin = at_++;
  bool const second = has_head_ || frame().scope >= 0;
  std::uint32_t const name = at_;
  while (view_.sign(at_) == pas_word_sign && view_.sign(at_ + 1) == '.')
    at_ += 2;
  if (view_.sign(at_) != pas_word_sign) {
    fault("a unit without a name");
    return;
  }
  ++at_;
  std::uint32_t const name_end = at_;
  while (at_ < limit() && view_.sign(at_) != ';' && !view_.begins_other(at_))
    at_ = view_.behind(at_);
  if (!second) {
    gDeclaration & item = add(kind, name);
    item.name = view_.range(name, name_end);
    item.whole = item.text = view_.range(begin, at_);
    item.trailing = view_.range(name_end, at_);
    item.marks |= mark_definition;
    item.body.begin = view_.range(begin, at_ + 1).end;
    frame().scope = static_cast<std::int32_t>(out_.items.size() - 1);
    section_ = kind == gKind::unit ? gPascalContext::interface : gPascalContext::any;
  }
  has_head_ = true;
  at_ += view_.sign(at_) == ';';
  note_state();
}

void gPasReader::unit_end() {
  if (!has_head_ || view_.size() == 0)
    return;
  gDeclaration & unit = *std::ranges::find_if(out_.items, [](gDeclaration const & item) {
    return item.kind >= gKind::unit && item.kind <= gKind::package;
  });
  unit.whole.end = unit.body.end = view_[view_.size() - 1].end;
  unit.end_line = view_.source().line_of(unit.whole.end - 1);
}

// Behind "initialization" there are statements until the end, which is the file's.
void gPasReader::skip_rest() {
  gPascalContext::Section const section = section_;
  section_ = gPascalContext::body;
  open_block(Block::none);
  while (at_ < limit() && view_.word(at_) != gPasWord::end && !is_routine(at_) &&
         view_.word(at_) != gPasWord::finalization)
    at_ = view_.behind(at_);
  section_ = section;
}

// Names of units, each as far as the first thing that is no part of a name.
void gPasReader::uses_clause() {
  gPascalContext::Section const section = section_;
  section_ = gPascalContext::body;
  bool const headless = view_.is_name(at_) && view_.word(at_) != gPasWord::contains &&
                        view_.word(at_) != gPasWord::requires_;
  at_ -= headless;
  open_block(Block::none);
  frame().in_uses = true;
  while (at_ < limit() && view_.sign(at_) != ';' && !ends_uses(at_)) {
    std::uint32_t const name = at_;
    while (view_.sign(at_) == pas_word_sign && view_.sign(at_ + 1) == '.')
      at_ += 2;
    if (view_.sign(at_) == pas_word_sign)
      out_.uses.push_back(view_.range(name, at_ + 1));
    while (at_ < limit() && view_.sign(at_) != ',' && view_.sign(at_) != ';' &&
           !view_.begins_other(at_))
      at_ = view_.behind(at_);
    at_ += view_.sign(at_) == ',';
  }
  missing_semicolon();
  section_ = section;
  at_ += view_.sign(at_) == ';';
  note_state();
}

bool gPasReader::ends_uses(std::uint32_t at) const {
  return view_.begins_other(at) || (view_.marks(at) & pas_access) != 0;
}

// Branches of one list may end with ";" each. A word that ends the list is no unit of it.
bool gPasReader::goes_on_with_units() const {
  char const behind = view_.sign(at_ + 1);
  return frames_.back().in_uses && view_.is_name(at_) && !ends_uses(at_) &&
         (behind == ',' || behind == ';' || behind == '.' || view_.word(at_ + 1) == gPasWord::in);
}

// A file that is taken in where ";" should be may have it.
void gPasReader::missing_semicolon() {
  if (view_.sign(at_) == ';' || at_ >= limit() || taken_in(at_))
    return;
  report(at_, at_, "`;` is missing");
}

// Includes in front of the token that belong to the declaration in front of it.
bool gPasReader::taken_in(std::uint32_t at) {
  std::vector<gPasPlace> const & places = view_.source().include_places;
  auto place = std::ranges::lower_bound(places, at, {}, &gPasPlace::token);
  bool const found = place != places.end() && place->token == at;
  for (; place != places.end() && place->token == at; ++place)
    out_.includes[place->index].context.section = gPascalContext::body;
  return found;
}

void gPasReader::skip_to_semicolon() {
  ++at_;
  while (at_ < limit() && view_.sign(at_) != ';' && !view_.begins_other(at_))
    at_ = view_.behind(at_);
  at_ += view_.sign(at_) == ';';
}

// The statements of a program or of a unit's old way to begin.
void gPasReader::statements() {
  bool const expected = section_ != gPascalContext::interface;
  std::uint32_t const begin = at_;
  gPascalContext::Section const section = section_;
  section_ = gPascalContext::body;
  note_state();
  section_ = section;
  at_ = view_.behind(at_);
  if (view_.sign(at_) == '.') {
    ++at_;
    return;
  }
  if (!expected)
    report(begin, at_, "statements outside of a routine");
  frame().block = Block::none;
  note_state();
}

// "[...]" in front of a declaration.
void gPasReader::attribute() {
  std::uint32_t const begin = at_;
  at_ = view_.behind(at_);
  if (view_.sign(at_) == ';') {
    ++at_;
    return;
  }
  gRange const range = view_.range(begin, at_);
  if (attributes_.empty())
    attributes_ = range;
  attributes_.end = range.end;
}

void gPasReader::report(std::uint32_t from, std::uint32_t to, char const * reason) {
  gRange whole = view_.range(from, to);
  if (whole.empty())
    whole.begin = whole.end = from > 0 ? view_[std::min(from, view_.size()) - 1].end : 0;
  faults_.push_back({whole, reason});
}

// What stands here is no declaration: on behind the next ";", or at the next word that begins one.
void gPasReader::fault(char const * reason) {
  std::uint32_t const begin = at_;
  attributes_ = {};
  for (;;) {
    bool const semicolon = view_.sign(at_) == ';';
    at_ = std::min(view_.behind(at_), limit());
    if (at_ >= limit() || semicolon || view_.begins_other(at_) ||
        (view_[at_].line_start && (view_.word(at_) == gPasWord::class_ ||
                                   (in_class() && (view_.marks(at_) & pas_access) != 0))))
      break;
  }
  bool const same = !faults_.empty() && fault_end_ == begin && begin > 0;
  if (same)
    faults_.back().whole.end = view_.range(begin, at_).end;
  else
    report(begin, at_, reason);
  fault_end_ = at_;
}

} // namespace Decl
