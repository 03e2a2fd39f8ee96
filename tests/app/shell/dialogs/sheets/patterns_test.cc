// Source patterns and subentries: pages that share what they change.

#include "app/shell/dialogs/sheets/attributes_written.h"
#include "sheet.h"

namespace {

enum Page { definition, properties, subentries, special };

class Patterns : public Sheets {
protected:
  Patterns() { open(); }
  void open() {
    sheet = std::make_unique<Sheet>("gAnaSrcpat");
    dialog = sheet->dialog.get();
  }
  DialogUser & user() { return sheet->user; }
  DialogUser & on(Page page) {
    dialog->go_to(page);
    return sheet->user;
  }
  void select(char const * list, std::string const & name) {
    std::vector<gField::Row> const & rows = user().at(list).rows;
    int row = 0;
    while (row < static_cast<int>(rows.size()) && rows[row][0] != name)
      ++row;
    user().select(list, row);
  }
  // Types the texts into the dialog that a button opens, a line each, and keeps its title.
  void enter(char const * button, std::vector<std::string> const & texts) {
    host.scripts = {[&](gDialog & asking, DialogUser & asked) {
      for (std::size_t i = 0; i < texts.size(); ++i)
        asked.type(asked.page().fields()[i].id.c_str(), texts[i]);
      asking.ok();
      focus = asked.focus();
    }};
    user().press(button);
  }

