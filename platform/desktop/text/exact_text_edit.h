// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>
#include <functional>

namespace platform::desktop {

/// Qt's plain-text editor, but what is typed, pasted, dropped and copied stays exactly as it is (see exact_text.h).
class ExactTextEdit : public QPlainTextEdit {
 public:
  ExactTextEdit();

  /// Called after an edit, an undo or a redo. Qt's textChanged also comes with a change of font.
  std::function<void()> onEdit;

  /// Edits the text or moves the caret as the key says.
  void editKey(QKeyEvent& key);
  /// Replaces the selection.
  void insertExactly(const QString& text);

  /// Runs `change`, whose changes to the text are not reported as edits.
  void changeSilently(const std::function<void()>& change);
  /// Calls `onEdit`, unless inside `changeSilently`.
  void reportEdit();

  /// Lets Qt's editor handle an input method's event. Not for texts of which `needsExactInsertion` is true.
  void giveToQt(QInputMethodEvent& event) { QPlainTextEdit::inputMethodEvent(&event); }
  using QPlainTextEdit::firstVisibleBlock;

 protected:
  bool canInsertFromMimeData(const QMimeData* source) const override;
  QMimeData* createMimeDataFromSelection() const override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  void giveToQt(QKeyEvent& key);

  int reportedRevision_ = 0;
  bool silent_ = false;
};

}  // namespace platform::desktop
