// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <memory>
#include <random>
#include <utility>
#include <vector>

#include "platform/desktop/text/exact_text.h"
#include "platform/desktop/text/long_paragraphs.h"
#include "platform/desktop/text/note_editor.h"

namespace platform::desktop {
namespace {

/// The protected ways in and out, as Qt uses them.
class Editor : public NoteEditor {
 public:
  using NoteEditor::canInsertFromMimeData;
  using NoteEditor::insertFromMimeData;
  QString copied() const { return std::unique_ptr<QMimeData>(createMimeDataFromSelection())->text(); }
  QString text() const { return exactTextWithComposition(); }
  void paste(const QString& text) {
    QMimeData data;
    data.setText(text);
    insertFromMimeData(&data);
  }
  void typed(const QString& text, int key = Qt::Key_unknown, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(this, &event);
  }
  void committed(const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(this, &event);
  }
};

class ExactText : public testing::Test {
 protected:
  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  QApplication app{argc, argv};
  Editor editor;
};

/// In stretches that fit one note.
TEST_F(ExactText, HoldsEveryScalarValueLoadedPastedCopiedAndUndone) {
  for (char32_t first = 0; first < 0x110000; first += 0x4000) {
    QString text;
    for (char32_t c = first; c < first + 0x4000; ++c) {
      if (c < 0xD800 || c > 0xDFFF) text += QString::fromUcs4(&c, 1);
    }
    editor.loadExactText(text);
    ASSERT_TRUE(editor.text() == text);
    editor.selectAll();
    ASSERT_TRUE(editor.copied() == text);
    editor.cut();
    ASSERT_TRUE(editor.text().isEmpty());
    editor.undo();
    ASSERT_TRUE(editor.text() == text);
    editor.loadExactText({});
    editor.paste(text);
    ASSERT_TRUE(editor.text() == text);
    editor.undo();
    editor.redo();
    ASSERT_TRUE(editor.text() == text);
  }
}

TEST_F(ExactText, HoldsWhatIsTypedAndComposed) {
  const QString special = QStringLiteral(u"\uFDD0\uFDD1\u2029\u2028\u00A0\uFEFF\u202E\U0001F4CC\U0010FFFF");
  editor.committed(special);
  EXPECT_EQ(editor.text(), special);
  for (const QChar one : {QChar(0xFDD0), QChar(0x00A0), QChar(0x2029)}) {
    editor.loadExactText({});
    editor.typed(one);
    EXPECT_EQ(editor.text(), one);
  }
}

TEST_F(ExactText, ReplacesLoneSurrogatesAndNothingElse) {
  const QString lone = QString(QChar(0xD83D)) + u'a' + QChar(0xDFD0) + QStringLiteral(u"\U0001F4CC") + QChar(0xD800);
  editor.paste(lone);
  EXPECT_EQ(editor.text(), QStringLiteral(u"\uFFFDa\uFFFD\U0001F4CC\uFFFD"));
}

TEST_F(ExactText, LineEndsShowAsLinesAndAreContinued) {
  editor.loadExactText("one\r\ntwo\r\n");
  EXPECT_EQ(editor.document()->blockCount(), 3);
  editor.moveCursor(QTextCursor::End);
  editor.typed("\r", Qt::Key_Return);
  editor.moveCursor(QTextCursor::Start);
  editor.moveCursor(QTextCursor::EndOfLine);
  editor.typed("x", Qt::Key_X);
  editor.typed("\r", Qt::Key_Return);
  EXPECT_EQ(editor.text(), "onex\r\n\r\ntwo\r\n\r\n");
  // Deleting a line end takes that one and leaves the others as they are.
  editor.loadExactText(QStringLiteral(u"a\r\nb\nc\rd\u2029e"));
  editor.moveCursor(QTextCursor::End);
  editor.moveCursor(QTextCursor::Up);
  editor.moveCursor(QTextCursor::StartOfLine);
  editor.typed({}, Qt::Key_Backspace);
  EXPECT_EQ(editor.text(), QStringLiteral(u"a\r\nb\ncd\u2029e"));
  editor.undo();
  EXPECT_EQ(editor.text(), QStringLiteral(u"a\r\nb\nc\rd\u2029e"));
}

TEST_F(ExactText, KeysTypeWhatTheLayoutMakesOfThem) {
  constexpr Qt::KeyboardModifiers altGr = Qt::ControlModifier | Qt::AltModifier;
  editor.typed("\r", Qt::Key_Return, Qt::ShiftModifier);
  editor.typed("\r", Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(editor.text(), "\n\n") << "an ordinary line end";
  editor.loadExactText({});
  editor.typed("\r", Qt::Key_M, Qt::ControlModifier);
  editor.typed("\r", Qt::Key_M, altGr);
  for (const auto held : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
    editor.typed("x", Qt::Key_X, held);
    editor.typed(QStringLiteral(u"\U0001D4CD"), Qt::Key_unknown, held);
  }
  EXPECT_EQ(editor.text(), QString());
  editor.typed("@", Qt::Key_At, altGr);
  editor.typed(QStringLiteral(u"\U0001D4CD"), Qt::Key_unknown, altGr);
  editor.typed(" one", Qt::Key_unknown, Qt::ShiftModifier);
  EXPECT_EQ(editor.text(), QStringLiteral(u"@\U0001D4CD one"));
  editor.typed("\x7F", Qt::Key_Backspace, Qt::ControlModifier);
  EXPECT_EQ(editor.text(), QStringLiteral(u"@\U0001D4CD ")) << "a command";
}

TEST_F(ExactText, TakesUtf8ThatIsOfferedAsNothingElse) {
  for (const auto* const format : {"text/plain;charset=utf-8", "text/plain; charset=\"UTF-8\""}) {
    QMimeData data;
    data.setData(QLatin1String(format), "\xEF\xBB\xBF\xC3\xA9\r\n\xFFz");
    editor.loadExactText({});
    EXPECT_TRUE(editor.canInsertFromMimeData(&data));
    editor.insertFromMimeData(&data);
    EXPECT_EQ(editor.text(), QStringLiteral(u"\uFEFF\u00E9\r\n\uFFFDz"));
  }
}

TEST_F(ExactText, AJointInALongParagraphIsNoPartOfIt) {
  const QString text = QStringLiteral("first\r\n") + QStringLiteral("0123456789").repeated(5000);
  editor.loadExactText(text);
  ASSERT_GT(editor.document()->blockCount(), 3);
  const int joint = 7 + editor.document()->findBlockByNumber(1).length() - 1;
  const QString left = text.mid(joint - 4, 4);
  const QString right = text.mid(joint, 5);
  struct Case {
    int start;  // from the joint
    std::vector<int> keys;
    QString around;
  };
  for (const auto& [start, keys, around] :
       std::vector<Case>{{0, {Qt::Key_X}, left + u'x' + right},
                         {-1, {Qt::Key_Right, Qt::Key_Right, Qt::Key_X}, left + right[0] + u'x' + right.mid(1)},
                         {1, {Qt::Key_Left, Qt::Key_Left, Qt::Key_X}, left.left(3) + u'x' + left[3] + right},
                         {0, {Qt::Key_Backspace}, left.left(3) + right},
                         {-1, {Qt::Key_Right, Qt::Key_Delete}, left + right.mid(1)},
                         {0, {Qt::Key_Return}, left + QStringLiteral("\r\n") + right}}) {
    editor.loadExactText(text);
    editor.selectExactly(joint + start, 0);
    for (const int key : keys) editor.typed(key == Qt::Key_X ? "x" : QString(), key);
    EXPECT_EQ(editor.text().mid(joint - 4, around.size()), around);
    while (editor.document()->isUndoAvailable()) editor.undo();
    EXPECT_TRUE(editor.text() == text);
  }
  editor.selectExactly(joint - 1, 0);
  removeRestOfParagraph(editor.textCursor());
  EXPECT_EQ(editor.text(), text.left(joint - 1));
}

/// Random edits beside a plain string, with every step undone and redone at the end.
TEST_F(ExactText, SurvivesARunOfRandomEdits) {
  QStringList pieces =
      QStringLiteral(u"word|\n\n|\u2028|\r\n|\uFDD0x|\u2029|\ttab\nline||e\u0301\U0001F4CC").split(u'|');
  pieces.append(QStringLiteral(u"\u2192").repeated(300));
  const auto isOne = [](QChar before, QChar after) {
    return (before.isHighSurrogate() && after.isLowSurrogate()) || (before == u'\r' && after == u'\n');
  };
  for (unsigned seed = 0; seed < 20; ++seed) {
    std::mt19937 random(seed);
    const auto upTo = [&](qsizetype n) { return static_cast<int>(random() % static_cast<unsigned>(n + 1)); };
    QString model;
    editor.loadExactText(model);
    for (int step = 0; step < 60; ++step) {
      int start = upTo(model.size());
      const int length = upTo(std::min<qsizetype>(model.size() - start, step % 5 == 0 ? 600 : 4));
      const auto splits = [&](int at) { return at > 0 && at < model.size() && isOne(model[at - 1], model[at]); };
      if (splits(start) || splits(start + length)) continue;
      const QString& piece = pieces[upTo(pieces.size() - 1)];
      editor.selectExactly(start, length);
      int back = 0;
      if (!piece.isEmpty()) {
        editor.paste(piece);
      } else {
        editor.typed({}, Qt::Key_Backspace);
        if (length == 0 && start > 0) back = start > 1 && isOne(model[start - 2], model[start - 1]) ? 2 : 1;
      }
      model.replace(start - back, length + back, piece);
      ASSERT_EQ(editor.text(), model) << "seed " << seed << " step " << step;
    }
    while (editor.document()->isUndoAvailable()) editor.undo();
    ASSERT_EQ(editor.text(), QString()) << "seed " << seed;
    while (editor.document()->isRedoAvailable()) editor.redo();
    ASSERT_EQ(editor.text(), model) << "seed " << seed;
  }
}

}  // namespace
}  // namespace platform::desktop
