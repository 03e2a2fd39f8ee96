// Scopes lie on a stack of our own, so that no nesting is too deep. In each one extent after the
// other is cut and understood; what opens a scope is entered, all else is left behind.
#include "ana/decl/cpp_reader.h"

#include "ana/decl/cpp_brackets.h"
#include "ana/decl/cpp_comments.h"
#include "ana/decl/readers.h"

#include <algorithm>

namespace Decl {

gCppReader::gCppReader(gSource const & source, std::vector<gDirective> const & directives,
                       gBranches const & branches, gFileDeclarations & out)
    : source_(source),
      directives_(directives),
      branches_(branches),
      out_(out) {}

void gCppReader::run() {
  Scope file;
  file.end = static_cast<std::uint32_t>(source_.tokens.size() - 1);
  scopes_.push_back(file);
  for (;;) {
    if (at_ < scope().end) {
      if (scope().kind == Scope::enumeration)
        enumerator();
      else
        member();
    } else if (scopes_.size() > 1)
      close_scope();
    else
      break;
  }
  directives_to(static_cast<std::uint32_t>(source_.text.size()));
}

gPlace gCppReader::place() const {
  Scope const & inner = scopes_.back();
  return {inner.kind == Scope::class_, inner.kind == Scope::file, inner.name};
}

void gCppReader::close_scope() {
  directives_to(source_[scope().end].begin);
  Scope const closed = scope();
  scopes_.pop_back();
  at_ = std::max(at_, closed.resume);
  tail(closed);
}

void gCppReader::member() {
  gWord const word = source_.word(at_);
  std::uint8_t const type = source_.type(at_);
  if (type == ';') {
    ++at_;
    return;
  }
  if (type == '@')
    return objective_c();
  if (word >= gWord::public_ && word <= gWord::qt_statement) {
    if (word == gWord::qt_property && source_.type(at_ + 1) == '(')
      return qt_property();
    if (word == gWord::qt_statement)
      return qt_statement();
    if (section())
      return;
  }
  if (type == token_word && source_.type(at_ + 1) == ':' && in_class() && macro_section())
    return;
  if (type == token_word && source_[at_].line_head && source_[at_ + 1].line_head && macro_scope())
    return;
  gExtent const extent = cut_extent(source_, at_, scope().end, place());
  at_ = extent.last;
  declare(extent);
  if (at_ == extent.last)
    passed_ = source_[extent.last - 1].end;
}

namespace {

gAccess access_of(gWord word) {
  return word == gWord::protected_ ? gAccess::protected_
         : word == gWord::private_ ? gAccess::private_
                                   : gAccess::public_;
}

} // namespace

// "public:", "public slots:", "signals:".
bool gCppReader::section() {
  gWord const word = source_.word(at_);
  std::uint32_t at = at_ + 1;
  gKind section = word == gWord::signals ? gKind::signal : gKind::none;
  if (word == gWord::slots)
    return false;
  while (at < scope().end && source_.is_name(at)) {
    if (source_.is_word(at, gWord::slots))
      section = gKind::slot;
    ++at;
  }
  if (source_.type(at) != ':' || at - at_ > 3)
    return false;
  directives_to(source_[at_].begin);
  scope().access = access_of(word);
  scope().section = section;
  at_ = at + 1;
  return true;
}

// "PRIVATE_UNLESS_TESTED:"; an unnamed bit field of a type looks alike.
bool gCppReader::macro_section() {
  gMacroFact const * fact = source_.macros.find(source_.spelling(at_));
  if (!source_.is_name(at_) || (!fact && !source_.is_capital(at_)) ||
      source_.type(at_ + 2) == token_number)
    return false;
  if (fact && !fact->body.empty()) {
    gWord const word = word_of(fact->body.substr(0, fact->body.find(' ')));
    if (word >= gWord::public_ && word <= gWord::private_)
      scope().access = access_of(word);
  }
  scope().section = gKind::none;
  at_ += 2;
  return true;
}

// "BEGIN_NAMESPACE" alone on its line, and what closes it.
bool gCppReader::macro_scope() {
  if (!source_.is_name(at_))
    return false;
  gMacroFact const * fact = source_.macros.find(source_.spelling(at_));
  bool const opens = fact && fact->sense == gMacroSense::opens;
  if (!opens && !(fact && fact->sense == gMacroSense::closes))
    return false;
  if (!opens && scope().by_macro) {
    for (std::int32_t item = scope().opener; item != scopes_[scopes_.size() - 2].item;) {
      gDeclaration & one = out_.items[static_cast<std::size_t>(item)];
      one.whole.end = one.body.end = source_[at_].end;
      one.end_line = source_.lines.line(source_[at_].begin);
      item = one.scope;
    }
    scopes_.pop_back();
  } else if (opens)
    open_by_macro(fact->body);
  ++at_;
  return true;
}

// The name of a namespace in a macro's body, which may itself be a macro: that of a name, or one
// that only who compiles knows and mostly leaves out.
std::string_view gCppReader::named_by(std::string_view name) const {
  gMacroFact const * fact = source_.macros.find(name);
  if (!fact)
    return is_capital(name) ? std::string_view() : name;
  std::string_view const body = fact->body;
  return std::ranges::all_of(body, is_word_char) ? body : std::string_view();
}

// The namespaces that a macro opens become scopes up to the macro that closes them, or else to the
// end of the scope around.
void gCppReader::open_by_macro(std::string_view body) {
  gTokens const tokens = read_tokens(body);
  gExtent extent;
  extent.first = extent.head_end = at_;
  extent.last = extent.first + 1;
  Scope inner = scope();
  inner.by_macro = true;
  for (std::size_t at = 0; at + 1 < tokens.tokens.size(); ++at) {
    if (tokens.tokens[at].word != gWord::namespace_)
      continue;
    bool const is_inline = at > 0 && tokens.tokens[at - 1].word == gWord::inline_;
    for (++at; tokens.tokens[at].type == token_word || tokens.tokens[at].type == token_scope;
         ++at) {
      gToken const & name = tokens.tokens[at];
      // A name that a macro makes is beyond us.
      if (name.type != token_word || name.word != gWord::name || tokens.tokens[at + 1].type == '(')
        continue;
      std::string_view const spelled = named_by(body.substr(name.begin, name.end - name.begin));
      if (spelled.empty())
        continue;
      gDeclaration item = make(gKind::name_space, extent, {});
      item.scope = inner.item;
      item.spelled = static_cast<std::int32_t>(out_.spelled.size());
      out_.spelled.emplace_back(spelled);
      item.name = item.whole;
      item.marks |= mark_definition | (is_inline ? mark_inline : 0u);
      item.access = gAccess::none;
      item.body = {item.whole.end, source_[scope().end].begin};
      item.whole.end = item.body.end;
      inner.kind = Scope::name_space;
      inner.opener = inner.item = add(item);
    }
    --at;
  }
  if (inner.item != scope().item) {
    inner.extent = {};
    inner.resume = inner.end;
    scopes_.push_back(inner);
  }
}

void gCppReader::qt_statement() {
  ++at_;
  if (source_.type(at_) == '(')
    at_ = std::min(source_.behind(at_), scope().end);
}

// Q_PROPERTY(int width READ width): for all users, wherever it stands in its class.
void gCppReader::qt_property() {
  std::uint32_t const open = at_ + 1;
  gExtent extent;
  extent.first = at_;
  extent.last = extent.head_end = std::min(source_.behind(open), scope().end);
  at_ = extent.last;
  source_.link_angles(open + 1, extent.last);
  std::uint32_t specifiers = open + 1;
  while (specifiers + 1 < extent.last &&
         !(source_.is_name(specifiers) && source_.is_capital(specifiers)))
    ++specifiers;
  std::uint32_t const name = specifiers - 1;
  if (name <= open || !source_.is_name(name))
    return;
  gDeclaration item = make(gKind::property, extent, {});
  item.access = gAccess::public_;
  item.name = source_.range(name, name + 1);
  item.result = source_.range(open + 1, name);
  item.initialiser = source_.range(specifiers, extent.last - 1);
  add(item);
}

// @interface ... @end: another language.
void gCppReader::objective_c() {
  std::uint32_t const first = at_++;
  std::string_view const word = source_.spelling(at_);
  bool const long_form = word == "interface" || word == "protocol" || word == "implementation";
  while (at_ < scope().end) {
    if (long_form && source_.type(at_) == '@' && source_.spelling(at_ + 1) == "end") {
      at_ = std::min(at_ + 2, scope().end);
      break;
    }
    if (source_.type(at_++) == ';' && (!long_form || word == "protocol"))
      break;
  }
  skip(first, at_, "Objective-C");
}

void gCppReader::skip(std::uint32_t first, std::uint32_t last, std::string reason) {
  gSkipped one;
  one.whole = source_.range(first, last);
  one.line = source_.lines.line(one.whole.begin);
  one.end_line = source_.lines.line(one.whole.end);
  one.scope = scope().item;
  one.reason = std::move(reason);
  out_.skipped.push_back(std::move(one));
}

// Macros and includes in front of a position, so that all declarations come in the text's order.
void gCppReader::directives_to(std::uint32_t position) {
  for (; directive_ < directives_.size() && directives_[directive_].whole.begin < position;
       ++directive_) {
    gDirective const & one = directives_[directive_];
    if ((one.kind != gDirective::define && one.kind != gDirective::include) || one.name.empty() ||
        branches_.is_left_out(one.whole.begin))
      continue;
    if (one.kind == gDirective::define)
      macro(one);
    else {
      gInclude file;
      file.name = one.name;
      file.line = source_.lines.line(one.whole.begin);
      file.system = one.system;
      file.context.access = scope().access;
      if (one.whole.begin >= passed_)
        file.scope = scope().item;
      out_.includes.push_back(file);
    }
  }
}

void gCppReader::macro(gDirective const & one) {
  gDeclaration item;
  if (branches_.guard == one.whole.begin)
    out_.guard = static_cast<std::int32_t>(out_.items.size());
  item.kind = one.parameters.empty() ? gKind::macro : gKind::function_macro;
  item.marks = mark_definition;
  item.whole = one.whole;
  item.name = one.name;
  item.parameter_list = one.parameters;
  item.initialiser = one.value;
  item.text = {one.whole.begin, one.parameters.empty() ? one.name.end : one.parameters.end};
  if (!one.value.empty())
    item.text.end = one.value.end;
  item.line = source_.lines.line(one.name.begin);
  item.column = source_.lines.column(one.name.begin);
  item.end_line = source_.lines.line(one.whole.end);
  item.condition = branches_.condition_at(one.whole.begin);
  item.statement = static_cast<std::int32_t>(out_.items.size());
  item.first_param = static_cast<std::uint32_t>(out_.parameters.size());
  if (!one.parameters.empty()) {
    // Names, commas and dots alone: no declarators.
    for (std::uint32_t at = one.parameters.begin + 1; at + 1 < one.parameters.end;) {
      std::uint32_t end = at;
      while (end + 1 < one.parameters.end && source_.text[end] != ',')
        ++end;
      gParam param;
      param.whole = {at, end};
      auto const part = [&](std::uint32_t position) {
        return is_word_char(source_.text[position]) || source_.text[position] == '.';
      };
      while (!param.whole.empty() && !part(param.whole.begin))
        ++param.whole.begin;
      while (!param.whole.empty() && !part(param.whole.end - 1))
        --param.whole.end;
      param.name = param.whole;
      if (!param.whole.empty())
        out_.parameters.push_back(param);
      at = end + 1;
    }
  }
  item.params = static_cast<std::uint32_t>(out_.parameters.size()) - item.first_param;
  out_.items.push_back(item);
}

gDeclaration gCppReader::make(gKind kind, gExtent const & extent, gHead const & head) {
  directives_to(source_[extent.first].begin);
  gDeclaration item;
  item.kind = kind;
  item.access = scope().access;
  item.marks = head.marks;
  if (scope().linkage_c)
    item.marks |= mark_linkage_c;
  item.scope = scope().item;
  item.whole = source_.range(extent.first, extent.last);
  bool const semicolon = extent.head_end > extent.first && extent.head_end == extent.last &&
                         source_.type(extent.last - 1) == ';';
  item.text = source_.range(extent.first, semicolon ? extent.last - 1 : extent.head_end);
  item.template_head = source_.range(head.template_first, head.template_last);
  if (head.macro_head)
    item.spelled_head = head_of_macro(head.template_first);
  item.attributes = source_.range(head.attributes_first, head.attributes_last);
  item.name = {item.whole.begin, item.whole.begin};
  item.first_param = static_cast<std::uint32_t>(out_.parameters.size());
  return item;
}

std::int32_t gCppReader::head_of_macro(std::uint32_t at) {
  auto const [known, fresh] = heads_.try_emplace(source_.spelling(at), 0);
  if (fresh) {
    known->second = static_cast<std::int32_t>(out_.spelled.size());
    out_.spelled.push_back(source_.macros.find(source_.spelling(at))->body);
  }
  return known->second;
}

void gCppReader::set_name(gDeclaration & item, gChain const & name) {
  item.name = source_.range(name.name_first, name.name_last);
  item.arguments = source_.range(name.name_last, name.arguments_last);
  std::uint32_t const begin = source_.type(name.first) == token_scope ? name.first + 1 : name.first;
  item.qualifier = source_.range(begin, name.qualifier_last);
}

gFileDeclarations read_cpp(std::string_view text, gMacroTable const & macros) {
  gFileDeclarations out;
  gTokens tokens = read_tokens(text);
  gLines const lines(text);
  gBranches branches(text, tokens);
  std::vector<gBracketFault> const faults = link_brackets(tokens.tokens, lines, text);
  gSource const source{text, tokens.tokens, lines, macros};
  out.conditions = std::move(branches.conditions);
  gCppReader(source, tokens.directives, branches, out).run();
  auto const report = [&](gRange whole, std::string_view reason) {
    gSkipped one;
    one.whole = whole;
    one.line = one.end_line = lines.line(whole.begin);
    one.reason = reason;
    out.skipped.push_back(std::move(one));
  };
  for (gBracketFault const & fault : faults)
    report(source.range(fault.token, fault.token + 1), fault.reason);
  for (std::uint32_t const begin : tokens.open_comments)
    report({begin, begin + 2}, "`/*` without `*/`");
  std::ranges::stable_sort(out.skipped, {}, [](gSkipped const & one) { return one.whole.begin; });
  place_comments(source, tokens, branches, out);
  return out;
}

} // namespace Decl
