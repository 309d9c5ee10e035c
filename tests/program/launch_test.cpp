// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/program/program.h"

namespace quillberry {
namespace {

using namespace platform;
using testing::ElementsAre;

TEST(Window, IsBuiltForAPlainNote) {
  const Program program;
  const headless::WindowState& window = headless::windowState();
  EXPECT_EQ(window.styleMask, 0x800BU);
  EXPECT_TRUE(window.transparentTitlebar && !window.releasedWhenClosed);
  EXPECT_EQ(window.minSize, (NSSize{260, 160}));
  EXPECT_EQ(headless::window().firstResponder().get(), &headless::textView());
  EXPECT_TRUE(headless::reopen());
  EXPECT_FALSE(program.delegate->windowShouldClose(headless::window())) << "it is hidden, never closed";
  headless::type("typed");
  EXPECT_EQ(headless::textView().string(), "typed");
  headless::moveWindow({{1, 2}, {300, 400}});
  EXPECT_TRUE(NSUserDefaults::standardUserDefaults().objectForKey("NSWindow Frame QuillberryWindow"));
  const headless::TextViewState& text = headless::textViewState();
  EXPECT_FALSE(text.richText || text.substitutes || text.horizontallyResizable);
  EXPECT_TRUE(text.allowsUndo && text.verticallyResizable && text.container.widthTracksTextView);
  EXPECT_TRUE(text.font.monospaced && text.font.pointSize == 14);
  EXPECT_EQ(text.inset, (NSSize{14, 36}));
  EXPECT_EQ(text.container.containerSize, (NSSize{420, greatestFiniteLength}));
}

/// Each entry as one line: title, action, key and modifiers, whether one performs it and it may have a mark.
std::vector<std::string> described(const NSMenu& menu) {
  std::vector<std::string> lines;
  for (const auto& item : menu.items()) {
    std::ostringstream line;
    line << item->title() << " | " << item->action().name;
    if (!item->keyEquivalent().empty())
      line << " | " << item->keyEquivalent() << ' ' << std::hex << item->keyEquivalentModifierMask();
    if (item->target()) line << " | target";
    if (item->isCheckable()) line << " | mark";
    lines.push_back(item->isSeparatorItem() ? "---" : line.str());
  }
  return lines;
}

TEST(Menus, HaveTheirEntriesAndNoLoginItemBeforeVersion13) {
  for (const int version : {12, 13}) {
    headless::setSystemVersion({version, 0, 0});
    const Program program;
    std::vector<std::string> entries{"Show / Hide Note | toggleWindow | n 180000 | target",
                                     "Keep on Top | togglePin | p 180000 | target | mark",
                                     "Show on Screen Wake | toggleShowOnWake | target | mark",
                                     "Start at Login | toggleLaunchAtLogin | target | mark",
                                     "---",
                                     "Check for Updates… | checkForUpdates | target",
                                     "---",
                                     "Quit Quillberry | terminate | q 100000"};
    if (version < 13) entries.erase(entries.begin() + 3);
    EXPECT_EQ(headless::loginItem().registrations, version - 12);
    EXPECT_EQ(described(*headless::statusItem().menu), entries);
    const auto& menu = headless::mainMenu()->items();
    ASSERT_EQ(menu.size(), 2U);
    EXPECT_THAT(described(*menu[0]->submenu()), ElementsAre(entries.back()));
    EXPECT_THAT(described(*menu[1]->submenu()),
                ElementsAre("Undo | undo | z 100000", "Redo | redo | z 120000", "---", "Cut | cut | x 100000",
                            "Copy | copy | c 100000", "Paste | paste | v 100000", "Select All | selectAll | a 100000"));
    EXPECT_TRUE(program.delegate->perform({"toggleLaunchAtLogin"}, nullptr));
    EXPECT_FALSE(program.delegate->perform({"toggle"}, nullptr)) << "there is no such action";
    EXPECT_EQ(headless::loginItem().unregistrations, version - 12);
  }
}

TEST(StatusItem, HasItsSymbolAndAPositionThatIsNeverStored) {
  {
    const Program newUser;
    EXPECT_EQ(headless::statusItem().position, 30);
    const auto& image = headless::statusItem().button->image();
    ASSERT_TRUE(image);
    EXPECT_EQ(image->symbolName + ' ' + image->accessibilityDescription, "note.text Quillberry");
    EXPECT_TRUE(image->isTemplate);
  }
  headless::putSetting("didShowWelcome", false);
  headless::putSetting("NSStatusItem Preferred Position Quillberry", 412.0);
  headless::faults().noSymbols = true;
  headless::faults().noStatusButton = true;
  headless::faults().noFolder = true;
  headless::faults().takenHotKeys = {kVK_ANSI_N};
  const Program userWhoMovedIt;
  EXPECT_EQ(headless::statusItem().position, 412);
  headless::advance(1);
  EXPECT_TRUE(headless::shownPopovers().empty()) << "there is no place for the welcome";
  headless::pressHotKey(kVK_ANSI_P, cmdKey | optionKey);
  headless::advance(0);
  EXPECT_EQ(headless::windowState().level, 0) << "each hot key is registered by itself";
}

}  // namespace
}  // namespace quillberry
