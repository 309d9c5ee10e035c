// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTimer>

#include "platform/desktop/text/exact_text_edit.h"

namespace platform::desktop {

/// Loads a long text into an editor in pieces, so that it shows at once: its end first, where a note's caret stands,
/// and the rest in front of that, without anything in view moving.
class TextLoader {
 public:
  explicit TextLoader(ExactTextEdit& editor);

  /// Replaces the editor's text, which is no edit.
  void load(const QString& text);
  /// What of the text is before that of the document, as yet.
  const QString& above() const { return above_; }
  /// The editor has painted what it has: the rest comes piece by piece from now on.
  void goOn();
  void loadRest();

 private:
  void loadPiece();

  ExactTextEdit& editor_;
  QString above_;
  QTimer untilNextPiece_;
};

}  // namespace platform::desktop
