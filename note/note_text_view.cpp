// SPDX-License-Identifier: MIT
#include "note/note_text_view.h"

#include "app/app_delegate.h"

namespace quillberry {

void NoteTextView::keyDown(platform::NSEvent& event) {
  if (event.keyCode() != platform::kVK_Escape) {
    NSTextView::keyDown(event);
    return;
  }
  if (const auto controller = AppDelegate::shared.lock()) controller->hideWindow();
}

}  // namespace quillberry
