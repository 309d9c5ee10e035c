// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/popover.h"
#include "platform/text_view.h"
#include "platform/url.h"
#include "platform/window.h"

/// What the contract tests do to a platform as a user and see of it as one, once for each platform.
namespace platform::harness {

/// A fresh world, with an application object, for one test.
std::shared_ptr<void> makeWorld();

/// Lets that much steady time pass and delivers what comes due.
void pass(double seconds);

/// A folder for the test's files. It is there.
URL folder();
void putFile(const URL&, std::string_view bytes);
/// Before the first use of the settings.
void putSetting(std::string_view key, std::string_view value);

/// Presses keys in the view, which come through its `keyDown`.
void type(NSTextView&, std::string_view ascii);
void compose(NSTextView&, std::string_view text);

NSRect frameOf(NSWindow&);
void moveByUser(NSWindow&, NSRect frame);
bool isShown(const NSPopover&);
NSRect screen();

}  // namespace platform::harness
