// Lists of options: the order of the search, macros, attributes.

#include "app/shell/dialogs/sheets/attributes_written.h"
#include "app/shell/dialogs/sheets/search_order.h"
#include "sheet.h"

namespace {

std::string text(gSearchOrder const & order) {
  std::string text;
  for (gSearchOrder::Method const & method : order.rows())
    text += std::to_string(method.number) + ":" + std::to_string(method.rank) + " ";
  return text;
}

TEST_F(Sheets, search_orders_are_ranked_and_complete) {
  struct {
    std::vector<int> order, ranks;
    char const * rows;
  } const cases[] = {
      {{5, 6, 3, 4, 7, 8, 1, 2}, {4, 4, 3, 3, 2, 1, 0, 0}, "5:4 6:4 3:3 4:3 7:2 8:1 1:0 2:0 "},
      {{1, 2, 3}, {1, 3, 2}, "2:3 3:2 1:1 4:0 5:0 6:0 7:0 8:0 "},
      {{9, 8, -1, 8}, {7, 3, 7}, "1:0 2:0 3:0 8:0 4:0 5:0 6:0 7:0 "},
      {{2, 4}, {99, -5}, "2:8 4:0 1:0 3:0 5:0 6:0 7:0 8:0 "},
      {{1, 2, 3, 4, 5, 6, 7, 7, 8}, {}, "1:0 2:0 3:0 4:0 5:0 6:0 8:0 7:0 "},
  };
  for (auto const & [order, ranks, rows] : cases)
    EXPECT_EQ(text(gSearchOrder(order, ranks)), rows);
}

TEST_F(Sheets, methods_move_within_their_rank_and_between_ranks) {
  Sheet sheet("gAnaAlloc");
  auto const press = [&](int row, char const * id) {
    sheet.user.select("methods", row);
    sheet.user.press(id);
    return sheet.user.at("methods").selected;
  };
  EXPECT_EQ(sheet.user.at("methods").rows[0],
            (gField::Row{"Named text unit BEFORE code element", "4"}));
  EXPECT_EQ(press(0, "position_up"), 0);
  EXPECT_EQ(press(2, "position_up"), 2) << "the one before it has another rank";
  EXPECT_EQ(press(1, "position_down"), 1);
  EXPECT_EQ(press(6, "rank_down"), 6) << "0 is the lowest";
  EXPECT_FALSE(sheet.dialog->changed());
  EXPECT_EQ(press(1, "position_up"), 0);
  EXPECT_TRUE(sheet.dialog->changed());
  EXPECT_EQ(press(4, "rank_up"), 4) << "behind those of its new rank";
  EXPECT_EQ(press(2, "rank_down"), 4) << "in front of the rest";
  for (int i = 0; i < 6; ++i)
    press(i < 1 ? 7 : 0, "rank_up");
  EXPECT_EQ(sheet.user.at("methods").cell(1), "8");
  EXPECT_EQ(press(0, "rank_up"), 0);
  EXPECT_EQ(sheet.user.at("methods").rows[7][1], "Don't consider");
  sheet.dialog->apply();
  EXPECT_EQ(shown(), "marked");
  EXPECT_EQ(stored("ana/alloc/order") + stored("ana/alloc/prio"),
            "[6,5,4,7,3,8,2,1][8,4,3,3,2,1,1,0]");
  sheet.dialog->ok();
  EXPECT_EQ(shown(), "");
}

TEST_F(Sheets, macros_are_named_once_and_have_properties) {
  Sheet sheet("gAnaPre", 2);
  DialogUser & user = sheet.user;
  EXPECT_EQ(user.page().frames().back().title, "Properties");
  EXPECT_FALSE(user.at("action").enabled || user.at("parameterized").enabled);
  EXPECT_EQ(user.at("action").selected, -1);
  auto const make = [&](std::vector<char const *> const & names) {
    host.scripts = {[&](gDialog & dialog, DialogUser & asked) {
      EXPECT_EQ(dialog.title() + "," + asked.at("text").label, "New C/C++ Macro,Macro Name");
      for (char const * name : names) {
        asked.type("text", name);
        dialog.ok();
      }
    }};
    user.press("new");
  };
  make({"1A", " EXPORT "});
  EXPECT_EQ(shown(), "box: '1A' is not a C/C++ identifier.");
  make({"EXPORT", "API"});
  EXPECT_EQ(shown(), "box: Macro EXPORT already defined.");
  EXPECT_EQ(user.rows("macros"), "EXPORT/API");
  EXPECT_EQ(user.at("macros").cell(), "API");
  EXPECT_EQ(user.page().frames().back().title, "Properties of API");
  user.select("action", 2);
  EXPECT_EQ(shown(), "box: Only for parameterized macros.");
  EXPECT_EQ(user.at("action").cell(), "Don't change");
  user.check("parameterized", true);
  user.select("action", 2);
  user.check("parameterized", false);
  EXPECT_EQ(shown(), "box: Only for parameterized macros.");
  EXPECT_EQ(user.at("action").cell(), "Don't change");
  user.select("interpretation", 1);
  user.select("action", 1);
  EXPECT_FALSE(user.at("interpretation").enabled);
  user.select("macros", 0);
  EXPECT_EQ(user.at("interpretation").cell(), "C/C++ -Identifier");
  sheet.dialog->apply();
  EXPECT_EQ(shown(), "marked");
  EXPECT_EQ(stored("cppmacros/API"),
            R"({"name":"API","parameterized":false,"action":1,"interpretation":1})");
  outside.answers = {"no", "yes"};
  user.press("delete");
  user.key("macros", gListKey::remove);
  EXPECT_EQ(shown(), "ask: Delete macro EXPORT?; ask: Delete macro EXPORT?");
  EXPECT_EQ(user.rows("macros"), "API");
  EXPECT_NE(stored("cppmacros/EXPORT"), "(absent)") << "not before it is applied";
  sheet.dialog->ok();
  EXPECT_EQ(stored("cppmacros/EXPORT"), "(absent)");
}

class Attributes : public Sheets {
protected:
  Attributes() : sheet("gDefineAttr"), user(sheet.user) {
    Shell::attributes_written().connect(slot);
  }
  // Types the texts into the dialog that a button opens, a line each.
  void enter(char const * button, std::vector<std::string> const & texts) {
    host.titles.clear();
    host.scripts = {[&](gDialog & dialog, DialogUser & asked) {
      for (std::size_t i = 0; i < texts.size(); ++i)
        asked.type(asked.page().fields()[i].id.c_str(), texts[i]);
      dialog.ok();
    }};
    user.press(button);
  }

