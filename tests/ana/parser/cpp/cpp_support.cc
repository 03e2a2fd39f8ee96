#include "ana/parser/cpp/cpp_support.h"

#include <sstream>
#include <utility>

#include <gtest/gtest.h>

#include "ana/anadat/tables.h"
#include "ana/parser/doc/dense_cases.h"
#include "ana/parser/pre/cpre_scan.h"
#include "ana/read/enter.h"
#include "ana/read/read_file.h"
#include "app/options/options.h"
#include "store/cmapobj.h"
#include "support/test_outside.h"
#include "vlb/gexception.h"

namespace {

gSrcFile source_file() {
  gSrcFile::set_cpp_ext("h");
  return {gPathstring("a.h"), gPathstring(), 1};
}

class TextPreprocessor : public cpre_scan {
public:
  using cpre_scan::cpre_scan;
  void ECHO(char c) const override { out += c; }
  void ECHO(char const * text) const override { out += text; }
  void ECHO(std::string const & text) const override { out += text; }
  void ECHO(std::string_view text) const override { out += text; }
  mutable std::string out;
};

void set_option_line(std::string const & line) {
  cMapObj & ana = Vapp::options.submap("ana");
  std::istringstream words(line);
  std::string word, text;
  words >> word;
  if (word == "%2star" || word == "%3slash") {
    ana.set("spt_" + word.substr(1), cat::make(true));
  } else if (word == "%macro") {
    gCppMacro macro;
    words >> macro.name >> macro.parameterized >> macro.action >> macro.interpretation;
    Vapp::options.submap("cppmacros").set(macro.name, cat::make(macro));
  } else {
    ana.set("cpp_" + word.substr(1), cat::make(line.substr(word.size() + 1)));
  }
}

std::string element_line(gCodeElem const & element) {
  std::ostringstream line;
  line << element.loc.line() << " " << unit_type_name(element.type) << " " << element.name() << " "
       << element.visibility << " " << std::hex << element.flags << " [" << element.decl << "]";
  if (!element.heritage.empty())
    line << " <" << element.heritage << ">";
  line << "\n";
  return line.str();
}

std::string results() {
  std::string out;
  if (auto const * elements = gCodeElems.map_of(source_file()))
    for (auto const & entry : *elements)
      out += element_line(*entry.object);
  if (auto const * comments = gComments.map_of(source_file()))
    for (auto const & entry : *comments)
      out += "comment " + std::to_string(entry.place.line) + "-" +
             std::to_string(entry.object->last_line()) + "\n";
  for (auto const & entry : gCppClasses)
    if (!entry.value->entries.empty())
      out += "class " + entry.key + " <" + entry.value->make_string() + ">\n";
  return out;
}

} // namespace

std::string take_options(std::string const & input) {
  Vapp::options.submap("cppmacros").clear();
  cMapObj & ana = Vapp::options.submap("ana");
  ana.set("spt_2star", cat::make(false));
  ana.set("spt_3slash", cat::make(false));
  ana.set("cpp_frame", cat::make("/*|"));
  ana.set("cpp_line", cat::make("/*-+="));
  std::size_t at = 0;
  while (at < input.size() && input[at] == '%') {
    std::size_t const end = input.find('\n', at);
    set_option_line(input.substr(at, end - at));
    at = end + 1;
  }
  gInput.set(Vapp::run_input());
  return input.substr(at);
}

std::string preprocess(std::string_view source) {
  TextPreprocessor scanner(1024);
  scanner.reset();
  scanner.open_text(source_file(), source);
  try {
    EXPECT_EQ(scanner.scan(), 0);
  } catch (gExcFatalErr const & fault) {
    return fault.what();
  }
  return scanner.out;
}

std::string tokens(std::string_view text) {
  TestOutside outside;
  cpp_scan scanner(1024);
  scanner.reset();
  scanner.open_text(source_file(), text);
  std::string out;
  int line = 0;
  while (int const token = scanner.scan()) {
    if (std::exchange(line, scanner.line()) != scanner.line())
      out += "\n" + std::to_string(line);
    out += ' ';
    if (token < 256)
      out += static_cast<char>(token);
    else
      out += std::to_string(token);
    if (scanner.token_value().holds<gString>())
      out += "[" + scanner.token_value().as<gString>() + "]";
  }
  return out + "\n" + dense_reports(outside.reports);
}

std::string parse(std::string_view text) {
  static gReadInput const input;
  static gFileReader reader(input); // the next file mustn't see anything of the one before
  TestOutside outside;
  gFileFacts facts;
  facts.file = source_file();
  reader.read_code(facts, &text);
  enter_code(facts);
  facts.code.reports.hand_on(Msg::log);
  std::string end;
  if (facts.code.end.fatal)
    end = facts.code.end.fatal->message->text;
  else if (facts.code.end.failed)
    end = "result 1";
  if (!end.empty())
    end += "\n";
  std::string const out = results() + dense_reports(outside.reports) + end;
  gCodeElems.reset();
  gComments.reset();
  gCppClasses.reset();
  return out;
}

std::vector<std::string> parts_of(std::string const & text) {
  std::vector<std::string> parts;
  std::istringstream in(text);
  for (std::string part; std::getline(in, part, '~');)
    parts.push_back(part);
  return parts;
}
