// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "platform/box.h"
#include "platform/image_view.h"
#include "platform/text_field.h"
#include "tests/program/program.h"

namespace quillberry {
namespace {

using namespace platform;
using headless::shownPopovers;
using testing::ElementsAre;

std::string described(const NSColor& color) {
  std::ostringstream text;
  text << color.red << ' ' << color.green << ' ' << color.blue;
  return color == NSColor::secondaryLabelColor() ? "secondary" : color == NSColor::labelColor() ? "label" : text.str();
}

/// What is written and coloured in a view, from top to bottom. Where it stands is a desktop's to show.
void describe(const NSView& view, std::vector<std::string>& lines) {
  constexpr std::array weights{"", "semibold ", "bold "};
  std::ostringstream line;
  if (const auto* label = dynamic_cast<const NSTextField*>(&view)) {
    const NSFont& font = label->font();
    line << label->text() << (font.monospaced ? " | mono " : " | ") << font.pointSize << ' '
         << weights.at(std::size_t(font.weight)) << described(label->textColor());
  } else if (const auto* button = dynamic_cast<const NSButton*>(&view)) {
    line << "button " << button->title() << " | " << described(button->contentTintColor());
  } else if (const auto* box = dynamic_cast<const NSBox*>(&view)) {
    line << "box | " << described(box->fillColor());
  } else if (const auto* image = dynamic_cast<const NSImageView*>(&view)) {
    for (const std::string& operation : headless::drawingOf(image->image())) lines.push_back(operation);
  }
  if (!line.str().empty()) lines.push_back(line.str());
  for (const auto& subview : view.subviews()) describe(*subview, lines);
}

const NSView& content() { return *shownPopovers().at(0).popover->contentViewController()->view(); }

std::vector<std::string> described() {
  std::vector<std::string> lines;
  describe(content(), lines);
  return lines;
}

TEST(Welcome, GreetsAtTheStatusItemUntilGotIt) {
  const Program program;
  headless::advance(0.49);
  EXPECT_TRUE(shownPopovers().empty());
  headless::activateOtherProgram();
  headless::advance(0.02);
  ASSERT_EQ(shownPopovers().size(), 1U);
  EXPECT_TRUE(headless::programIsActive());
  EXPECT_EQ(shownPopovers()[0].anchor, headless::statusItem().button.get());
  EXPECT_TRUE(NSUserDefaults::standardUserDefaults().boolForKey("didShowWelcome")) << "so there is no second one";
  EXPECT_EQ(headless::effects().back(), "popover show edge 1");
  EXPECT_TRUE(shownPopovers()[0].popover->animates());
  EXPECT_THAT(described(),
              ElementsAre("fill 1 1 32 32 radius 8.84 8.84 from 1.000 0.910 0.600 1.0 to 1.000 0.847 0.302 1.0 at -90",
                          "stroke 1 1 32 32 radius 8.84 8.84 width 1 in 0.910 0.725 0.192 1.0",
                          "text 📌 at 8.16 9.16 size 17.68", "Quillberry | 17 bold label", "box | 1 0.847 0.302",
                          "You'll find it up here 📝 | 13.5 semibold label",
                          "Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. "
                          "Summon it from anywhere with these: | 12.5 secondary",
                          "⌥⌘N | mono 12.5 semibold label", "Show / hide from anywhere | 12.5 secondary",
                          "⌥⌘P | mono 12.5 semibold label", "Keep on top (every Space) | 12.5 secondary",
                          "esc | mono 12.5 semibold label", "Hide, back to what you did | 12.5 secondary",
                          "button Got it | 0.69 0.49 0.06"));
  headless::pressOutsidePopovers();
  headless::pressHotKey(kVK_ANSI_N, cmdKey | optionKey);
  headless::advance(0);
  EXPECT_TRUE(headless::window().isKeyWindow()) << "the welcome had the keyboard, so the note was called, not hidden";
  headless::buttonIn(content(), "Got it")->performClick();
  EXPECT_TRUE(shownPopovers().empty());
  program.delegate->perform({"dismissWelcome"}, nullptr);
}

TEST(Shortcuts, HangFromTheInfoButtonAndGoAtAPressOutside) {
  const Program program;
  headless::button().performClick();
  EXPECT_EQ(shownPopovers().at(0).anchor, &headless::button());
  EXPECT_EQ(headless::effects().back(), "popover show edge 3");
  EXPECT_THAT(described(),
              ElementsAre("⌥⌘N | mono 13 semibold label", "Show / hide from anywhere | 13 secondary",
                          "⌥⌘P | mono 13 semibold label", "Keep on top (follows every Space) | 13 secondary",
                          "esc | mono 13 semibold label", "Hide and go back to what you did | 13 secondary"));
  headless::pressOutsidePopovers();
  EXPECT_TRUE(shownPopovers().empty());
}

}  // namespace
}  // namespace quillberry
