// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <string>

#include "platform/workspace.h"
#include "tests/program/program.h"

namespace quillberry {
namespace {

using namespace platform;
using headless::advance;

constexpr int years = 10;
constexpr int daysOfAYear = 365;
constexpr int editsOfADay = 20;
constexpr double secondsOfADay = 86400;

/// The days of a machine that is never switched off, the counts of which are known.
class Life {
 public:
  void liveAYear() {
    for (int day = 0; day < daysOfAYear; ++day) liveADay();
  }

 private:
  void liveADay() {
    headless::setWallClock(now_ += secondsOfADay);
    headless::clearEffects();
    comeBack();
    write();
    useEverything();
    headless::pressKey(kVK_Escape);
    // One save a pause, one as the note is hidden from everywhere, one at night.
    EXPECT_EQ(effects("write "), editsOfADay + 2);
    EXPECT_EQ(effects("store "), 4);
    EXPECT_EQ(effects("window make key and order front"), 2);
    advance(secondsOfADay);
    EXPECT_EQ(effects("write "), editsOfADay + 2) << "nothing happens at night";
    headless::textView().setString({});  // with the steps to undo, which a text view keeps for ever
  }

  /// All signals of one return, which bring the hidden note forward once.
  void comeBack() {
    auto& workspace = NSWorkspace::sharedWorkspace().notificationCenter();
    workspace.postNotificationName("NSWorkspaceDidWakeNotification", nullptr);
    workspace.postNotificationName("NSWorkspaceScreensDidWakeNotification", nullptr);
    NSDistributedNotificationCenter::defaultCenter().postNotificationName("com.apple.screenIsUnlocked", nullptr);
    advance(1);
    EXPECT_TRUE(headless::windowState().visible);
  }

  void write() {
    std::string text;
    for (int edit = 0; edit < editsOfADay; ++edit) {
      const std::string word = std::to_string(edit) + " ä€📌\n";
      headless::type(word);
      text += word;
      advance(1);
    }
    EXPECT_EQ(headless::fileAt(noteFile), text);
  }

  /// The note goes and comes, the pin and the setting go off and on.
  static void useEverything() {
    const auto menu = headless::statusItem().menu;
    for (const char* title : {"Show / Hide Note", "Keep on Top", "Show on Screen Wake"}) {
      for (int times = 0; times < 2; ++times) headless::menuItem(*menu, title).performAction();
    }
  }

  static long effects(const std::string& kind) {
    return std::ranges::count_if(headless::effects(), [&](const auto& effect) { return effect.starts_with(kind); });
  }

  Program program_;
  double now_ = 0;
};

TEST(Years, EachDayIsLikeTheFirst) {
  Life life;
  life.liveAYear();
  const auto before = mallinfo2().uordblks;
  for (int year = 1; year < years; ++year) life.liveAYear();
  EXPECT_LE(mallinfo2().uordblks, before) << "memory grows over the years";
  EXPECT_EQ(headless::loginItem().registrations, 1);
}

}  // namespace
}  // namespace quillberry
