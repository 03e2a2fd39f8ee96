// One file by itself: its facts, their bytes, and a run that is made of them.
#include <random>

#include <gtest/gtest.h>

#include "ana/anadat/tables.h"
#include "ana/cmdpar/keywords.h"
#include "ana/parser/script/mdf_parse.h"
#include "ana/read/enter.h"
#include "ana/read/facts_bytes.h"
#include "ana/read/read_file.h"
#include "ana/run_project.h"
#include "ana/stages.h"
#include "app/options/options.h"
#include "vlb/gfilesystem.h"
#include "vlb/messages.h"

namespace {

std::string marked(std::string text) {
  return replaced(replaced(std::move(text), "/*", "@_vlbcom "), "*/", "@_vlecom ");
}

// The options and keywords of a new project, with empty tables.
struct World {
  World() {
    Global::objects().reset_all();
    gUEKeywords.build_keywords(*gInput);
    gSrcFile::set_cpp_ext("h");
  }
  ~World() { Global::objects().reset_all(); }

  gFileFacts read(std::string const & name, std::string const & text) {
    return reader.read_file(gSrcFile(gPathstring("/copy"), gPathstring(name), 1), marked(text));
  }

  RunProject project;
  gReadInput const input;
  gFileReader reader{input};
};

std::string const header = "/* @class Things. @bookmark<mark> @style<s> @nobookmark\n"
                           "@cref<B>{see} @crefll<B> @classhierarchy<up=2>\n"
                           "@return @em{Nothing} */\n"
                           "class A : public virtual B, C { /* free */\n"
                           "  int m; /* @member with a unit */\n"
                           "  virtual void f() const;\n"
                           "};\n"
                           "/* @b_cite<quote> */\n/* @e_cite */\n"
                           "/* @text\n@hdline{A} Text @bookmark<mark> */\n";

TEST(read_file, tells_what_a_file_says_without_any_table) {
  World world;
  gFileFacts const facts = world.read("/a/x.h", header);
  ASSERT_EQ(facts.text.units.size(), 3u);
  EXPECT_EQ(facts.text.units[0].attribute("UNITTYPE"), "class");
  EXPECT_EQ(facts.text.units[0].hier_up, 2);
  EXPECT_EQ(facts.text.bookmarks, std::vector<gString>{"MARK"});
  EXPECT_EQ(facts.text.citations.size(), 1u);
  EXPECT_EQ(facts.text.reports.reports().size(), 1u) << "the mark stands twice";
  ASSERT_EQ(facts.code.elements.size(), 3u);
  EXPECT_EQ(facts.code.elements[2]->name(), "A::f");
  EXPECT_EQ(facts.code.classes.at(0).bases->make_string(), "public virtual B, private C");
  ASSERT_EQ(facts.code.comments.size(), 3u) << "the free one and those of the citation";
  EXPECT_EQ(facts.code.comments[0].place.line, 4);
  EXPECT_TRUE(gNamedUnits.empty() && gUnnamedUnits.empty() && gCodeElems.empty() &&
              gComments.empty() && gCppClasses.empty() && gBookmarks.empty() && gCitations.empty());
  EXPECT_EQ(gUnitNumbers::next().unit, 0u);
  EXPECT_TRUE(world.project.outside.reports.empty());
}

TEST(read_file, what_a_file_says_depends_on_no_other) {
  World world;
  std::string const alone = facts_to_bytes(world.read("/a/x.h", header));
  gFileFacts broken = world.read("/a/y.h", "/* @function @em{ */ int f(int a) { {");
  EXPECT_TRUE(broken.code.end.fatal.has_value());
  enter_text(broken);
  enter_code(broken);
  EXPECT_EQ(facts_to_bytes(world.read("/b/x.h", header)), alone) << "the bytes hold anywhere";
}

// Facts with everything that bytes can hold.
gFileFacts full_facts(World & world) {
  gFileFacts facts = world.read("/a/x.h", header);
  gCodeElem & one = *facts.code.elements[0];
  one.column = 7;
  one.kind = Decl::gKind::enum_class;
  one.text = 1;
  auto parts = std::make_unique<gDeclParts>();
  parts->name = {1, 4};
  parts->marks = Decl::mark_out_of_class;
  parts->condition = make_ref<gString>("defined(X)");
  one.parts = std::move(parts);
  facts.code.end.fatal = gReport(Msg::cannot_read, "an\nargument", gReportPlace("/else/where", 3));
  return facts;
}

TEST(facts_bytes, come_back_as_they_were) {
  World world;
  gFileFacts const facts = full_facts(world);
  std::string const bytes = facts_to_bytes(facts);
  auto const back = facts_from_bytes(bytes, facts.file);
  ASSERT_TRUE(back.has_value());
  EXPECT_EQ(facts_to_bytes(*back), bytes);
  gCodeElem const & one = *back->code.elements.at(0);
  EXPECT_EQ(one.parts->name.of(one.decl), "las");
  EXPECT_EQ(*one.parts->condition, "defined(X)");
  EXPECT_EQ(one.kind, Decl::gKind::enum_class);
  EXPECT_EQ(back->code.end.fatal->place.text(), "/else/where:3");
  EXPECT_EQ(back->text.units[0].subentries[0].text, facts.text.units[0].subentries[0].text);
  EXPECT_EQ(back->text.unit_lines, facts.text.unit_lines);
}

TEST(facts_bytes, damage_is_told_and_never_more_than_a_loss) {
  World world;
  std::string const bytes = facts_to_bytes(full_facts(world));
  gSrcFile const file(gPathstring("/a/x.h"), gPathstring(), 1);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    std::string damaged = bytes;
    damaged[i] = static_cast<char>(damaged[i] + 1);
    EXPECT_FALSE(facts_from_bytes(damaged, file)) << i;
    EXPECT_FALSE(facts_from_bytes(bytes.substr(0, i), file)) << i;
  }
  // With a right sum in front the contents have to hold out.
  std::mt19937 random(1);
  int read = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string body = bytes.substr(Facts::sealed("").size());
    for (unsigned n = random() % 4; n < 4; ++n)
      body[random() % body.size()] = static_cast<char>(random());
    if (auto facts = facts_from_bytes(Facts::sealed(body), file)) {
      ++read;
      EXPECT_TRUE(facts_from_bytes(facts_to_bytes(*facts), file).has_value());
    }
  }
  EXPECT_GT(read, 100) << "some damage leaves facts that are well formed";
}

