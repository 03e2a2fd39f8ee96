#include "script_support.h"

#include <sstream>

#include "ana/anadat/tables.h"
#include "ana/parser/doc/dense_cases.h"
#include "ana/parser/script/mdf_parse.h"
#include "app/options/options.h"

namespace {

gSrcFile const script_file(gPathstring("s.vls"), gPathstring(), 0);

void add_attribute(char const * name, std::initializer_list<char const *> values) {
  for (char const * value : values)
    Vapp::options["attr"][name]["val"][value] = cat::make(gStrList(gString(value)));
}

std::string joined(cRef<cObj> const & value) {
  gStrList list;
  if (cat::value_of<gStrList>(*value) == nullptr)
    return cat::as_string(value);
  cat::read(value, list);
  std::string text = list.make_string("|");
  for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 2)
    text.replace(at, 1, "\\n");
  return "[" + text + "]";
}

// A template in one line; the link line that every unit template has only where it holds something.
void print_map(std::ostream & out, cMapObj const & map, std::string const & path, int depth) {
  for (cIterObj it = map.begin(); it.valid(); it++) {
    std::string const key = it.key_as_string();
    if (cMapObj const * inner = it->map()) {
      out << (depth == 1 ? path + key + ":" : "");
      print_map(out, *inner, depth == 1 ? "" : path + key + "/", depth + 1);
      out << (depth == 1 ? "\n" : "");
    } else if (std::string const value = joined(it.valref()); key != "linkline" || value != "[]")
      out << " " << path << key << "=" << value;
  }
}

// A section stands on a line of its own; a headline between quotes, other nodes as "-", and what a
// node holds in brackets behind it.
void print_nodes(std::ostream & out, gDocNode const & node) {
  for (cRef<gDocNode> const & child : node.children()) {
    if (auto const * section = dynamic_cast<gSectHeader const *>(child.get()))
      out << " / " << section->section_template() << " <" << section->output() << ">";
    else if (auto const * text = dynamic_cast<gTextUnit const *>(child.get()))
      out << " " << joined(cat::make(gStrList(*text->subentries().find("text")))) << text->flags();
    else if (auto const * unit = dynamic_cast<gDocUnit const *>(child.get()))
      out << " " << unit->name();
    else
      out << " -";
    if (child->children().empty())
      continue;
    out << " (";
    print_nodes(out, *child);
    out << " )";
  }
}

} // namespace

ScriptProject::ScriptProject() {
  Msg::log.reset_counts();
  Vapp::options.clear();
  add_attribute("UNITTYPE", {"class", "function", "method"});
  add_attribute("STATE", {"new", "undefined"});
  Vapp::options["ana"]["srcpat_subentry"]["@description"]["kwd"] = make_ref<cVectorObj>();
  Vapp::options["ana"]["srcpat_subentry"]["note"]["kwd"] = make_ref<cVectorObj>();
  Global::objects().reset_all();
  gInput.set(Vapp::run_input());
}

ScriptProject::~ScriptProject() {
  Global::objects().reset_all();
  Vapp::options.clear();
}

std::string ScriptProject::reports() {
  std::string const all = dense_reports(outside.reports);
  outside.reports.clear();
  return all;
}

void FakeStages::run() {
  told += "run; ";
}

void FakeStages::generate(gCmdSeq & commands, std::set<gString> const & outputs,
                          gString const & output) {
  std::ostringstream out;
  out << "generate <" << output << ">";
  for (gString const & name : outputs)
    out << " " << name;
  auto state = make_ref<gOutState>();
  state->cur_dir = "/p";
  commands.execute(state);
  print_nodes(out, gDocManager.root());
  out << "\n";
  if (!state->class_filter.empty() || !state->class_stack.empty())
    out << "left in class " << state->class_filter << "\n";
  told += out.str();
}

std::string tokens_of(std::string const & script) {
  ScriptProject project;
  mdf_scan scanner(gScanBase::standard_size);
  scanner.open_text(script_file, script);
  std::ostringstream out;
  int line = 0;
  while (int const token = scanner.scan()) {
    if (scanner.line() != line) {
      out << (line ? "\n" : "") << scanner.line();
      line = scanner.line();
    }
    if (token < 256)
      out << " " << static_cast<char>(token);
    else
      out << " " << token;
    if (scanner.token_value().holds<gString>())
      out << "[" << scanner.token_value().as<gString>() << "]";
  }
  out << "\n";
  return out.str() + project.reports();
}

namespace {

std::string parse(ScriptProject & project, std::string const & script) {
  FakeStages stages;
  mdf_parse parser(stages);
  parser.scanner().open_text(script_file, script);
  int const result = parser.parse();
  return stages.told + (result == 0 ? "" : "gave up\n") + project.reports();
}

std::string const shortest_document = "\n@document @outfilter\n";

} // namespace

std::string run_script(std::string const & script) {
  ScriptProject project;
  return parse(project, enter_units(script));
}

std::string templates_of(std::string const & script) {
  ScriptProject project;
  gVLAttributes.clear();
  FakeStages stages;
  mdf_parse parser(stages);
  parser.scanner().open_text(script_file, script + shortest_document);
  parser.parse();
  std::ostringstream out;
  print_map(out, gVLAttributes, "", 0);
  return out.str() + project.reports();
}

std::string pieces_of(std::string const & body) {
  std::string const all = templates_of("@bdef_unittpl<T> " + body + "@edef");
  std::string const head = "unittpl/T: contents=";
  std::size_t const at = all.find(head);
  if (at == std::string::npos)
    return all;
  return all.substr(at + head.size());
}

std::string enter_units(std::string const & input) {
  std::size_t at = 0;
  while (input.compare(at, 5, "unit ") == 0) {
    std::size_t const end = input.find_first_of(";\n", at);
    std::istringstream words(input.substr(at + 5, end - at - 5));
    std::string table, type, name, place, attribute;
    words >> table >> type >> name >> place >> attribute;
    at = end + (input[end] == ';' ? 2 : 1);
    gStrList names;
    for (std::size_t at; (at = name.find("::")) != std::string::npos; name.erase(0, at + 2))
      names.push_back(gString(name.substr(0, at)));
    names.push_back(gString(name));
    std::size_t const colon = place.find(':');
    gSrcFile const file(gPathstring("/t/tmp"), gPathstring(place.substr(0, colon)), 0);
    int const line_number = std::stoi(place.substr(colon + 1));
    cRef<gDocUnit> const unit = make_ref<gSyntUnit>(names, "::", file, line_number);
    unit->set_attr("UNITTYPE", type);
    if (std::size_t const equal = attribute.find('='); equal != std::string::npos)
      unit->set_attr(attribute.substr(0, equal), attribute.substr(equal + 1));
    if (table == "generated") {
      gGeneratedUnits.set(unit->name(), {unit});
      continue;
    }
    (table == "named" ? gNamedUnits : gUnnamedUnits).insert_at(unit->loc(), unit);
    gUnitNames.add(unit->name(), unit);
  }
  return input.substr(at);
}
