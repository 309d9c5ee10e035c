// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTextBlock>
#include <numeric>

#include "tests/desktop/open_editor.h"

namespace platform::desktop {
namespace {

/// What random edits make of a text is in tests/fuzz/note.cpp.
class Text : public testing::Test {
 protected:
  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  QApplication app{argc, argv};
  OpenEditor editor;
  int edits = 0;

  Text() {
    editor.onEdit = [this] { ++edits; };
    editor.resize(420, 320);
  }
};

TEST_F(Text, KeysTypeWhatTheLayoutMakesOfThem) {
  const QString letter = QStringLiteral(u"\U0001D4CD");
  const Qt::KeyboardModifiers altGr = Qt::ControlModifier | Qt::AltModifier;
  const struct {
    int key;
    QString text;
    Qt::KeyboardModifiers held;
    QString expected;
  } cases[] = {{Qt::Key_Return, "\r", Qt::ShiftModifier, "\n"},
               {Qt::Key_Enter, "\r", Qt::ControlModifier, "\n"},
               {Qt::Key_M, "\r", Qt::ControlModifier, ""},
               {Qt::Key_M, "\r", altGr, ""},
               {Qt::Key_X, "x", Qt::ControlModifier, ""},
               {Qt::Key_unknown, letter, altGr | Qt::MetaModifier, ""},
               {Qt::Key_At, "@", altGr, "@"},
               {Qt::Key_unknown, letter, altGr, letter},
               {Qt::Key_unknown, "\"teh\" -- (c) i", Qt::ShiftModifier, "\"teh\" -- (c) i"}};
  for (const auto& [key, text, held, expected] : cases) {
    editor.loadExactText({});
    editor.type(key, text, held);
    EXPECT_EQ(editor.text(), expected) << key << ' ' << held;
  }
  editor.type(Qt::Key_Backspace, "\x7F", Qt::ControlModifier);
  EXPECT_EQ(editor.text(), "\"teh\" -- (c) ") << "a command";
}

TEST_F(Text, TakesUtf8ThatIsOfferedAsNothingElse) {
  for (const auto* const format : {"text/plain;charset=utf-8", "text/plain; charset=\"UTF-8\"", "text/x-other"}) {
    QMimeData data;
    data.setData(QLatin1String(format), "\xEF\xBB\xBF\xC3\xA9\r\n\xFFz");
    EXPECT_EQ(editor.canInsertFromMimeData(&data), data.formats()[0].contains("plain"));
    editor.loadExactText({});
    editor.insertFromMimeData(&data);
    EXPECT_EQ(editor.text(), editor.canInsertFromMimeData(&data) ? QStringLiteral(u"\uFEFF\u00E9\r\n\uFFFDz") : "");
  }
}

/// Some input methods commit once more what was committed for them. Anything else is new text.
TEST_F(Text, ACompositionThatWasEndedIsNotCommittedAgain) {
  const auto composeAndEnd = [this] {
    editor.loadExactText({});
    editor.compose("abc");
    editor.commitComposition();
  };
  composeAndEnd();
  editor.compose("abc");
  editor.compose({}, "abc");
  EXPECT_EQ(editor.text(), "abcabc") << "composed anew";
  composeAndEnd();
  editor.compose({}, "x");
  editor.compose({}, "abc");
  EXPECT_EQ(editor.text(), "abcxabc");
  composeAndEnd();
  editor.type(Qt::Key_Left);
  editor.compose({}, "abc");
  EXPECT_EQ(editor.text(), "ababcc");
  editor.loadExactText({});
  editor.compose("abc");
  QTest::mouseClick(editor.viewport(), Qt::MiddleButton);
  EXPECT_EQ(editor.toPlainText(), "abc") << "committed before a paste moves the caret";
}

TEST_F(Text, AnInputMethodMayDeleteAndCommitNothing) {
  editor.type(Qt::Key_A, "a");
  editor.compose({}, {}, 1);
  EXPECT_EQ(editor.text(), "");
  EXPECT_EQ(edits, 2);
}

TEST_F(Text, ANoteThatIsLeftAloneShowsItsCaretAndWakesNothingUp) {
  const auto focus = [this](QEvent::Type type) {
    QFocusEvent event(type);
    QCoreApplication::sendEvent(&editor, &event);
    return editor.viewport()->grab().toImage();
  };
  const auto timers = [this] {
    const auto parts = editor.findChildren<QObject*>();
    return std::accumulate(parts.begin(), parts.end(), qsizetype{0}, [](qsizetype sum, QObject* part) {
      return sum + QAbstractEventDispatcher::instance()->registeredTimers(part).size();
    });
  };
  QApplication::setCursorFlashTime(400);
  editor.show();
  const QImage without = focus(QEvent::FocusOut);
  focus(QEvent::FocusIn);
  for (int times = 0; times < 2; ++times) {
    ASSERT_EQ(timers(), 2) << "to blink, and to rest";
    editor.findChild<QTimer*>("caretBlink")->start(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return timers() == 0; }));
    EXPECT_NE(editor.viewport()->grab().toImage(), without);
    editor.type(Qt::Key_Left);
  }
  EXPECT_EQ(focus(QEvent::FocusOut), without);
  QApplication::setCursorFlashTime(0);  // a desktop on which nothing blinks
  focus(QEvent::FocusIn);
  EXPECT_EQ(timers(), 0);
}

