// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "platform/desktop/text/caret_blink.h"
#include "platform/desktop/text/composition.h"
#include "platform/desktop/text/exact_text_edit.h"
#include "platform/desktop/text/text_loader.h"

namespace platform::desktop {

/// The note's editor: its look, and what each event does.
class NoteEditor : public ExactTextEdit {
  Q_OBJECT

 public:
  NoteEditor();

  /// Called with every key press in place of Qt's own handling; calls `editKey` for those that are to edit.
  std::function<void(QKeyEvent&)> onKey;

  /// The whole text, also what is not loaded into the document yet, with the open composition in its place.
  QString exactTextWithComposition() const { return loader_.above() + composition_.textWithComposition(); }
  void loadExactText(const QString& text) { loader_.load(text); }
  /// To be called before the text is used by other means than an event of this editor.
  void loadRest() { loader_.loadRest(); }
  /// In UTF-16 units of the exact text; see `NSTextView::setSelectedRange`.
  void selectExactly(qsizetype location, qsizetype length);
  void commitComposition() { composition_.commit(); }

  void setNoteFont(const QFont& font);
  /// Margins in points. The room for the title bar and a part of the sides stay; the rest scrolls with the text.
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
  CaretBlink caret_{*this};
  Composition composition_{*this};
  TextLoader loader_{*this};
  bool wasShown_ = false;
};

}  // namespace platform::desktop
