#include "ana/parser/doc/doc_support.h"

#include <sstream>
#include <utility>

#include "ana/anadat/pieces.h"
#include "ana/anadat/tables.h"
#include "ana/parser/doc/dense_cases.h"
#include "ana/read/enter.h"
#include "app/options/options.h"

namespace {

std::string escaped(std::string_view text) {
  std::string result;
  for (char c : text)
    result += c == '\n' ? std::string("\\n") : std::string(1, c);
  return result;
}

void empty_tables() {
  Global::objects().reset_all();
  Vapp::options.clear();
}

cRef<gKwd> add_keyword(char const * name, decltype(gKwd::kind) kind, char const * separators) {
  auto keyword = make_ref<gKwd>();
  keyword->name = name;
  keyword->kind = kind;
  keyword->separators = separators;
  gUEKeywords.set(name, keyword);
  return keyword;
}

} // namespace

DocWorld::DocWorld() {
  empty_tables();
  gSrcFile::set_cpp_ext("cpp");
  gSrcFile::set_pas_ext("pas");
  struct {
    char const *name, *separators;
    int idspec, slspec;
    char const *slsep, *type;
  } const units[] = {
      {"@f", "", 0, 0, "", "function"}, {"Unit", ":", 0, 0, "", "unit"},
      {"@colon", ":", 0, 0, "", "var"}, {"@s", "", 0, 2, "", "type"},
      {"@n", "", 1, 1, ":;", "member"}, {"@d", "", 2, 1, ";", "class"},
      {"@l", "", 2, 1, "", "method"},   {"@x", "", 0, 0, "", "text"},
      {"@text", "", 0, 0, "", "text"},
  };
  for (auto const & unit : units) {
    auto const kind = unit.type == std::string("text") ? gKwd::text_unit : gKwd::synt_unit;
    auto const keyword = add_keyword(unit.name, kind, unit.separators);
    auto pattern = make_ref<gUnitPattern>();
    pattern->idspec = unit.idspec;
    pattern->slspec = unit.slspec;
    pattern->slsep = gString(unit.slsep);
    pattern->attr.set("UNITTYPE", unit.type);
    keyword->pattern = pattern;
  }
  std::vector<std::vector<char const *>> const subentries = {
      {"@description", "@description", ""},
      {"@description", "Description", ":"},
      {"@sline", "@sline", ""},
      {"@return", "@return", ""},
      {"@return", "Return", ":"},
      {"@comment", "See also", ":"},
      {"@comment", "Note", ""},
      {"@code", "@code", ""},
  };
  for (auto const & one : subentries)
    add_keyword(one[1], gKwd::subentry_kwd, one[2])->subentry = one[0];
  Vapp::options["unitconfig"]["function"]["@code"] = cat::make(1);
  gVLAttributes["table"]["tpl"]["coldef"] = cat::make(gStrList("2cm") << gString("*"));
  gVLAttributes["table"]["tpl"]["style"] = cat::make("ts");
  gVLAttributes["table"]["tpl"]["markrow"] = cat::make(gStrList("first"));
  gVLAttributes["table"]["tpl"]["rows"] = cat::make(gStrList(Vlb::placeholder(gPiece::table_row)));
  for (char const * type : {"function", "class"})
    Vapp::options["attr"]["UNITTYPE"]["val"][type] = cat::make(type);
  for (char const * state : {"draft", "done"})
    Vapp::options["attr"]["STATE"]["val"][state] = cat::make(state);
}

DocWorld::~DocWorld() {
  empty_tables();
}

gSrcFile DocWorld::prepare(std::string & input) {
  std::string path = "a.cpp";
  for (; input.starts_with("%"); input.erase(0, input.find('\n') + 1)) {
    std::string const line = input.substr(0, input.find('\n'));
    if (line == "%pascal")
      path = "a.pas";
    else
      Vapp::options["ana"][line.substr(5)] = cat::make(false);
  }
  gInput.set(Vapp::run_input());
  input = marked(input);
  return gSrcFile(gPathstring(path), gPathstring(), 1);
}

std::string marked(std::string text) {
  for (std::size_t at; (at = text.find("/*")) != text.npos;)
    text.replace(at, 2, "@_vlbcom ");
  for (std::size_t at; (at = text.find("*/")) != text.npos;)
    text.replace(at, 2, "@_vlecom ");
  return text;
}

std::string show(gStrList const & pieces) {
  return escaped(pieces.make_string("|"));
}

