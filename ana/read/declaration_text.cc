// A text is put together of up to three stretches: what stands in front of the contents, the
// contents or a sign for them, and what stands behind. The ranges move along.
#include "ana/read/declaration_text.h"

#include <array>
#include <span>

#include "ana/read/own_declarator.h"
#include "ana/read/unit_kinds.h"

namespace {

using namespace Decl;

// In bytes of the line. Values are what an enumeration is, fields are on pages of their own, too.
constexpr std::size_t longest_values = 4000;
constexpr std::size_t longest_fields = 800;
// Comments between them may be much longer than what they are about.
constexpr std::uint32_t source_per_byte = 25;

class Text {
public:
  Text(std::string_view text, gFileDeclarations const & found, gDeclaration const & one,
       gSyntax syntax, gDeclParts & parts)
      : text_(text),
        found_(found),
        one_(one),
        syntax_(syntax),
        pascal_(syntax == gSyntax::pascal),
        parts_{&parts.name,  &parts.template_head, &parts.parameters,
               &parts.bases, &parts.result,        &first_},
        source_{one.name, one.template_head, one.parameter_list, one.bases, one.result, {}} {
    if (gDeclaration const * const other = first_name())
      source_.back() = other->name;
    for (gRange * part : parts_)
      *part = {};
  }

  gString made();

private:
  gDeclaration const & first() const;
  gDeclaration const * first_name() const;
  bool stands_behind(gDeclaration const & first) const;
  bool shows_contents() const;
  std::string contents(gRange body, bool shown) const;
  void add(gRange range);
  void add(std::string_view line);
  void replace(gRange * part, std::string_view by);

  std::string_view text_;
  gFileDeclarations const & found_;
  gDeclaration const & one_;
  gSyntax syntax_;
  bool pascal_;
  gRange first_; // of the line: the first name of several; empty for one
  std::array<gRange *, 6> parts_;
  std::array<gRange, 6> source_;
  gString line_;
};

bool is_enumeration(gKind kind) {
  return kind == gKind::enum_ || kind == gKind::enum_class || kind == gKind::enumeration ||
         kind == gKind::set;
}

void Text::add(std::string_view line) {
  bool const sign = !line.empty() && (line[0] == ';' || line[0] == ',');
  if (!line_.empty() && !line.empty() && !sign)
    line_ += ' ';
  line_ += line;
}

void Text::add(gRange range) {
  std::array<gRange, 6> places = source_;
  std::string const line =
      one_line(text_, range, syntax_,
               {&places[0], &places[1], &places[2], &places[3], &places[4], &places[5]});
  add(line);
  auto const begin = static_cast<std::uint32_t>(line_.size() - line.size());
  for (std::size_t i = 0; i < places.size(); ++i)
    if (!places[i].empty())
      *parts_[i] = {places[i].begin + begin, places[i].end + begin};
}

// The first of the things that the statement declares.
gDeclaration const & Text::first() const {
  auto const at = static_cast<std::size_t>(one_.statement);
  return one_.statement >= 0 && at < found_.items.size() ? found_.items[at] : one_;
}

// Of several names of one statement the first that isn't written in front of a body; null for one
// name alone. A type with contents is shown with all that follows it.
gDeclaration const * Text::first_name() const {
  if (is_class_like(one_.kind) || is_enumeration(one_.kind) || one_.name.empty())
    return nullptr;
  auto const own = static_cast<std::size_t>(&one_ - found_.items.data());
  auto const begin = static_cast<std::int32_t>(&first() - found_.items.data());
  auto const is_of_statement = [&](std::size_t i) {
    gDeclaration const & item = found_.items[i];
    bool const of_it = static_cast<std::int32_t>(i) == begin || item.statement == begin;
    return of_it && (item.body.empty() || item.name.begin >= item.body.end);
  };
  for (auto i = static_cast<std::size_t>(begin); i < own; ++i)
    if (is_of_statement(i))
      return &found_.items[i];
  return own + 1 < found_.items.size() && is_of_statement(own + 1) ? &one_ : nullptr;
}

// "struct A {...} b": b stands behind a body that isn't its own.
bool Text::stands_behind(gDeclaration const & first) const {
  return !pascal_ && &first != &one_ && !first.body.empty() &&
         first.body.begin >= one_.whole.begin && first.body.end <= one_.name.begin;
}

// Of a structure without a name of its own nothing else is left to say.
bool Text::shows_contents() const {
  if (one_.body.empty() || one_.body.end > one_.whole.end)
    return false;
  if (pascal_) {
    auto const type = unit_type_of(one_.kind, false);
    return !is_class_like(one_.kind) && type != ut_unit && type != ut_function &&
           type != ut_method && one_.parameter_list.empty();
  }
  bool const fields =
      (one_.kind == gKind::struct_ || one_.kind == gKind::union_) &&
      ((one_.marks & mark_unnamed) != 0 || one_.whole.of(text_).starts_with("typedef"));
  return is_enumeration(one_.kind) || fields;
}

std::string Text::contents(gRange body, bool shown) const {
  bool const round = text_[body.begin] == '(';
  std::size_t const longest = is_enumeration(one_.kind) || round ? longest_values : longest_fields;
  if (shown && body.end - body.begin <= longest * source_per_byte)
    if (std::string line = one_line(text_, body, syntax_); line.size() <= longest)
      return line;
  return round ? "(...)" : text_[body.begin] == '{' ? "{...}" : "... end";
}

gString Text::made() {
  gDeclaration const & owner = first();
  bool const behind = stands_behind(owner);
  if (behind || shows_contents()) {
    gRange const body = behind ? owner.body : one_.body;
    bool const unnamed = (owner.marks & mark_unnamed) != 0;
    add(gRange{one_.whole.begin, body.begin});
    add(contents(body, !behind || unnamed));
    add(gRange{body.end, one_.whole.end});
  } else {
    add(one_.text.empty() ? one_.whole : one_.text);
  }
  if (!first_.empty() && !parts_[0]->empty())
    cut_to_declarator(line_, first_, *parts_[0], syntax_, std::span(parts_).first(5));
  bool const ends = line_.ends_with(';') || line_.ends_with('}') || is_class_like(one_.kind) ||
                    one_.kind == gKind::macro || one_.kind == gKind::function_macro ||
                    one_.kind == gKind::enumerator || unit_type_of(one_.kind, false) == ut_unit;
  if (!ends && !line_.empty())
    line_ += ';';
  if (one_.spelled_list >= 0)
    replace(parts_[2], parameter_list(text_, found_, one_));
  if (one_.spelled_head >= 0)
    replace(parts_[1], template_head(text_, found_, one_));
  return std::move(line_);
}

// What stands behind moves along.
void Text::replace(gRange * part, std::string_view by) {
  gRange const old = *part;
  if (old.empty())
    return;
  line_.replace(old.begin, old.end - old.begin, by);
  std::uint32_t const end = old.begin + static_cast<std::uint32_t>(by.size());
  part->end = end;
  for (gRange * const other : parts_)
    if (other != part && !other->empty() && other->begin >= old.end)
      *other = {other->begin - old.end + end, other->end - old.end + end};
}

} // namespace

gString declaration_text(std::string_view text, gFileDeclarations const & found,
                         gDeclaration const & one, gSyntax syntax, gDeclParts & parts) {
  if (one.spelled >= 0) {
    constexpr std::string_view head = "namespace ";
    std::string const name = shown_name(text, found, one);
    parts.name = {head.size(), static_cast<std::uint32_t>(head.size() + name.size())};
    return gString(std::string(head) + name);
  }
  return Text(text, found, one, syntax, parts).made();
}
