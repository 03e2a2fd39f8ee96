#include "store/csignal.h"

#include <gtest/gtest.h>
#include <memory>

#include "store/cchoiceval.h"
#include "store/cerr.h"
#include "store/cfactory.h"

namespace {

using Slot = cFunctionSlot<std::function<void()>>;

struct Signals : testing::Test {
  std::string heard;
  cSignal signal;
  Slot slot(char name) {
    return Slot([this, name] { heard += name; });
  }
};

TEST_F(Signals, DeliverArgumentsToMembersAndOtherSignals) {
  struct Receiver {
    int sum = 0;
    void add(int a, int b) { sum += a * b; }
  } receiver;
  cSignal2<int, int> first, second;
  cSlot2<Receiver, int, int> member(receiver, &Receiver::add);
  first.connect(second);
  second.connect(member);
  first(3, 4);
  EXPECT_EQ(receiver.sum, 12);
}

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

TEST_F(Signals, AGuardedReferenceGivesUpWhenItsTargetGoes) {
  struct Target {
    cDeleteSignal gone;
    cDeleteSignal const & delete_signal() const { return gone; }
  };
  cGuardedRef<Target> guard;
  {
    Target target;
    guard.set(&target);
    EXPECT_EQ(guard.get(), &target);
  }
  EXPECT_FALSE(guard);
}

TEST_F(Signals, ErrorsReachTheSlotsThatLive) {
  {
    cErrSlot const slot([&](cErr & e) { heard += std::to_string(e.code()) + e.text(); });
    cat::publish_error(2, "x");
  }
  cat::publish_error(3, "y");
  EXPECT_EQ(heard, "2x");
}

TEST_F(Signals, AChoiceTellsItsChangesAndKeepsToItsSet) {
  cTypeObj type(&cat::typetype_choice(), "colours", [](cTypeObj & t) {
    t.choices()[4] = cat::make("red");
    t.choices()[7] = cat::make("green");
  });
  cChoiceVal fixed(&type, false), growing(&type, true);
  Slot changed = slot('c');
  fixed.sig_changed().connect(changed);
  for (int position : {1, 1, 2, -1})
    fixed = position;
  EXPECT_EQ(cat::as_string(fixed.valref()), "green");
  EXPECT_EQ(cat::as_index(fixed.key()), 7);
  EXPECT_TRUE(fixed.setkey(4));
  EXPECT_EQ(heard, "cc");
  growing = 2;
  EXPECT_TRUE(growing.pos() == 2 && !growing.valid());
}

struct Shape {
  virtual ~Shape() = default;
};
struct Square : Shape {};

TEST(Factories, MakeObjectsByNameWhileTheirEntryLives) {
  {
    cFactoryEntry<Shape, Square> const entry("Square", "a shape"), taken("Square", "another");
    std::unique_ptr<Shape> const shape(cat::create_by_name<Shape>("Square"));
    EXPECT_TRUE(dynamic_cast<Square *>(shape.get()));
    EXPECT_EQ(cRepoImpl::get(typeid(Shape)).size(), 1u);
  }
  EXPECT_EQ(cat::create_by_name<Shape>("Square"), nullptr);
}

} // namespace
