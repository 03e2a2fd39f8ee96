// Where the window stands, and what the status line says of a run.

#include <gtest/gtest.h>

#include "app/options/options.h"
#include "app/shell/window/geometry.h"
#include "app/shell/window/run_progress.h"

namespace {

using namespace std::chrono_literals;

void store(int left, int top, int right, int bottom) {
  Shell::store_place({left, top, right, bottom});
}

TEST(Geometry, ComesBackWhereTheWindowWas) {
  std::vector<gRect> const screens = {{0, 0, 1000, 800}, {1000, 0, 2000, 800}};
  gRect const standard = {265, 200, 970, 770};
  store(1100, 50, 1900, 700);
  EXPECT_EQ(Shell::start_place(screens), (gRect{1100, 50, 1900, 700}));
  EXPECT_EQ(Shell::start_place({screens[0]}), standard) << "its screen is gone";
  store(600, 300, 100, 50);
  EXPECT_EQ(Shell::start_place(screens), (gRect{600, 300, 1100, 550}));
  store(-5, 0, 500, 500);
  EXPECT_EQ(Shell::start_place(screens), standard);
  store(0, 0, 500, 500);
  Vapp::options_ini["wnd_top"] = cat::make("0");
  EXPECT_EQ(Shell::start_place(screens), standard);
}

TEST(Geometry, PutsDialogsBesideTheWindow) {
  gRect const screen = {0, 0, 1000, 800}, dialog = {0, 0, 200, 300};
  EXPECT_EQ(Shell::place_aside(dialog, {100, 100, 600, 500}, screen, 10, 20),
            (gRect{610, 120, 810, 420}));
  EXPECT_EQ(Shell::place_aside(dialog, {300, 600, 900, 790}, screen, 10, 20),
            (gRect{90, 500, 290, 800}));
  EXPECT_EQ(Shell::place_aside(dialog, screen, screen, 10, 20), (gRect{800, 20, 1000, 320}));
}

TEST(RunProgress, GuessesTheRestOnceThereIsEnoughToGoBy) {
  gRunProgress progress;
  auto const start = gRunProgress::Clock::time_point(1000s);
  auto const text = [&](std::string const & status, std::chrono::seconds at) {
    progress.take(status, start + at);
    return progress.text(start + at);
  };
  EXPECT_EQ(text("Ready", 0s), "Ready");
  EXPECT_FALSE(progress.busy());
  EXPECT_EQ(text("Analyzing program code... 0%", 0s), "Analyzing program code 0%");
  EXPECT_EQ(text("Analyzing program code... 50%", 1s), "Analyzing program code 50%") << "too early";
  EXPECT_EQ(text("Analyzing program code... 60%", 6s),
            "Analyzing program code 60%, about 5 s left");
  EXPECT_EQ(progress.remaining(start + 8s), 2s) << "time goes on between two percents";
  EXPECT_EQ(progress.remaining(start + 100s), 1s);
  EXPECT_EQ(text("Checking documentation... 2%", 200s), "Checking documentation 2%");
  EXPECT_EQ(text("Checking documentation... 4%", 210s),
            "Checking documentation 4%, about 8 min left");
  EXPECT_EQ(text("Checking documentation... 100%", 220s), "Checking documentation 100%");
  EXPECT_EQ(text("100%", 230s), " 100%");
  EXPECT_EQ(text("12345678901234567890%", 230s), "12345678901234567890%");
  EXPECT_EQ(text("Ready", 240s), "Ready");
}

} // namespace
