// SPDX-License-Identifier: MIT
#include <QTextBlock>
#include <algorithm>

#include "platform/desktop/base/strings.h"
#include "platform/desktop/text/exact_text.h"
#include "platform/desktop/text/long_paragraphs.h"
#include "platform/utf8.h"
#include "tests/desktop/open_editor.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace platform::desktop;
using fuzz::require;

constexpr std::size_t mostEdits = 40;
constexpr int letters = 10;  // the pieces that are one each

/// What is typed, composed and pasted. The longest is shown in blocks with joints between them.
const QStringList pieces =
    QStringLiteral(
        u"x|@|\uFDD0|\uFDD1|\u00A0|\t|\u2029|\u2192|\U0001F4CC|\u304B|word||\n\n|\r\n|\r|a\u2028b|\ttab\nline|"
        u"e\u0301\U0001F4CC\U0001F7D0\U0001F7D1|\uFEFFmark|\uFDD0x")
        .split(u'|') +
    QStringList{QStringLiteral(u"\u2192").repeated(300), QString(QChar(0xD83D)) + u'a'};

/// The characters and line ends of a text.
QStringList unitsOf(const QString& text) {
  QStringList units;
  for (qsizetype at = 0; at < text.size(); at += units.back().size()) {
    const QStringView next = QStringView(text).mid(at, 2);
    const bool pair = next.size() == 2 && next[0].isHighSurrogate() && next[1].isLowSurrogate();
    units += text.mid(at, pair || next == u"\r\n" ? 2 : 1);
  }
  return units;
}

bool isLineEnd(const QString& unit) { return unit == u"\n" || unit == u"\r\n" || unit == u"\r" || unit == u"\u2029"; }

/// Whether a step of the caret crosses it alone.
bool isStep(const QString& unit) { return isLineEnd(unit) || unit == u"\u2192" || (unit >= u" " && unit <= u"~"); }

/// An editor, and beside it what should be in it.
class Note {
 public:
  explicit Note(const QString& loaded) : units_(unitsOf(loaded)), earlier_{units_} {
    editor_.onEdit = [this] { told_ = true; };
    editor_.loadExactText(loaded);
    require(editor_.text() == loaded && !told_, "what is shown is the text that was read");
    takeSelection();
    const auto end = std::find_if(units_.begin(), units_.end(), isLineEnd);
    if (end != units_.end()) firstEnd_ = *end;
  }

  /// False once the text, read again, would have other line ends: a CR and an LF have met.
  bool isSound() const { return unitsOf(text()) == units_; }

  void edit(int action, int place, int length, int what) {
    select(place, length);
    const QStringList was = units_;
    told_ = false;
    perform(action % 10, pieces[what % letters], pieces[what % pieces.size()]);
    require(editor_.text() == text(), "an edit changes what it should");
    require(!isSound() || caret() == at_ + selected_, "the caret is where the edit was");
    require(told_ || units_ == was, "an edit is told");
    earlier_.append(units_);
  }

  void undoAndRedoAll() {
    while (editor_.document()->isRedoAvailable()) editor_.redo();
    const QString last = editor_.text();
    while (editor_.document()->isUndoAvailable()) editor_.undo();
    require(editor_.text() == earlier_.front().join(QString()), "undone, all is as it was read");
    while (editor_.document()->isRedoAvailable()) editor_.redo();
    require(editor_.text() == last, "redone, all is as it was left");
  }

 private:
  QString text(qsizetype from = 0, qsizetype count = -1) const { return units_.mid(from, count).join(QString()); }
  qsizetype unitsBefore(int position) { return unitsOf(exactText(*editor_.document(), 0, position)).size(); }
  qsizetype caret() { return unitsBefore(editor_.textCursor().selectionEnd()); }
  void takeSelection() {
    at_ = unitsBefore(editor_.textCursor().selectionStart());
    selected_ = caret() - at_;
  }

  /// Nothing, what is beside a line's start or a joint, or anything.
  void select(int place, int length) {
    if (place < 64) return;
    if (place < 160) {
      const QTextBlock block = editor_.document()->findBlockByNumber(place % editor_.document()->blockCount());
      at_ = std::clamp<qsizetype>(unitsBefore(block.position()) + length % 3 - 1, 0, units_.size());
      selected_ = 0;
    } else {
      at_ = units_.size() * (place - 160) / 95;
      selected_ = std::min<qsizetype>(length > 200 ? 4 * length : length % 4, units_.size() - at_);
    }
    editor_.selectExactly(text(0, at_).size(), text(at_, selected_).size());
    require(editor_.copied() == text(at_, selected_), "what is copied is what is selected");
  }

