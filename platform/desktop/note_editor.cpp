// SPDX-License-Identifier: MIT
#include "platform/desktop/note_editor.h"

#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPlainTextDocumentLayout>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QTextOption>
#include <memory>
#include <utility>

#include "platform/desktop/decoration.h"
#include "platform/desktop/exact_text.h"

namespace platform::desktop {
namespace {

constexpr int tabWidth = 8;          // characters
constexpr int longestWord = 20'000;  // characters
constexpr int firstPiece = 100'000;  // characters; more than the largest screen shows
constexpr int laterPiece = 300'000;  // characters

bool hasEndlessWord(const QTextBlock& block) {
  if (block.length() <= longestWord) return false;
  int word = 0;
  for (const QChar c : block.text()) {
    word = c.isSpace() ? 0 : word + 1;
    if (word > longestWord) return true;
  }
  return false;
}

/// In the blocks from one position to the other.
bool hasEndlessWord(const QTextDocument& document, int start, int end) {
  for (QTextBlock block = document.findBlock(start); block.isValid() && block.position() <= end; block = block.next()) {
    if (hasEndlessWord(block)) return true;
  }
  return false;
}

/// The start of the lines at the end of the text that have so many characters together, or a few more.
qsizetype startOfLastPiece(QStringView text, qsizetype length) {
  return text.size() > length ? text.lastIndexOf(u'\n', -length) + 1 : 0;
}

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
  setAccessibleName(QStringLiteral("Note"));
  roomAboveScroller_.setFixedHeight(titleBarHeight);
  addScrollBarWidget(&roomAboveScroller_, Qt::AlignTop);
  connect(this, &QPlainTextEdit::textChanged, [this] { tellOfEdit(); });
  connect(&loader_, &QTimer::timeout, this, &NoteEditor::loadPiece);
  connect(document(), &QTextDocument::contentsChange, this, &NoteEditor::chooseWrapping);
}

/// The toolkit looks for the end of a word at each of its lines, so that one of a megabyte takes minutes. While there
/// is one that is too long, lines break anywhere. Called before the lines are made.
void NoteEditor::chooseWrapping(int position, int removed, int added) {
  const bool anywhere = wordWrapMode() == QTextOption::WrapAnywhere;
  const bool endless = hasEndlessWord(*document(), position, position + added) ||
                       (anywhere && (removed == 0 || hasEndlessWord(*document(), 0, document()->characterCount())));
  if (endless != anywhere) {
    setWordWrapMode(endless ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere);
  }
}

void NoteEditor::editKey(QKeyEvent& key) {
  if (key.matches(QKeySequence::InsertParagraphSeparator) || key.matches(QKeySequence::InsertLineSeparator)) {
    // The toolkit's own Return drops an empty line's kind of line end, and its Shift+Return types U+2028.
    textCursor().insertBlock();
    ensureCursorVisible();
  } else if (needsExactInsertion(key.text())) {
    insertExactly(key.text());
  } else {
    QPlainTextEdit::keyPressEvent(&key);
  }
}

QString NoteEditor::exactTextWithComposition() const {
  if (composition_.isEmpty()) return above_ + exactText(*document());
  const QTextBlock block = textCursor().block();
  const int at = block.position() + block.layout()->preeditAreaPosition();
  return above_ + exactText(*document(), 0, at) + withScalarValuesOnly(composition_) +
         exactText(*document(), at, document()->characterCount() - 1);
}

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

void NoteEditor::commitComposition() {
  if (composition_.isEmpty()) return;
  const QString before = exactTextWithComposition();
  lateCommit_ = composition_;
  {
    const QScopedValueRollback quiet(silent_, true);
    if (hasFocus()) QGuiApplication::inputMethod()->commit();
    if (!composition_.isEmpty()) {
      QInputMethodEvent commit;
      commit.setCommitString(composition_);
      inputMethodEvent(&commit);
      QGuiApplication::inputMethod()->reset();
    }
  }
  if (exactTextWithComposition() == before) {
    toldRevision_ = document()->revision();
  } else {
    tellOfEdit();
  }
}

void NoteEditor::inputMethodEvent(QInputMethodEvent* event) {
  if (!lateCommit_.isEmpty() && event->preeditString().isEmpty() && event->commitString() == lateCommit_ && !silent_) {
    // Some input methods commit, on losing the focus, what was taken from them before.
    lateCommit_.clear();
    return;
  }
  if (!event->preeditString().isEmpty()) lateCommit_.clear();
  const bool replacesSelection = textCursor().hasSelection() && !event->preeditString().isEmpty();
  const bool edits = replacesSelection || !event->commitString().isEmpty() || event->replacementLength() > 0;
  composition_ = event->preeditString();
  {
    // The toolkit reports the composition as a change too.
    const QScopedValueRollback quiet(silent_, true);
    if (needsExactInsertion(event->commitString())) {
      // The toolkit would fold what the document cannot hold: it gets the rest of the event, we put in the text.
      QInputMethodEvent removal;
      removal.setCommitString({}, event->replacementStart(), event->replacementLength());
      QPlainTextEdit::inputMethodEvent(&removal);
      insertExactly(event->commitString());
      QInputMethodEvent rest(event->preeditString(), event->attributes());
      QPlainTextEdit::inputMethodEvent(&rest);
    } else {
      QPlainTextEdit::inputMethodEvent(event);
    }
  }
  if (edits) {
    tellOfEdit();
  } else {
    toldRevision_ = document()->revision();
  }
}

bool NoteEditor::viewportEvent(QEvent* event) {
  if (actsOnText(*event)) loadRest();
  return QPlainTextEdit::viewportEvent(event);
}

void NoteEditor::showEvent(QShowEvent* event) {
  QPlainTextEdit::showEvent(event);
  // The toolkit scrolled to the caret before it had wrapped the lines.
  if (!std::exchange(wasShown_, true)) ensureCursorVisible();
}

void NoteEditor::paintEvent(QPaintEvent* event) {
  QPlainTextEdit::paintEvent(event);
  if (!above_.isEmpty() && !loader_.isActive()) loader_.start();
}

bool NoteEditor::event(QEvent* event) {
  if (actsOnText(*event)) loadRest();
  // The toolkit's editor would keep the keys of the main menu to itself.
  if (event->type() == QEvent::ShortcutOverride) {
    event->ignore();
    return true;
  }
  return QPlainTextEdit::event(event);
}

void NoteEditor::keyPressEvent(QKeyEvent* event) {
  lateCommit_.clear();
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
  return data.release();  // the caller's, as the toolkit asks
}

void NoteEditor::insertFromMimeData(const QMimeData* source) {
  if (source->hasText()) insertExactly(source->text());
}

void NoteEditor::insertExactly(const QString& text) {
  insertExactText(textCursor(), withScalarValuesOnly(text));
  ensureCursorVisible();
}

void NoteEditor::tellOfEdit() {
  // The toolkit reports a change of looks too; it leaves the revision alone.
  if (silent_ || document()->revision() == toldRevision_) return;
  toldRevision_ = document()->revision();
  if (onEdit) onEdit();
}

}  // namespace platform::desktop
