#include "store/csignal.h"

#include <gtest/gtest.h>
#include <memory>

namespace {

using Slot = cFunctionSlot<std::function<void()>>;

struct Signals : testing::Test {
  std::string heard;
  cSignal signal;
  Slot slot(char name) {
    return Slot([this, name] { heard += name; });
  }
};

// A slot that disconnects itself doesn't stop those after it; one that is connected is called from
// the next delivery on.
TEST_F(Signals, SlotsMayComeAndGoDuringDelivery) {
  Slot a = slot('a'), c = slot('c'), late = slot('l');
  Slot b([&] {
    heard += 'b';
    b.disconnect();
    signal.connect(late);
  });
  for (Slot const * s : {&a, &b, &c})
    signal.connect(*s);
  signal();
  EXPECT_EQ(heard, "abc");
  signal();
  EXPECT_EQ(heard, "abcacl");
}

TEST_F(Signals, ASlotMayDeleteAnotherOneAndTheSignalDuringDelivery) {
  auto other = std::make_unique<Slot>([&] { heard += 'x'; });
  auto own = std::make_unique<cSignal>();
  Slot killer([&] {
    heard += 'k';
    other.reset();
    own.reset();
  });
  own->connect(killer);
  own->connect(*other);
  (*own)();
  EXPECT_EQ(heard, "k");
  EXPECT_FALSE(killer.isconnected());
}

TEST_F(Signals, ABlockedEndGetsNothingUntilTheLastReferenceIsGone) {
  Slot a = slot('a'), b = slot('b');
  signal.connect(a);
  signal.connect(b);
  cRef<cShared> once = a.block(), twice = a.block(), outlives;
  once = nullptr;
  signal();
  twice = nullptr;
  signal();
  outlives = signal.block();
  signal();
  EXPECT_EQ(heard, "bab");
  outlives = slot('g').block();
}

} // namespace
