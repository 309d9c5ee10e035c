// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/program.h"

namespace quillberry {
namespace {

using namespace platform;
using headless::clearEffects;
using headless::effects;
using headless::windowState;
using testing::ElementsAre;
using testing::HasSubstr;

const auto saved = HasSubstr("note.txt");
constexpr auto orderOut = "window order out";
constexpr auto hide = "application hide";
constexpr auto orderFront = "window make key and order front";
constexpr auto activate = "application activate";
constexpr auto giveKeys = "window first responder";

TEST(Visibility, EveryWayToHideSavesFirst) {
  const Program program;
  const auto byEscape = [] { headless::pressKey(kVK_Escape); };
  const auto byToggle = [&] { program.delegate->toggleWindow(); };
  const std::vector<std::function<void()>> ways{byEscape, byToggle, headless::pressCloseButton};
  for (const auto& hideNote : ways) {
    program.delegate->showWindow();
    clearEffects();
    hideNote();
    EXPECT_THAT(effects(), ElementsAre(saved, orderOut, hide));
    EXPECT_FALSE(windowState().visible);
  }
}

TEST(Visibility, ToggleHidesOnlyANoteThatHasTheKeyboard) {
  const Program program;
  headless::activateOtherProgram();
  clearEffects();
  program.delegate->toggleWindow();
  EXPECT_THAT(effects(), ElementsAre(orderFront, activate, giveKeys)) << "a covered note comes forward";
  program.delegate->toggleWindow();
  EXPECT_FALSE(windowState().visible);
  program.delegate->toggleWindow();
  EXPECT_TRUE(windowState().visible);
}

TEST(Visibility, ReopenAlwaysShows) {
  const Program program;
  clearEffects();
  EXPECT_TRUE(headless::reopen());
  EXPECT_THAT(effects(), ElementsAre(orderFront, activate, giveKeys)) << "also while it is visible, and without a save";
  headless::pressCloseButton();
  EXPECT_TRUE(headless::reopen());
  EXPECT_TRUE(windowState().visible);
}

TEST(Visibility, ComesBackAsItWasLeft) {
  const Program program;
  headless::type("one two");
  headless::textView().setSelectedRange({3, 0});
  headless::moveWindow({{5, 6}, {300, 200}});
  headless::pressKey(kVK_Escape);
  program.delegate->showWindow();
  EXPECT_EQ(headless::textViewState().selection, (NSRange{3, 0}));
  EXPECT_EQ(windowState().frame, (NSRect{{5, 6}, {300, 200}}));
  headless::type("!");
  EXPECT_EQ(headless::textView().string(), "one! two");
}

TEST(Visibility, PinIsStoredThenApplied) {
  const Program program;
  headless::pressCloseButton();
  clearEffects();
  program.delegate->togglePin();
  program.delegate->togglePin();
  EXPECT_THAT(effects(), ElementsAre("store pinned=false", "window level 0", "window behaviour 4",
                                     "window title Quillberry", "store pinned=true", "window level 3",
                                     "window behaviour 257", "window title Quillberry \U0001F4CC"));
  EXPECT_FALSE(windowState().visible) << "a pin change shows nothing";
}

TEST(Visibility, EscapeWithoutAControllerDoesNothing) {
  NoteTextView view(NSRect{});
  headless::pressKey(kVK_Escape);
  EXPECT_THAT(effects(), testing::IsEmpty()) << "nor does the editor get it";
}

}  // namespace
}  // namespace quillberry
