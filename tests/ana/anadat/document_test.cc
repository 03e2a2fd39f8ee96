// The growing document, and the target of a reference.
#include <random>

#include <gtest/gtest.h>

#include "ana/anadat/gatcfile.h"
#include "app/options/options.h"
#include "unit_script.h"
#include "vlb/gexception.h"

namespace {

class DocumentTest : public testing::Test {
protected:
  void SetUp() override { Global::objects().reset_all(); }
  void TearDown() override { Global::objects().reset_all(); }

  static cRef<gDocUnit> unit(std::string const & name) {
    return make_ref<gSyntUnit>(names_of(name), "::", gSrcFile("u.h", "", 0), 1);
  }
  static void section() { gDocManager.open_section(make_ref<gSectHeader>("", "")); }
};

// The rule for the target of a reference, taken word by word.
gDocUnit * literal_nearest(std::vector<cRef<gDocUnit>> const & units, gOutline const & from) {
  gDocUnit * taken = nullptr;
  gOutline least{};
  for (cRef<gDocUnit> const & unit : units) {
    if (!(unit->flags() & gDocUnit::bookmark))
      continue;
    gOutline d;
    for (int i = 0; i < 8; ++i)
      d[i] = std::abs(unit->outline()[i] - from[i]);
    if (taken && (d == gOutline{} || d >= least))
      continue;
    taken = unit.get();
    least = d;
  }
  return taken;
}

} // namespace

TEST_F(DocumentTest, OutlinesCountPlacesInTheStructure) {
  section();
  gDocManager.set_level(3);
  EXPECT_EQ(gDocManager.outline(), (gOutline{1, 1, 1, 1}));
  gDocManager.set_level(2);
  cRef<gDocUnit> const a = unit("A"), f = unit("A::f"), g = unit("g");
  gDocManager.push_unit(a);
  gDocManager.add_unit(f);
  gDocManager.pop_unit();
  gDocManager.add_unit(g);
  EXPECT_EQ(a->outline(), (gOutline{1, 1, 2}));
  EXPECT_EQ(f->outline(), (gOutline{1, 1, 2, 1}));
  EXPECT_EQ(g->outline(), a->outline());
  EXPECT_EQ(f->parent(), a.get());
  EXPECT_EQ(gDocManager.unit_count(), 3);
  gDocManager.set_level(1);
  gDocManager.set_level(2);
  EXPECT_EQ(gDocManager.outline(), (gOutline{1, 2, 1}));
}

TEST_F(DocumentTest, DepthsAboveSevenAreRefused) {
  section();
  gDocManager.set_level(6);
  gDocManager.push_unit(unit("A"));
  EXPECT_THROW(gDocManager.push_unit(unit("B")), gExcRange);
  EXPECT_THROW(gDocManager.set_level(8), gExcRange);
  // An aborted run leaves a class open; the next one must not notice.
  Global::objects().reset_all();
  EXPECT_THROW(gDocManager.pop_unit(), gExcInternalErr);
  section();
  EXPECT_EQ(gDocManager.outline(), (gOutline{1, 1}));
  EXPECT_EQ(gDocManager.root().children().size(), 1u);
  EXPECT_EQ(unit("x")->label(), "VL_AX_1");
}

TEST_F(DocumentTest, ABreakEndsTheWalk) {
  section();
  gDocManager.add_unit(unit("A"));
  std::ostringstream out;
  Vapp::user_break = true;
  EXPECT_THROW(gDocManager.root().emit(out), gExcUserBreak);
  Vapp::user_break = false;
  EXPECT_EQ(out.str(), "");
}

TEST_F(DocumentTest, AFailedWriteIsReportedAndRemembered) {
  TestOutside outside;
  gAtcFile file("/dev/full");
  ASSERT_TRUE(file.is_open());
  file.stream() << std::string(1000000, 'x');
  EXPECT_FALSE(file.close());
  EXPECT_TRUE(gDocManager.write_failed());
  EXPECT_FALSE(gAtcFile("/no/such/folder/x").is_open());
  EXPECT_EQ(outside.report_text(), "ERROR 21: Cannot write to file: /dev/full\n"
                                   "ERROR 21: Cannot write to file: /no/such/folder/x\n");
}

TEST_F(DocumentTest, TailsOfNamesFindTheirUnitsAndNothingElse) {
  gDocTable table;
  std::vector<cRef<gDocUnit>> units;
  for (std::string const name : {"a::b::c", "b::c", "xc", "-"})
    table.add(*units.emplace_back(unit(name)));
  auto const found = [&](char const * name) {
    std::string all;
    table.each(name, [&](gDocUnit & one) { all += one.name() + " "; });
    return all;
  };
  EXPECT_EQ(found("c"), "a::b::c b::c ");
  EXPECT_EQ(found("a::b::c"), "a::b::c ");
  EXPECT_EQ(found("xc"), "xc ");
  for (char const * name : {"", "b", "::c", "a::b", "C"})
    EXPECT_EQ(found(name), "") << name;
  table.clear();
  EXPECT_EQ(found("c"), "");
}

