// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"
#include "onboarding/shortcut_grid.h"
#include "platform/box.h"
#include "platform/button.h"
#include "platform/dispatch.h"
#include "platform/image_view.h"
#include "platform/layout.h"
#include "platform/localized_string.h"
#include "platform/popover.h"
#include "platform/stack_view.h"
#include "platform/text_field.h"
#include "platform/user_defaults.h"

namespace quillberry {

using namespace platform;

namespace {

constexpr double welcomeDelay = 0.5;  // seconds
constexpr ShortcutGridMetrics gridMetrics{12.5, 12, 6};

// Lengths in points.
constexpr double width = 312;
constexpr double margin = 18;
constexpr double bodyWidth = width - 2 * margin;
constexpr double logoSide = 34;
constexpr double headerSpacing = 10;
constexpr double rowSpacing = 11;
constexpr double spacingBelowHeader = 8;
constexpr double spacingBelowBar = 14;
constexpr NSSize barSize{40, 3};
constexpr NSColor barColor = NSColor::colorWithSRGBRed(1.0, 0.847, 0.302, 1.0);
constexpr NSColor buttonTint = NSColor::colorWithSRGBRed(0.69, 0.49, 0.06, 1.0);

std::vector<ShortcutRow> rows() {
  return {{"⌥⌘N", NSLocalizedString("Show / hide from anywhere")},
          {"⌥⌘P", NSLocalizedString("Keep on top (every Space)")},
          {"esc", NSLocalizedString("Hide, back to what you did")}};
}

std::shared_ptr<NSTextField> makeLabel(std::string_view text, const NSFont& font) {
  auto label = NSTextField::labelWithString(text);
  label->setFont(font);
  return label;
}

std::shared_ptr<NSStackView> makeHeader(const std::shared_ptr<NSImageView>& logoMark) {
  auto header = NSStackView::stackViewWithViews(
      {logoMark, makeLabel("Quillberry", NSFont::systemFontOfSize(17, NSFontWeight::Bold))});
  header->setOrientation(NSUserInterfaceLayoutOrientationHorizontal);
  header->setAlignment(NSLayoutAttributeCenterY);
  header->setSpacing(headerSpacing);
  return header;
}

std::shared_ptr<NSTextField> makeBody() {
  auto body = NSTextField::wrappingLabelWithString(
      NSLocalizedString("Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. "
                        "Summon it from anywhere with these:"));
  body->setFont(NSFont::systemFontOfSize(12.5));
  body->setTextColor(NSColor::secondaryLabelColor());
  body->setPreferredMaxLayoutWidth(bodyWidth);
  return body;
}

std::shared_ptr<NSButton> makeGotItButton(const std::weak_ptr<NSObject>& target) {
  auto button = NSButton::buttonWithTitle(NSLocalizedString("Got it"), target, {"dismissWelcome"});
  button->setBezelStyle(NSBezelStyleRounded);
  button->setKeyEquivalent("\r");
  button->setContentTintColor(buttonTint);
  return button;
}

std::shared_ptr<NSBox> makeAccentBar() {
  auto bar = std::make_shared<NSBox>();
  bar->setBoxType(NSBoxCustom);
  bar->setBorderWidth(0);
  bar->setFillColor(barColor);
  bar->setTranslatesAutoresizingMaskIntoConstraints(false);
  bar->heightAnchor().constraintEqualToConstant(barSize.height).setActive(true);
  bar->widthAnchor().constraintEqualToConstant(barSize.width).setActive(true);
  return bar;
}

}  // namespace

void AppDelegate::showWelcomeIfFirstRun() {
  NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
  if (defaults.boolForKey("didShowWelcome")) return;
  defaults.setBool(true, "didShowWelcome");
  DispatchQueue::main().asyncAfter(welcomeDelay, [controller = std::weak_ptr(self())] {
    if (const auto alive = controller.lock()) alive->presentWelcome();
  });
}

void AppDelegate::presentWelcome() {
  const auto anchor = statusItem->button();
  if (!anchor) return;
  const auto container = std::make_shared<NSView>(NSRect{});
  const auto header = makeHeader(makeLogoMark(logoSide));
  const auto headline =
      makeLabel(NSLocalizedString("You'll find it up here 📝"), NSFont::systemFontOfSize(13.5, NSFontWeight::Semibold));
  const auto body = makeBody();
  const auto grid = makeShortcutGrid(rows(), gridMetrics);
  const auto gotIt = makeGotItButton(self());
  const auto bar = makeAccentBar();

  const auto content = NSStackView::stackViewWithViews({header, bar, headline, body, grid, gotIt});
  content->setOrientation(NSUserInterfaceLayoutOrientationVertical);
  content->setAlignment(NSLayoutAttributeLeading);
  content->setSpacing(rowSpacing);
  content->setCustomSpacing(spacingBelowHeader, *header);
  content->setCustomSpacing(spacingBelowBar, *bar);
  content->setTranslatesAutoresizingMaskIntoConstraints(false);
  container->addSubview(content);
  NSLayoutConstraint::activateConstraints(
      {content->topAnchor().constraintEqualToAnchor(container->topAnchor(), margin),
       content->bottomAnchor().constraintEqualToAnchor(container->bottomAnchor(), -margin),
       content->leadingAnchor().constraintEqualToAnchor(container->leadingAnchor(), margin),
       content->trailingAnchor().constraintEqualToAnchor(container->trailingAnchor(), -margin),
       container->widthAnchor().constraintEqualToConstant(width)});

  const auto controller = std::make_shared<NSViewController>();
  controller->setView(container);
  welcomePopover = std::make_shared<NSPopover>();
  welcomePopover->setContentViewController(controller);
  welcomePopover->setBehavior(NSPopoverBehaviorApplicationDefined);
  welcomePopover->setAnimates(true);
  NSApplication::sharedApplication()->activateIgnoringOtherApps(true);
  welcomePopover->showRelativeToRect(anchor->bounds(), *anchor, NSMinYEdge);
}

void AppDelegate::dismissWelcome() {
  if (welcomePopover) welcomePopover->performClose(nullptr);
  welcomePopover.reset();
}

}  // namespace quillberry
