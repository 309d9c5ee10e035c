// SPDX-License-Identifier: MIT
#pragma once

#include "platform/text_view.h"

namespace quillberry {

/// The note's editor: Escape, with any modifiers, puts the note away; every other key edits.
class NoteTextView final : public platform::NSTextView {
 public:
  using NSTextView::NSTextView;

  void keyDown(platform::NSEvent& event) override;
};

}  // namespace quillberry
