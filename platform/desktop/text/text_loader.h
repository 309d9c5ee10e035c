// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTimer>

#include "platform/desktop/text/exact_text_edit.h"

namespace platform::desktop {

/// Loads a long text into an editor in pieces, so that it is shown at once: its end first, where the caret is, then the
/// rest in front of it, without moving what is in view.
class TextLoader {
 public:
  explicit TextLoader(ExactTextEdit& editor);

  /// Replaces the editor's text, which is no edit.
  void load(const QString& text);
  /// The beginning of the text, which is not in the document yet.
  const QString& above() const { return above_; }
  /// To be called once the editor has painted: loads the rest, piece by piece.
  void goOn();
  void loadRest();

 private:
  void loadPiece();

  ExactTextEdit& editor_;
  QString above_;
  QTimer untilNextPiece_;
};

}  // namespace platform::desktop
