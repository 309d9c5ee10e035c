// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/popover.h"
#include "platform/text_view.h"
#include "platform/url.h"
#include "platform/user_defaults.h"
#include "platform/window.h"

/// What the contract tests do to a platform as a user and see of it as one, once for each platform.
namespace platform::harness {

/// A fresh world, with an application object, for one test.
struct World {
  World();
  ~World();
  struct Parts;
  std::unique_ptr<Parts> parts;
};

/// Lets that much steady time pass and delivers what comes due.
void pass(double seconds);

void putFile(const URL&, std::string_view bytes);
std::optional<std::string> fileAt(const URL&);
std::vector<std::string> namesIn(const URL& folder);
/// A folder for the test's files.
URL folder();

void putSetting(std::string_view key, const DefaultsValue& value);

/// Types into the view through its `keyDown`, as key presses.
void type(NSTextView&, std::string_view ascii);
void pressEscape(NSTextView&);
void undo(NSTextView&);
void redo(NSTextView&);
void compose(NSTextView&, std::string_view text);

NSRect frameOf(NSWindow&);
void moveByUser(NSWindow&, NSRect frame);
void pressCloseButton(NSWindow&);
bool isShown(const NSPopover&);
NSRect screen();

}  // namespace platform::harness
