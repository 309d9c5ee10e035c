// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>
#include <QTimer>
#include <functional>

#include "platform/desktop/text/caret_rest.h"
#include "platform/desktop/text/long_paragraphs.h"

namespace platform::desktop {

/// Qt's plain-text editor, made exact: it holds every text without a loss (see exact_text.h), and tells of
/// edits only, not of an input method's open composition.
class NoteEditor : public QPlainTextEdit {
  Q_OBJECT

 public:
  NoteEditor();

  /// Gets every key press; calls `editKey` for those that edit.
  std::function<void(QKeyEvent&)> onKey;
  std::function<void()> onEdit;

  void editKey(QKeyEvent& key);

  /// The exact text, with the open composition where it stands.
  QString exactTextWithComposition() const;
  /// Replaces the text. Of a long one the document gets the last part at once, where a note's caret stands, and the
  /// rest piece by piece when that has been painted, or before anything is done to the text.
  void loadExactText(const QString& text);
  void loadRest();
  /// Counted in the exact text; see `NSTextView::setSelectedRange`.
  void selectExactly(qsizetype location, qsizetype length);
  void setNoteFont(const QFont& font);
  /// In points. Scrolls with the text; what the title bar covers of `vertical` does not count as room for text.
  void setInset(int horizontal, int vertical);
  /// Makes the open composition text, which is no edit: it was part of the text before.
  void commitComposition();

  /// The composition's text goes where the caret stands.
  void inputMethodEvent(QInputMethodEvent* event) override;

 protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool canInsertFromMimeData(const QMimeData* source) const override;
  QMimeData* createMimeDataFromSelection() const override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  void stepOverJointsTo(Direction direction);
  void giveToToolkit(QKeyEvent& key);
  void prepareForUser(const QEvent& event);
  bool isCommittedAgain(const QInputMethodEvent& event);
  void insertExactly(const QString& text);
  void loadPiece();
  void tellOfEdit();

  QWidget roomAboveScroller_;
  QString above_;  ///< what of the text is before that of the document, as yet
  QTimer loader_;
  CaretRest caret_{*this};
  QString composition_;
  QString lateCommit_;  ///< the composition that we ended, for as long as its input method may commit it again
  int toldRevision_ = 0;
  bool silent_ = false;
  bool wasShown_ = false;
};

}  // namespace platform::desktop
