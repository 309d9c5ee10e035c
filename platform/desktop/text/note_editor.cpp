// SPDX-License-Identifier: MIT
#include "platform/desktop/text/note_editor.h"

#include <QEvent>
#include <QPlainTextDocumentLayout>
#include <QTextBlock>
#include <QTextOption>
#include <algorithm>
#include <array>
#include <utility>

#include "platform/desktop/text/exact_text.h"
#include "platform/desktop/views/title_bar_height.h"

namespace platform::desktop {
namespace {

constexpr int tabWidth = 8;  // characters

/// Whether it is an action of the user on the text or its view.
bool actsOnText(const QEvent& event) {
  constexpr std::array acts{QEvent::KeyPress,   QEvent::InputMethod, QEvent::MouseButtonPress,
                            QEvent::TouchBegin, QEvent::Wheel,       QEvent::Drop};
  return std::find(acts.begin(), acts.end(), event.type()) != acts.end();
}

/// A drop or a paste of the primary selection. With such text Qt moves the caret, and an open composition with it.
bool putsTextElsewhere(const QEvent& event) {
  return event.type() == QEvent::Drop || (event.type() == QEvent::MouseButtonRelease &&
                                          static_cast<const QMouseEvent&>(event).button() == Qt::MiddleButton);
}

/// Leaves as much room below the last line as the title bar takes above the first.
class NoteLayout : public QPlainTextDocumentLayout {
 public:
  using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

  QRectF blockBoundingRect(const QTextBlock& block) const override {
    const QRectF rect = QPlainTextDocumentLayout::blockBoundingRect(block);
    return block.next().isValid() ? rect : rect.adjusted(0, 0, 0, titleBarHeight);
  }
};

}  // namespace

NoteEditor::NoteEditor() {
  document()->setDocumentLayout(new NoteLayout(document()));  // a document owns its layout
  setFrameStyle(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  QTextOption option = document()->defaultTextOption();
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setTextDirection(Qt::LayoutDirectionAuto);
  // Together these mean: not justified, and right-to-left lines at the right.
  option.setAlignment(Qt::AlignJustify | Qt::AlignLeft);
  document()->setDefaultTextOption(option);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  setAccessibleName(qtTrId("Note"));
  roomAboveScroller_.setFixedHeight(titleBarHeight);
  addScrollBarWidget(&roomAboveScroller_, Qt::AlignTop);
}

void NoteEditor::selectExactly(qsizetype location, qsizetype length) {
  if (location < loader_.above().size()) loadRest();
  location -= loader_.above().size();
  QTextCursor cursor = textCursor();
  cursor.setPosition(positionForExactIndex(*document(), location));
  if (length > 0) cursor.setPosition(positionForExactIndex(*document(), location + length), QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

void NoteEditor::setNoteFont(const QFont& font) {
  setFont(font);
  setTabStopDistance(tabWidth * QFontMetricsF(font).horizontalAdvance(u' '));
}

void NoteEditor::setInset(int horizontal, int vertical) {
  // The viewport begins below the title bar, so that no line is hidden behind it; the rest of the inset is the
  // document's margin.
  const int margin = vertical - titleBarHeight;
  document()->setDocumentMargin(margin);
  setViewportMargins(horizontal - margin, titleBarHeight, horizontal - margin, 0);
}

/// Before an action of the user: loads the rest of the text, makes the caret blink, and, unless it is the input
/// method's, no longer expects a late duplicate of a commit.
void NoteEditor::prepareForUser(const QEvent& event) {
  if (event.type() != QEvent::InputMethod) composition_.forgetCommit();
  caret_.blink();
  loadRest();
}

bool NoteEditor::viewportEvent(QEvent* event) {
  if (actsOnText(*event)) prepareForUser(*event);
  if (putsTextElsewhere(*event)) commitComposition();
  return QPlainTextEdit::viewportEvent(event);
}

void NoteEditor::focusInEvent(QFocusEvent* event) {
  composition_.forgetCommit();
  QPlainTextEdit::focusInEvent(event);
  caret_.blink();
}

void NoteEditor::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  caret_.end();
}

void NoteEditor::showEvent(QShowEvent* event) {
  QPlainTextEdit::showEvent(event);
  // Qt has scrolled to the caret before wrapping the lines.
  if (!std::exchange(wasShown_, true)) ensureCursorVisible();
}

void NoteEditor::paintEvent(QPaintEvent* event) {
  QPlainTextEdit::paintEvent(event);
  loader_.goOn();
}

bool NoteEditor::event(QEvent* event) {
  if (actsOnText(*event)) prepareForUser(*event);
  // Qt's editor would keep the keys of the main menu to itself.
  if (event->type() == QEvent::ShortcutOverride) {
    event->ignore();
    return true;
  }
  return QPlainTextEdit::event(event);
}

void NoteEditor::keyPressEvent(QKeyEvent* event) {
  if (onKey) {
    onKey(*event);
  } else {
    editKey(*event);
  }
}

}  // namespace platform::desktop
