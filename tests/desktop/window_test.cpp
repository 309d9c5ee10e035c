// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/app_delegate.h"
#include "platform/desktop/text/note_editor.h"
#include "tests/desktop/scratch.h"

namespace quillberry {
namespace {

using platform::desktop::NoteEditor;
using testing::Optional;

/// The whole program on a screen that nobody sees.
class MainWindow : public testing::Test {
 protected:
  scratch::Folder scratch;
  std::filesystem::path note = scratch.path() / "data/Quillberry/note.txt";
  std::shared_ptr<platform::NSApplication> app;
  std::shared_ptr<AppDelegate> delegate;

  void launch() {
    app = platform::NSApplication::sharedApplication();
    delegate = std::make_shared<AppDelegate>();
    app->setDelegate(delegate);
    delegate->applicationDidFinishLaunching();
    QCoreApplication::processEvents();
  }

  static QWidget& frame() { return *editor().window(); }
  static NoteEditor& editor() {
    for (QWidget* const widget : QApplication::allWidgets()) {
      if (auto* const found = dynamic_cast<NoteEditor*>(widget)) return *found;
    }
    throw std::logic_error("there is no editor");
  }
  static QAbstractButton& button(const char* name) {
    for (auto* const found : frame().findChildren<QAbstractButton*>()) {
      if (found->accessibleName() == QLatin1String(name)) return *found;
    }
    throw std::logic_error(name);
  }
  static void press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, QString text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(&widget, &event);
  }
  static QRect placeInFrame(QWidget& widget) { return {widget.mapTo(&frame(), QPoint(0, 0)), widget.size()}; }
};

TEST_F(MainWindow, EscapeHidesWithEveryModifierAndFromEveryControl) {
  launch();
  const std::vector<Qt::KeyboardModifiers> all{Qt::NoModifier,
                                               Qt::ShiftModifier,
                                               Qt::ControlModifier,
                                               Qt::AltModifier,
                                               Qt::MetaModifier,
                                               Qt::KeypadModifier,
                                               Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier};
  for (const auto modifiers : all) {
    delegate->showWindow();
    press(editor(), Qt::Key_Escape, modifiers);
    EXPECT_FALSE(frame().isVisible()) << modifiers;
  }
  delegate->showWindow();
  press(button("Close"), Qt::Key_Escape);
  EXPECT_FALSE(frame().isVisible());
}

TEST_F(MainWindow, ControlsKeepTheirPlacesAtEverySize) {
  launch();
  for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
    QApplication::setLayoutDirection(direction);
    for (const QSize size : {QSize(420, 320), QSize(260, 160), QSize(790, 590)}) {
      frame().resize(size);
      QCoreApplication::processEvents();
      const QRect info = placeInFrame(button("Shortcuts"));
      const QRect close = placeInFrame(button("Close"));
      const auto [first, last] = direction == Qt::LeftToRight ? std::pair(close, info) : std::pair(info, close);
      EXPECT_EQ(size.width() - last.x() - last.width(), 8);
      EXPECT_EQ(info.y(), 5);
      EXPECT_EQ(first.x(), 8);
      EXPECT_EQ(placeInFrame(editor()), QRect(QPoint(0, 0), size));
      EXPECT_EQ(frame().childAt(info.center()), &button("Shortcuts")) << "the button lies over the title bar";
    }
  }
  frame().resize(10, 10);
  EXPECT_EQ(frame().size(), QSize(260, 160));
}

TEST_F(MainWindow, InsetsBelongToTheTextAndNoLineHidesUnderTheTitle) {
  launch();
  const auto caret = [] { return editor().viewport()->mapTo(&frame(), editor().cursorRect().topLeft()); };
  EXPECT_EQ(caret(), QPoint(14, 36));
  QString lines;
  for (int i = 0; i < 60; ++i) lines += QString::number(i) + u'\n';
  editor().setPlainText(lines);
  editor().moveCursor(QTextCursor::End);
  editor().verticalScrollBar()->setValue(editor().verticalScrollBar()->maximum());
  const int below = frame().height() - editor().viewport()->mapTo(&frame(), editor().cursorRect().bottomLeft()).y();
  EXPECT_GE(below, 30) << "the end of the text keeps its inset";
  EXPECT_LE(below, 60);
  for (int i = 0; i < 60; ++i) {
    editor().moveCursor(QTextCursor::Up);
    ASSERT_GE(caret().y(), 28) << "line " << i << " from the end is under the title bar";
  }
  EXPECT_EQ(caret(), QPoint(14, 36)) << "the inset scrolled with the text";
  EXPECT_FALSE(editor().horizontalScrollBar()->isVisible());
}

TEST_F(MainWindow, TextIsDrawnInTheSystemsMonospacedFontAndRightToLeftAtTheRight) {
  launch();
  EXPECT_EQ(editor().fontInfo().pixelSize(), 14);
  EXPECT_TRUE(editor().fontInfo().fixedPitch());
  const QFontMetricsF metrics(editor().font());
  EXPECT_EQ(metrics.horizontalAdvance(u' '), metrics.horizontalAdvance(u'm'));
  editor().setPlainText(QStringLiteral(u"\u05E9\u05DC\u05D5\u05DD"));
  EXPECT_GT(editor().cursorRect().x(), editor().viewport()->width() / 2);
}

TEST_F(MainWindow, NothingTypedIsSubstitutedAndAllOfItCanBeUndone) {
  launch();
  const QString typed = QStringLiteral("\"teh\" -- 'quotes' ... (c) i");
  for (const QChar c : typed) press(editor(), Qt::Key_unknown, Qt::NoModifier, c);
  press(editor(), Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
  EXPECT_EQ(editor().toPlainText(), typed + u'\t');
  while (editor().document()->isUndoAvailable()) editor().undo();
  EXPECT_EQ(editor().toPlainText(), QString());
  while (editor().document()->isRedoAvailable()) editor().redo();
  EXPECT_EQ(editor().toPlainText(), typed + u'\t');
}

TEST_F(MainWindow, ShowsAndSavesAFileByteForByte) {
  const std::string bytes(
      "\xEF\xBB\xBF"
      "a\r\nb\nc\rd\xE2\x80\xA8 \xE2\x80\xA9 e\0f \xEF\xB7\x90 \xF0\x9F\x93\x8C",
      32);
  scratch::put(note, bytes);
  launch();
  press(editor(), Qt::Key_Escape);
  EXPECT_THAT(scratch::get(note), Optional(bytes));
  delegate->showWindow();
  press(editor(), Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
  delegate->applicationWillTerminate();
  EXPECT_THAT(scratch::get(note), Optional(bytes + "x"));
}

TEST_F(MainWindow, AWindowThatNobodyCouldCloseDoesNotKeepTheProgram) {
  launch();
  EXPECT_FALSE(frame().close());
  EXPECT_FALSE(frame().isVisible());
  EXPECT_TRUE(scratch::get(note)) << "the close button saves";
}

}  // namespace
}  // namespace quillberry
