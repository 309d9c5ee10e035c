// SPDX-License-Identifier: MIT
#include "platform/button.h"

#include "platform/desktop/base/strings.h"
#include "platform/desktop/views/appearance.h"
#include "platform/desktop/views/native_view.h"
#include "platform/desktop/views/push_button.h"
#include "platform/desktop/views/symbol_button.h"
#include "platform/desktop/views/symbols.h"

namespace platform {

using desktop::PushButton;
using desktop::SymbolButton;

NSButton::NSButton(std::optional<NSImage> image, std::weak_ptr<NSObject> target, Selector action,
                   std::shared_ptr<Native> native)
    : NSView({}, std::move(native)), image_(std::move(image)), target_(std::move(target)), action_(action) {}

std::shared_ptr<NSButton> NSButton::buttonWithImage(const std::optional<NSImage>& image,
                                                    const std::weak_ptr<NSObject>& target, Selector action) {
  auto widget = std::make_unique<SymbolButton>();
  SymbolButton* const symbol = widget.get();
  std::shared_ptr<NSButton> button(new NSButton(image, target, action, std::make_shared<Native>(std::move(widget))));
  button->setImage(image);
  symbol->setEnabled(bool(action));
  QObject::connect(symbol, &QAbstractButton::clicked, [pressed = button.get()] { pressed->performClick(); });
  return button;
}

std::shared_ptr<NSButton> NSButton::buttonWithTitle(std::string_view title, const std::weak_ptr<NSObject>& target,
                                                    Selector action) {
  auto widget = std::make_unique<PushButton>(desktop::toQString(title));
  PushButton* const push = widget.get();
  std::shared_ptr<NSButton> button(
      new NSButton(std::nullopt, target, action, std::make_shared<Native>(std::move(widget))));
  button->title_ = title;
  QObject::connect(push, &QAbstractButton::clicked, [pressed = button.get()] { pressed->performClick(); });
  return button;
}

void NSButton::setImage(const std::optional<NSImage>& image) {
  image_ = image;
  const NSImage shown = image.value_or(NSImage());
  static_cast<SymbolButton&>(*native().widget)
      .setSymbol(shown.symbolName, desktop::toQString(shown.accessibilityDescription));
}

void NSButton::setBordered(bool /*bordered*/) {
  // A button that is a symbol never has a border.
}

void NSButton::setContentTintColor(const NSColor& color) {
  tint_ = color;
  QWidget& widget = *native().widget;
  if (auto* const symbol = dynamic_cast<SymbolButton*>(&widget)) symbol->setTint(color);
  if (auto* const push = dynamic_cast<PushButton*>(&widget)) push->setTint(color);
}

void NSButton::sizeToFit() { setFrameSize(image_.value_or(NSImage()).size()); }

std::optional<NSImage> NSImage::imageWithSystemSymbolName(std::string_view name,
                                                          std::string_view accessibilityDescription) {
  if (!desktop::symbolExists(name)) return std::nullopt;
  return NSImage{std::string(name), std::string(accessibilityDescription), false, nullptr, {}};
}

void NSButton::performClick() {
  if (const auto target = target_.lock()) target->perform(action_, this);
}

}  // namespace platform
