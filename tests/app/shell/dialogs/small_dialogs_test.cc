// Dialogs of one or two lines: what they refuse, where the focus goes, what the caller gets.

#include <gtest/gtest.h>

#include "app/options/options.h"
#include "app/options/project.h"
#include "app/shell/dialogs/make_dialog.h"
#include "app/shell/dialogs/small_dialogs.h"
#include "store/cerr.h"
#include "support/test_dialogs.h"
#include "support/test_outside.h"

namespace {

class SmallDialogs : public testing::Test {
protected:
  SmallDialogs() {
    Vapp::project().load_defaults();
    Vapp::project().set_project_name("/p.vlp");
    outside.shown.clear();
  }
  // OK with these texts is refused with the box, and the focus is in that line.
  void refused(gDialog & dialog, std::vector<std::pair<char const *, std::string>> const & texts,
               std::string const & box, std::string const & focus) {
    DialogUser user(dialog);
    outside.shown.clear();
    for (auto const & [id, text] : texts)
      user.type(id, text);
    dialog.ok();
    EXPECT_TRUE(dialog.is_open()) << box;
    EXPECT_EQ(outside.shown,
              box.empty() ? std::vector<std::string>{} : std::vector<std::string>{"box: " + box});
    EXPECT_EQ(user.focus(), focus) << box;
  }
  static void passes(gDialog & dialog,
                     std::vector<std::pair<char const *, std::string>> const & texts) {
    DialogUser user(dialog);
    for (auto const & [id, text] : texts)
      user.type(id, text);
    dialog.ok();
    EXPECT_TRUE(dialog.accepted());
  }
  TestOutside outside;
};

TEST_F(SmallDialogs, texts_and_names) {
  cTxtDialog comment("Meaning of attribute A", "Comment", " as it was");
  EXPECT_EQ(DialogUser(comment).at("text").label, "Comment");
  passes(comment, {});
  EXPECT_EQ(comment.text(), " as it was");
  cTxtDialog name("New Source Pattern", "Name", "", [](std::string & text) {
    cat::wsp_normalize(text);
    return Vapp::check_new_pattern(Vapp::options, text);
  });
  refused(name, {{"text", " 2x "}}, "'2x' is not a valid identifier.", "text");
  EXPECT_EQ(name.text(), "2x") << "the line shows the normal form";
  refused(name, {{"text", "  "}}, "", "text");
  passes(name, {{"text", " mine "}});
  EXPECT_EQ(name.text(), "mine");
  NewattrDialog attribute(Vapp::options);
  refused(attribute, {{"name", "UNITTYPE"}}, "Attribute UNITTYPE already defined.", "name");
  passes(attribute, {{"name", " NEW"}, {"comment", "a comment"}});
  EXPECT_EQ(attribute.name() + attribute.comment(), "NEWa comment");
  EXPECT_EQ(outside.shown.size(), 1u) << "it is the caller who stores and marks the project";
}

TEST_F(SmallDialogs, values_of_attributes) {
  cRef<cObj> const record = Vapp::option({"attr", "UNITTYPE"});
  gAttvalDialog fresh("New Value for Attribute UNITTYPE", *record);
  refused(fresh, {{"value", "function"}}, "Attribute value 'function' already exists.", "value");
  refused(fresh, {{"value", "a=b"}},
          "Attribute values cannot contain the following characters:\n$ ! = , >", "value");
  refused(fresh, {{"value", ""}}, "", "value");
  passes(fresh, {{"value", "a  b"}, {"output", "A B"}});
  EXPECT_EQ(fresh.value() + "," + fresh.output(), "a b,A B");
  gAttvalDialog same("Change Value of Attribute UNITTYPE", *record, "function", "f");
  passes(same, {{"output", "Function"}});
}

TEST_F(SmallDialogs, keywords) {
  std::vector<std::string> heard;
  cErrSlot const slot([&](cErr & error) { heard.push_back(std::to_string(error.code())); });
  gKwdDialog dialog("New Keyword for @author", Vapp::options);
  refused(dialog, {{"keyword", "a b"}, {"separators", ""}},
          "Keywords containing spaces must have a separator.", "keyword");
  refused(dialog, {{"separators", ":-"}},
          "Alphanumeric characters, '_', and '-'\ncannot be used as keyword separators.",
          "separators");
  refused(dialog, {{"keyword", "@1"}, {"separators", ""}},
          "@-keyword must start with a letter or '_'.", "keyword");
  cObj const & subentries = *Vapp::option("ana/srcpat_subentry");
  cIterObj holder = subentries.begin();
  while (!(holder->at("kwd") && holder->at("kwd")->size() > 0))
    holder++;
  std::string const used = cat::as_string(holder->at("kwd")->at(0) / "0");
  refused(dialog, {{"keyword", used}}, "Keyword already exists for " + holder.key_as_string() + ".",
          "keyword");
  EXPECT_EQ(heard, (std::vector<std::string>{"3", "2", "1", "1"}));
  passes(dialog, {{"keyword", "@mine"}});
  gKwdDialog change("Change Keyword", Vapp::options, {holder.key_as_string(), 0}, used, ":");
  passes(change, {});
  EXPECT_EQ(change.keyword() + change.separators(), used + ":");
}

TEST_F(SmallDialogs, about) {
  std::unique_ptr<gDialog> const about = Shell::make_dialog("gAboutDialog");
  ASSERT_TRUE(about);
  EXPECT_FALSE(about->has_cancel());
  EXPECT_TRUE(DialogUser(*about).at("name").text.starts_with("Vellumar 1."));
}

} // namespace
