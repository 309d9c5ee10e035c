// SPDX-License-Identifier: MIT
#include "platform/desktop/text/note_editor.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QPlainTextDocumentLayout>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextOption>
#include <memory>
#include <utility>

#include "platform/desktop/text/editor_keys.h"
#include "platform/desktop/text/exact_text.h"
#include "platform/desktop/text/long_paragraphs.h"
#include "platform/desktop/text/offered_text.h"
#include "platform/desktop/windows/decoration.h"

namespace platform::desktop {
namespace {

constexpr int tabWidth = 8;  // characters

/// What the user does to the text, or to what of it is in view.
bool actsOnText(const QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::Wheel:
    case QEvent::Drop:
      return true;
    default:
      return false;
  }
}

/// Leaves more room below the last line than the document's one margin for all four sides.
class NoteLayout : public QPlainTextDocumentLayout {
 public:
  using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

  QRectF blockBoundingRect(const QTextBlock& block) const override {
    const QRectF rect = QPlainTextDocumentLayout::blockBoundingRect(block);
    return block.next().isValid() ? rect : rect.adjusted(0, 0, 0, roomBelow);
  }

  int roomBelow = 0;
};

}  // namespace

NoteEditor::NoteEditor() {
  document()->setDocumentLayout(new NoteLayout(document()));  // a document owns its layout
  setFrameStyle(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  QTextOption option = document()->defaultTextOption();
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setTextDirection(Qt::LayoutDirectionAuto);
  // Together these justify nothing, and put a line that runs from right to left at the right.
  option.setAlignment(Qt::AlignJustify | Qt::AlignLeft);
  document()->setDefaultTextOption(option);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  setAccessibleName(qtTrId("Note"));
  roomAboveScroller_.setFixedHeight(titleBarHeight);
  addScrollBarWidget(&roomAboveScroller_, Qt::AlignTop);
  connect(this, &QPlainTextEdit::textChanged, [this] { tellOfEdit(); });
  connect(&loader_, &QTimer::timeout, this, &NoteEditor::loadPiece);
}

void NoteEditor::editKey(QKeyEvent& key) {
  const QString text = typedText(key);
  if (const auto direction = directionOfEdit(key)) stepOverJointsTo(*direction);
  if (endsLine(key)) {
    // Qt's own Return drops a line end's kind, and its Shift+Return types U+2028.
    insertLineEnd(textCursor());
    ensureCursorVisible();
  } else if (needsExactInsertion(text)) {
    insertExactly(text);
  } else if (key.matches(QKeySequence::DeleteEndOfLine)) {
    removeRestOfParagraph(textCursor());
    ensureCursorVisible();
  } else {
    QKeyEvent edit(key.type(), key.key(), key.modifiers(), text, key.isAutoRepeat(), static_cast<ushort>(key.count()));
    giveToToolkit(edit);
    key.setAccepted(edit.isAccepted());
  }
}

void NoteEditor::stepOverJointsTo(Direction direction) {
  QTextCursor cursor = textCursor();
  stepOverJoints(cursor, direction);
  if (cursor != textCursor()) setTextCursor(cursor);
}

void NoteEditor::giveToToolkit(QKeyEvent& key) {
  const int revision = document()->revision();
  const int position = textCursor().position();
  QPlainTextEdit::keyPressEvent(&key);
  // A move goes on to where the user sees one.
  const bool moved = document()->revision() == revision;
  if (moved && onlyJointBetween(*document(), position, textCursor().position())) QPlainTextEdit::keyPressEvent(&key);
}

void NoteEditor::setNoteFont(const QFont& font) {
  setFont(font);
  setTabStopDistance(tabWidth * QFontMetricsF(font).horizontalAdvance(u' '));
}

void NoteEditor::setInset(int horizontal, int vertical) {
  // The viewport begins below the title bar, so that no line is ever hidden or half read there; the rest of the
  // inset is the document's.
  const int margin = vertical - titleBarHeight;
  document()->setDocumentMargin(margin);
  static_cast<NoteLayout&>(*document()->documentLayout()).roomBelow = titleBarHeight;
  setViewportMargins(horizontal - margin, titleBarHeight, horizontal - margin, 0);
}

/// The document is whole, the caret blinks, and what an input method has not committed again it no longer will.
void NoteEditor::prepareForUser(const QEvent& event) {
  if (event.type() != QEvent::InputMethod) lateCommit_.clear();
  caret_.blink();
  loadRest();
}

bool NoteEditor::viewportEvent(QEvent* event) {
  if (actsOnText(*event)) prepareForUser(*event);
  return QPlainTextEdit::viewportEvent(event);
}

void NoteEditor::focusInEvent(QFocusEvent* event) {
  lateCommit_.clear();
  QPlainTextEdit::focusInEvent(event);
  caret_.blink();
}

void NoteEditor::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  caret_.end();
}

void NoteEditor::showEvent(QShowEvent* event) {
  QPlainTextEdit::showEvent(event);
  // Qt scrolled to the caret before it had wrapped the lines.
  if (!std::exchange(wasShown_, true)) ensureCursorVisible();
}

void NoteEditor::paintEvent(QPaintEvent* event) {
  QPlainTextEdit::paintEvent(event);
  if (!above_.isEmpty() && !loader_.isActive()) loader_.start();
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

QMimeData* NoteEditor::createMimeDataFromSelection() const {
  auto data = std::make_unique<QMimeData>();
  const QTextCursor cursor = textCursor();
  data->setText(exactText(*document(), cursor.selectionStart(), cursor.selectionEnd()));
  return data.release();  // the caller's, as Qt asks
}

bool NoteEditor::canInsertFromMimeData(const QMimeData* source) const { return offersText(*source); }

void NoteEditor::insertFromMimeData(const QMimeData* source) {
  if (const auto text = offeredText(*source)) insertExactly(*text);
}

void NoteEditor::insertExactly(const QString& text) {
  insertExactText(textCursor(), withScalarValuesOnly(text));
  ensureCursorVisible();
}

void NoteEditor::tellOfEdit() {
  // Qt reports a change of looks too; it leaves the revision alone.
  if (silent_ || document()->revision() == toldRevision_) return;
  // Not under a composition: what is open in it belongs to the layout of its block.
  if (composition_.isEmpty() && !document()->isRedoAvailable()) {
    const QScopedValueRollback quiet(silent_, true);
    arrangeBlock(textCursor());
  }
  toldRevision_ = document()->revision();
  if (onEdit) onEdit();
}

}  // namespace platform::desktop
