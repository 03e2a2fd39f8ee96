// The vocabulary: every table of words, and of the parameters that the commands take. But for the
// keywords of the project, which come from its options, all of it is the same for every run.
#include "ana/cmdpar/keywords.h"

#include "ana/cmdpar/gparam.h"
#include "app/options/run_input.h"

namespace {

struct CommandRow {
  char const * name;
  int token;
};

constexpr CommandRow commands[] = {
    {"@b_cite", 257},
    {"@b_outclass", 258},
    {"@b_outclassfilter", 259},
    {"@b_table", 260},
    {"@b_verbatim", 261},
    {"@bdef_secttpl", 262},
    {"@bdef_table", 263},
    {"@bdef_unittpl", 264},
    {"@b", 265},
    {"@bookmark", 266},
    {"@cell", 267},
    {"@cite", 268},
    {"@classhierarchy", 269},
    {"@columns", 270},
    {"@cref", 271},
    {"@crefll", 272},
    {"@ctab", 273},
    {"@dfn", 274},
    {"@document", 275},
    {"@e_cite", 276},
    {"@e_outclass", 277},
    {"@e_outclassfilter", 278},
    {"@e_table", 279},
    {"@e_verbatim", 280},
    {"@edef", 281},
    {"@em", 282},
    {"@end", 283},
    {"@endl", 284},
    {"@endnote", 285},
    {"@endp", 286},
    {"@enum", 287},
    {"@enumstyle", 288},
    {"@filefilter", 289},
    {"@filter", 290},
    {"@filtersort", 291},
    {"@fmt", 292},
    {"@fontsize", 293},
    {"@footnote", 294},
    {"@footprint", 295},
    {"@hdlevel", 296},
    {"@hdline", 297},
    {"@headprint", 298},
    {"@hid", 299},
    {"@hidalias", 300},
    {"@i", 301},
    {"@kbd", 302},
    {"@linkline", 303},
    {"@ltab", 304},
    {"@markcolumns", 305},
    {"@markrows", 306},
    {"@marnote", 307},
    {"@nobookmark", 308},
    {"@nofilter", 309},
    {"@normaltext", 310},
    {"@noxe", 311},
    {"@num", 312},
    {"@numstyle", 313},
    {"@outattr", 314},
    {"@outfilter", 315},
    {"@outunit", 316},
    {"@pathfilter", 317},
    {"@plain", 318},
    {"@row", 319},
    {"@rtab", 320},
    {"@section", 321},
    {"@set", 322},
    {"@srclink", 323},
    {"@style", 324},
    {"@sub", 325},
    {"@sub1", 325},
    {"@sub2", 326},
    {"@sub3", 327},
    {"@subtitle", 328},
    {"@subtitle1", 328},
    {"@subtitle2", 329},
    {"@tt", 330},
    {"@ul", 331},
    {"@unittpl", 332},
    {"@xe", 333},
};

// In a text these are words like others.
constexpr CommandRow script_commands[] = {
    {"@outfiles", 337},
    {"@outtree", 338},
};

constexpr char const * variables[] = {"$name",    "$qname",   "$cname",   "$curclass",
                                      "$curfile", "$curpage", "$curdate", "$curtime"};

cRef<gUnitPattern> make_pattern(gPatternInput const & input) {
  auto pattern = make_ref<gUnitPattern>();
  pattern->idspec = input.idspec;
  pattern->slspec = input.slspec;
  pattern->slsep = input.slsep;
  for (auto const & [name, value] : input.attributes)
    pattern->attr.set(name, value);
  return pattern;
}

} // namespace

void gUEKeywordTable::build_keywords(gRunInput const & input) {
  reset();
  for (gPatternInput const & pattern : input.patterns)
    add_pattern(pattern);
  for (gSubentryInput const & subentry : input.subentries)
    add_subentry(subentry);
}

