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
  noteNotRead = !text || text->empty();
  if (noteNotRead) savedText = text;
  if (!text) return;
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

bool AppDelegate::isSavedTextThere() const {
  std::error_code error;
  return savedText && NSString::stringWithContentsOfURL(noteURL, error) == savedText;
}

void AppDelegate::saveNow() {
  if (saveTimer) saveTimer->invalidate();
  saveTimer.reset();
  // A note that could not be read, or was on a disk that is mounted only now, first gets a second name; while that
  // fails, saves are held back.
  if (noteNotRead && !isSavedTextThere() && NSFileManager::defaultManager().keepUnreadableItemAtURL(noteURL)) return;
  const std::string text = textView->string();
  // A failure is dropped: the text stays in the view and the next save writes it.
  if (NSString::writeToURL(text, noteURL)) return;
  if (noteNotRead) savedText = text;
}

}  // namespace quillberry
