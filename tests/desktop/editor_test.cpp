// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QTest>
#include <QTextBlock>
#include <vector>

#include "platform/desktop/text/note_editor.h"

namespace platform::desktop {
namespace {

/// One event of an input method.
struct Step {
  QString preedit;
  QString commit;
  QString text;  // afterwards
  int edits;     // so far
};

class Editor : public testing::Test {
 protected:
  Editor() {
    editor.onEdit = [this] { ++edits; };
  }

  void compose(const QString& preedit, const QString& commit = {}) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QCoreApplication::sendEvent(&editor, &event);
  }

  void expectAfter(const std::vector<Step>& steps) {
    for (const auto& [preedit, commit, text, editsSoFar] : steps) {
      compose(preedit, commit);
      EXPECT_EQ(editor.exactTextWithComposition(), text);
      EXPECT_EQ(edits, editsSoFar);
    }
  }

  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  QApplication app{argc, argv};
  NoteEditor editor;
  int edits = 0;
};

TEST_F(Editor, ACompositionIsAnEditOnlyWhenItIsDone) {
  const QString ka(QChar(0x304B));
  const std::vector<Step> steps{
      {"k", {}, "k", 0}, {ka, {}, ka, 0}, {{}, ka, ka, 1}, {"x", {}, ka + u'x', 1}, {{}, {}, ka, 1}};
  expectAfter(steps);
}

TEST_F(Editor, AnOpenCompositionStandsAtTheCaret) {
  editor.loadExactText("one\r\ntwo");
  editor.selectExactly(3, 0);
  compose("!");
  EXPECT_EQ(editor.exactTextWithComposition(), "one!\r\ntwo");
  editor.commitComposition();
  EXPECT_EQ(editor.exactTextWithComposition(), "one!\r\ntwo");
  EXPECT_EQ(edits, 0) << "it was part of the text before";
  editor.undo();
  EXPECT_EQ(editor.exactTextWithComposition(), "one\r\ntwo");
  EXPECT_EQ(edits, 1);
}

TEST_F(Editor, ACompositionThatWasEndedIsNotCommittedAgain) {
  using Steps = std::vector<Step>;
  for (const Steps& steps : {Steps{{{}, "abc", "abc", 0},  // late, from an input method that was told
                                   {"abc", {}, "abcabc", 0},
                                   {{}, "abc", "abcabc", 1}},
                             Steps{{{}, {}, "abc", 0}, {{}, "x", "abcx", 1}, {{}, "abc", "abcxabc", 2}}}) {  // typed
    editor.loadExactText({});
    compose("abc");
    edits = 0;
    editor.commitComposition();
    expectAfter(steps);
  }
}

TEST_F(Editor, ANoteThatIsLeftAloneShowsItsCaretAndWakesNothingUp) {
  editor.loadExactText("note");
  editor.resize(420, 320);
  editor.show();
  QApplication::setCursorFlashTime(400);
  const auto send = [this](QEvent&& event) { QCoreApplication::sendEvent(&editor, &event); };
  const auto timers = [this] {
    qsizetype all = 0;
    for (QObject* const part : editor.findChildren<QObject*>()) {
      all += QAbstractEventDispatcher::instance()->registeredTimers(part).size();
    }
    return all;
  };
  const QImage without = editor.viewport()->grab().toImage();
  send(QFocusEvent(QEvent::FocusIn));
  ASSERT_EQ(timers(), 2) << "to blink, and to rest";
  const auto rest = [&] {
    editor.findChild<QTimer*>("caretBlink")->start(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return timers() == 0; }));
    EXPECT_NE(editor.viewport()->grab().toImage(), without);
  };
  rest();
  send(QKeyEvent(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier));
  EXPECT_EQ(timers(), 2);
  rest();
  send(QFocusEvent(QEvent::FocusOut));
  EXPECT_EQ(editor.viewport()->grab().toImage(), without);
  QApplication::setCursorFlashTime(0);  // a desktop on which nothing blinks
  send(QFocusEvent(QEvent::FocusIn));
  EXPECT_EQ(timers(), 0);
}