  void replace(const QString& with, qsizetype before = 0, qsizetype after = 0) {
    QString exact;
    for (const uint character : with.toUcs4()) exact += QChar::fromUcs4(character);  // without lone surrogates
    at_ -= before;
    units_ = units_.mid(0, at_) + unitsOf(exact) + units_.mid(at_ + before + selected_ + after);
    at_ += unitsOf(exact).size();
    selected_ = 0;
  }

  void perform(int action, const QString& letter, const QString& piece) {
    const auto above = std::find_if(units_.rend() - at_, units_.rend(), isLineEnd);
    const auto below = std::find_if(units_.begin() + at_, units_.end(), isLineEnd);
    switch (action) {
      case 0:
        editor_.paste(piece);
        return replace(piece);
      case 1:
        editor_.compose({}, piece);
        return piece.isEmpty() ? void() : replace(piece);
      case 2:
        editor_.type(letter == u"\t" ? Qt::Key_Tab : Qt::Key_unknown, letter);
        return replace(letter);
      case 3:
        editor_.type(Qt::Key_Return, QStringLiteral("\r"));
        return replace(above == units_.rend() ? firstEnd_ : *above);
      case 4:
        editor_.type(Qt::Key_Backspace);
        return replace({}, selected_ == 0 && at_ > 0 ? 1 : 0);
      case 5:
        removeRestOfParagraph(editor_.textCursor());
        return replace({}, 0, selected_ > 0 ? 0 : below - units_.begin() - at_);
      case 6:
        return compose(letter, piece);
      case 7:
        return step();
      default:
        action == 8 ? editor_.undo() : editor_.redo();
        return takeEarlierText();
    }
  }

  /// Ended with the window, or by the user with something else or nothing.
  void compose(const QString& open, const QString& piece) {
    editor_.compose(open);
    const bool replaces = selected_ > 0;
    replace({});
    earlier_.append(units_);
    replace(open);
    require(editor_.text() == text() && told_ == replaces, "what is composed is part of the text, and no edit yet");
    if (piece == open) {
      editor_.commitComposition();
      editor_.compose({});
      editor_.compose({}, open);  // a late duplicate
      require(told_ == replaces, "what is part of the text is no edit when it is committed");
      told_ = true;
      return;
    }
    editor_.compose({}, piece);
    at_ -= unitsOf(open).size();
    units_ = earlier_.back();
    replace(piece);
  }

  /// To the right, the next character deleted, and back, where each is a step.
  void step() {
    if (selected_ > 0 || at_ + 2 >= units_.size() ||
        !std::all_of(units_.begin() + at_, units_.begin() + at_ + 3, isStep))
      return;
    if (editor_.textCursor().block().textDirection() == Qt::RightToLeft) return;
    editor_.type(Qt::Key_Right);
    editor_.type(Qt::Key_Delete);
    editor_.type(Qt::Key_Left);
    units_.removeAt(at_ + 1);
  }

  void takeEarlierText() {
    const auto found = std::find_if(earlier_.begin(), earlier_.end(),
                                    [this](const QStringList& each) { return each.join(QString()) == editor_.text(); });
    require(found != earlier_.end(), "undo and redo give a text that there has been");
    units_ = *found;
    takeSelection();
  }

  OpenEditor editor_;
  QStringList units_;
  QString firstEnd_ = QStringLiteral("\n");  // what Return makes in the first line
  QList<QStringList> earlier_;
  qsizetype at_ = 0;
  qsizetype selected_ = 0;  // from there on
  bool told_ = false;
};

}  // namespace

/// A note, a byte that is in no UTF-8, and four bytes for each edit.
void fuzz::note(const std::string& bytes) {
  std::string_view edits = bytes;
  const std::string_view saved = cut(edits, '\xFF');
  const QString text = exactlyDecoded(saved);
  const bool valid = platform::isValidUtf8(saved);
  require(valid == (text.toStdString() == saved), "a note is read if it is valid UTF-8, and saved as the same bytes");
  if (!valid) return;
  Note note(text);
  for (std::size_t at = 0; at + 4 <= std::min(edits.size(), 4 * mostEdits) && note.isSound(); at += 4) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(edits[at + i]); };
    note.edit(byte(0), byte(1), byte(2), byte(3));
  }
  note.undoAndRedoAll();
}
