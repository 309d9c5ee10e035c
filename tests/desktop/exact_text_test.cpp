// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextDocument>
#include <algorithm>
#include <memory>
#include <random>
#include <vector>

#include "platform/desktop/exact_text.h"
#include "platform/desktop/note_editor.h"

namespace platform::desktop {
namespace {

/// The protected ways in and out, as the toolkit uses them.
class Editor : public NoteEditor {
 public:
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
  ExactText() { editor = std::make_unique<Editor>(); }

  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  QApplication app{argc, argv};
  std::unique_ptr<Editor> editor;
};

/// Every Unicode scalar value, in stretches that fit one note.
std::vector<QString> everyScalarValue() {
  std::vector<QString> texts;
  for (char32_t first = 0; first < 0x110000; first += 0x4000) {
    QString text;
    for (char32_t c = first; c < first + 0x4000; ++c) {
      if (c < 0xD800 || c > 0xDFFF) text += QString::fromUcs4(&c, 1);
    }
    texts.push_back(text);
  }
  return texts;
}

TEST_F(ExactText, HoldsEveryScalarValueLoadedPastedCopiedAndUndone) {
  for (const QString& text : everyScalarValue()) {
    editor->loadExactText(text);
    ASSERT_TRUE(editor->text() == text);
    editor->selectAll();
    ASSERT_TRUE(editor->copied() == text);
    editor->cut();
    ASSERT_TRUE(editor->text().isEmpty());
    editor->undo();
    ASSERT_TRUE(editor->text() == text);
    editor->loadExactText({});
    editor->paste(text);
    ASSERT_TRUE(editor->text() == text);
    editor->undo();
    editor->redo();
    ASSERT_TRUE(editor->text() == text);
  }
}

TEST_F(ExactText, HoldsWhatIsTypedAndComposed) {
  const QString special = QStringLiteral(u"\uFDD0\uFDD1\u2029\u2028\u00A0\uFEFF\u202E\U0001F4CC\U0010FFFF");
  editor->committed(special);
  EXPECT_EQ(editor->text(), special);
  editor->loadExactText({});
  for (const QString& one : {QStringLiteral(u"\uFDD0"), QStringLiteral(u"\u00A0"), QStringLiteral(u"\u2029")}) {
    editor->loadExactText({});
    editor->typed(one);
    EXPECT_EQ(editor->text(), one);
  }
}

TEST_F(ExactText, ReplacesLoneSurrogatesAndNothingElse) {
  const QString lone = QString(QChar(0xD83D)) + u'a' + QChar(0xDFD0) + QStringLiteral(u"\U0001F4CC") + QChar(0xD800);
  editor->paste(lone);
  EXPECT_EQ(editor->text(), QStringLiteral(u"\uFFFDa\uFFFD\U0001F4CC\uFFFD"));
}

TEST_F(ExactText, LineEndsShowAsLinesAndAreContinued) {
  editor->loadExactText(QStringLiteral("one\r\ntwo\r\n"));
  EXPECT_EQ(editor->document()->blockCount(), 3);
  editor->moveCursor(QTextCursor::End);
  editor->typed(QStringLiteral("\r"), Qt::Key_Return);
  editor->moveCursor(QTextCursor::Start);
  editor->moveCursor(QTextCursor::EndOfLine);
  editor->typed(QStringLiteral("x"), Qt::Key_X);
  editor->typed(QStringLiteral("\r"), Qt::Key_Return);
  EXPECT_EQ(editor->text(), QStringLiteral("onex\r\n\r\ntwo\r\n\r\n"));
  // Deleting a line end takes that one and leaves the others as they are.
  editor->loadExactText(QStringLiteral(u"a\r\nb\nc\rd\u2029e"));
  editor->moveCursor(QTextCursor::End);
  editor->moveCursor(QTextCursor::Up);
  editor->moveCursor(QTextCursor::StartOfLine);
  editor->typed({}, Qt::Key_Backspace);
  EXPECT_EQ(editor->text(), QStringLiteral(u"a\r\nb\ncd\u2029e"));
  editor->undo();
  EXPECT_EQ(editor->text(), QStringLiteral(u"a\r\nb\nc\rd\u2029e"));
}

TEST_F(ExactText, ShiftReturnIsAnOrdinaryLineEnd) {
  editor->typed(QStringLiteral("\r"), Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(editor->text(), QStringLiteral("\n"));
}

/// Random edits beside a plain string, with every step undone and redone at the end.
TEST_F(ExactText, SurvivesARunOfRandomEdits) {
  const std::vector<QString> pieces{QStringLiteral("word"),        QStringLiteral("\n"),
                                    QStringLiteral("\n\n"),        QStringLiteral(u"\u2028"),
                                    QStringLiteral(u"\uFDD0x"),    QStringLiteral(u"\U0001F4CC"),
                                    QStringLiteral("\ttab\nline"), QStringLiteral(u"e\u0301")};
  for (unsigned seed = 0; seed < 20; ++seed) {
    std::mt19937 random(seed);
    const auto upTo = [&](qsizetype n) { return static_cast<int>(random() % static_cast<unsigned>(n + 1)); };
    QString model;
    std::vector<QString> states{model};
    editor->loadExactText(model);
    for (int step = 0; step < 60; ++step) {
      const int start = upTo(model.size());
      const int length = upTo(std::min<qsizetype>(model.size() - start, 4));
      const auto splitsPair = [&](int at) {
        return at > 0 && at < model.size() && model[at].isLowSurrogate() && model[at - 1].isHighSurrogate();
      };
      if (splitsPair(start) || splitsPair(start + length)) continue;
      const QString piece = pieces[static_cast<std::size_t>(upTo(static_cast<qsizetype>(pieces.size()) - 1))];
      QTextCursor cursor(editor->document());
      cursor.setPosition(start);
      cursor.setPosition(start + length, QTextCursor::KeepAnchor);
      insertExactText(cursor, piece);
      model.replace(start, length, piece);
      states.push_back(model);
      ASSERT_EQ(editor->text(), model) << "seed " << seed << " step " << step;
    }
    while (editor->document()->isUndoAvailable()) editor->undo();
    ASSERT_EQ(editor->text(), states.front()) << "seed " << seed;
    while (editor->document()->isRedoAvailable()) editor->redo();
    ASSERT_EQ(editor->text(), model) << "seed " << seed;
  }
}

}  // namespace
}  // namespace platform::desktop
