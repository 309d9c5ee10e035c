// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "tests/program/program.h"

namespace quillberry {
namespace {

using namespace platform;
using testing::ElementsAre;

TEST(Launch, GoesInOrderAndShowsTheFinishedWindow) {
  headless::putFile(noteFile, "old text");
  const Program program;
  EXPECT_THAT(
      headless::effects(),
      ElementsAre("application activation policy 1", "updater start", "application main menu", "window made",
                  "observe NSTextDidChangeNotification", "status item length -2", "status item named Quillberry",
                  "status item menu", "hot key 45 modifiers 2304", "hot key 35 modifiers 2304",
                  "observe NSWorkspaceDidWakeNotification", "observe NSWorkspaceScreensDidWakeNotification",
                  "observe com.apple.screenIsUnlocked", "text view string", "window level 3", "window behaviour 257",
                  "window title Quillberry \U0001F4CC", "store didOfferLaunchAtLogin=true", "login item register",
                  "window make key and order front", "application activate", "window first responder",
                  "store didShowWelcome=true"));
}

TEST(Launch, ConstructionMakesTheFolderAndNothingElse) {
  const auto app = NSApplication::sharedApplication();
  const auto delegate = std::make_shared<AppDelegate>();
  EXPECT_TRUE(headless::folderExists(noteFile.parent_path()));
  EXPECT_TRUE(AppDelegate::shared.expired());
  EXPECT_TRUE(headless::files().empty());
}

TEST(Launch, BuildsTheWindow) {
  const Program program;
  const headless::WindowState& window = headless::windowState();
  EXPECT_EQ(window.styleMask, 0x800BU);
  EXPECT_TRUE(window.transparentTitlebar);
  EXPECT_FALSE(window.releasedWhenClosed);
  EXPECT_EQ(window.minSize, (NSSize{260, 160}));
  EXPECT_EQ(window.frame, (NSRect{{430, 240}, {420, 320}}));  // centred on 1280 × 800
  EXPECT_EQ(headless::window().firstResponder().get(), &headless::textView());

  const headless::TextViewState& text = headless::textViewState();
  EXPECT_FALSE(text.richText || text.substitutes || text.horizontallyResizable);
  EXPECT_TRUE(text.allowsUndo && text.verticallyResizable && text.container.widthTracksTextView);
  EXPECT_EQ(text.font.pointSize, 14);
  EXPECT_EQ(text.inset, (NSSize{14, 36}));
  EXPECT_EQ(text.container.containerSize, (NSSize{420, greatestFiniteLength}));
}

TEST(Launch, InfoButtonStaysInItsCornerAtEverySize) {
  const Program program;
  for (const NSSize size : {NSSize{420, 320}, NSSize{260, 160}, NSSize{2560, 1600}, NSSize{300, 900}}) {
    headless::moveWindow({{10, 20}, size});
    const NSRect button = headless::button().frame();
    EXPECT_EQ(size.width - button.maxX(), 8);
    EXPECT_EQ(size.height - button.maxY(), 5);
  }
}

TEST(Launch, TakesBackTheKeptFrame) {
  {
    const Program first;
    headless::moveWindow({{100, 50}, {500, 400}});
  }
  const Program second;
  EXPECT_EQ(headless::windowState().frame, (NSRect{{100, 50}, {500, 400}}));
}

TEST(Launch, ReadsEachSettingByItself) {
  headless::putSetting("showOnWake", false);
  const std::vector<std::optional<DefaultsValue>> pins{{}, true, false, std::string("false"), 0.0, OtherValue{}};
  for (const auto& pin : pins) {
    if (pin) headless::putSetting("pinned", *pin);
    const Program program;
    EXPECT_EQ(headless::windowState().level, pin == DefaultsValue(false) ? 0 : 3) << "pinned unless it says false";
    EXPECT_EQ(headless::menuItem(*headless::statusItem().menu, "Show on Screen Wake").state(), 0);
  }
}

TEST(Launch, GoesOnWithoutAFolder) {
  headless::faults().noFolder = true;
  const Program program;
  EXPECT_TRUE(headless::windowState().visible);
  headless::type("text");
  headless::advance(1);
  EXPECT_TRUE(headless::files().empty());
  EXPECT_EQ(headless::textView().string(), "text");
}

TEST(Launch, ActionsAreFoundByTheirNames) {
  const Program program;
  EXPECT_TRUE(program.delegate->perform({"togglePin"}, nullptr));
  EXPECT_EQ(headless::windowState().level, 0);
  EXPECT_FALSE(program.delegate->perform({"toggle"}, nullptr));
}

}  // namespace
}  // namespace quillberry
