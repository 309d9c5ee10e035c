// SPDX-License-Identifier: MIT
#pragma once

#include <QInputMethodEvent>
#include <QString>

#include "platform/desktop/text/exact_text_edit.h"

namespace platform::desktop {

/// The text that an input method composes in an editor (Qt's preedit string). It counts as part of the text from its
/// first letter on, and as an edit once it is committed.
class Composition {
 public:
  explicit Composition(ExactTextEdit& editor) : editor_(editor) {}

  /// The document's text, with the open composition where it stands.
  QString textWithComposition() const;
  /// Handles an event of the input method at the caret.
  void handle(QInputMethodEvent& event);
  /// Commits the open composition. Reported as an edit only if the input method changes the text in doing so.
  void commit();
  /// The user has typed something else: a commit that comes now is new text, no late duplicate of `commit`.
  void forgetCommit() { committed_.clear(); }

 private:
  bool isCommittedAgain(const QInputMethodEvent& event);
  void insert(QInputMethodEvent& event);

  ExactTextEdit& editor_;
  QString open_;
  QString committed_;  ///< by `commit`, until the input method can no longer commit it again
};

}  // namespace platform::desktop