void gUEKeywordTable::add_pattern(gPatternInput const & input) {
  cRef<gUnitPattern> const pattern = make_pattern(input);
  if (input.name == "spt_2star")
    star_pattern_ = pattern;
  if (input.name == "spt_3slash")
    slash_pattern_ = pattern;
  for (auto const & [word, separators] : input.keywords) {
    auto keyword = make_ref<gKwd>();
    keyword->name = word;
    keyword->separators = separators;
    keyword->kind = word == "@text" || word == "@x" ? gKwd::text_unit : gKwd::synt_unit;
    keyword->pattern = pattern;
    set(word, keyword);
  }
}

void gUEKeywordTable::add_subentry(gSubentryInput const & input) {
  for (auto const & [word, separators] : input.keywords) {
    auto keyword = make_ref<gKwd>();
    keyword->name = word;
    keyword->separators = separators;
    keyword->kind = gKwd::subentry_kwd;
    keyword->subentry = input.name;
    set(word, keyword);
  }
}

void gUEKeywordTable::reset() {
  clear();
  star_pattern_ = nullptr;
  slash_pattern_ = nullptr;
}

gCommandTable::gCommandTable(Language language) {
  auto const add = [this](CommandRow const & row) {
    auto keyword = make_ref<gKwd>();
    keyword->name = row.name;
    keyword->token = row.token;
    insert(row.name, keyword);
  };
  for (CommandRow const & row : commands)
    add(row);
  if (language == Language::script)
    for (CommandRow const & row : script_commands)
      add(row);
}

gDocVarTable::gDocVarTable() {
  for (char const * name : variables)
    insert(name, 0);
}

gCodeKeywordTable::gCodeKeywordTable(std::initializer_list<std::pair<char const *, int>> rows) {
  for (auto const & [word, token] : rows)
    insert(word, token);
}

namespace {

using Formal = gFParList::Formal;

cRef<gFParList> formals(std::vector<Formal> params,
                        std::initializer_list<char const *> options = {}) {
  auto list = make_ref<gFParList>();
  list->params = std::move(params);
  for (char const * name : options)
    list->options[name];
  return list;
}

} // namespace

// Rows of one shape share one record.
gCmdDefTable::gCmdDefTable() {
  constexpr Formal simple{gParamKind::simple}, simple_opt{gParamKind::simple, true};
  constexpr Formal list{gParamKind::list}, predicate{gParamKind::predicate};
  constexpr Formal text{gParamKind::text}, text_opt{gParamKind::text, true};

  auto add = [this](std::initializer_list<char const *> names, cRef<gFParList> const & record) {
    for (char const * name : names)
      insert(name, record);
  };
  add({"headprint", "footprint", "ul"}, formals({text, simple_opt}));
  add({"unittpl"}, formals({list, simple}));
  add({"srclink"}, formals({list, text_opt}));
  add({"columns", "markrows", "markcolumns"}, formals({list}));
  add({"path", "file", "rtab", "ltab", "ctab", "style", "bookmark", "hid", "hidalias", "cite",
       "b_cite", "hdlevel", "pathfilter", "filefilter", "nofilter", "filtersort", "outunit",
       "b_outclass", "outattr"},
      formals({simple}));
  add({"code", "dfn", "em", "kbd", "b", "i", "plain", "tt", "marnote", "footnote", "endnote",
       "subtitle1", "subtitle2", "cell"},
      formals({text}));
  add({"fontsize", "fmt"}, formals({simple, text}));
  add({"enumstyle", "numstyle", "b_table"}, formals({simple_opt}));
  add({"hdline", "sub1", "sub2", "sub3"}, formals({text, text_opt}));
  add({"cref", "crefll"}, formals({list, text_opt}, {"wintype"}));
  add({"classhierarchy"}, formals({}, {"up", "down"}));
  add({"set"}, formals({simple, simple}));
  add({"document"}, formals({}, {"output"}));
  add({"section"}, formals({}, {"output", "template"}));
  add({"filter"}, formals({predicate}));
}