// A reader that knows more binds by itself, and keeps what stands on one line apart.
TEST(enter, takes_the_bindings_of_a_reader_as_they_are) {
  World world;
  gFileFacts facts = world.read("/a/x.h", "/* @var one */ /* @var two */ int a, b;");
  for (int i = 0; i < 2; ++i)
    facts.text.units.at(static_cast<std::size_t>(i)).place = {1, 10 * i + 1};
  gString const names[] = {"b", "a"};
  facts.code.elements.clear();
  for (int i = 0; i < 2; ++i) {
    auto element =
        make_ref<gCodeElem>(gStrList(names[i]), facts.file, 1, ut_var, "", "undefined", 0);
    element->column = 40 + i;
    element->text = i;
    facts.code.elements.push_back(element);
  }
  enter_text(facts);
  enter_code(facts);
  EXPECT_EQ(gCodeElems.total(), 2u);
  ana_associate();
  ana_update_units();
  std::string found;
  for (auto const & file : gUnnamedUnits)
    for (auto const & [place, unit] : *file.value)
      found += std::to_string(place.column) + " " + unit->name() + "\n";
  EXPECT_EQ(found, "1 b\n11 a\n");
}

// The stages of a run, with facts that went through bytes on their way.
class ByteStages : public gStages {
public:
  void run() override {
    ana_input_files();
    ana_preprocess(gSrcFiles);
    gReadInput const input{gVLAttributes.tables()};
    gFileReader reader(input);
    std::vector<gFileFacts> all;
    for (gSrcFile const & file : gInputFiles)
      all.push_back(*facts_from_bytes(facts_to_bytes(read(reader, file)), file));
    for (gFileFacts & facts : all)
      enter_text(facts);
    for (gFileFacts & facts : all)
      enter_code(facts);
    ana_associate();
    ana_update_units();
    ana_delete_temp();
  }

private:
  static gFileFacts read(gFileReader & reader, gSrcFile const & file) {
    std::string copy;
    EXPECT_TRUE(gFileSystem::read_file(file.path(), copy));
    return reader.read_file(file, copy);
  }
};

TEST(facts_bytes, a_run_over_them_writes_the_same) {
  World world;
  RunProject & project = world.project;
  std::string const sources = std::string(VELLUMAR_SOURCE_DIR) + "/ana/anadat";
  Vapp::options["inputfiles"]["1"]["path"] = cat::make(sources);
  ASSERT_TRUE(project.run());
  auto written = project.output();
  written.erase("ana.log");
  for (auto const & [name, text] : written)
    std::filesystem::remove(project.path("out/" + name));
  gInput.set(Vapp::run_input());
  gUEKeywords.build_keywords(*gInput);
  ByteStages stages;
  mdf_parse parser(stages);
  parser.set_input(gSrcFile(project.path("doc.vls"), "", 0));
  EXPECT_EQ(parser.parse(), 0);
  auto again = project.output();
  again.erase("ana.log");
  EXPECT_EQ(again, written);
  EXPECT_GT(written.at("doc.atc").size(), 10000u);
}

} // namespace
