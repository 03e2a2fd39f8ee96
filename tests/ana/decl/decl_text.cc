#include "decl_text.h"

namespace Decl {

namespace {

struct MarkWord {
  std::uint32_t mark;
  char const * word;
};

constexpr MarkWord mark_words[] = {
    {mark_static, " static"},
    {mark_extern, " extern"},
    {mark_inline, " inline"},
    {mark_virtual, " virtual"},
    {mark_constexpr, " constexpr"},
    {mark_explicit, " explicit"},
    {mark_mutable, " mutable"},
    {mark_thread_local, " thread_local"},
    {mark_linkage_c, " \"C\""},
    {mark_const, " const"},
    {mark_volatile, " volatile"},
    {mark_noexcept, " noexcept"},
    {mark_override, " override"},
    {mark_final, " final"},
    {mark_pure, " =0"},
    {mark_defaulted, " =default"},
    {mark_deleted, " =delete"},
    {mark_specialisation, " specialised"},
    {mark_out_of_class, " outside"},
};

std::string own_name(std::string_view text, gFileDeclarations const & file,
                     gDeclaration const & one) {
  std::string name = one.spelled >= 0 ? file.spelled[static_cast<std::size_t>(one.spelled)]
                     : one.marks & mark_unnamed ? "?"
                                                : shown_name(text, one);
  if (!one.qualifier.empty())
    name = one_line(text, one.qualifier) + "::" + name;
  return name + one_line(text, one.arguments);
}

std::string parameter(std::string_view text, gParam const & one) {
  std::string shown = one_line(text, one.type);
  if (!one.name.empty())
    shown += (shown.empty() ? "" : ":") + one_line(text, one.name);
  if (!one.value.empty())
    shown += "=" + one_line(text, one.value);
  return shown;
}

} // namespace

std::string shown(std::string_view text, gFileDeclarations const & file, gDeclaration const & one) {
  std::string name = own_name(text, file, one);
  for (std::int32_t at = one.scope; at >= 0; at = file.items[static_cast<std::size_t>(at)].scope)
    name = own_name(text, file, file.items[static_cast<std::size_t>(at)]) + "::" + name;
  std::string line = std::string(kind_word(one.kind)) + " " + name;
  if (!one.parameter_list.empty()) {
    line += "(";
    for (std::uint32_t at = 0; at < one.params; ++at)
      line += (at ? ", " : "") + parameter(text, file.parameters[one.first_param + at]);
    line += ")";
  }
  for (MarkWord const & row : mark_words)
    line += one.marks & row.mark ? row.word : "";
  if (!one.bases.empty())
    line += " : " + one_line(text, one.bases);
  if (!one.body.empty())
    line += " {}";
  else if (!one.initialiser.empty())
    line += " = " + one_line(text, one.initialiser);
  return line + (one.marks & mark_forward ? ";" : "");
}

std::string shown(std::string_view text, gFileDeclarations const & file) {
  std::string all;
  for (gDeclaration const & one : file.items)
    all += (all.empty() ? "" : " | ") + shown(text, file, one);
  for (gSkipped const & one : file.skipped)
    all += (all.empty() ? "" : " | ") + ("skipped: " + one.reason);
  return all;
}

} // namespace Decl