namespace {

// The tokens behind the commands, in the order of their numbers.
constexpr int first_token = Doc::CODE_OPEN;
constexpr char const * token_names =
    "CODE_OPEN CODE_CLOSE XREF_QUOTE BCOM KW_CLASS SCOPE KW_CONSTRUCTOR KW_DESTRUCTOR ECOM OP_EQ "
    "KW_EXPORT KW_FUNCTION OP_NE KW_PROCEDURE SUBJECT_BEGIN SUBJECT_END KW_STRUCT KW_TEMPLATE "
    "KW_UNION HEAD_END PARENS TEMPLATE_END ID WORD TEXT PLAIN_ID SUBJECT_KW SUBENTRY_KW UNIT_KW "
    "TEXTUNIT_KW";

std::string token_name(int token) {
  std::istringstream names(token_names);
  std::string name;
  for (int i = first_token; i <= token; ++i)
    names >> name;
  if (!name.empty())
    return name;
  if (token < 256)
    return std::string(1, static_cast<char>(token));
  for (auto const & entry : gDocCommands)
    if (entry.value->token == token)
      return entry.key;
  return std::to_string(token);
}

// Text stands alone, other values behind the name of their token.
std::string token_text(int token, Doc::Value & value) {
  if (value.holds<Doc::Text>())
    return "'" + escaped(*value.as<Doc::Text>()) + "'";
  if (value.holds<gString>())
    return token_name(token) + "'" + escaped(value.as<gString>()) + "'";
  if (value.holds<Doc::Keyword>())
    return token_name(token) + "(" + value.as<Doc::Keyword>()->name + ")";
  return token_name(token);
}

} // namespace

std::string tokens_of(std::string input) {
  DocWorld world;
  gSrcFile const file = world.prepare(input);
  doc_scan scanner;
  scanner.reset();
  scanner.open_text(file, input);
  scanner.set_unit_type("function");
  std::string result;
  int line = 0;
  while (int const token = scanner.scan()) {
    if (std::exchange(line, scanner.line()) != scanner.line())
      result += "\n" + std::to_string(line);
    result += " " + token_text(token, scanner.token_value());
  }
  result += "\n";
  return result + dense_reports(world.outside.reports);
}

gFileFacts read_text(gFileReader & reader, gSrcFile const & file, std::string_view text) {
  gFileFacts facts;
  facts.file = file;
  reader.read_text(facts, {}, &text);
  facts.text.reports.hand_on(Msg::log);
  if (facts.text.end.fatal)
    throw gExcFatalErr(*facts.text.end.fatal->message, facts.text.end.fatal->argument);
  return facts;
}

namespace {

// One line: line, type and name, then what the unit has.
std::string unit_text(gDocUnit & unit) {
  std::ostringstream out;
  out << unit.loc().line() << " " << unit.get_attr("UNITTYPE") << " '" << unit.name() << "'";
  if (unit.flags() != 31)
    out << " flags=" << unit.flags();
  if (!unit.style().empty())
    out << " style=" << unit.style();
  if (unit.get_attr("STATE") != "undefined")
    out << " STATE=" << unit.get_attr("STATE");
  for (auto const & entry : unit.subentries())
    out << " " << *entry.name << "=[" << show(entry.text) << "]";
  if (!unit.link_line().empty())
    out << " links=[" << show(unit.link_line()) << "]";
  if (auto * synt = dynamic_cast<gSyntUnit *>(&unit)) {
    if (!synt->headline().empty())
      out << " headline=[" << show(synt->headline()) << "]";
    if (synt->hier_up() != hier_unset)
      out << " hierarchy=" << synt->hier_up() << "," << synt->hier_down();
  }
  out << "\n";
  return out.str();
}

std::string table_text() {
  std::string result;
  for (auto * table : {&gNamedUnits, &gUnnamedUnits})
    for (auto const & entry : *table)
      for (auto const & [place, unit] : *entry.value)
        result += unit_text(*unit);
  for (auto const & entry : gCitations)
    result += "citation " + entry.key + ": " + std::to_string(entry.value->first_line()) + "-" +
              std::to_string(entry.value->last_line()) + "\n";
  for (auto const & entry : gBookmarks)
    result += "bookmark " + entry.key + "\n";
  return result;
}

} // namespace

std::string units_of(std::string input) {
  DocWorld world;
  gSrcFile const file = world.prepare(input);
  gReadInput const read_input{gVLAttributes.tables()};
  gFileReader reader(read_input);
  gFileFacts facts = read_text(reader, file, input);
  enter_text(facts);
  return table_text() + (facts.text.end.failed ? "failed\n" : "") +
         dense_reports(world.outside.reports);
}
