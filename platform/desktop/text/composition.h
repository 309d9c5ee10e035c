// SPDX-License-Identifier: MIT
#pragma once

#include <QInputMethodEvent>
#include <QString>

#include "platform/desktop/text/exact_text_edit.h"

namespace platform::desktop {

/// What an input method composes in an editor: part of the text from its first letter on, and an edit once it is
/// committed.
class Composition {
 public:
  explicit Composition(ExactTextEdit& editor) : editor_(editor) {}

  /// The document's text, with the open composition where it stands.
  QString textWithComposition() const;
  /// Does what an input method asks; the composition's text goes where the caret stands.
  void handle(QInputMethodEvent& event);
  /// Makes the open composition text, which is no edit: it was part of the text before.
  void commit();
  /// The user has gone on: from now on nothing is taken for a late commit any more.
  void forgetCommit() { committed_.clear(); }

 private:
  bool isCommittedAgain(const QInputMethodEvent& event);
  void insert(QInputMethodEvent& event);

  ExactTextEdit& editor_;
  QString open_;
  QString committed_;  ///< by `commit`, for as long as its input method may commit it again
};

}  // namespace platform::desktop
