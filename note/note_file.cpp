// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"
#include "platform/file_manager.h"
#include "platform/string.h"
#include "platform/utf8.h"

namespace quillberry {

using namespace platform;

namespace {

constexpr double autosaveDelay = 0.8;  // seconds

}  // namespace

const URL& AppDelegate::supportDir() {
  static const URL folder = [] {
    NSFileManager& files = NSFileManager::defaultManager();
    URL url = files.URLsForDirectory(NSApplicationSupportDirectory, NSUserDomainMask).front() / "Quillberry";
    files.createDirectoryAtURL(url, true);
    return url;
  }();
  return folder;
}

void AppDelegate::loadNote() {
  std::error_code error;
  const auto text = NSString::stringWithContentsOfURL(noteURL, error);
  if (!text) {
    noteUnreadable = error != std::errc::no_such_file_or_directory;
    return;
  }
  textView->setString(*text);
  textView->setSelectedRange({utf16Length(*text), 0});
}

void AppDelegate::textChanged() {
  if (saveTimer) saveTimer->invalidate();
  const std::weak_ptr<AppDelegate> controller = self();
  saveTimer = NSTimer::scheduledTimerWithTimeInterval(autosaveDelay, false, [controller] {
    if (const auto alive = controller.lock()) alive->saveNow();
  });
}

void AppDelegate::saveNow() {
  if (saveTimer) saveTimer->invalidate();
  saveTimer.reset();
  if (!keepUnreadableNote()) return;
  // A failure is dropped: the text stays in the view and the next save writes it.
  NSString::writeToURL(textView->string(), noteURL);
}

/// Whether the note file may be replaced. One that could not be read first gets a second name, which no save
/// touches; while that fails, saves are held back.
bool AppDelegate::keepUnreadableNote() {
  if (noteUnreadable) noteUnreadable = bool(NSFileManager::defaultManager().keepUnreadableItemAtURL(noteURL));
  return !noteUnreadable;
}

}  // namespace quillberry
