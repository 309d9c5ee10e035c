// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

#include "tests/program/program.h"

namespace quillberry {
namespace {

using namespace platform;
using headless::menuItem;
using testing::ElementsAre;

constexpr unsigned command = 0x100000;
constexpr unsigned commandShift = 0x120000;
constexpr unsigned commandOption = 0x180000;

/// An entry as one line: title, action, key and modifiers, and who performs it.
std::string described(const NSMenuItem& item) {
  if (item.isSeparatorItem()) return "---";
  std::string text = item.title() + " | " + std::string(item.action().name);
  if (!item.keyEquivalent().empty()) {
    char mask[16];
    std::snprintf(mask, sizeof mask, "%x", item.keyEquivalentModifierMask());
    text += " | " + item.keyEquivalent() + ' ' + mask;
  }
  if (!item.target()) return text;
  const auto target = item.target()->lock();
  return text + (target == AppDelegate::shared.lock() ? " | controller" : target ? " | other" : " | gone");
}

std::vector<std::string> described(const NSMenu& menu) {
  std::vector<std::string> lines;
  for (const auto& item : menu.items()) lines.push_back(described(*item));
  return lines;
}

const NSMenu& statusMenu() { return *headless::statusItem().menu; }
void choose(std::string_view title) { menuItem(statusMenu(), title).performAction(); }
int stateOf(std::string_view title) { return menuItem(statusMenu(), title).state(); }

TEST(Menus, StatusMenuHasItsEightEntries) {
  const Program program;
  EXPECT_THAT(described(statusMenu()), ElementsAre("Show / Hide Note | toggleWindow | n 180000 | controller",
                                                   "Keep on Top | togglePin | p 180000 | controller",
                                                   "Show on Screen Wake | toggleShowOnWake | controller",
                                                   "Start at Login | toggleLaunchAtLogin | controller", "---",
                                                   "Check for Updates\u2026 | checkForUpdates | other", "---",
                                                   "Quit Quillberry | terminate | q 100000"));
}

TEST(Menus, BeforeVersion13ThereIsNoLoginItem) {
  headless::setSystemVersion({12, 6, 1});
  const Program program;
  EXPECT_EQ(statusMenu().items().size(), 7U);
  EXPECT_EQ(statusMenu().items()[3]->isSeparatorItem(), true);
  EXPECT_EQ(headless::loginItem().registrations, 0);
  EXPECT_EQ(NSUserDefaults::standardUserDefaults().objectForKey("didOfferLaunchAtLogin"), std::nullopt);
  program.delegate->perform({"toggleLaunchAtLogin"}, nullptr);
  EXPECT_EQ(headless::loginItem().registrations, 0);
}

TEST(Menus, MainMenuHasQuitAndTheEditingCommands) {
  const Program program;
  const NSMenu& menu = *headless::mainMenu();
  ASSERT_EQ(menu.items().size(), 2U);
  EXPECT_THAT(described(*menu.items()[0]->submenu()), ElementsAre("Quit Quillberry | terminate | q 100000"));
  EXPECT_EQ(menu.items()[1]->submenu()->title(), "Edit");
  EXPECT_THAT(described(*menu.items()[1]->submenu()),
              ElementsAre("Undo | undo | z 100000", "Redo | redo | z 120000", "---", "Cut | cut | x 100000",
                          "Copy | copy | c 100000", "Paste | paste | v 100000", "Select All | selectAll | a 100000"));
}

TEST(Menus, KeysOfTheMainMenuEditTheNote) {
  const Program program;
  headless::type("text");
  EXPECT_TRUE(headless::pressKeyEquivalent("a", command));
  EXPECT_TRUE(headless::pressKeyEquivalent("x", command));
  EXPECT_EQ(headless::textView().string(), "");
  EXPECT_TRUE(headless::pressKeyEquivalent("z", command));
  EXPECT_EQ(headless::textView().string(), "text");
  EXPECT_TRUE(headless::pressKeyEquivalent("z", commandShift));
  EXPECT_EQ(headless::textView().string(), "");
  headless::pressKeyEquivalent("v", command);
  headless::pressKeyEquivalent("v", command);
  EXPECT_EQ(headless::textView().string(), "texttext");
  EXPECT_FALSE(headless::pressKeyEquivalent("z", commandOption));
  headless::activateOtherProgram();
  EXPECT_FALSE(headless::pressKeyEquivalent("q", command)) << "another program has the keys";
}

TEST(Menus, QuitSavesWhatWasTypedLast) {
  for (const bool byKey : {true, false}) {
    const Program program;
    headless::type("x");
    if (byKey) {
      headless::pressKeyEquivalent("q", command);
    } else {
      choose("Quit Quillberry");
    }
    EXPECT_EQ(headless::fileAt(noteFile), byKey ? "x" : "xx");
  }
}

TEST(Menus, CheckMarksFollowTheSettings) {
  headless::putSetting("pinned", false);
  headless::putSetting("showOnWake", false);
  const Program program;
  const NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
  for (const int state : {NSControlStateValueOff, NSControlStateValueOn, NSControlStateValueOff}) {
    EXPECT_EQ(stateOf("Keep on Top"), state);
    EXPECT_EQ(headless::windowState().level, state == NSControlStateValueOn ? 3 : 0);
    EXPECT_EQ(stateOf("Show on Screen Wake"), state);
    EXPECT_EQ(defaults.boolForKey("pinned"), state == NSControlStateValueOn);
    EXPECT_EQ(defaults.boolForKey("showOnWake"), state == NSControlStateValueOn);
    choose("Keep on Top");
    choose("Show on Screen Wake");
  }
  EXPECT_FALSE(menuItem(statusMenu(), "Show / Hide Note").isCheckable());
}

TEST(Menus, ShowHideAndUpdateEntriesAct) {
  const Program program;
  choose("Show / Hide Note");
  EXPECT_FALSE(headless::windowState().visible);
  choose("Show / Hide Note");
  EXPECT_TRUE(headless::windowState().visible);
  headless::clearEffects();
  choose("Check for Updates\u2026");
  EXPECT_THAT(headless::effects(), ElementsAre("updater check"));
}

TEST(StatusItem, TakesAPositionThatIsNeverStored) {
  {
    const Program newUser;
    EXPECT_EQ(headless::statusItem().position, 30);
    const auto& image = headless::statusItem().button->image();
    ASSERT_TRUE(image);
    EXPECT_EQ(image->symbolName, "note.text");
    EXPECT_EQ(image->accessibilityDescription, "Quillberry");
    EXPECT_TRUE(image->isTemplate);
  }
  headless::putSetting("NSStatusItem Preferred Position Quillberry", 412.0);
  const Program userWhoMovedIt;
  EXPECT_EQ(headless::statusItem().position, 412);
}

TEST(StatusItem, HasItsMenuWithoutASymbolAndWithoutAButton) {
  headless::faults().noSymbols = true;
  {
    const Program program;
    EXPECT_FALSE(headless::statusItem().button->image());
    EXPECT_EQ(statusMenu().items().size(), 8U);
  }
  headless::faults().noStatusButton = true;
  const Program program;
  EXPECT_EQ(statusMenu().items().size(), 8U);
}

}  // namespace
}  // namespace quillberry
