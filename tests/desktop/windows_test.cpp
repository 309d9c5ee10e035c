// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <cmath>

#include "app/app_delegate.h"
#include "platform/desktop/language/key_names.h"
#include "platform/desktop/text/note_editor.h"
#include "platform/desktop/views/appearance.h"
#include "platform/desktop/windows/bubble.h"
#include "platform/desktop/windows/main_window.h"
#include "platform/desktop/windows/program_windows.h"
#include "tests/desktop/scratch.h"

namespace quillberry {
namespace {

using platform::desktop::Bubble;
using platform::desktop::NoteEditor;
using testing::ElementsAre;

QWidget& frame() { return *platform::desktop::ProgramWindows::instance().mainWindow(); }
NoteEditor& editor() { return *frame().findChild<NoteEditor*>(); }
QAbstractButton& button(const char* name) {
  const auto all = frame().findChildren<QAbstractButton*>();
  const auto hasName = [name](const auto* each) { return each->accessibleName() == QLatin1String(name); };
  return **std::find_if(all.begin(), all.end(), hasName);
}

/// The one that is shown; null if there is none.
Bubble* popover() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (auto* const bubble = dynamic_cast<Bubble*>(window); bubble != nullptr && window->isVisible()) return bubble;
  }
  return nullptr;
}
QWidget& content() { return *popover()->findChild<QWidget*>({}, Qt::FindDirectChildrenOnly); }

QRect placeIn(const QWidget& outer, const QWidget& widget) { return {widget.mapTo(&outer, QPoint()), widget.size()}; }

/// The labels, buttons and pictures of the popover, from top to bottom.
std::vector<QRect> places() {
  std::vector<QRect> rects;
  for (const auto* const widget : content().findChildren<QWidget*>()) {
    if (widget->findChildren<QWidget*>().isEmpty()) rects.push_back(placeIn(content(), *widget));
  }
  const auto isAbove = [](const QRect& a, const QRect& b) { return std::pair(a.y(), a.x()) < std::pair(b.y(), b.x()); };
  std::sort(rects.begin(), rects.end(), isAbove);
  return rects;
}
/// The room above each of their rows, and below the last one.
std::vector<int> gaps() {
  std::vector<int> all;
  int above = 0;
  for (const QRect& place : places()) {
    if (place.y() >= above) all.push_back(place.y() - above);
    above = std::max(above, place.y() + place.height());
  }
  all.push_back(content().height() - above);
  return all;
}

