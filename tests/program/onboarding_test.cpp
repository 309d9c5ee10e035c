// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/box.h"
#include "platform/grid_view.h"
#include "platform/image_view.h"
#include "platform/stack_view.h"
#include "platform/text_field.h"
#include "tests/program/program.h"

namespace quillberry {
namespace {

using namespace platform;
using headless::advance;
using headless::shownPopovers;
using testing::ElementsAre;

std::string described(const NSFont& font) {
  std::string text = font.monospaced ? "mono " : "";
  text += std::to_string(font.pointSize).substr(0, 4);
  if (font.weight == NSFontWeight::Semibold) text += " semibold";
  if (font.weight == NSFontWeight::Bold) text += " bold";
  return text;
}

std::string described(const NSView& view) {
  if (const auto* label = dynamic_cast<const NSTextField*>(&view)) {
    return label->text() + " | " + described(label->font()) +
           (label->textColor() == NSColor::secondaryLabelColor() ? " secondary" : "");
  }
  return "?";
}

std::vector<std::string> described(const std::vector<std::shared_ptr<NSView>>& views) {
  std::vector<std::string> lines;
  for (const auto& view : views) lines.push_back(described(*view));
  return lines;
}

double constantOf(const NSView& view, NSLayoutAttribute attribute) {
  for (const NSLayoutConstraint& constraint : view.constraints()) {
    if (constraint.first.attribute == attribute) return constraint.constant;
  }
  return 0;
}

std::vector<double> margins(const NSView& view) {
  return {constantOf(view, NSLayoutAttributeTop), constantOf(view, NSLayoutAttributeBottom),
          constantOf(view, NSLayoutAttributeLeading), constantOf(view, NSLayoutAttributeTrailing)};
}

const NSView& content(const NSPopover& popover) { return *popover.contentViewController()->view(); }

class Welcome : public testing::Test {
 protected:
  Program program;

