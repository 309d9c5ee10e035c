// SPDX-License-Identifier: MIT
#include "tests/platform/harness.h"

#include <algorithm>

#include "platform/headless/headless.h"

namespace platform::harness {

struct World::Parts {
  std::shared_ptr<NSApplication> app = NSApplication::sharedApplication();
};

World::World() : parts(std::make_unique<Parts>()) { headless::putFile(folder() / "there", ""); }
World::~World() = default;

void pass(double seconds) { headless::advance(seconds); }
void putFile(const URL& url, std::string_view bytes) { headless::putFile(url, std::string(bytes)); }
std::optional<std::string> fileAt(const URL& url) { return headless::fileAt(url); }

std::vector<std::string> namesIn(const URL& folder) {
  std::vector<std::string> names;
  for (const auto& [url, contents] : headless::files()) {
    if (url.parent_path() == folder) names.push_back(url.filename().string());
  }
  return names;
}

URL folder() { return "/home/user/test"; }
void putSetting(std::string_view key, const DefaultsValue& value) { headless::putSetting(key, value); }

void type(NSTextView& /*view*/, std::string_view ascii) {
  for (const char c : ascii) headless::type(std::string(1, c));
}
void pressEscape(NSTextView& /*view*/) { headless::pressKey(kVK_Escape); }
void undo(NSTextView& /*view*/) { headless::undo(); }
void redo(NSTextView& /*view*/) { headless::redo(); }
void compose(NSTextView& /*view*/, std::string_view text) { headless::compose(text); }

NSRect frameOf(NSWindow& /*window*/) { return headless::windowState().frame; }
void moveByUser(NSWindow& /*window*/, NSRect frame) { headless::moveWindow(frame); }
void pressCloseButton(NSWindow& /*window*/) { headless::pressCloseButton(); }
bool isShown(const NSPopover& popover) {
  return std::ranges::any_of(headless::shownPopovers(),
                             [&](const auto& each) { return each.popover.get() == &popover; });
}
NSRect screen() { return {{0, 0}, {1280, 800}}; }

}  // namespace platform::harness
