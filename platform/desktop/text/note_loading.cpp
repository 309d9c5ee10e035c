// SPDX-License-Identifier: MIT
// How a long text comes into the note: its end at once, and the rest behind it.
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>

#include "platform/desktop/text/exact_text.h"
#include "platform/desktop/text/note_editor.h"

namespace platform::desktop {
namespace {

constexpr int firstPiece = 100'000;  // characters; more than the largest screen shows
constexpr int laterPiece = 300'000;  // characters

/// The start of the lines at the end of the text that have so many characters together, or a few more.
qsizetype startOfLastPiece(QStringView text, qsizetype length) {
  return text.size() > length ? text.lastIndexOf(u'\n', -length) + 1 : 0;
}

}  // namespace

void NoteEditor::loadExactText(const QString& text) {
  const QScopedValueRollback quiet(silent_, true);
  const qsizetype start = startOfLastPiece(text, firstPiece);
  above_ = text.first(start);
  setExactText(*document(), text.sliced(start));
  toldRevision_ = document()->revision();
}

void NoteEditor::loadRest() {
  while (!above_.isEmpty()) loadPiece();
}

void NoteEditor::loadPiece() {
  const QScopedValueRollback quiet(silent_, true);
  const qsizetype start = startOfLastPiece(above_, laterPiece);
  const int blocks = blockCount();
  const QTextBlock top = firstVisibleBlock();
  const int topBlock = top.blockNumber();
  const int topLine = verticalScrollBar()->value() - top.firstLineNumber();
  prependExactText(*document(), above_.sliced(start));
  above_.truncate(start);
  toldRevision_ = document()->revision();
  // What is in view stays.
  const QTextBlock sameTop = document()->findBlockByNumber(topBlock + blockCount() - blocks);
  verticalScrollBar()->setValue(sameTop.firstLineNumber() + topLine);
  if (!above_.isEmpty()) return;
  above_.squeeze();
  loader_.stop();
}

void NoteEditor::selectExactly(qsizetype location, qsizetype length) {
  if (location < above_.size()) loadRest();
  location -= above_.size();
  QTextCursor cursor = textCursor();
  cursor.setPosition(positionForExactIndex(*document(), location));
  if (length > 0) cursor.setPosition(positionForExactIndex(*document(), location + length), QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

}  // namespace platform::desktop
