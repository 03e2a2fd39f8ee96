// Who gets which text.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <sstream>

#include "ana/association.h"
#include "literal_association.h"

namespace {

struct CleanTables {
  CleanTables() { Global::objects().reset_all(); }
  ~CleanTables() { Global::objects().reset_all(); }
};

gSrcFile source(std::string const & path, int number) {
  return {"/tmp/copy" + std::to_string(number), path, number};
}

gStrList parts(std::string const & name) {
  gStrList list;
  std::size_t start = 0;
  for (std::size_t end; (end = name.find("::", start)) != std::string::npos; start = end + 2)
    list.push_back(gString(name.substr(start, end - start)));
  list.push_back(gString(name.substr(start)));
  return list;
}

cRef<gCodeElem> add_element(gSrcFile const & file, int line, std::string const & name,
                            int type = ut_function, int flags = 0,
                            char const * visibility = "undefined") {
  auto ce = make_ref<gCodeElem>(parts(name), file, line, type, "", visibility, flags);
  gCodeElems.insert_at(ce->loc, ce);
  return ce;
}

void add_unit(gSrcFile const & file, int line, std::string const & name) {
  gStrList const names = name.empty() ? gStrList() : parts(name);
  cRef<gDocUnit> const unit = make_ref<gSyntUnit>(names, "::", file, line);
  (name.empty() ? gUnnamedUnits : gNamedUnits).insert_at(unit->loc(), unit);
  if (!name.empty())
    gUnitNames.add(unit->name(), unit);
}

void add_comment(gSrcFile const & file, int line) {
  gComments.insert_at({file, line}, make_ref<gCmt>(file, line, line));
}

template <class Text>
void tell(std::ostream & out, char const * kind, int line, Text const & text) {
  if (cRef<gCodeElem> const & ce = text.code_elem())
    out << kind << " " << line << " <- " << ce->name() << " " << ce->loc.line() << " rank "
        << text.rank() << "\n";
}

// All bindings, one a line.
std::string bindings() {
  std::ostringstream out;
  for (auto const & file : gComments)
    for (auto const & [place, comment] : *file.value)
      tell(out, "comment", place.line, *comment);
  for (auto const & file : gUnnamedUnits)
    for (auto const & [place, unit] : *file.value)
      tell(out, "unit", place.line, *unit);
  for (auto const & file : gNamedUnits)
    for (auto const & [place, unit] : *file.value)
      tell(out, unit->name().c_str(), place.line, *unit);
  return out.str();
}

gAllocOptions default_options() {
  gAllocOptions options;
  options.order = {5, 6, 3, 4, 7, 8, 1, 2};
  options.prio = {4, 4, 3, 3, 2, 1, 0, 0};
  return options;
}

std::string associated(gAllocOptions const & options) {
  gAssociation association(options);
  for (auto const & file : gCodeElems)
    for (auto const & [place, ce] : *file.value)
      association.associate(ce);
  return bindings();
}

// A small world with many chances for two elements to want the same text.
void random_world(unsigned seed) {
  std::mt19937 random(seed);
  auto const below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  char const * const names[] = {"f", "g", "A::f", "B::f", "n::A::f", "A::g", "n::A"};
  char const * const paths[] = {"/a/x.h", "/a/y.h", "/b/x.h", "/A/X.H"};
  int const lines = 2 + below(30);
  int const density = 1 + below(4);
  for (int number = 1; number <= 4; ++number) {
    gSrcFile const file = source(paths[number - 1], number);
    for (int line = 1; line <= lines; ++line) {
      if (below(5) < density)
        add_element(file, line, names[below(7)]);
      if (below(5) < density)
        add_unit(file, line, below(3) ? names[below(7)] : "");
      if (below(8) < density)
        add_comment(file, line);
    }
  }
}

gAllocOptions random_options(unsigned seed) {
  std::mt19937 random(seed * 7 + 1);
  gAllocOptions options = default_options();
  std::shuffle(options.order.begin(), options.order.end(), random);
  for (int & rank : options.prio)
    rank = static_cast<int>(random() % 5);
  options.gen_unit = 11;
  return options;
}

TEST(association, binds_as_the_plain_search_does) {
  for (unsigned seed = 0; seed < 1500; ++seed) {
    gAllocOptions const options = random_options(seed);
    CleanTables tables;
    random_world(seed);
    std::string const found = associated(options);
    std::size_t generated = 0;
    for (auto const & name : gGeneratedUnits)
      generated += name.value.size();
    Global::objects().reset_all();
    random_world(seed);
    LiteralAssociation literal(options);
    for (auto const & file : gCodeElems)
      for (auto const & [place, ce] : *file.value)
        literal.associate(ce);
    ASSERT_EQ(found, bindings()) << "seed " << seed;
    ASSERT_EQ(generated, gGeneratedUnits.size()) << "seed " << seed;
  }
}

TEST(association, a_better_method_takes_a_text_over) {
  CleanTables tables;
  gSrcFile const far = source("/b/far.cc", 1), near = source("/a/near.h", 2);
  add_element(far, 5, "f"); // comes first, but only by a method of low rank
  add_unit(near, 1, "f");
  add_unit(near, 2, "f");
  add_element(near, 7, "f");
  EXPECT_EQ(associated(default_options()), "f 1 <- f 7 rank 4\nf 2 <- f 5 rank 2\n");
}

// "int a; /* a */ int b; /* b */" with columns, and a comment in front of a line with two things.
TEST(association, several_things_of_a_line_keep_their_own_comments) {
  CleanTables tables;
  gSrcFile const file = source("/a/x.h", 1);
  auto const add = [&](int line, int column, std::string const & name) {
    auto ce = make_ref<gCodeElem>(parts(name), file, line, ut_var, "", "undefined", 0);
    ce->column = column;
    gCodeElems.own_map(file).add(ce->place(), ce);
  };
  auto const comment = [&](int line, int column) {
    gComments.own_map(file).add({line, column}, make_ref<gCmt>(file, line, line));
  };
  comment(1, 1);
  add(2, 5, "c");
  add(2, 8, "d");
  add(2, 8, "d2"); // such as a macro makes
  add(4, 5, "a");
  comment(4, 8);
  add(4, 20, "b");
  comment(4, 23);
  comment(5, 1);
  gAllocOptions options;
  options.order = {comment_after, comment_before};
  options.prio = {2, 1};
  EXPECT_EQ(associated(options), "comment 1 <- c 2 rank 1\n"
                                 "comment 4 <- a 4 rank 2\n"
                                 "comment 4 <- b 4 rank 2\n");
  EXPECT_EQ(gCodeElems.total(), 5u);
}

TEST(association, generates_units_by_the_options) {
  CleanTables tables;
  gSrcFile const file = source("/a/x.cc", 1);
  gAllocOptions options;
  options.gen_unit = ut_function | ut_var;
  gAssociation const off(options);
  options.gen_private = options.gen_static = options.gen_extern = true;
  gAssociation const on(options);
  struct {
    int type, flags;
    char const * visibility;
    bool without, with;
  } const rows[] = {
      {ut_function, 0, "undefined", true, true},
      {ut_class, 0, "undefined", false, false},
      {ut_function, 0, "private", false, true},
      {ut_function, spec_static, "undefined", false, true},
      {ut_function, spec_extern, "undefined", true, true},
      {ut_var, spec_extern, "undefined", false, true},
  };
  for (auto const & row : rows) {
    auto const ce = add_element(file, 1, "x", row.type, row.flags, row.visibility);
    EXPECT_EQ(off.should_generate(*ce), row.without) << row.type << " " << row.flags;
    EXPECT_EQ(on.should_generate(*ce), row.with) << row.type << " " << row.flags;
  }
}

double seconds_for(gAllocOptions const & options) {
  auto const start = std::chrono::steady_clock::now();
  associated(options);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// A walk from the top for each element would take minutes here.
TEST(association, many_texts_of_one_name_cost_no_square) {
  constexpr int many = 60000;
  gSrcFile const file = source("/a/x.h", 1), other = source("/b/y.h", 2);
  for (bool const far : {false, true}) {
    CleanTables tables;
    for (int i = 0; i < many; ++i) {
      add_unit(far ? other : file, i + 1, "f");
      add_element(file, far ? i + 1 : many + i + 1, "f");
    }
    EXPECT_LT(seconds_for(default_options()), 10) << far;
  }
}

TEST(association, a_long_chain_of_displacements_is_no_recursion) {
  constexpr int many = 50000;
  CleanTables tables;
  gSrcFile const near = source("/a/x.h", 2), far = source("/b/y.h", 1);
  // All units first go to the far elements, in order; each near one then pushes a far one on.
  for (int i = 1; i <= many; ++i) {
    add_element(far, i, "f");
    add_unit(near, i, "f");
    add_element(near, many + i, "f");
  }
  EXPECT_LT(seconds_for(default_options()), 10);
  EXPECT_EQ(bindings().find("rank 2"), std::string::npos);
}

} // namespace
