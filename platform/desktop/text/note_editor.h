// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "platform/desktop/text/caret_rest.h"
#include "platform/desktop/text/composition.h"
#include "platform/desktop/text/exact_text_edit.h"
#include "platform/desktop/text/text_loader.h"

namespace platform::desktop {

/// The note's editor: how its text looks, and what is behind each of its events.
class NoteEditor : public ExactTextEdit {
  Q_OBJECT

 public:
  NoteEditor();

  /// Gets every key press; calls `editKey` for those that edit.
  std::function<void(QKeyEvent&)> onKey;

  /// The exact text, loaded or not yet, with the open composition where it stands.
  QString exactTextWithComposition() const { return loader_.above() + composition_.textWithComposition(); }
  void loadExactText(const QString& text) { loader_.load(text); }
  /// Before anything is done to the text that is no event of this editor.
  void loadRest() { loader_.loadRest(); }
  /// Counted in the exact text; see `NSTextView::setSelectedRange`.
  void selectExactly(qsizetype location, qsizetype length);
  void commitComposition() { composition_.commit(); }

  void setNoteFont(const QFont& font);
  /// In points. Scrolls with the text; what the title bar covers of `vertical` does not count as room for text.
  void setInset(int horizontal, int vertical);

 protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override { composition_.handle(*event); }

 private:
  void prepareForUser(const QEvent& event);

  QWidget roomAboveScroller_;
  CaretRest caret_{*this};
  Composition composition_{*this};
  TextLoader loader_{*this};
  bool wasShown_ = false;
};

}  // namespace platform::desktop
