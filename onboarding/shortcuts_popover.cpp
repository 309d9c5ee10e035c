// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"
#include "onboarding/shortcut_grid.h"
#include "platform/button.h"
#include "platform/layout.h"
#include "platform/localized_string.h"
#include "platform/popover.h"

namespace quillberry {

using namespace platform;

namespace {

constexpr ShortcutGridMetrics metrics{13, 14, 6};
constexpr double verticalMargin = 14;
constexpr double horizontalMargin = 16;

std::vector<ShortcutRow> rows() {
  return {{"⌥⌘N", NSLocalizedString("Show / hide from anywhere")},
          {"⌥⌘P", NSLocalizedString("Keep on top (follows every Space)")},
          {"esc", NSLocalizedString("Hide and go back to what you did")}};
}

}  // namespace

void AppDelegate::showInfo(NSObject* sender) {
  auto* const button = dynamic_cast<NSButton*>(sender);
  if (button == nullptr) return;
  const auto grid = makeShortcutGrid(rows(), metrics);
  const auto container = std::make_shared<NSView>(NSRect{});
  grid->setTranslatesAutoresizingMaskIntoConstraints(false);
  container->addSubview(grid);
  NSLayoutConstraint::activateConstraints(
      {grid->topAnchor().constraintEqualToAnchor(container->topAnchor(), verticalMargin),
       grid->bottomAnchor().constraintEqualToAnchor(container->bottomAnchor(), -verticalMargin),
       grid->leadingAnchor().constraintEqualToAnchor(container->leadingAnchor(), horizontalMargin),
       grid->trailingAnchor().constraintEqualToAnchor(container->trailingAnchor(), -horizontalMargin)});
  const auto controller = std::make_shared<NSViewController>();
  controller->setView(container);
  const auto popover = std::make_shared<NSPopover>();
  popover->setBehavior(NSPopoverBehaviorTransient);
  popover->setContentViewController(controller);
  popover->showRelativeToRect(button->bounds(), *button, NSMaxYEdge);
}

}  // namespace quillberry
