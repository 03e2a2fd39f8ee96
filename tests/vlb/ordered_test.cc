// Work on several threads, taken in order.

#include "vlb/ordered.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>

namespace {

constexpr std::size_t many = 5000;

TEST(ordered, gives_each_result_once_and_in_order) {
  for (unsigned const threads : {1U, 2U, 8U}) {
    std::atomic<std::size_t> made = 0, taken = 0;
    std::atomic<bool> too_far = false;
    std::vector<std::atomic<int>> busy(threads);
    Vlb::gOrdered<std::string> results(threads, many, [&](unsigned worker, std::size_t item) {
      EXPECT_EQ(busy[worker].exchange(1), 0) << "a worker has one item at a time";
      if (item > taken + 32 * std::size_t(threads))
        too_far = true;
      ++made;
      busy[worker] = 0;
      return std::to_string(item);
    });
    for (std::size_t i = 0; i < many; ++i, ++taken)
      ASSERT_EQ(results.next(), std::to_string(i));
    EXPECT_EQ(made, many);
    EXPECT_FALSE(too_far) << "results would fill the memory";
  }
}

TEST(ordered, raises_a_fault_where_its_result_is_asked_for) {
  for (unsigned const threads : {1U, 4U}) {
    Vlb::gOrdered<int> results(threads, 300, [](unsigned, std::size_t item) {
      if (item % 7 == 3)
        throw std::runtime_error(std::to_string(item));
      return static_cast<int>(item);
    });
    for (std::size_t i = 0; i < 300; ++i)
      try {
        EXPECT_EQ(results.next(), static_cast<int>(i));
        EXPECT_NE(i % 7, 3U);
      } catch (std::runtime_error const & fault) {
        EXPECT_EQ(fault.what(), std::to_string(i));
      }
  }
}

// A stop by the user unwinds the caller while others are at work.
TEST(ordered, begins_nothing_more_when_it_ends) {
  std::atomic<std::size_t> begun = 0;
  std::atomic<bool> ended = false, late = false;
  {
    Vlb::gOrdered<int> results(8, 1'000'000, [&](unsigned, std::size_t) {
      late = late || ended;
      ++begun;
      return 0;
    });
    results.next();
  }
  ended = true;
  EXPECT_LE(begun, 8 * 32 + 1U);
  EXPECT_FALSE(late);
}

} // namespace
