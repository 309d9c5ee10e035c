// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QTest>
#include <cmath>
#include <memory>
#include <stdexcept>
#include <vector>

#include "app/app_delegate.h"
#include "platform/desktop/language/key_names.h"
#include "platform/desktop/windows/bubble.h"
#include "tests/desktop/scratch.h"

namespace quillberry {
namespace {

using platform::desktop::Bubble;
using testing::ElementsAre;

/// The whole program on a screen that nobody sees.
class Popover : public testing::Test {
 protected:
  scratch::Folder scratch;
  std::shared_ptr<platform::NSApplication> app;
  std::shared_ptr<AppDelegate> delegate;

  void launch(bool welcomed) {
    if (welcomed) scratch::put(scratch.path() / "config/Quillberry/settings.json", R"({"didShowWelcome": true})");
    app = platform::NSApplication::sharedApplication();
    delegate = std::make_shared<AppDelegate>();
    app->setDelegate(delegate);
    delegate->applicationDidFinishLaunching();
  }

  static Bubble* shown() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      auto* const bubble = dynamic_cast<Bubble*>(window);
      if (bubble != nullptr && bubble->isVisible()) return bubble;
    }
    return nullptr;
  }
  static Bubble& waitForBubble() {
    if (!QTest::qWaitFor([] { return shown() != nullptr; }, 10'000)) throw std::logic_error("there is no popover");
    return *shown();
  }
  static QWidget& content(Bubble& bubble) { return *bubble.findChild<QWidget*>({}, Qt::FindDirectChildrenOnly); }

  static void clickInfo() {
    for (QWidget* const widget : QApplication::allWidgets()) {
      auto* const button = qobject_cast<QAbstractButton*>(widget);
      if (button != nullptr && button->accessibleName() == QLatin1String("Shortcuts")) button->click();
    }
  }
  static void press(QWidget& widget, int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
  }

  static std::vector<std::string> texts(QWidget& content) {
    std::vector<std::string> all;
    for (auto* const label : content.findChildren<QLabel*>()) all.push_back(label->text().toStdString());
    return all;
  }

  /// The places of the labels and buttons in the content, from top to bottom.
  static std::vector<QRect> places(QWidget& content) {
    std::vector<QRect> rects;
    for (auto* const widget : content.findChildren<QWidget*>()) {
      if (widget->findChildren<QWidget*>().isEmpty())
        rects.emplace_back(widget->mapTo(&content, QPoint()), widget->size());
    }
    std::sort(rects.begin(), rects.end(),
              [](const QRect& a, const QRect& b) { return std::pair(a.y(), a.x()) < std::pair(b.y(), b.x()); });
    return rects;
  }
};

TEST_F(Popover, WelcomeHasItsMeasures) {
  launch(false);
  QWidget& welcome = content(waitForBubble());
  EXPECT_EQ(welcome.width(), 312);
  const auto rects = places(welcome);  // mark, name, bar, headline, body, three rows of two, button
  ASSERT_EQ(rects.size(), 12U);
  EXPECT_EQ(rects[0], QRect(18, 18, 34, 34));
  EXPECT_EQ(rects[1].x(), 18 + 34 + 10);
  EXPECT_EQ(rects[2], QRect(18, 18 + 34 + 8, 40, 3));
  EXPECT_EQ(rects[3].topLeft(), QPoint(18, rects[2].bottom() + 1 + 14));
  EXPECT_EQ(rects[4].topLeft(), QPoint(18, rects[3].bottom() + 1 + 11));
  EXPECT_EQ(rects[4].width(), 276);
  EXPECT_GT(rects[4].height(), 2 * rects[3].height()) << "the body is wrapped";
  EXPECT_EQ(rects[5].topLeft(), QPoint(18, rects[4].bottom() + 1 + 11));
  const int widestKeyCaps = std::max({rects[5].width(), rects[7].width(), rects[9].width()});
  for (int row = 0; row < 3; ++row) {
    EXPECT_EQ(rects[5 + 2 * row].x(), 18);
    EXPECT_EQ(rects[6 + 2 * row].x(), 18 + widestKeyCaps + 12);
  }
  EXPECT_EQ(rects[11].x(), 18);
  EXPECT_EQ(welcome.height() - rects[11].bottom() - 1, 18);
}

double luminance(QColor color) {
  const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// Of the pixel that stands out most to the one in a corner, where nothing is written.
double contrast(const QImage& text) {
  const double ground = luminance(text.pixelColor(0, 0));
  double best = 1;
  for (int y = 0; y < text.height(); ++y) {
    for (int x = 0; x < text.width(); ++x) {
      const double other = luminance(text.pixelColor(x, y));
      best = std::max(best, (std::max(ground, other) + 0.05) / (std::min(ground, other) + 0.05));
    }
  }
  return best;
}

TEST_F(Popover, ColorsAreReadInEveryPalette) {
  launch(false);
  Bubble& bubble = waitForBubble();
  const std::vector<std::pair<QColor, QColor>> textOnBase{
      {Qt::black, Qt::white}, {Qt::white, QColor(36, 36, 36)}, {Qt::white, Qt::black}};
  for (const auto& [text, base] : textOnBase) {
    QPalette palette(text, base);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    QApplication::setPalette(palette);
    QCoreApplication::processEvents();
    const QImage image = bubble.grab().toImage();
    const auto at = [&](const QWidget& widget) { return QRect(widget.mapTo(&bubble, QPoint()), widget.size()); };
    EXPECT_NEAR(luminance(image.pixelColor(image.width() / 2, image.height() - 8)), luminance(base), 0.05);
    const auto labels = bubble.findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 9);
    for (const auto* const label : labels) {
      QRect letters = at(*label);
      letters.setWidth(std::min(letters.width(), 40));  // an emoji at the end has colours of its own
      EXPECT_GE(contrast(image.copy(letters)), 4.5) << label->text().toStdString();
    }
    const auto* const button = bubble.findChild<QAbstractButton*>();
    EXPECT_GE(contrast(image.copy(at(*button).adjusted(8, 4, -8, -4))), 4.5);
    EXPECT_EQ(image.pixelColor(at(*button).topLeft() + QPoint(8, 4)), QColor(176, 125, 15));
    const auto bar = places(content(bubble))[2].translated(content(bubble).pos());
    EXPECT_EQ(image.pixelColor(bar.center()), QColor(255, 216, 77));
  }
}

TEST_F(Popover, WelcomeStaysUntilReturn) {
  launch(false);
  Bubble& bubble = waitForBubble();
  press(bubble, Qt::Key_X);
  EXPECT_TRUE(bubble.isVisible());
  press(bubble, Qt::Key_Escape);
  EXPECT_EQ(shown(), nullptr) << "it was hidden with the program";
  delegate->showWindow();
  EXPECT_EQ(shown(), &bubble);
  press(bubble, Qt::Key_Return);
  EXPECT_EQ(shown(), nullptr);
}

TEST_F(Popover, WelcomeGrowsInHeightAloneForKeysThatTheDesktopGives) {
  launch(false);
  QWidget& welcome = content(waitForBubble());
  const QSize before = welcome.size();
  platform::desktop::KeyNames::instance().replaceKeys(QKeyCombination(Qt::ControlModifier | Qt::AltModifier, Qt::Key_N),
                                                      QStringLiteral("Press Super+Shift+N or the lamp's key"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return welcome.height() > before.height(); }));
  EXPECT_EQ(texts(welcome)[3], "Press Super+Shift+N or the lamp's key");
  EXPECT_EQ(welcome.width(), before.width());
  EXPECT_EQ(shown()->width(), before.width() + 2);
  for (const QRect& place : places(welcome))
    EXPECT_TRUE(welcome.rect().marginsRemoved({18, 18, 18, 18}).contains(place));
}

TEST_F(Popover, ShortcutsHaveTheirMeasuresAndNameTheKeys) {
  launch(true);
  clickInfo();
  QWidget& shortcuts = content(waitForBubble());
  const auto rects = places(shortcuts);
  ASSERT_EQ(rects.size(), 6U);
  EXPECT_EQ(rects[0].topLeft(), QPoint(16, 14));
  EXPECT_EQ(rects[1].x(), 16 + std::max({rects[0].width(), rects[2].width(), rects[4].width()}) + 14);
  EXPECT_EQ(shortcuts.height() - std::max(rects[4].bottom(), rects[5].bottom()) - 1, 14);
  EXPECT_THAT(texts(shortcuts),
              ElementsAre("Ctrl+Alt+N", "Show / hide the note", "Ctrl+Alt+P", "Keep on top, on every workspace", "Esc",
                          "Hide and go back to what you did"));
  press(*shown(), Qt::Key_Escape);
  EXPECT_EQ(shown(), nullptr);
  clickInfo();
  EXPECT_NE(shown(), nullptr) << "a new one";
}

}  // namespace
}  // namespace quillberry
