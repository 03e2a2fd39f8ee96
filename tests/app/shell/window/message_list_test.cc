// Lines on their way into the message window, and what the user sees of them.

#include <gtest/gtest.h>

#include <thread>

#include "app/shell/window/message_list.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

std::string shown(gMessageList const & list) {
  std::string text;
  for (std::size_t row = 0; row < list.rows(); ++row)
    text += list.whole_line(row) + "\n";
  return text;
}

class Messages : public testing::Test {
protected:
  void SetUp() override {
    queue.line(Msg::all, "Reading a.h");
    queue.report({Msg::undefined_file_group, "g", {"src/A.h", 3}});
    queue.report({Msg::treating_as_unnamed});
    queue.report({Msg::named_target_not_found, "x", {"src/b.h", 7}});
    queue.report({Msg::no_text_unit, "out.atc", {"out.atc"}});
    queue.report({Msg::preprocessing});
    list.append(queue.take().rows);
  }

  gMessageQueue queue;
  gMessageList list;
};

TEST_F(Messages, HaveTheLinesOfTheLogAndTheirParts) {
  EXPECT_EQ(shown(list), "Reading a.h\n"
                         "WARNING: Undefined file group: g (src/A.h:3)\n"
                         "    Treating text unit as unnamed.\n"
                         "WARNING 519: Reference target not found: x (src/b.h:7)\n"
                         "ERROR 520: No text unit in the intermediate code: out.atc\n"
                         "STATUS: Preprocessing input files...\n");
  EXPECT_EQ(list.severity_name(3), "Warning");
  EXPECT_EQ(list.number(3), 519);
  EXPECT_EQ(list.file(3), "src/b.h");
  EXPECT_EQ(list.line(3), 7);
  EXPECT_EQ(list.text(3), "Reference target not found: x");
  EXPECT_EQ(list.place(2).text(), "src/A.h:3") << "a hint opens the place of its report";
  EXPECT_TRUE(list.place(0).empty());
  EXPECT_EQ(list.count(gMessageKind::warning), 2u) << "hints are no reports";
}

TEST_F(Messages, AreFilteredTogetherWithTheirHints) {
  gMessageFilter filter;
  filter.show = {true, false, true, false, false};
  filter.file = "SRC/";
  list.set_filter(filter);
  EXPECT_EQ(list.rows(), 3u);
  EXPECT_TRUE(list.is_hint(1));
  queue.report({Msg::treating_as_unnamed}); // continues the state line, which isn't shown
  queue.report({Msg::undefined_file_group, "h", {"src/new.h"}});
  queue.report({Msg::undefined_file_group, "h", {"lib/new.h"}});
  list.append(queue.take().rows);
  EXPECT_EQ(list.rows(), 4u) << shown(list);
  filter.numbers = {519};
  list.set_filter(filter);
  EXPECT_EQ(shown(list), "WARNING 519: Reference target not found: x (src/b.h:7)\n");
  list.clear();
  queue.report({Msg::named_target_not_found, "y", {"src/c.h", 1}});
  queue.line(Msg::all, "text");
  list.append(queue.take().rows);
  EXPECT_EQ(list.rows(), 1u) << "the filter stays when all lines go";
  EXPECT_EQ(list.files(), std::vector<std::string>{"src/c.h"});
}

TEST_F(Messages, AreFoundAroundTheEndAndCopied) {
  EXPECT_EQ(list.find("UNIT", 0), 2u);
  EXPECT_EQ(list.find("unit", 3), 4u);
  EXPECT_EQ(list.find("unit", 5), 2u);
  EXPECT_EQ(list.find("unit", 1, true), 4u);
  EXPECT_EQ(list.find("b.h:7", 0), 3u) << "places belong to the line";
  EXPECT_EQ(list.find("nowhere", 0), gMessageList::none);
  EXPECT_EQ(list.find("", 0), gMessageList::none);
  EXPECT_EQ(gMessageList().find("x", 0), gMessageList::none);
  EXPECT_EQ(list.copy({2, 0, 99}), "Reading a.h\n    Treating text unit as unnamed.\n");
}

TEST(MessageQueue, TakesLinesOfManyThreadsInTheirOrder) {
  std::atomic<int> woken = 0;
  gMessageQueue queue([&woken] { ++woken; });
  constexpr int each = 25000;
  std::vector<std::thread> threads;
  for (int number = 0; number < 4; ++number)
    threads.emplace_back([&queue, number] {
      for (int i = 0; i < each; ++i) {
        queue.report(
            {Msg::undefined_file_group, std::to_string(i), {"f" + std::to_string(number), i}});
        queue.status(std::to_string(i));
      }
    });
  gMessageList list;
  while (list.size() < 4 * each) {
    gMessageQueue::Batch batch = queue.take();
    list.append(std::move(batch.rows));
    std::this_thread::yield();
  }
  for (std::thread & thread : threads)
    thread.join();
  std::map<std::string, int> next;
  for (std::size_t row = 0; row < list.rows(); ++row)
    ASSERT_EQ(list.line(row), next[std::string(list.file(row))]++);
  EXPECT_GE(woken, 1);
  queue.line(Msg::all, "old");
  queue.clear();
  queue.line(Msg::all, "new");
  gMessageQueue::Batch const batch = queue.take();
  EXPECT_TRUE(batch.clear);
  ASSERT_EQ(batch.rows.size(), 1u);
  EXPECT_EQ(batch.rows[0].text, "new");
  EXPECT_TRUE(queue.take().empty());
}

TEST(MessageList, StaysBelowItsCapacityAndTellsWhatIsMissing) {
  gMessageList list;
  std::vector<gMessageRow> rows(gMessageList::capacity + 5);
  list.append(rows);
  list.left_out(2);
  list.append({gMessageRow{}});
  EXPECT_EQ(list.size(), gMessageList::capacity + 1);
  EXPECT_EQ(list.text(list.rows() - 1), "8 more lines. The log has all of them.");
  list.clear();
  list.append({gMessageRow{}});
  EXPECT_EQ(list.size(), 1u);
}

} // namespace