TEST_F(DocumentTest, TheNearestUnitIsThatOfTheLiteralRule) {
  std::mt19937 random(7);
  auto const below = [&](int n) { return static_cast<int>(random() % n); };
  for (int round = 0; round < 300; ++round) {
    gDocTable table;
    std::vector<cRef<gDocUnit>> units;
    int const depth = 1 + below(8), width = 1 + below(4);
    auto const outline = [&] {
      gOutline any{};
      for (int i = 0; i < depth; ++i)
        any[i] = below(width + 1);
      return any;
    };
    for (int i = below(60); i > 0; --i) {
      auto const one = unit("n::f");
      one->set_outline(outline());
      if (below(4) == 0)
        one->clear_flag(gDocUnit::bookmark);
      table.add(*units.emplace_back(one));
    }
    for (int i = 0; i < 20; ++i) {
      gOutline const from = outline();
      ASSERT_EQ(table.nearest(from, "f"), literal_nearest(units, from)) << "round " << round;
    }
  }
}

TEST_F(DocumentTest, ManyUnitsOfOneNameAreResolvedQuickly) {
  std::vector<cRef<gDocUnit>> units;
  for (int i = 0; i < 50; ++i) {
    section();
    for (int k = 0; k < 1000; ++k)
      gDocManager.add_unit(unit("C" + std::to_string(i * 1000 + k) + "::operator()"));
  }
  // 50,000 references to 50,000 units take seconds if each walks along all of them.
  gString target;
  for (int i = 0; i < 50000; ++i) {
    ASSERT_TRUE(gDocManager.resolve_reference({1 + i % 50, 1}, "operator()", target));
    if (i % 50 == 20) {
      ASSERT_EQ(target.substr(0, 9), "VL_AC1900") << target;
    }
  }
}

TEST_F(DocumentTest, ADiamondOfBasesEndsTheBlock) {
  auto const insert = [](std::string const & name, std::initializer_list<std::string> bases) {
    auto clause = make_ref<gBaseClause>();
    for (std::string const & base : bases)
      clause->append({base, access_public});
    gCppClasses.insert_class(name, clause);
  };
  for (int i = 0; i < 40; ++i)
    for (char side : {'a', 'b'})
      insert(side + std::to_string(i + 1), {"a" + std::to_string(i), "b" + std::to_string(i)});
  EXPECT_EQ(gCppClasses.class_level("a40", hier_all), 40);
  EXPECT_LT(gCppClasses.hierarchy("a40", {}, hier_all, 0).size(), 50000u);
  EXPECT_LT(gCppClasses.hierarchy("a0", {}, 0, hier_all).size(), 50000u);
  // Looked at once for each number of levels, this one takes seconds.
  for (int i = 1; i <= 250; ++i) {
    auto clause = make_ref<gBaseClause>();
    for (int k = i; k-- > 0;)
      clause->append({"d" + std::to_string(k), access_public});
    gCppClasses.insert_class("d" + std::to_string(i), clause);
  }
  EXPECT_EQ(gCppClasses.class_level("d250", hier_all), 250);
  // In the modern dialect a block has those that are near, and all direct ones in any case.
  gRunInput modern = Vapp::standard_run_input();
  modern.modern = true;
  gInput.set(modern);
  auto const steps_at = [](gStrList const & block, int level) {
    int count = 0;
    for (auto const & piece : block)
      count += piece->find("><" + std::to_string(level) + ">{d") != piece->npos;
    return count;
  };
  gStrList const up = gCppClasses.hierarchy("d250", {}, hier_all, 0);
  EXPECT_LT(up.size(), 4000u);
  EXPECT_EQ(steps_at(up, 249), 250);
  EXPECT_GT(steps_at(up, 248), 500);
  gStrList const down = gCppClasses.hierarchy("d0", {}, 0, hier_all);
  EXPECT_LT(down.size(), 4000u);
  EXPECT_EQ(steps_at(down, 1), 250);
  for (int i = 0; i < 100000; ++i)
    insert("c" + std::to_string(i + 1), {"c" + std::to_string(i)});
  EXPECT_EQ(gCppClasses.class_level("c7", 3), 3);
  EXPECT_LE(gCppClasses.class_level("c100000", hier_all), 256);
}

TEST(Templates, ResetGoesBackToTheDefaults) {
  gVLAttributes.reset();
  gStrList const before = gVLAttributes.list({"unittpl", "UTPL_Default", "contents"});
  gVLAttributes.submap("unittpl").submap("Mine").set("style", cat::make("s"));
  gVLAttributes.add_subentry("@see", "See");
  gVLAttributes.reset();
  EXPECT_FALSE(gVLAttributes.has({"unittpl", "Mine"}));
  EXPECT_FALSE(gVLAttributes.has({"unittpl", "UTPL_Default", "@see"}));
  EXPECT_EQ(gVLAttributes.list({"unittpl", "UTPL_Default", "contents"}), before);
}

TEST(UnitNames, ASearchGoesFromTheWholeNameToItsTails) {
  Global::objects().reset_all();
  auto const add = [](char const * name) {
    gUnitNames.add(name, make_ref<gTextUnit>(name, gSrcFile("u.h", "", 0), 1));
  };
  auto const found = [](char const * name, char const * sep) {
    std::string all;
    cRef<gDocUnit> unit;
    for (bool ok = gUnitNames.find(name, unit, sep); ok; ok = gUnitNames.next(unit))
      all += unit->label() + " ";
    EXPECT_FALSE(gUnitNames.next(unit));
    return all;
  };
  add("a::b");
  add("b");
  add("a::b");
  EXPECT_EQ(found("x::a::b", "::"), "VL_AA__B_1 VL_AA__B_3 VL_AB_2 ");
  EXPECT_EQ(found("a::b", ""), "VL_AA__B_1 VL_AA__B_3 ");
  EXPECT_EQ(found("x::b", ""), "");
  EXPECT_EQ(found("c::d", "::"), "");
  Global::objects().reset_all();
}
