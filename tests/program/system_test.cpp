// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/hot_key.h"
#include "platform/workspace.h"
#include "tests/program/program.h"

namespace quillberry {
namespace {

using namespace platform;
using headless::advance;
using headless::windowState;
using testing::ElementsAre;

// --- Hot keys

constexpr std::uint32_t keyN = 45;
constexpr std::uint32_t keyP = 35;
constexpr std::uint32_t commandOption = 0x0900;

/// A press, and the work that it puts off.
void press(std::uint32_t keyCode, std::uint32_t modifiers = commandOption) {
  headless::pressHotKey(keyCode, modifiers);
  advance(0);
}

TEST(HotKeys, ActLaterAndFromEverywhere) {
  const Program program;
  headless::pressHotKey(keyN, commandOption);
  EXPECT_TRUE(windowState().visible) << "nothing happens inside the event";
  advance(0);
  EXPECT_FALSE(windowState().visible);
  press(keyN);
  EXPECT_TRUE(windowState().visible);
  headless::activateOtherProgram();
  press(keyN);
  EXPECT_TRUE(headless::programIsActive()) << "a covered note comes forward";
}

TEST(HotKeys, PinAlsoAHiddenNote) {
  const Program program;
  press(keyN);
  for (const bool pinned : {false, true}) {
    press(keyP);
    EXPECT_EQ(NSUserDefaults::standardUserDefaults().boolForKey("pinned"), pinned);
    EXPECT_EQ(windowState().level, pinned ? 3 : 0);
    EXPECT_EQ(headless::menuItem(*headless::statusItem().menu, "Keep on Top").state(), pinned ? 1 : 0);
    EXPECT_FALSE(windowState().visible);
  }
}

TEST(HotKeys, ABurstActsInOrder) {
  const Program program;
  headless::clearEffects();
  headless::pressHotKey(keyP, commandOption);
  headless::pressHotKey(keyN, commandOption);
  headless::pressHotKey(keyP, commandOption);
  EXPECT_TRUE(headless::effects().empty());
  advance(0);
  EXPECT_THAT(headless::effects(),
              testing::IsSupersetOf({"store pinned=false", "window order out", "store pinned=true"}));
  EXPECT_EQ(headless::effects().front(), "store pinned=false");
}

TEST(HotKeys, AreRegisteredOneByOneWithExactlyTheirModifiers) {
  headless::faults().takenHotKeys = {keyN};
  const Program program;
  press(keyN);
  EXPECT_TRUE(windowState().visible);
  press(keyP);
  EXPECT_EQ(windowState().level, 0);
  press(keyP, commandOption | 0x0200);
  EXPECT_EQ(windowState().level, 0);
  EXPECT_THAT(headless::log(), testing::IsEmpty());
}

TEST(HotKeys, GoByTheirNumberAlone) {
  const Program program;
  sendHotKeyEvent(EventHotKeyID{fourCharacters("QBRY"), 3});
  sendHotKeyEvent(std::nullopt);
  advance(0);
  EXPECT_TRUE(windowState().visible);
  sendHotKeyEvent(EventHotKeyID{0, 1});
  advance(0);
  EXPECT_FALSE(windowState().visible);
}

TEST(HotKeys, AreIgnoredOnceTheControllerIsGone) {
  const auto program = std::make_unique<Program>();
  headless::pressHotKey(keyN, commandOption);
  program->delegate.reset();
  advance(0);
  headless::pressHotKey(keyP, commandOption);
  advance(0);
  EXPECT_EQ(NSUserDefaults::standardUserDefaults().objectForKey("pinned"), std::nullopt);
}

// --- Wake

void systemWakes() {
  NSWorkspace::sharedWorkspace().notificationCenter().postNotificationName("NSWorkspaceDidWakeNotification", nullptr);
}
void screensWake() {
  NSWorkspace::sharedWorkspace().notificationCenter().postNotificationName("NSWorkspaceScreensDidWakeNotification",
                                                                           nullptr);
}
void screenIsUnlocked() {
  NSDistributedNotificationCenter::defaultCenter().postNotificationName("com.apple.screenIsUnlocked", nullptr);
}

class Wake : public testing::Test {
 protected:
  Program program;