/// As the pointer does it, first without the button. The offscreen platform leaves the window to the program.
void drag(QWidget& handle, QPoint from, QPoint way) {
  const auto send = [&handle](QEvent::Type type, QPoint at, Qt::MouseButton button) {
    QMouseEvent event(type, handle.mapFromGlobal(at), at, button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(&handle, &event);
  };
  send(QEvent::MouseMove, from, Qt::NoButton);
  send(QEvent::MouseButtonPress, from, Qt::LeftButton);
  for (const QPoint at : {from + way / 2, from + way}) send(QEvent::MouseMove, at, Qt::LeftButton);
}

/// The whole program on a screen that nobody sees.
class Windows : public testing::Test {
 protected:
  scratch::Folder scratch;
  std::shared_ptr<platform::NSApplication> app;
  std::shared_ptr<AppDelegate> delegate;

  void launch(bool welcome = false) {
    if (!welcome) scratch::put(scratch.path() / "config/Quillberry/settings.json", R"({"didShowWelcome": true})");
    app = platform::NSApplication::sharedApplication();
    delegate = std::make_shared<AppDelegate>();
    app->setDelegate(delegate);
    delegate->applicationDidFinishLaunching();
    QCoreApplication::processEvents();
    ASSERT_TRUE(!welcome || QTest::qWaitFor(popover, 10'000));
  }
};

TEST_F(Windows, HideAtEscapeWhateverIsHeldAndWhereverTheFocusIs) {
  launch();
  for (const auto held : {Qt::NoModifier, Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
    delegate->showWindow();
    if (held == Qt::AltModifier) button("Close").setFocus();
    QTest::keyClick(frame().focusWidget(), Qt::Key_Escape, held);
    EXPECT_FALSE(frame().isVisible()) << held;
  }
}

TEST_F(Windows, ControlsKeepTheirPlacesAtEverySize) {
  launch();
  for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
    QApplication::setLayoutDirection(direction);
    for (const QSize size : {QSize(420, 320), QSize(260, 160), QSize(790, 590)}) {
      frame().resize(size);
      QCoreApplication::processEvents();
      const QRect left(8, 5, 17, 17);
      const QRect right(size.width() - 25, 5, 17, 17);
      EXPECT_EQ(placeIn(frame(), button("Close")), direction == Qt::LeftToRight ? left : right);
      EXPECT_EQ(placeIn(frame(), button("Shortcuts")), direction == Qt::LeftToRight ? right : left);
      EXPECT_EQ(frame().childAt(left.center()), &button(direction == Qt::LeftToRight ? "Close" : "Shortcuts"));
      EXPECT_EQ(placeIn(frame(), editor()), QRect(QPoint(), size));
    }
  }
  frame().resize(10, 10);
  EXPECT_EQ(frame().size(), QSize(260, 160));
}

TEST_F(Windows, DragsMoveAndResizeTheNoteAndDoubleClicksFillTheScreen) {
  launch();
  const QRect start(100, 100, 420, 320);
  const std::tuple<QPoint, Qt::CursorShape, QPoint, QRect> drags[] = {
      {{130, 14}, Qt::ArrowCursor, {20, -30}, {120, 70, 420, 320}},
      {{0, 11}, Qt::SizeFDiagCursor, {-20, -30}, {80, 70, 440, 350}},
      {{408, 319}, Qt::SizeFDiagCursor, {60, 50}, {100, 100, 480, 370}},
      {{4, 308}, Qt::SizeBDiagCursor, {-60, 50}, {40, 100, 480, 370}},
      {{415, 307}, Qt::SizeHorCursor, {-400, 9}, {100, 100, 260, 320}},
      {{12, 4}, Qt::SizeVerCursor, {9, 300}, {100, 260, 420, 160}},
      {{4, 12}, Qt::SizeHorCursor, {400, 9}, {260, 100, 260, 320}}};
  for (const auto& [from, cursor, way, place] : drags) {
    frame().setGeometry(start);
    QWidget& handle = *frame().childAt(from);
    drag(handle, start.topLeft() + from, way);
    EXPECT_EQ(handle.cursor().shape(), cursor) << from.x() << ',' << from.y();
    EXPECT_EQ(frame().geometry(), place) << from.x() << ',' << from.y();
  }
  frame().setGeometry(start);
  QTest::mouseDClick(frame().childAt(130, 14), Qt::LeftButton);
  EXPECT_EQ(frame().geometry(), frame().screen()->availableGeometry());
  frame().resize(frame().width(), frame().height() - 30);  // as a window manager does that keeps it off a panel
  QTest::mouseDClick(frame().childAt(130, 14), Qt::LeftButton);
  EXPECT_EQ(frame().geometry(), start);
  frame().showMaximized();
  EXPECT_EQ(frame().childAt(0, 11), frame().childAt(130, 14)) << "no border";
}

TEST_F(Windows, InsetsBelongToTheTextAndNoLineHidesUnderTheTitle) {
  launch();
  EXPECT_EQ(editor().fontInfo().pixelSize(), 14);
  EXPECT_TRUE(editor().fontInfo().fixedPitch());
  const auto caret = [&] { return editor().viewport()->mapTo(&frame(), editor().cursorRect().topLeft()); };
  EXPECT_EQ(caret(), QPoint(14, 36));
  editor().setPlainText(QStringLiteral("line\n").repeated(59));
  editor().moveCursor(QTextCursor::End);
  QTest::keyClick(&editor(), Qt::Key_Return);
  EXPECT_LE(caret().y() + editor().cursorRect().height(), frame().height()) << "what is typed stays in sight";
  editor().verticalScrollBar()->setValue(editor().verticalScrollBar()->maximum());
  EXPECT_NEAR(frame().height() - caret().y() - editor().cursorRect().height(), 45, 15) << "the end keeps its inset";
  for (int line = 60; line > 0; --line) {
    editor().moveCursor(QTextCursor::Up);
    ASSERT_GE(caret().y(), 28) << "line " << line << " is under the title bar";
  }
  EXPECT_EQ(caret(), QPoint(14, 36)) << "the inset scrolled with the text";
  QCoreApplication::processEvents();
  EXPECT_TRUE(editor().verticalScrollBar()->isVisible() && !editor().horizontalScrollBar()->isVisible());
  editor().setPlainText(QStringLiteral(u"\u05E9\u05DC\u05D5\u05DD"));
  EXPECT_GT(editor().cursorRect().x(), editor().viewport()->width() / 2);
}

TEST_F(Windows, TheWelcomeHasItsMeasuresAndStaysUntilReturn) {
  launch(true);
  EXPECT_THAT(gaps(), ElementsAre(18, 8, 14, 11, 11, 6, 6, 11, 18));
  const auto rects = places();  // mark, name, bar, headline, body, three rows of two, button
  for (const int i : {0, 2, 3, 4, 5, 7, 9, 11}) EXPECT_EQ(rects[i].x(), 18);
  EXPECT_EQ(rects[0].size(), QSize(34, 34));
  EXPECT_EQ(rects[1].x(), 18 + 34 + 10);
  EXPECT_NEAR(rects[1].center().y(), rects[0].center().y(), 1);
  EXPECT_EQ(rects[2].size(), QSize(40, 3));
  EXPECT_EQ(rects[4].width(), 312 - 2 * 18);
  EXPECT_GT(rects[4].height(), 2 * rects[3].height()) << "the body is wrapped";
  const int widestKeys = std::max({rects[5].width(), rects[7].width(), rects[9].width()});
  for (const int i : {6, 8, 10}) EXPECT_EQ(rects[i].x(), 18 + widestKeys + 12);
  EXPECT_EQ(popover()->findChild<QPushButton*>()->fontInfo().pixelSize(), 13);
  const QImage image = content().grab().toImage();
  EXPECT_EQ(image.pixelColor(rects[2].center()), QColor(255, 216, 77));
  EXPECT_EQ(image.pixelColor(rects[11].topLeft() + QPoint(8, 4)), QColor(176, 125, 15));

  const QSize before = content().size();
  platform::desktop::KeyNames::instance().replaceKeys(QKeyCombination(Qt::ControlModifier | Qt::AltModifier, Qt::Key_N),
                                                      QStringLiteral("Press Super+Shift+N or the lamp's key"));
  EXPECT_TRUE(QTest::qWaitFor([] { return popover()->accessibleDescription().contains("lamp"); }));
  EXPECT_GT(content().height(), before.height()) << "the name is wrapped";
  EXPECT_EQ(popover()->size(), QSize(before.width(), content().height()) + QSize(2, 2));
  const QRect room = content().rect().marginsRemoved({18, 18, 18, 18});
  for (const QRect& place : places()) EXPECT_TRUE(room.contains(place));

  Bubble& bubble = *popover();
  QTest::keyClick(&bubble, Qt::Key_X);
  EXPECT_TRUE(bubble.isVisible());
  QTest::keyClick(&bubble, Qt::Key_Escape);
  EXPECT_FALSE(bubble.isVisible()) << "it was hidden with the program";
  delegate->showWindow();
  QTest::keyClick(popover(), Qt::Key_Return);
  EXPECT_TRUE(QTest::qWaitFor([] { return popover() == nullptr; }));
}

TEST_F(Windows, TheShortcutsHaveTheirMeasuresAndNameTheKeys) {
  launch();
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&editor())->text(QAccessible::Name), "Note");
  button("Shortcuts").click();
  const auto* const told = QAccessible::queryAccessibleInterface(popover());
  EXPECT_TRUE(told->role() == QAccessible::Dialog && told->text(QAccessible::Name) == "Shortcuts");
  EXPECT_THAT(gaps(), ElementsAre(14, 6, 6, 14));
  const auto rects = places();
  EXPECT_EQ(rects[0].x(), 16);
  EXPECT_EQ(rects[1].x(), 16 + std::max({rects[0].width(), rects[2].width(), rects[4].width()}) + 14);
  EXPECT_EQ(popover()->accessibleDescription(),
            "Ctrl+Alt+N\nShow / hide the note\nCtrl+Alt+P\nKeep on top, on every "
            "workspace\nEsc\nHide and go back to what you did");
  QTest::keyClick(popover(), Qt::Key_Escape);
  EXPECT_EQ(popover(), nullptr);
}

TEST_F(Windows, APopoverPointsAtItsAnchorAndStaysOnTheScreen) {
  launch();
  const QSize screen = QGuiApplication::primaryScreen()->size();
  const int right = screen.width();
  const int bottom = screen.height();
  const struct {
    QRect anchor;
    QPoint place;
    int arrow = 0;  // its tip's distance from the left; 0: none
    bool atTop = true;
  } cases[] = {{{400, 0, 20, 20}, {358, 22}, 51},
               {{0, 100, 20, 20}, {0, 122}, 22},
               {{right - 20, 100, 20, 20}, {right - 102, 122}, 80},
               {{400, bottom - 73, 20, 20}, {358, bottom - 51}, 51},
               {{400, bottom - 72, 20, 20}, {358, bottom - 72 - 2 - 51}, 51, false},
               {{0, 0, 10, 10}, {6, 6}},
               {{right - 10, bottom - 10, 10, 10}, {right - 6 - 102, bottom - 6 - 42}}};
  for (const auto& [anchor, place, arrow, atTop] : cases) {
    QWidget inside;
    inside.setFixedSize(100, 40);
    Bubble bubble(platform::desktop::ProgramWindows::instance(), inside, false);
    bubble.pointAt([&, at = anchor, exact = arrow > 0] { return platform::desktop::Anchor{at, exact}; });
    bubble.show();
    EXPECT_EQ(bubble.geometry(), QRect(place, QSize(102, arrow > 0 ? 51 : 42)));
    EXPECT_EQ(inside.y(), arrow > 0 && atTop ? 10 : 1);
    const QImage tip = bubble.grab(QRect(arrow - 7, atTop ? 4 : 46, 15, 1)).toImage();
    EXPECT_TRUE(arrow == 0 || (tip.pixelColor(7, 0).alpha() == 255 && tip.pixelColor(0, 0) == tip.pixelColor(14, 0)));
  }
}

TEST_F(Windows, RunNoRequestBeforeWhatAWindowManagersAnswerHasPosted) {
  launch();
  auto& windows = platform::desktop::ProgramWindows::instance();
  QStringList done;
  QTimer::singleShot(0, &frame(), [&] { done.append("correction"); });
  windows.system().onSettled();
  windows.whenSettled(frame(), [&] { done.append("request"); });
  EXPECT_TRUE(QTest::qWaitFor([&] { return done == QStringList({"correction", "request"}); }));
}

TEST(Colors, AreReadInEveryPalette) {
  using namespace platform::desktop;
  const auto luminance = [](const QColor& color) {
    const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
  };
  const auto contrast = [&](const QColor& a, const QColor& b) {
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
  };
  for (const QColor base : {QColor(Qt::white), QColor(36, 36, 36), QColor(Qt::black)}) {
    QPalette palette;
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, base == Qt::white ? Qt::black : Qt::white);
    for (const QColor& ground : {base, popoverColor(palette)}) {
      EXPECT_LT(contrast(ground, base), 1.1);
      EXPECT_GE(contrast(toQColor(platform::NSColor::labelColor(), palette), ground), 12);
      EXPECT_GE(contrast(toQColor(platform::NSColor::secondaryLabelColor(), palette), ground), 4.5);
      EXPECT_GE(contrast(toQColor(platform::NSColor::tertiaryLabelColor(), palette), ground), 3);
    }
    EXPECT_GT(contrast(activeBorderColor(palette), base), contrast(hairlineColor(palette), base));
    EXPECT_GT(contrast(hairlineColor(palette), base), 1.2);
  }
  for (const QColor face : {QColor(Qt::black), QColor(176, 125, 15), QColor(Qt::darkBlue), QColor(Qt::white)}) {
    EXPECT_GE(contrast(textColorOn(face), face), 4.5);
  }
}

}  // namespace
}  // namespace quillberry
