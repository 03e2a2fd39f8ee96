#include "decl_text.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

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
    {mark_abstract_class, " abstract"},
    {mark_defaulted, " =default"},
    {mark_deleted, " =delete"},
    {mark_specialisation, " specialised"},
    {mark_out_of_class, " outside"},
    {mark_class_member, " class"},
    {mark_overload, " overload"},
    {mark_reintroduce, " reintroduce"},
    {mark_dynamic, " dynamic"},
    {mark_deprecated, " deprecated"},
};

std::string with_line_ends(std::string source) {
  for (std::size_t at = source.find("\\n"); at != source.npos; at = source.find("\\n", at))
    source.replace(at, 2, "\n");
  return source;
}

std::string own_name(std::string_view text, gFileDeclarations const & file,
                     gDeclaration const & one, gSyntax syntax) {
  std::string name = one.marks & mark_unnamed ? "?" : shown_name(text, file, one);
  if (!one.qualifier.empty())
    name = one_line(text, one.qualifier, syntax) + "::" + name;
  return name + one_line(text, one.arguments, syntax);
}

std::string parameter(std::string_view text, gParam const & one, gSyntax syntax) {
  std::string shown = one_line(text, one.type, syntax);
  if (!one.name.empty())
    shown += (shown.empty() ? "" : ":") + one_line(text, one.name, syntax);
  if (!one.value.empty())
    shown += "=" + one_line(text, one.value, syntax);
  return shown;
}

} // namespace

std::string shown(std::string_view text, gFileDeclarations const & file, gDeclaration const & one,
                  gSyntax syntax) {
  std::string name = own_name(text, file, one, syntax);
  for (std::int32_t at = one.scope; at >= 0; at = file.items[static_cast<std::size_t>(at)].scope)
    name = own_name(text, file, file.items[static_cast<std::size_t>(at)], syntax) + "::" + name;
  std::string line = std::string(kind_word(one.kind)) + " " + name;
  if (one.spelled_head >= 0)
    line = std::string(template_head(text, file, one)) + " " + line;
  if (one.spelled_list >= 0)
    line += parameter_list(text, file, one);
  else if (!one.parameter_list.empty()) {
    line += "(";
    for (std::uint32_t at = 0; at < one.params; ++at)
      line += (at ? ", " : "") + parameter(text, file.parameters[one.first_param + at], syntax);
    line += ")";
  }
  for (MarkWord const & row : mark_words)
    line += one.marks & row.mark ? row.word : "";
  if (!one.bases.empty())
    line += " : " + one_line(text, one.bases, syntax);
  if (!one.body.empty())
    line += " {}";
  else if (!one.initialiser.empty())
    line += " = " + one_line(text, one.initialiser, syntax);
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

void check_lines(std::string const & name,
                 std::function<std::string(std::string const & source)> const & answer) {
  std::string const path = CASE_DIR "/" + name;
  std::ifstream file(path);
  std::ostringstream rewritten;
  std::string line;
  int cases = 0;
  bool const update = std::getenv("VELLUMAR_UPDATE") != nullptr;
  for (int number = 1; std::getline(file, line); ++number) {
    std::size_t const arrow = line.starts_with("# ") ? line.npos : line.find(" =>");
    if (arrow == line.npos) {
      rewritten << line << '\n';
      continue;
    }
    ++cases;
    std::string const source = line.substr(0, arrow);
    std::string const got = answer(with_line_ends(source));
    std::string const whole = source + " =>" + (got.empty() ? "" : " ") + got;
    if (!update) {
      EXPECT_EQ(whole, line) << path << ":" << number;
    }
    rewritten << whole << '\n';
  }
  EXPECT_GT(cases, 0);
  if (update)
    std::ofstream(path) << rewritten.str();
}

std::vector<std::string> case_sources(std::string const & name) {
  std::ifstream file(CASE_DIR "/" + name);
  std::vector<std::string> sources;
  for (std::string line; std::getline(file, line);)
    if (std::size_t const arrow = line.find(" =>"); arrow != line.npos && line[0] != '#')
      sources.push_back(with_line_ends(line.substr(0, arrow)));
  return sources;
}

} // namespace Decl
