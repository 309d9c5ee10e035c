// SPDX-License-Identifier: MIT
#include "tests/platform/harness.h"

#include <algorithm>

#include "platform/headless/headless.h"

namespace platform::harness {

std::shared_ptr<void> makeWorld() {
  putFile(folder() / "there", "");
  return NSApplication::sharedApplication();
}

void pass(double seconds) { headless::advance(seconds); }
URL folder() { return "/home/user/test"; }
void putFile(const URL& url, std::string_view bytes) { headless::putFile(url, std::string(bytes)); }
void putSetting(std::string_view key, std::string_view value) { headless::putSetting(key, std::string(value)); }

void type(NSTextView& /*view*/, std::string_view ascii) {
  for (const char c : ascii) c == '\x1B' ? headless::pressKey(kVK_Escape) : headless::type(std::string(1, c));
}
void compose(NSTextView& /*view*/, std::string_view text) { headless::compose(text); }

NSRect frameOf(NSWindow& /*window*/) { return headless::windowState().frame; }
void moveByUser(NSWindow& /*window*/, NSRect frame) { headless::moveWindow(frame); }
bool isShown(const NSPopover& popover) {
  const auto isIt = [&](const auto& each) { return each.popover.get() == &popover; };
  return std::ranges::any_of(headless::shownPopovers(), isIt);
}
NSRect screen() { return {{0, 0}, {1280, 800}}; }

}  // namespace platform::harness