  void SetUp() override {
    headless::setWallClock(1000);
    headless::pressCloseButton();
    headless::clearEffects();
  }
  static long shows() { return std::ranges::count(headless::effects(), "window make key and order front"); }
  static void choose(std::string_view title) {
    headless::menuItem(*headless::statusItem().menu, title).performAction();
  }
};

TEST_F(Wake, ShowsTheNoteOnceForOneReturn) {
  systemWakes();
  headless::setWallClock(1001);
  screensWake();
  advance(0.59);
  EXPECT_EQ(shows(), 0);
  advance(0.02);
  EXPECT_EQ(shows(), 1);
  headless::setWallClock(1004.9);
  screenIsUnlocked();
  advance(1);
  EXPECT_EQ(shows(), 1);
}

TEST_F(Wake, EachSignalCountsAndAVisibleNoteComesForward) {
  double now = 1000;
  int expected = 0;
  for (const auto& signal : {systemWakes, screensWake, screenIsUnlocked}) {
    headless::setWallClock(now += 5.1);
    headless::activateOtherProgram();
    signal();
    advance(1);
    EXPECT_EQ(shows(), ++expected);
    EXPECT_TRUE(headless::programIsActive());
  }
}

TEST_F(Wake, CountsFiveSecondsFromTheLastThatWasTaken) {
  systemWakes();
  headless::setWallClock(1003);
  systemWakes();  // is not taken, and does not count
  headless::setWallClock(1005);
  systemWakes();
  advance(10);
  EXPECT_EQ(shows(), 1) << "exactly five seconds are not enough, by the wall's clock";
  headless::setWallClock(1005.1);
  systemWakes();
  advance(10);
  EXPECT_EQ(shows(), 2);
  headless::setWallClock(500);  // set back
  systemWakes();
  advance(10);
  EXPECT_EQ(shows(), 2);
}

TEST_F(Wake, IsSwitchedOffAndOnByTheMenu) {
  choose("Show on Screen Wake");
  systemWakes();
  advance(1);
  EXPECT_EQ(shows(), 0);
  choose("Show on Screen Wake");
  systemWakes();  // the one before was not taken
  choose("Show on Screen Wake");
  advance(1);
  EXPECT_EQ(shows(), 1) << "what was taken is carried out";
}

TEST_F(Wake, DoesNotKeepTheControllerAlive) {
  systemWakes();
  program.delegate.reset();
  advance(1);
  EXPECT_EQ(shows(), 0);
}

// --- Start at login

class LoginItem : public testing::Test {
 protected:
  headless::LoginItem& item = headless::loginItem();

  static bool isChecked() { return headless::menuItem(*headless::statusItem().menu, "Start at Login").state() == 1; }
  static void choose() { headless::menuItem(*headless::statusItem().menu, "Start at Login").performAction(); }
  static bool wasOffered() { return NSUserDefaults::standardUserDefaults().boolForKey("didOfferLaunchAtLogin"); }
};

TEST_F(LoginItem, IsRegisteredAtTheFirstLaunchOnly) {
  {
    const Program first;
    EXPECT_EQ(item.registrations, 1);
    EXPECT_TRUE(isChecked());
  }
  item.status = SMAppServiceStatusNotRegistered;
  const Program second;
  EXPECT_EQ(item.registrations, 1);
  EXPECT_FALSE(isChecked());
}

TEST_F(LoginItem, IsNotOfferedAgainWhenTheFirstTimeFailed) {
  item.failure = "the disk is full";
  {
    const Program first;
    EXPECT_FALSE(isChecked());
    EXPECT_TRUE(wasOffered());
  }
  const Program second;
  EXPECT_EQ(item.registrations, 1);
  EXPECT_THAT(headless::log(), testing::IsEmpty());
}

TEST_F(LoginItem, ToggleFollowsTheService) {
  const Program program;
  choose();
  EXPECT_EQ(item.unregistrations, 1);
  EXPECT_FALSE(isChecked());
  item.statusAfterRegistration = SMAppServiceStatusRequiresApproval;
  choose();
  EXPECT_FALSE(isChecked()) << "the mark shows what the service reports";
  choose();
  EXPECT_EQ(item.registrations, 3) << "which asks again, not for the opposite";
}

TEST_F(LoginItem, AFailedToggleIsOneLineInTheLog) {
  const Program program;
  item.failure = "the folder is read-only";
  choose();
  EXPECT_THAT(headless::log(), ElementsAre("Quillberry: launch-at-login toggle failed: the folder is read-only"));
  EXPECT_TRUE(isChecked()) << "it still is registered";
}

}  // namespace
}  // namespace quillberry