/// Its layout comes up piece by piece.
TEST_F(Text, AnEndlessParagraphIsShownAtOnce) {
  editor.show();
  for (const QString& part : {QStringLiteral("字"), QStringLiteral(u"\U0001F600"), QStringLiteral(u"\u0301")}) {
    editor.loadExactText({});
    QElapsedTimer clock;
    clock.start();
    editor.compose({}, part.repeated(1'000'000));
    for (int key = 0; key < 20; ++key) {
      editor.type(Qt::Key_A, "a");
      editor.grab();
    }
    EXPECT_LT(clock.elapsed(), 20'000) << "minutes, if it were laid out whole";
    EXPECT_TRUE(editor.text() == part.repeated(1'000'000) + QString(20, u'a'));
  }
  editor.loadExactText("first\n");
  editor.selectExactly(6, 0);
  for (int key = 0; key < 300; ++key) editor.type(Qt::Key_Any, QStringLiteral(u"\u2192"));
  EXPECT_EQ(editor.document()->findBlockByNumber(1).length(), 128) << "it is divided as it grows";
}

/// And nothing in view moves while the lines above it are loaded. Whole from the start for those who ask, and for keys
/// that come before anything is painted.
TEST_F(Text, TheEndOfALongTextIsShownFirst) {
  QString text = "first\r\n";
  for (int line = 0; line < 50'000; ++line) text += QStringLiteral("line %1 ").arg(line).repeated(line % 9) + u'\n';
  text += "selected";
  editor.setCursorWidth(0);  // it blinks
  editor.loadExactText(text);
  editor.selectExactly(text.size() - 8, 8);
  EXPECT_TRUE(editor.document()->firstBlock().text().startsWith("line "));
  EXPECT_EQ(editor.text(), text);
  editor.show();
  EXPECT_TRUE(editor.viewport()->rect().contains(editor.cursorRect()));
  const QImage before = editor.viewport()->grab().toImage();
  while (editor.blockCount() < 50'002) {
    QCoreApplication::processEvents();
    ASSERT_EQ(editor.viewport()->grab().toImage(), before) << "something moved";
  }
  EXPECT_EQ(editor.copied(), "selected");
  EXPECT_EQ(editor.text(), text);

  editor.loadExactText(text);
  editor.selectExactly(7, 0);
  EXPECT_EQ(editor.textCursor().block().blockNumber(), 1);
  editor.setNoteFont(QFont());
  EXPECT_EQ(edits, 0) << "neither loading nor another font is an edit";
  editor.loadExactText(text);
  editor.selectExactly(text.size(), 0);
  editor.type(Qt::Key_X, "x");
  EXPECT_EQ(editor.text(), text + u'x');
  EXPECT_EQ(editor.blockCount(), 50'002);
  for (int times = 0; times < 2; ++times) editor.undo();
  EXPECT_EQ(editor.text(), text) << "loading is nothing to undo";
}

}  // namespace
}  // namespace platform::desktop