  const NSView& container() { return content(*shownPopovers().front().popover); }
  const NSStackView& stack() { return dynamic_cast<const NSStackView&>(*container().subviews().front()); }
  template <typename View>
  const View& row(std::size_t index) {
    return dynamic_cast<const View&>(*stack().subviews().at(index));
  }
};

TEST_F(Welcome, GreetsOnceHalfASecondAfterTheNote) {
  EXPECT_TRUE(NSUserDefaults::standardUserDefaults().boolForKey("didShowWelcome"));
  advance(0.49);
  EXPECT_TRUE(shownPopovers().empty());
  headless::activateOtherProgram();
  advance(0.02);
  ASSERT_EQ(shownPopovers().size(), 1U);
  EXPECT_TRUE(headless::programIsActive() && !headless::window().isKeyWindow());
  EXPECT_EQ(shownPopovers().front().anchor, headless::statusItem().button.get());
  EXPECT_EQ(headless::effects().back(), "popover show edge 1");
  EXPECT_EQ(shownPopovers().front().popover->behavior(), NSPopoverBehaviorApplicationDefined);
  EXPECT_TRUE(shownPopovers().front().popover->animates());
  headless::pressOutsidePopovers();
  advance(10);
  EXPECT_EQ(shownPopovers().size(), 1U);
}

TEST_F(Welcome, HasItsRowsAndMeasures) {
  advance(1);
  EXPECT_EQ(constantOf(container(), NSLayoutAttributeWidth), 312);
  EXPECT_THAT(margins(stack()), ElementsAre(18, -18, 18, -18));
  EXPECT_EQ(stack().orientation(), NSUserInterfaceLayoutOrientationVertical);
  EXPECT_EQ(stack().alignment(), NSLayoutAttributeLeading);
  std::vector<double> gaps;
  for (const auto& view : stack().subviews()) gaps.push_back(stack().spacingAfter(*view));
  EXPECT_THAT(gaps, ElementsAre(8, 14, 11, 11, 11, testing::_));

  const auto& header = row<NSStackView>(0);
  EXPECT_EQ(header.orientation(), NSUserInterfaceLayoutOrientationHorizontal);
  EXPECT_EQ(header.alignment(), NSLayoutAttributeCenterY);
  EXPECT_EQ(header.spacingAfter(*header.subviews()[0]), 10);
  EXPECT_EQ(constantOf(*header.subviews()[0], NSLayoutAttributeWidth), 34);
  EXPECT_EQ(described(*header.subviews()[1]), "Quillberry | 17.0 bold");
  const auto& bar = row<NSBox>(1);
  EXPECT_EQ(bar.fillColor(), NSColor::colorWithSRGBRed(1.0, 0.847, 0.302, 1.0));
  EXPECT_EQ(constantOf(bar, NSLayoutAttributeWidth), 40);
  EXPECT_EQ(constantOf(bar, NSLayoutAttributeHeight), 3);
  EXPECT_EQ(described(row<NSTextField>(2)), "You'll find it up here \U0001F4DD | 13.5 semibold");
  const auto& body = row<NSTextField>(3);
  EXPECT_EQ(described(body),
            "Quillberry lives in the menu bar \u2014 no Dock icon \u2014 and greets you every time your Mac wakes. "
            "Summon it from anywhere with these: | 12.5 secondary");
  EXPECT_TRUE(body.wraps());
  EXPECT_EQ(body.preferredMaxLayoutWidth(), 276);
  const auto& grid = row<NSGridView>(4);
  EXPECT_EQ(grid.columns(), 2);
  EXPECT_EQ(grid.columnSpacing(), 12);
  EXPECT_EQ(grid.rowSpacing(), 6);
  EXPECT_THAT(described(grid.subviews()),
              ElementsAre("\u2325\u2318N | mono 12.5 semibold", "Show / hide from anywhere | 12.5 secondary",
                          "\u2325\u2318P | mono 12.5 semibold", "Keep on top (every Space) | 12.5 secondary",
                          "esc | mono 12.5 semibold", "Hide, back to what you did | 12.5 secondary"));
  const auto& button = row<NSButton>(5);
  EXPECT_EQ(button.title(), "Got it");
  EXPECT_EQ(button.keyEquivalent(), "\r");
  EXPECT_EQ(button.contentTintColor(), NSColor::colorWithSRGBRed(0.69, 0.49, 0.06, 1.0));
}

TEST_F(Welcome, ComesWithANoteThatWasHiddenBeforeAndGotItClosesIt) {
  headless::pressCloseButton();
  advance(1);
  EXPECT_TRUE(shownPopovers().empty());
  program.delegate->showWindow();
  ASSERT_EQ(shownPopovers().size(), 1U);
  headless::buttonIn(container(), "Got it")->performClick();
  EXPECT_TRUE(shownPopovers().empty());
  program.delegate->perform({"dismissWelcome"}, nullptr);
  EXPECT_EQ(std::ranges::count(headless::effects(), "popover close"), 1) << "there is nothing to close";
}

TEST_F(Welcome, IsGoneWithTheController) {
  program.delegate.reset();
  advance(1);
  EXPECT_TRUE(shownPopovers().empty());
}

TEST(SecondRun, HasNoWelcome) {
  headless::putSetting("didShowWelcome", true);
  const Program program;
  advance(1);
  EXPECT_TRUE(shownPopovers().empty());
}

TEST(FirstRun, WithoutAButtonThereIsNoPlaceForTheWelcome) {
  headless::faults().noStatusButton = true;
  const Program program;
  advance(1);
  EXPECT_TRUE(shownPopovers().empty());
}

TEST(LogoMark, IsFilledOutlinedAndPinnedInThatOrder) {
  const Program program;
  advance(1);
  const auto& header = *content(*shownPopovers().front().popover).subviews()[0]->subviews()[0];
  const NSImage& image = dynamic_cast<const NSImageView&>(*header.subviews()[0]).image();
  EXPECT_EQ(image.size(), (NSSize{34, 34}));
  EXPECT_THAT(headless::drawingOf(image),
              ElementsAre("fill 1 1 32 32 radius 8.84 8.84 from 1.000 0.910 0.600 1.0 to 1.000 0.847 0.302 1.0 at -90",
                          "stroke 1 1 32 32 radius 8.84 8.84 width 1 in 0.910 0.725 0.192 1.0",
                          "text \U0001F4CC at 8.16 9.16 size 17.68"));
}

TEST(Shortcuts, HangFromTheInfoButtonAndGoAtAPressOutside) {
  headless::putSetting("didShowWelcome", true);
  const Program program;
  for (int click = 0; click < 2; ++click) {
    headless::button().performClick();
    ASSERT_EQ(shownPopovers().size(), 1U);
    const headless::ShownPopover& shown = shownPopovers().front();
    EXPECT_EQ(shown.anchor, &headless::button());
    EXPECT_EQ(shown.rect, headless::button().bounds());
    EXPECT_EQ(headless::effects().back(), "popover show edge 3");
    const auto& grid = dynamic_cast<const NSGridView&>(*content(*shown.popover).subviews().front());
    EXPECT_THAT(margins(grid), ElementsAre(14, -14, 16, -16));
    EXPECT_EQ(grid.columnSpacing(), 14);
    EXPECT_EQ(grid.rowSpacing(), 6);
    EXPECT_THAT(described(grid.subviews()),
                ElementsAre("\u2325\u2318N | mono 13.0 semibold", "Show / hide from anywhere | 13.0 secondary",
                            "\u2325\u2318P | mono 13.0 semibold", "Keep on top (follows every Space) | 13.0 secondary",
                            "esc | mono 13.0 semibold", "Hide and go back to what you did | 13.0 secondary"));
    headless::pressOutsidePopovers();
    EXPECT_TRUE(shownPopovers().empty());
  }
}

}  // namespace
}  // namespace quillberry
