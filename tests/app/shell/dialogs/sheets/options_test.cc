// Dialogs whose fields are options: their rules and words, and what they write.

#include "sheet.h"
#include "vlb/gmsghandler.h"

namespace {

TEST_F(Sheets, what_is_opened_and_taken_unchanged_changes_nothing) {
  Vapp::options.submap("ana").erase("dialect");
  Vapp::options["ana"]["srcpat_unit"]["spt_class"]->erase("slsep");
  Vapp::options["ana"]["srcpat_unit"]["spt_class"]->erase("kwd");
  std::string const before = to_json(Vapp::options), settings = to_json(Vapp::options_ini);
  for (char const * name : {"gAnaPre", "gDiaAnaopt", "gAnaAlloc", "gAnaSrcpat", "gOutOptions",
                            "gDiaMsgoptions", "gDiaExtraOpt", "gDefineAttr"}) {
    Sheet sheet(name, 99);
    EXPECT_EQ(sheet.dialog->page(), 0) << name;
    for (auto const & page : sheet.dialog->pages())
      for (gField & field : page->fields())
        sheet.dialog->left(*page, field, {});
    sheet.dialog->apply();
    sheet.dialog->ok();
    EXPECT_TRUE(sheet.dialog->accepted()) << name;
    EXPECT_EQ(shown(), "") << name;
  }
  EXPECT_EQ(to_json(Vapp::options), before);
  EXPECT_EQ(to_json(Vapp::options_ini), settings);
}

TEST_F(Sheets, a_value_of_the_wrong_type_is_shown_as_the_default_and_replaced) {
  Vapp::options.submap("ana").set("tab_width", cat::make("wide"));
  Vapp::options.submap("ana").set("cpp_ext", make_ref<cMapObj>());
  Vapp::options.submap("msg").set("lvl_disp", cat::make("2"));
  Sheet options("gDiaAnaopt"), sources("gAnaPre"), messages("gDiaMsgoptions");
  EXPECT_EQ(options.user.at("ana/tab_width").text, "4");
  for (Sheet * sheet : {&options, &sources, &messages}) {
    sheet->dialog->ok();
    EXPECT_EQ(shown(), "marked");
  }
  EXPECT_EQ(stored("ana/tab_width"), "4");
  EXPECT_EQ(stored("ana/cpp_ext"), R"("c; cpp; cxx; h; hpp; hxx")");
  EXPECT_EQ(stored("msg/lvl_disp"), "2");
}

TEST_F(Sheets, numbers_have_limits_and_a_dialect_is_chosen_by_its_name) {
  Sheet sheet("gDiaAnaopt");
  struct {
    char const *field, *good, *bad, *text;
  } const rows[] = {
      {"ana/tab_width", "1", "0", "1 and 16"},    {"ana/tab_width", "16", "17", "1 and 16"},
      {"ana/verb_indent", "0", "-1", "0 and 32"}, {"ana/verb_indent", "32", "33", "0 and 32"},
      {"ana/tab_width", "8", "x", "1 and 16"},
  };
  for (auto const & [field, good, bad, text] : rows) {
    sheet.user.type(field, bad);
    sheet.dialog->ok();
    EXPECT_EQ(shown(), std::string("box: Please enter an integer between ") + text + ".");
    EXPECT_EQ(sheet.user.focus(), field);
    sheet.user.type(field, good);
    sheet.user.leave(field);
    EXPECT_EQ(shown(), "");
  }
  EXPECT_EQ(sheet.user.rows("ana/dialect"), "Classic/Modern");
  EXPECT_EQ(sheet.user.at("ana/dialect").tool_tip,
            "How sources are read. Empty is the same as classic");
  EXPECT_EQ(sheet.user.at("ana/facts_line").tool_tip,
            "Each unit of the intermediate code has a line that tells kind, whole name and the "
            "parts of the declaration. build and quick switch it on");
  sheet.user.select("ana/dialect", 1);
  sheet.user.check("ana/auto_num", false);
  sheet.dialog->ok();
  EXPECT_EQ(shown(), "marked");
  EXPECT_EQ(stored("ana/tab_width") + stored("ana/verb_indent") + stored("ana/auto_num"),
            "832false");
  EXPECT_EQ(stored("ana/dialect"), R"("modern")");
  Sheet again("gDiaAnaopt");
  again.user.select("ana/dialect", 0);
  again.dialog->ok();
  EXPECT_EQ(stored("ana/dialect"), R"("classic")");
  Sheet other("gOutOptions", 2);
  other.user.type("hlp/splitlevel", "10");
  other.dialog->ok();
  EXPECT_EQ(shown(), "marked; box: Please enter an integer between 1 and 9.");
}

TEST_F(Sheets, characters_that_a_field_cannot_have_are_dropped) {
  Sheet sheet("gAnaPre");
  sheet.user.type("ana/cpp_line", "aab /\t9/*");
  sheet.user.leave("ana/cpp_line");
  EXPECT_EQ(sheet.user.at("ana/cpp_line").text, "/*");
  EXPECT_EQ(shown(), "") << "in silence";
  std::string const refused =
      "box: File names cannot contain the following characters:\n\\ / : * ? < > \" |";
  sheet.user.type("ana/cpp_ext", "c; *.h|\"x\"");
  sheet.user.leave("ana/cpp_ext");
  EXPECT_EQ(shown(), refused);
  EXPECT_EQ(sheet.user.focus(), "ana/cpp_ext");
  EXPECT_EQ(sheet.user.at("ana/cpp_ext").text, "c; .hx");
  sheet.dialog->go_to(1);
  sheet.user.type("ana/pas_frame", "1");
  sheet.user.type("ana/pas_ext", "p/q");
  sheet.dialog->go_to(2);
  sheet.dialog->apply();
  EXPECT_EQ(shown(), refused);
  EXPECT_EQ(sheet.dialog->page(), 1) << "where the fault is";
  EXPECT_EQ(stored("ana/pas_ext"), R"("p; pas")");
  sheet.dialog->ok();
  EXPECT_EQ(shown(), "marked");
  EXPECT_EQ(stored("ana/pas_ext") + stored("ana/pas_frame"), R"("pq""")");
}

TEST_F(Sheets, association_options_are_flags_and_bits) {
  Sheet sheet("gAnaAlloc", 1);
  sheet.user.check("ana/alloc/miss_warn", false);
  EXPECT_EQ(sheet.user.rows("ana/alloc/diffattr_code"),
            "adopt value of code element/retain value of text unit");
  EXPECT_EQ(sheet.user.at("ana/alloc/diffattr_code").selected, 0);
  sheet.user.select("ana/alloc/diffattr_code", 1);
  sheet.dialog->go_to(2);
  std::string boxes;
  for (gField const & field : sheet.user.page().fields())
    if (field.checked)
      boxes += field.label + " ";
  EXPECT_EQ(boxes, "class function method ");
  sheet.user.check("class", false);
  sheet.user.check("unit", true);
  sheet.user.check("ana/alloc/gen_extern", true);
  sheet.dialog->ok();
  EXPECT_EQ(stored("ana/alloc/miss_warn") + stored("ana/alloc/diffattr_code"), "falsefalse");
  EXPECT_EQ(stored("ana/alloc/gen_unit") + stored("ana/alloc/gen_extern"), "266true");
}

TEST_F(Sheets, messages_are_told_to_the_sink_at_once) {
  Vapp::options.submap("msg").set("lvl_file", cat::make(5)); // that of a hint, which isn't offered
  Sheet sheet("gDiaMsgoptions");
  EXPECT_EQ(sheet.user.at("msg/lvl_file").cell(), "Warnings");
  EXPECT_EQ(sheet.user.at("msg/err_max").text, "");
  for (char const * bad : {"0", "-1", "abc", "1x"}) {
    sheet.user.type("msg/err_max", bad);
    sheet.user.leave("msg/err_max");
    sheet.dialog->ok();
    EXPECT_EQ(shown(), "beep; beep") << bad;
    EXPECT_EQ(sheet.user.focus(), "msg/err_max");
  }
  sheet.user.type("msg/err_max", "12");
  sheet.user.type("msg/suppress", "105, x");
  sheet.dialog->ok();
  EXPECT_EQ(shown(), "box: Please enter numbers of messages, separated by commas.");
  sheet.user.type("msg/suppress", "105, 320");
  sheet.user.select("msg/lvl_disp", 3);
  sheet.dialog->ok();
  EXPECT_EQ(shown(), "marked");
  EXPECT_EQ(stored("msg"), R"({"err_max":12,"lvl_disp":4,"lvl_file":5,"suppress":"105, 320"})");
  EXPECT_EQ(Msg::log.err_max, 12);
  Sheet again("gDiaMsgoptions");
  EXPECT_EQ(again.user.at("msg/err_max").text, "12");
  again.user.type("msg/err_max", "");
  again.dialog->ok();
  EXPECT_EQ(stored("msg/err_max"), "0");
  EXPECT_EQ(Msg::log.err_max, 0);
}

TEST_F(Sheets, settings_need_no_project_and_mark_none) {
  Sheet sheet("gDiaExtraOpt");
  sheet.user.check("warn_outdir", false);
  sheet.user.type("srclink_editor_cmd", "");
  sheet.user.type("srclink_editor_args", "+$line $file");
  sheet.dialog->ok();
  EXPECT_EQ(shown(), "");
  EXPECT_FALSE(Vapp::option_bool("warn_outdir"));
  EXPECT_EQ(Vapp::option_string("srclink_editor_cmd"), "notepad.exe");
  EXPECT_EQ(Vapp::option_string("srclink_editor_args"), "+$line $file");
  EXPECT_FALSE(Vapp::options_ini.at("srclink_editor_scheme"));
  Sheet again("gDiaExtraOpt");
  again.user.type("srclink_editor_args", "");
  again.dialog->ok();
  EXPECT_EQ(Vapp::option_string("srclink_editor_args"), "$file");
}

} // namespace
