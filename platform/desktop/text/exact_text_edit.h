// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>
#include <functional>

namespace platform::desktop {

/// Qt's plain-text editor, made exact: what is typed, pasted, dropped and copied is held without a loss (see
/// exact_text.h).
class ExactTextEdit : public QPlainTextEdit {
 public:
  ExactTextEdit();

  /// The text was edited, or an edit undone or redone. Qt's own signal also tells of another font.
  std::function<void()> onEdit;

  /// Does to the text what the key does.
  void editKey(QKeyEvent& key);
  /// Replaces the selection.
  void insertExactly(const QString& text);

  /// What `change` does to the text is no edit.
  void changeUntold(const std::function<void()>& change);
  /// Calls `onEdit`, but not from inside `changeUntold`.
  void tellOfEdit();

  /// What Qt's editor does with an input method's event. It folds some texts: see `needsExactInsertion`.
  void giveToQt(QInputMethodEvent& event) { QPlainTextEdit::inputMethodEvent(&event); }
  using QPlainTextEdit::firstVisibleBlock;

 protected:
  bool canInsertFromMimeData(const QMimeData* source) const override;
  QMimeData* createMimeDataFromSelection() const override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  void giveToQt(QKeyEvent& key);

  int toldRevision_ = 0;
  bool untold_ = false;
};

}  // namespace platform::desktop
