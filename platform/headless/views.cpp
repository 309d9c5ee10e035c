// SPDX-License-Identifier: MIT
#include "platform/button.h"
#include "platform/headless/world.h"
#include "platform/scroll_view.h"

namespace platform {

using headless::world;

struct NSView::Native {};

NSView::NSView(NSRect frame) : NSView(frame, std::make_shared<Native>()) {}
NSView::NSView(NSRect frame, std::shared_ptr<Native> native) : frame_(frame), native_(std::move(native)) {}
void NSView::showFrame() {}
void NSView::showSubview(NSView& /*view*/) {}
void NSView::dropSubview(NSView& /*view*/) {}

NSScrollView::NSScrollView(NSRect frame) : NSView(frame) {}
void NSScrollView::setHasVerticalScroller(bool shown) { hasVerticalScroller_ = shown; }
void NSScrollView::setDrawsBackground(bool /*draws*/) {}
void NSScrollView::setDocumentView(const std::shared_ptr<NSTextView>& view) { addSubview(view); }

NSButton::NSButton(std::optional<NSImage> image, std::weak_ptr<NSObject> target, Selector action,
                   std::shared_ptr<Native> native)
    : NSView({}, std::move(native)), image_(std::move(image)), target_(std::move(target)), action_(action) {}

std::shared_ptr<NSButton> NSButton::buttonWithImage(const std::optional<NSImage>& image,
                                                    const std::weak_ptr<NSObject>& target, Selector action) {
  std::shared_ptr<NSButton> button(new NSButton(image, target, action, std::make_shared<Native>()));
  if (image) world().button = button.get();
  return button;
}

std::shared_ptr<NSButton> NSButton::buttonWithTitle(std::string_view title, const std::weak_ptr<NSObject>& target,
                                                    Selector action) {
  std::shared_ptr<NSButton> button(new NSButton(std::nullopt, target, action, std::make_shared<Native>()));
  button->title_ = title;
  return button;
}

void NSButton::performClick() {
  if (const auto target = target_.lock()) target->perform(action_, this);
}

void NSButton::setImage(const std::optional<NSImage>& image) { image_ = image; }
void NSButton::sizeToFit() { setFrameSize(image_.value_or(NSImage()).size()); }
void NSButton::setBordered(bool /*bordered*/) {}
void NSButton::setContentTintColor(const NSColor& color) { tint_ = color; }

NSButton& headless::button() { return *world().button; }

std::optional<NSImage> NSImage::imageWithSystemSymbolName(std::string_view name,
                                                          std::string_view accessibilityDescription) {
  const bool known = name == "info.circle" || (name == "note.text" && !world().faults.noSymbols);
  if (!known) return std::nullopt;
  return NSImage{std::string(name), std::string(accessibilityDescription), false, nullptr, {}};
}

}  // namespace platform
