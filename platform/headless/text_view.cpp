// SPDX-License-Identifier: MIT
#include "platform/text_view.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/headless/world.h"
#include "platform/notification_center.h"
#include "platform/utf8.h"

namespace platform {

using headless::world;

struct NSTextView::Impl : headless::TextViewParts {};

NSTextView::NSTextView(NSRect frame) : NSView(frame), impl_(std::make_shared<Impl>()) {
  world().textView = this;
  world().textViewParts = impl_.get();
}

NSTextView::~NSTextView() {
  world().textView = nullptr;
  world().textViewParts = nullptr;
}

void NSTextView::setMinSize(NSSize size) { impl_->state.minSize = size; }
void NSTextView::setMaxSize(NSSize size) { impl_->state.maxSize = size; }
void NSTextView::setVerticallyResizable(bool resizable) { impl_->state.verticallyResizable = resizable; }
void NSTextView::setHorizontallyResizable(bool resizable) { impl_->state.horizontallyResizable = resizable; }
NSTextContainer& NSTextView::textContainer() { return impl_->state.container; }
void NSTextView::setRichText(bool rich) { impl_->state.richText = rich; }
void NSTextView::setAllowsUndo(bool allows) { impl_->state.allowsUndo = allows; }
void NSTextView::setFont(const NSFont& font) { impl_->state.font = font; }
void NSTextView::setTextContainerInset(NSSize inset) { impl_->state.inset = inset; }
void NSTextView::setAutomaticQuoteSubstitutionEnabled(bool enabled) { impl_->state.substitutes = enabled; }
void NSTextView::setAutomaticDashSubstitutionEnabled(bool enabled) { impl_->state.substitutes |= enabled; }
void NSTextView::setAutomaticSpellingCorrectionEnabled(bool enabled) { impl_->state.substitutes |= enabled; }
void NSTextView::setAutomaticTextReplacementEnabled(bool enabled) { impl_->state.substitutes |= enabled; }

std::string NSTextView::string() const {
  std::u16string text = impl_->text;
  text.insert(impl_->state.selection.location, impl_->composition);
  return headless::toUtf8(text);
}

void NSTextView::setString(std::string_view text) {
  world().record("text view string");
  impl_->text = headless::toUtf16(text);
  impl_->composition.clear();
  impl_->undoStack.clear();
  impl_->redoStack.clear();
  impl_->state.selection = {};
}

void NSTextView::setSelectedRange(NSRange range) {
  const std::u16string& text = impl_->text;
  std::size_t start = std::min(range.location, text.size());
  if (start > 0 && start < text.size() && text[start - 1] == u'\r' && text[start] == u'\n') --start;
  impl_->state.selection = {start, std::min(range.length, text.size() - start)};
}

bool NSTextView::perform(Selector action, NSObject* /*sender*/) {
  std::u16string& text = impl_->text;
  const NSRange selection = impl_->state.selection;
  const std::u16string selected = text.substr(selection.location, selection.length);
  if (action == Selector{"undo"}) {
    headless::undo();
  } else if (action == Selector{"redo"}) {
    headless::redo();
  } else if (action == Selector{"cut"} || action == Selector{"copy"}) {
    if (selected.empty()) return true;
    world().clipboard = headless::toUtf8(selected);
    if (action == Selector{"cut"}) headless::insertText(*impl_, {});
  } else if (action == Selector{"paste"}) {
    headless::insertText(*impl_, headless::toUtf16(world().clipboard));
  } else if (action == Selector{"selectAll"}) {
    impl_->state.selection = {0, text.size()};
  } else {
    return false;
  }
  return true;
}

// A key that has a name types nothing.
void NSTextView::keyDown(NSEvent& event) {
  if (event.keyCode() != kVK_Unnamed) return world().record("text view key " + std::to_string(event.keyCode()));
  headless::insertText(*impl_, headless::toUtf16(event.native()->characters));
}

namespace headless {

std::u16string toUtf16(std::string_view validUtf8) {
  std::u16string units;
  for (std::size_t i = 0; i < validUtf8.size();) {
    const auto lead = static_cast<unsigned char>(validUtf8[i]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t scalar = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t k = 1; k < length; ++k) {
      scalar = (scalar << 6U) | (static_cast<unsigned char>(validUtf8[i + k]) & 0x3FU);
    }
    i += length;
    if (scalar < 0x10000) {
      units += static_cast<char16_t>(scalar);
    } else {
      units += static_cast<char16_t>(0xD800 + ((scalar - 0x10000) >> 10U));
      units += static_cast<char16_t>(0xDC00 + (scalar & 0x3FFU));
    }
  }
  return units;
}

std::string toUtf8(std::u16string_view units) {
  std::string text;
  for (std::size_t i = 0; i < units.size(); ++i) {
    char32_t scalar = units[i];
    const bool high = scalar >= 0xD800 && scalar < 0xDC00;
    if (high && i + 1 < units.size() && (units[i + 1] & 0xFC00U) == 0xDC00) {
      scalar = 0x10000 + ((scalar - 0xD800) << 10U) + (units[++i] - 0xDC00);
    } else if (scalar >= 0xD800 && scalar < 0xE000) {
      scalar = 0xFFFD;
    }
    if (scalar < 0x80) {
      text += static_cast<char>(scalar);
      continue;
    }
    constexpr std::array<unsigned char, 4> leadBits{0, 0xC0, 0xE0, 0xF0};
    const unsigned more = scalar < 0x800 ? 1 : scalar < 0x10000 ? 2 : 3;
    text += static_cast<char>((leadBits[more]) | (scalar >> (6 * more)));
    for (unsigned k = more; k-- > 0;) text += static_cast<char>(0x80 | ((scalar >> (6 * k)) & 0x3FU));
  }
  return text;
}

namespace {

void changed() {
  NSNotificationCenter::defaultCenter().postNotificationName(NSTextDidChangeNotification, world().textView);
}

void swapText(TextViewParts& parts, std::vector<std::u16string>& from, std::vector<std::u16string>& to) {
  if (from.empty()) return;
  to.push_back(std::exchange(parts.text, from.back()));
  from.pop_back();
  parts.state.selection = {parts.text.size(), 0};
  changed();
}

}  // namespace

void insertText(TextViewParts& parts, std::u16string_view text) {
  parts.undoStack.push_back(parts.text);
  parts.redoStack.clear();
  parts.composition.clear();
  NSRange& selection = parts.state.selection;
  parts.text.replace(selection.location, selection.length, text);
  selection = {selection.location + text.size(), 0};
  changed();
}

void commitComposition(TextViewParts& parts) {
  if (parts.composition.empty()) return;
  parts.text.insert(parts.state.selection.location, parts.composition);
  parts.state.selection.location += parts.composition.size();
  parts.composition.clear();
}

const TextViewState& textViewState() { return world().textViewParts->state; }
NSTextView& textView() { return *world().textView; }

void pressKey(unsigned short keyCode) {
  NSEvent event(keyCode, nullptr);
  textView().keyDown(event);
}

void type(std::string_view text) {
  NSEvent::Native native{std::string(text)};
  NSEvent event(kVK_Unnamed, &native);
  textView().keyDown(event);
}

void undo() { swapText(*world().textViewParts, world().textViewParts->undoStack, world().textViewParts->redoStack); }
void redo() { swapText(*world().textViewParts, world().textViewParts->redoStack, world().textViewParts->undoStack); }
std::string& clipboard() { return world().clipboard; }
void compose(std::string_view text) { world().textViewParts->composition = toUtf16(text); }

}  // namespace headless
}  // namespace platform
