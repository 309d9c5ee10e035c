// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "platform/frame_autosave.h"
#include "platform/utf8.h"

namespace platform {
namespace {

TEST(Utf8, TakesExactlyWhatIsWellFormed) {
  for (const std::string text : {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                                 "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "\xEF\xBB\xBF", "a\xCC\x81"}) {
    EXPECT_TRUE(isValidUtf8(text)) << testing::PrintToString(text);
    EXPECT_EQ(isValidUtf8(std::string_view(text).substr(0, text.size() - 1)), text.size() <= 1) << "without its end";
  }
  EXPECT_TRUE(isValidUtf8(std::string("a\0b", 3)));
  for (const std::string text :
       {"\x80", "\xC0\x80", "\xC1\xBF", "\xC2\x41", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
        "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "ok\xE9", "\xE2\x28\xA1", "\xE2\x82\x28"}) {
    EXPECT_FALSE(isValidUtf8(text)) << testing::PrintToString(text);
  }
}

TEST(Utf8, CountsUtf16Units) { EXPECT_EQ(utf16Length("a\u00E9\u20AC\U0001F4CC"), 5U); }

const Screen left{{{0, 0}, {1280, 800}}, {{0, 0}, {1280, 770}}};
const Screen right{{{1280, 0}, {1920, 1080}}, {{1280, 0}, {1920, 1080}}};

TEST(KeptFrame, ComesBackAsItWasOrWholeOnAScreenWhenItsOwnIsGone) {
  const KeptFrame kept{{{1300, -20}, {420, 320}}, right.frame};
  EXPECT_EQ(frameOnScreens(frameFromString(stringFromFrame(kept)).value(), {left, right}), kept.window) << "below it";
  const NSRect between{{1100, 700}, {420, 320}};
  EXPECT_EQ(frameOnScreens({between, {{4000, 0}, {1920, 1080}}}, {left, right}), (NSRect{{1280, 700}, {420, 320}}));
  const NSRect far{{5000, 100}, {420, 320}};
  EXPECT_EQ(frameOnScreens({far, {{4000, 0}, {1920, 1080}}}, {left, right}), (NSRect{{860, 100}, {420, 320}}));
  const NSRect huge{{1280, 0}, {1920, 1080}};
  EXPECT_EQ(frameOnScreens({huge, right.frame}, {left}), left.visibleFrame);
  const NSRect above{{100, 5000}, {420, 320}};
  EXPECT_EQ(frameOnScreens({above, left.frame}, {left}), (NSRect{{100, 450}, {420, 320}})) << "off its own screen too";
}

TEST(KeptFrame, RefusesWhatIsNone) {
  for (const std::string text :
       {"", "x", "1 2 3", "1 2 3 4 5 6 7", "0 0 0 320 0 0 1 1", "0 0 420 0 0 0 1 1", "99999999999 0 420 320 0 0 1 1"}) {
    EXPECT_FALSE(frameFromString(text)) << text;
  }
}

}  // namespace
}  // namespace platform