/// Whole in every way but in its layout, which comes up piece by piece.
TEST_F(Editor, AnEndlessParagraphIsShownAtOnce) {
  editor.resize(420, 320);
  editor.show();
  for (const QString& part : {QStringLiteral("字"), QStringLiteral(u"\U0001F600"), QStringLiteral(u"\u0301")}) {
    const QString text = part.repeated(1'000'000);
    editor.loadExactText("short");
    QElapsedTimer clock;
    clock.start();
    compose({}, text);
    for (int key = 0; key < 20; ++key) {
      QTest::keyClick(&editor, Qt::Key_A);
      editor.grab();
    }
    EXPECT_LT(clock.elapsed(), 20'000) << "minutes, if it were laid out whole";
    EXPECT_TRUE(editor.exactTextWithComposition() == "short" + text + QString(20, u'a'));
    editor.loadExactText(text);
    EXPECT_TRUE(editor.exactTextWithComposition() == text);
    QTextCursor firstPiece(editor.document()->firstBlock());
    firstPiece.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    editor.setTextCursor(firstPiece);
    const QString rest = text.mid(firstPiece.position());
    compose("y", {});
    EXPECT_TRUE(editor.exactTextWithComposition() == u'y' + rest);
    compose({}, {});
  }
}

/// The lines are wrapped once the width is known.
TEST_F(Editor, TheCaretAtTheEndIsInViewAtFirst) {
  QString text;
  for (int line = 0; line < 60; ++line) text += QStringLiteral("a word and ").repeated(40) + u'\n';
  editor.loadExactText(text);
  editor.selectExactly(text.size(), 0);
  editor.resize(420, 320);
  editor.show();
  EXPECT_TRUE(editor.viewport()->rect().contains(editor.cursorRect()));
}

/// Whole from the start for those who ask, and for keys that come before anything is painted.
TEST_F(Editor, TheEndOfALongTextIsShownFirst) {
  QString text = "first\r\n";
  for (int line = 0; line < 50'000; ++line) text += QStringLiteral("line %1 ").arg(line).repeated(line % 9) + u'\n';
  text += "selected";
  editor.resize(420, 320);
  editor.setCursorWidth(0);  // it blinks
  for (const bool typed : {false, true}) {
    editor.loadExactText(text);
    editor.selectExactly(text.size() - 8, 8);
    EXPECT_LT(editor.blockCount(), 50'000);
    EXPECT_EQ(editor.exactTextWithComposition(), text);
    if (typed) {
      editor.grab();
      QCoreApplication::processEvents();
      QTest::keyClick(&editor, Qt::Key_X);
      EXPECT_EQ(editor.exactTextWithComposition(), text.chopped(8) + u'x');
      editor.undo();
    } else {
      editor.show();
      const QImage before = editor.viewport()->grab().toImage();
      while (editor.blockCount() < 50'002) {
        QCoreApplication::processEvents();
        ASSERT_EQ(editor.viewport()->grab().toImage(), before) << "something moved";
      }
      EXPECT_EQ(editor.textCursor().selectedText(), "selected");
      EXPECT_EQ(edits, 0);
    }
    EXPECT_EQ(editor.blockCount(), 50'002);
    EXPECT_EQ(editor.exactTextWithComposition(), text);
    editor.undo();
    EXPECT_EQ(editor.exactTextWithComposition(), text) << "loading is nothing to undo";
  }
  editor.loadExactText(text);
  editor.selectExactly(7, 0);
  EXPECT_EQ(editor.textCursor().block().blockNumber(), 1);
  EXPECT_EQ(editor.textCursor().positionInBlock(), 0);
}

TEST_F(Editor, AnotherFontIsNoEdit) {
  editor.insertPlainText("plain");
  EXPECT_EQ(edits, 1);
  editor.setNoteFont(QFont());
  EXPECT_EQ(edits, 1);
}

}  // namespace
}  // namespace platform::desktop
