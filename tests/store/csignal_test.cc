#include "store/csignal.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

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

TEST_F(Signals, DeliverArgumentsToFunctionsMembersAndOtherSignals) {
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

TEST_F(Signals, ASlotThatDisconnectsItselfDoesNotStopThoseAfterIt) {
  Slot a = slot('a');
  Slot b([&] {
    heard += 'b';
    b.disconnect();
  });
  Slot c = slot('c');
  for (Slot const * s : {&a, &b, &c})
    signal.connect(*s);
  signal();
  signal();
  EXPECT_EQ(heard, "abcac");
}

TEST_F(Signals, ASlotMayDeleteAnotherOneOrTheSignalDuringDelivery) {
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

TEST_F(Signals, ASlotConnectedDuringDeliveryIsCalledFromTheNextOne) {
  Slot late = slot('l');
  Slot first([&] {
    heard += 'f';
    if (!late.isconnected())
      signal.connect(late);
  });
  signal.connect(first);
  signal();
  EXPECT_EQ(heard, "f");
  signal();
  EXPECT_EQ(heard, "ffl");
}

TEST_F(Signals, ABlockedEndGetsNothingUntilTheLastReferenceIsGone) {
  Slot a = slot('a'), b = slot('b');
  signal.connect(a);
  signal.connect(b);
  cRef<cShared> once = a.block();
  cRef<cShared> twice = a.block();
  once = nullptr;
  signal();
  twice = nullptr;
  signal();
  {
    cRef<cShared> const all = signal.block();
    signal();
  }
  EXPECT_EQ(heard, "bab");
  cRef<cShared> outlives;
  {
    Slot gone = slot('g');
    outlives = gone.block();
  }
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
  std::string texts;
  {
    cErrSlot const slot(
        [&](cErr & error) { texts += std::to_string(error.code()) + error.text(); });
    cat::publish_error(2, "x");
  }
  cat::publish_error(3, "y");
  EXPECT_EQ(texts, "2x");
}

TEST_F(Signals, AChoiceTellsItsChangesAndKeepsToItsSet) {
  cTypeObj type(&cat::typetype_choice(), "colours", [](cTypeObj & t) {
    t.choices()[4] = cat::make("red");
    t.choices()[7] = cat::make("green");
  });
  cChoiceVal fixed(&type, false), growing(&type, true);
  Slot changed = slot('c');
  fixed.sig_changed().connect(changed);
  fixed = 1;
  fixed = 1;
  fixed = 2;
  fixed = -1;
  EXPECT_EQ(cat::as_string(fixed.valref()), "green");
  EXPECT_EQ(cat::as_index(fixed.key()), 7);
  EXPECT_TRUE(fixed.setkey(4));
  EXPECT_EQ(heard, "cc");
  growing = 2;
  EXPECT_EQ(growing.pos(), 2);
  EXPECT_FALSE(growing.valid());
}

struct Shape {
  virtual ~Shape() = default;
  virtual int corners() const = 0;
};
struct Square : Shape {
  int corners() const override { return 4; }
};

TEST(Factories, MakeObjectsByNameWhileTheirEntryLives) {
  {
    cFactoryEntry<Shape, Square> const entry("Square", "a shape");
    cFactoryEntry<Shape, Square> const taken("Square", "another");
    std::unique_ptr<Shape> const shape(cat::create_by_name<Shape>("Square"));
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->corners(), 4);
    EXPECT_EQ(cRepoImpl::get(typeid(Shape)).size(), 1u);
  }
  EXPECT_EQ(cat::create_by_name<Shape>("Square"), nullptr);
}

} // namespace