  std::unique_ptr<Sheet> sheet;
  gDialog * dialog;
  std::string focus;
};

TEST_F(Patterns, names_come_and_go) {
  enter("pattern_new", {"spt_class"});
  EXPECT_EQ(host.titles.back(), "New Source Pattern");
  enter("pattern_new", {"2x"});
  enter("subentry_new", {"comment"});
  EXPECT_EQ(host.titles.back(), "New Subentry");
  enter("subentry_new", {"@a b"});
  EXPECT_EQ(shown(), "box: Source pattern spt_class already exists.; "
                     "box: '2x' is not a valid identifier.; "
                     "box: Subentry @comment already esists.; "
                     "box: '@a b' is not a valid identifier.");
  enter("pattern_new", {"spt_own"});
  enter("subentry_new", {"todo"});
  EXPECT_EQ(user().at("subentries").cell(), "@todo");
  EXPECT_NE(on(properties).rows("pattern").find("/spt_own"), std::string::npos);
  EXPECT_NE(on(subentries).rows("subentries").find("/@todo"), std::string::npos);
  dialog->apply();
  EXPECT_EQ(shown(), "marked");
  EXPECT_EQ(stored("ana/srcpat_unit/spt_own"),
            R"({"kwd":[],"attr":{},"idspec":0,"slspec":0,"slsep":""})");
  EXPECT_EQ(stored("ana/srcpat_subentry/@todo"), R"({"kwd":[]})");
  user().select("subentries", 7);
  user().press("add");
  EXPECT_NE(user().rows("permitted").find("@todo"), std::string::npos);
  outside.answers = {"yes", "yes"};
  on(definition).press("pattern_delete");
  user().key("subentries", gListKey::remove);
  select("subentries", "@sline");
  user().press("subentry_delete");
  EXPECT_EQ(shown(), "ask: Delete source pattern spt_own?; ask: Delete subentry @todo?; "
                     "box: Cannot delete predefined subentry: @sline.");
  EXPECT_EQ(on(subentries).rows("permitted").find("@todo"), std::string::npos)
      << "a unit type can't have what doesn't exist";
  dialog->ok();
  EXPECT_EQ(stored("ana/srcpat_unit/spt_own") + stored("ana/srcpat_subentry/@todo"),
            "(absent)(absent)");
}

TEST_F(Patterns, keywords_stand_once) {
  select("patterns", "spt_member");
  EXPECT_EQ(user().page().frames()[1].title, "Keywords of spt_member");
  struct {
    char const *keyword, *separators, *text, *focus;
  } const rows[] = {
      {"@m", "", "Keyword already exists for spt_method.", "keyword"},
      {"See also", ":", "Keyword already exists for @comment.", "keyword"},
      {"@1", "", "@-keyword must start with a letter or '_'.", "keyword"},
      {"mem", "x", "Alphanumeric characters, '_', and '-'\ncannot be used as keyword separators.",
       "separators"},
      {"a b", "", "Keywords containing spaces must have a separator.", "keyword"},
  };
  for (auto const & [keyword, separators, text, field] : rows) {
    enter("pattern_keyword_new", {keyword, separators});
    EXPECT_EQ(shown(), std::string("box: ") + text);
    EXPECT_EQ(focus, field) << keyword;
  }
  EXPECT_EQ(host.titles.back(), "New Keyword for spt_member");
  enter("pattern_keyword_new", {"Member  variable", ":"});
  EXPECT_EQ(user().rows("pattern_keywords"), "@member|/Member variable|:");
  host.scripts = {[&](gDialog & asking, DialogUser & asked) {
    EXPECT_EQ(asked.at("keyword").text, "Member variable");
    asked.type("separators", ":;"); // its own keyword isn't in its way
    asking.ok();
  }};
  user().activate("pattern_keywords", 0);
  EXPECT_EQ(host.titles.back(), "Change Keyword for spt_member");
  user().select("pattern_keywords", 0);
  user().key("pattern_keywords", gListKey::remove);
  select("subentries", "@sline");
  enter("subentry_keyword_new", {"@member", ""});
  EXPECT_EQ(shown(), "") << "it is free again";
  dialog->ok();
  EXPECT_EQ(stored("ana/srcpat_unit/spt_member/kwd"), R"([["Member variable",":;"]])");
  EXPECT_EQ(stored("ana/srcpat_subentry/@sline/kwd"),
            R"([["@sline",""],["@sli",""],["@member",""]])");
}

TEST_F(Patterns, optional_ones_come_with_their_options_and_have_no_keywords) {
  on(special).check("ana/spt_3slash", true);
  dialog->apply();
  EXPECT_EQ(shown(), "marked");
  EXPECT_EQ(stored("ana/srcpat_unit/spt_3slash"),
            R"({"kwd":[],"attr":{},"idspec":0,"slspec":0,"slsep":""})");
  on(definition);
  select("patterns", "spt_3slash");
  EXPECT_EQ(user().rows("pattern_keywords"), "/// - no keywords|");
  EXPECT_FALSE(user().at("pattern_keyword_new").enabled);
  user().activate("pattern_keywords", 0);
  user().key("pattern_keywords", gListKey::insert);
  user().press("pattern_delete");
  EXPECT_EQ(shown() + std::to_string(host.titles.size()), "0");
  on(special).check("ana/spt_3slash", false);
  user().check("ana/spt_2star", true);
  dialog->ok();
  EXPECT_EQ(stored("ana/srcpat_unit/spt_3slash"), "(absent)");
  open();
  select("patterns", "spt_2star");
  EXPECT_EQ(user().rows("pattern_keywords"), "/** - no keywords|");
}

TEST_F(Patterns, a_subject_line_needs_a_separator_behind_a_complex_identifier) {
  on(properties).select("pattern", 1);
  user().select("pattern", 0);
  EXPECT_FALSE(dialog->changed()) << "only another one was looked at";
  user().select("idspec", 2);
  EXPECT_FALSE(user().at("slspec").enabled);
  user().check("exists", true);
  EXPECT_EQ(user().at("slspec").text, "1");
  user().type("slspec", "0");
  user().leave("slspec");
  EXPECT_EQ(user().at("slspec").text, "1");
  user().type("slspec", "3");
  on(subentries);
  dialog->ok();
  EXPECT_EQ(shown(), "box: Please specify a separator.");
  EXPECT_EQ(dialog->page(), properties);
  EXPECT_EQ(user().focus(), "slsep");
  user().type("slsep", "a");
  EXPECT_EQ(shown(), "box: Alphanumeric characters and '_' cannot\nbe used as subject line "
                     "separators.");
  EXPECT_EQ(user().at("slsep").text, "");
  user().select("pattern", 1);
  EXPECT_EQ(user().at("idspec").cell(), "none");
  dialog->ok();
  EXPECT_EQ(shown(), "box: Please specify a separator.");
  EXPECT_EQ(user().at("pattern").cell(), "spt_class") << "the one that lacks it";
  user().type("slsep", " - ");
  dialog->apply();
  EXPECT_EQ(shown(), "marked");
  EXPECT_EQ(user().at("slsep").text, "-");
  EXPECT_EQ(stored("ana/srcpat_unit/spt_class/slspec") + stored("ana/srcpat_unit/spt_class/slsep"),
            "3\"-\"");
  user().check("exists", false);
  dialog->ok();
  EXPECT_EQ(stored("ana/srcpat_unit/spt_class/slspec"), "0");
}

TEST_F(Patterns, attributes_are_assigned_until_they_are_gone) {
  on(properties);
  EXPECT_EQ(user().rows("assigned"), "UNITTYPE|class");
  select("attributes", "VISIBILITY");
  select("values", "private");
  user().press("assign");
  select("values", "public");
  user().activate("values", 0);
  EXPECT_EQ(user().rows("assigned"), "UNITTYPE|class/VISIBILITY|public");
  select("assigned", "UNITTYPE");
  user().press("unassign");
  dialog->apply();
  EXPECT_EQ(stored("ana/srcpat_unit/spt_class/attr"), R"({"VISIBILITY":"public"})");
  shown();
  bool updated = false;
  dialog->on_update = [&] { updated = true; };
  Vapp::options.submap("attr").erase("VISIBILITY");
  Shell::attributes_written()();
  std::string const box = "box: Some attributes used in the source pattern dialog\ngot deleted.";
  EXPECT_EQ(shown(), box);
  EXPECT_TRUE(updated && dialog->changed());
  EXPECT_EQ(user().rows("assigned"), "");
  EXPECT_EQ(user().rows("attributes"), "UNITTYPE/VIRTUALITY");
  dialog->cancel();
  open();
  EXPECT_EQ(shown(), box) << "and when it is opened";
  dialog->ok();
  EXPECT_EQ(stored("ana/srcpat_unit/spt_class/attr"), "{}");
}

TEST_F(Patterns, digits_of_subentries_are_switched_by_their_rules) {
  on(subentries);
  EXPECT_EQ(user().rows("type"), "class/function/member/method/event/property/type/var/unit/text");
  EXPECT_EQ(user().page().frames()[0].title, "Subentries of class");
  EXPECT_EQ(user().rows("permitted"), "@description|Required|Default|/"
                                      "@declaration||Vellumar|Yes/@heritage||Vellumar|Yes");
  select("subentries", "@sline");
  user().press("add");
  user().press("add");
  EXPECT_EQ(user().at("permitted").cell(), "@sline");
  user().activate("permitted", 1);
  EXPECT_EQ(user().at("permitted").rows.back(), (gField::Row{"@sline", "Required", "", ""}));
  user().activate("permitted", 2);
  user().activate("permitted", 3);
  user().select("permitted", 0);
  user().activate("permitted", 2);
  EXPECT_EQ(shown(),
            "box: Only the following subentries can be filled automatically:\n\n@declaration "
            "(Deklaration)\n@heritage (direkte Basisklassen)\n@description (Default-Untereintrag)."
            "; box: The verbatim format cannot be chosen for subentry @sline.\nThe subject line "
            "always gets a special formatting."
            "; box: Subentry @description is always used as\nthe default subentry (for text not\n"
            "introduced by a subentry keyword).");
  user().activate("permitted", 3);
  select("type", "var");
  select("subentries", "@heritage");
  user().key("subentries", gListKey::insert);
  user().activate("permitted", 2);
  select("type", "text");
  user().press("add");
  EXPECT_EQ(shown(),
            "box: Subentry @heritage can only be filled\nautomatically for unit type 'class'.; "
            "box: Unit type 'text' cannot be configured\n(i.e. has no subentries). It is used\n"
            "for the incorporation of continuous\ntext in the documentation.");
  select("type", "unit");
  user().select("permitted", 0);
  user().press("remove");
  user().press("remove");
  EXPECT_EQ(user().rows("permitted"), "");
  user().press("add");
  user().press("remove");
  dialog->ok();
  EXPECT_EQ(shown(), "marked");
  EXPECT_EQ(stored("unitconfig/class"),
            R"({"@description":111,"@declaration":11,"@heritage":11,"@sline":100})");
  EXPECT_EQ(stored("unitconfig/unit"), "(absent)");
}

TEST_F(Patterns, values_that_are_no_digits_are_shown_as_bad) {
  Vapp::options["unitconfig"]["class"]["@heritage"] = cat::make("x");
  open();
  on(subentries).select("permitted", 2);
  EXPECT_EQ(user().at("permitted").rows[2],
            (gField::Row{"@heritage", "bad data", "bad data", "bad data"}));
  user().activate("permitted", 1);
  EXPECT_EQ(user().at("permitted").rows[2], (gField::Row{"@heritage", "Required", "", ""}));
}

TEST_F(Patterns, sets_of_subentries_come_and_go_on_all_pages) {
  on(special).press("docpp_add");
  EXPECT_EQ(shown(), "box: New subentries without a keyword, since another one has it already:\n"
                     "@type (spt_type)");
  on(definition);
  select("subentries", "@parameter");
  EXPECT_EQ(user().rows("subentry_keywords"), "@parameter|/@par|/Parameter|:/@param|/@args|");
  on(subentries);
  select("subentries", "@author");
  user().press("add");
  on(special).press("javadoc_add");
  EXPECT_EQ(shown(), "");
  user().press("docpp_remove");
  EXPECT_EQ(on(subentries).rows("subentries"),
            "@description/@declaration/@sline/@parameter/@return/@heritage/@comment/@deprecated/"
            "@since");
  EXPECT_EQ(user().rows("permitted").find("@author"), std::string::npos);
  EXPECT_TRUE(dialog->changed());
  on(special).press("javadoc_remove");
  dialog->ok();
  EXPECT_EQ(shown(), "") << "all is as it was";
}

} // namespace
