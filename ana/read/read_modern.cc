// Declarations come from the tolerant readers; comments are taken to them, and become text units.
#include "ana/read/read_modern.h"

#include <algorithm>

#include "ana/read/attach_places.h"
#include "ana/read/element_groups.h"
#include "ana/read/modern_file.h"
#include "ana/read/unit_kinds.h"
#include "vlb/messages.h"

namespace {

constexpr std::size_t most_scopes = 256;

} // namespace

void gModernReader::File::read_declarations(Decl::gPascalContext const & context) {
  found_ =
      pascal_ ? Decl::read_pascal(text_, context) : Decl::read_cpp(text_, reader_.input_.macros);
  elements_ = make_code_elements(text_, found_, result_.facts.file);
  next_ = next_of_statement(found_);
  result_.declarations = elements_.elements.size();
  if (elements_.too_deep >= 0) {
    Decl::gDeclaration const & one = item(elements_.too_deep);
    found_.skipped.push_back(
        {one.whole, one.line, one.end_line, one.scope, "more than 100 scopes around it"});
  }
}

// The innermost scope around a place; -1 for none. A fault among brackets is met before scopes are.
std::int32_t gModernReader::File::scope_at(std::uint32_t place) const {
  auto const & items = found_.items;
  auto const next = std::upper_bound(
      items.begin(), items.end(), place,
      [](std::uint32_t at, Decl::gDeclaration const & one) { return at < one.whole.begin; });
  std::int32_t found = static_cast<std::int32_t>(next - items.begin()) - 1;
  auto const holds = [&](Decl::gRange const & body) {
    return body.begin <= place && place < body.end;
  };
  while (found >= 0 && !holds(item(found).body))
    found = item(found).scope;
  return found;
}

void gModernReader::File::report_skipped() {
  for (Decl::gSkipped const & skipped : found_.skipped) {
    std::int32_t const around = skipped.scope < 0 ? scope_at(skipped.whole.begin) : skipped.scope;
    std::int32_t const scope = around < 0 ? -1 : elements_.of[static_cast<std::size_t>(around)];
    result_.skipped.push_back(
        {result_.facts.file.opath(), static_cast<int>(skipped.line),
         static_cast<int>(std::max(skipped.line, skipped.end_line)), skipped.reason,
         scope < 0 ? gString() : elements_.elements[static_cast<std::size_t>(scope)]->name()});
    std::uint32_t const lines = skipped.end_line - std::min(skipped.line, skipped.end_line) + 1;
    result_.facts.code.reports(Msg::stretch_skipped,
                               skipped.reason + ", " + std::to_string(lines) +
                                   (lines == 1 ? " line" : " lines"),
                               gLoc(result_.facts.file, static_cast<int>(skipped.line)));
  }
}

gStrList gModernReader::File::scope_names(std::int32_t scope) const {
  std::vector<std::int32_t> around;
  for (; scope >= 0 && around.size() < most_scopes; scope = item(scope).scope)
    around.push_back(scope);
  gStrList names;
  for (auto one = around.rbegin(); one != around.rend(); ++one)
    if (!item(*one).name.empty())
      names.push_back(gString(shown_name(text_, found_, item(*one), Decl::gSyntax::pascal)));
  return names;
}

void gModernReader::File::add_includes(gStrList const & scope) {
  for (Decl::gInclude const & one : found_.includes) {
    if (!pascal_ && one.system)
      continue;
    gStrList names = scope;
    if (pascal_)
      names.append(scope_names(one.scope));
    else if (gCodeElem const * const outer = class_of(one))
      names.append(outer->names);
    else
      continue;
    result_.includes.push_back(
        {std::string(one.name.of(text_)), result_.facts.file, std::move(names), one.context});
  }
}

// Null where no class stands directly around.
gCodeElem const * gModernReader::File::class_of(Decl::gInclude const & file) const {
  bool const in_class = file.scope >= 0 && is_class_like(item(file.scope).kind);
  std::int32_t const element = in_class ? elements_.of[static_cast<std::size_t>(file.scope)] : -1;
  return element < 0 ? nullptr : elements_.elements[static_cast<std::size_t>(element)].get();
}

gModernFile gModernReader::File::read(gStrList const & scope,
                                      Decl::gPascalContext const & context) {
  read_declarations(context);
  take_comments();
  make_units();
  report_skipped();
  add_includes(scope);
  std::vector<bool> hidden = hidden_elements(*regions_, found_, elements_);
  for (std::size_t i = 0; !excluded_.empty() && i < elements_.of.size(); ++i)
    if (elements_.of[i] >= 0 && is_excluded(static_cast<std::int32_t>(i)))
      hidden[static_cast<std::size_t>(elements_.of[i])] = true;
  for (std::size_t i = 0; i < hidden.size(); ++i) {
    cRef<gCodeElem> & element = elements_.elements[i];
    if (hidden[i])
      continue;
    if (!scope.empty()) {
      gStrList names = scope;
      names.append(std::move(element->names));
      element->names = std::move(names);
    }
    result_.facts.code.elements.push_back(std::move(element));
  }
  std::vector<int> & lines = result_.facts.text.unit_lines;
  for (gUnitFacts const & unit : result_.facts.text.units)
    lines.push_back(unit.place.line);
  std::sort(lines.begin(), lines.end());
  return std::move(result_);
}

gModernFile gModernReader::File::read_comment() {
  parse_unit(std::string(comment_opening) + std::string(text_) + std::string(comment_closing),
             {1, 0}, true);
  return std::move(result_);
}

gModernFile gModernReader::read(gSrcFile const & file, std::string_view text,
                                gStrList const & scope, Decl::gPascalContext const & context) {
  return File(*this, file, text).read(scope, context);
}

gModernFile gModernReader::read_comment(gSrcFile const & file, std::string const & text) {
  return File(*this, file, text).read_comment();
}