gUEKeywordTable gUEKeywords;
gCommandTable gDocCommands(gCommandTable::Language::text);
gCommandTable gVlsCommands(gCommandTable::Language::script);
gDocVarTable gDocVars;
gCmdDefTable gCmdDefs;

// Words for types, such as "int", are no keywords: the grammar reads them like any name.
gCodeKeywordTable gCppKeywords{
    {"asm", 257},
    {"auto", 258},
    {"case", 317},
    {"catch", 259},
    {"class", 260},
    {"const", 261},
    {"const_cast", 318},
    {"default", 319},
    {"delete", 262},
    {"do", 320},
    {"dynamic_cast", 321},
    {"else", 322},
    {"enum", 263},
    {"explicit", 264},
    {"export", 265},
    {"extern", 266},
    {"false", 323},
    {"for", 324},
    {"friend", 267},
    {"if", 325},
    {"inline", 268},
    {"mutable", 269},
    {"namespace", 270},
    {"new", 271},
    {"operator", 272},
    {"private", 273},
    {"protected", 274},
    {"public", 275},
    {"reinterpret_cast", 326},
    {"register", 276},
    {"sizeof", 327},
    {"static", 277},
    {"static_cast", 328},
    {"struct", 278},
    {"switch", 329},
    {"template", 279},
    {"this", 330},
    {"throw", 280},
    {"true", 331},
    {"try", 281},
    {"typedef", 282},
    {"typeid", 332},
    {"typename", 283},
    {"union", 284},
    {"using", 285},
    {"virtual", 286},
    {"volatile", 287},
    {"while", 333},
};

// In lower case: the language has no regard for it.
gCodeKeywordTable gPasKeywords{
    {"absolute", 257},
    {"abstract", 258},
    {"and", 315},
    {"array", 259},
    {"as", 316},
    {"asm", 260},
    {"assembler", 261},
    {"at", 317},
    {"begin", 262},
    {"case", 318},
    {"cdecl", 263},
    {"class", 264},
    {"const", 265},
    {"constructor", 266},
    {"default", 267},
    {"destructor", 268},
    {"div", 319},
    {"do", 320},
    {"downto", 321},
    {"dynamic", 269},
    {"else", 322},
    {"end", 270},
    {"except", 323},
    {"export", 271},
    {"exports", 272},
    {"external", 273},
    {"far", 274},
    {"file", 275},
    {"finally", 324},
    {"for", 325},
    {"forward", 276},
    {"function", 277},
    {"goto", 326},
    {"if", 327},
    {"implementation", 278},
    {"in", 328},
    {"index", 279},
    {"inherited", 329},
    {"initialization", 280},
    {"inline", 281},
    {"interface", 282},
    {"interrupt", 330},
    {"is", 331},
    {"label", 283},
    {"library", 332},
    {"message", 284},
    {"mod", 333},
    {"name", 285},
    {"nil", 334},
    {"near", 286},
    {"nodefault", 287},
    {"not", 335},
    {"object", 288},
    {"of", 289},
    {"on", 336},
    {"or", 337},
    {"override", 290},
    {"packed", 291},
    {"private", 292},
    {"procedure", 293},
    {"program", 294},
    {"property", 295},
    {"protected", 296},
    {"public", 297},
    {"published", 298},
    {"raise", 338},
    {"read", 299},
    {"record", 300},
    {"repeat", 339},
    {"resident", 301},
    {"set", 302},
    {"shl", 340},
    {"shr", 341},
    {"stored", 303},
    {"then", 342},
    {"to", 343},
    {"try", 344},
    {"type", 304},
    {"unit", 306},
    {"until", 345},
    {"uses", 305},
    {"var", 307},
    {"virtual", 308},
    {"while", 346},
    {"with", 347},
    {"write", 309},
    {"xor", 348},
};