  Sheet sheet;
  DialogUser & user;
  int signals = 0;
  cFunctionSlot<std::function<void()>> slot{[this] { ++signals; }};
};

TEST_F(Attributes, are_made_commented_and_deleted) {
  enter("attribute_new", {"UNITTYPE", ""});
  enter("attribute_new", {"a b", ""});
  EXPECT_EQ(shown(),
            "box: Attribute UNITTYPE already defined.; box: 'a b' is not a valid identifier.");
  enter("attribute_new", {" LAYER", "Which layer"});
  EXPECT_EQ(host.titles.back(), "Define Attribute");
  EXPECT_EQ(user.at("attributes").rows.back(), (gField::Row{"LAYER", "Which layer"}));
  EXPECT_EQ(user.rows("values"), "undefined|");
  host.scripts = {[&](gDialog & dialog, DialogUser & asked) {
    asked.type("text", "Its layer");
    dialog.ok();
  }};
  user.activate("attributes", 1);
  EXPECT_EQ(host.titles.back(), "Meaning of attribute LAYER");
  EXPECT_EQ(user.at("attributes").cell(1), "Its layer");
  EXPECT_EQ(signals, 0);
  sheet.dialog->apply();
  EXPECT_EQ(shown(), "marked");
  EXPECT_FALSE(sheet.dialog->changed());
  sheet.dialog->apply();
  EXPECT_EQ(signals, 1);
  EXPECT_EQ(shown(), "") << "nothing was changed";
  EXPECT_EQ(stored("attr/LAYER/com") + stored("attr/LAYER/val"),
            R"("Its layer"{"undefined":[""]})");
  Vapp::options["ana"]["srcpat_unit"]["spt_class"]["attr"]["LAYER"] = cat::make("undefined");
  user.key("attributes", gListKey::remove);
  Vapp::options["ana"]["srcpat_unit"]["spt_class"]["attr"]->erase("LAYER");
  outside.answers = {"yes"};
  user.press("attribute_delete");
  EXPECT_EQ(shown(), "box: Cannot delete attribute LAYER.\nIt is being used by source pattern "
                     "spt_class.; ask: Delete attribute LAYER?");
  user.select("attributes", 0);
  user.press("attribute_delete");
  EXPECT_EQ(shown(), "box: Cannot delete a predefined attribute: UNITTYPE.");
  sheet.dialog->ok();
  EXPECT_EQ(stored("attr/LAYER"), "(absent)");
  EXPECT_EQ(signals, 2);
}

TEST_F(Attributes, have_values_of_the_user_beside_their_own) {
  user.select("attributes", 1);
  enter("value_new", {"a=b", ""});
  enter("value_new", {"public", ""});
  EXPECT_EQ(shown(), "box: Attribute values cannot contain the following characters:\n$ ! = , >; "
                     "box: Attribute value 'public' already exists.");
  enter("value_new", {"friend  of", "Friends"});
  EXPECT_EQ(host.titles.back(), "New Value for Attribute VISIBILITY");
  enter("value_new", {"other", ""});
  user.select("values", 5);
  EXPECT_EQ(user.at("values").cell(1), "Friends");
  enter("value_edit", {"friend", "A friend"});
  EXPECT_EQ(host.titles.back(), "Change Value of Attribute VISIBILITY");
  EXPECT_EQ(user.rows("values"), "public|public/protected|protected/private|private/"
                                 "published|published/undefined|/friend|A friend/other|");
  user.select("values", 0);
  user.activate("values", 0);
  user.press("value_delete");
  EXPECT_EQ(shown(), "box: Cannot change predefined attribute values.; "
                     "box: Cannot delete a predefined attribute value: 'public'.");
  user.select("values", 6);
  outside.answers = {"yes"};
  user.press("value_delete");
  EXPECT_EQ(shown(), "ask: Delete attribute value 'other'?");
  sheet.dialog->cancel();
  EXPECT_EQ(stored("attr/VISIBILITY/valusr"), "{}");
  EXPECT_EQ(signals, 0);
}

TEST_F(Attributes, of_unit_types_stay_while_they_have_subentries) {
  enter("value_new", {"script", "Script"});
  sheet.dialog->apply();
  EXPECT_EQ(stored("attr/UNITTYPE/valusr"), R"({"script":["Script"]})");
  EXPECT_NE(stored("attr/UNITTYPE/val").find("script"), std::string::npos);
  Vapp::options["unitconfig"]["script"]["@sline"] = cat::make(0);
  shown();
  user.press("value_delete");
  EXPECT_EQ(shown(), "box: Cannot delete unit type 'script'.\nThere are subentries configured for "
                     "this unit type.\n\nPlease remove these first from the unit type's "
                     "configuration.");
}

} // namespace
