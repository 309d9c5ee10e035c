// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/accessibility.h"

#include <QAccessibleWidget>
#include <QApplication>

#include "platform/desktop/windows/bubble.h"
#include "platform/desktop/windows/main_window.h"
#include "platform/desktop/windows/program_windows.h"

namespace platform::desktop {
namespace {

/// Transient popovers are part of the main window's tree.
bool isPart(const QWidget& window) {
  return window.windowType() == Qt::Popup && dynamic_cast<const Bubble*>(&window) != nullptr;
}

/// The main window. A transient popover is a child of it, since Qt leaves popups out of its list of windows.
class AccessibleMainWindow : public QAccessibleWidget {
 public:
  explicit AccessibleMainWindow(MainWindow& window) : QAccessibleWidget(&window, QAccessible::Window) {}

  int childCount() const override { return QAccessibleWidget::childCount() + (popover() != nullptr ? 1 : 0); }
  QAccessibleInterface* child(int index) const override {
    const bool last = index == QAccessibleWidget::childCount();
    return last ? QAccessible::queryAccessibleInterface(popover()) : QAccessibleWidget::child(index);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const bool last = popover() != nullptr && child->object() == popover();
    return last ? QAccessibleWidget::childCount() : QAccessibleWidget::indexOfChild(child);
  }
  /// The editor has the focus on the window's behalf; only the editor is reported as focused.
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.focused = false;
    return state;
  }

 private:
  static QWidget* popover() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && isPart(*window)) return window;
    }
    return nullptr;
  }
};

/// A popover; a child of the main window if it is transient.
class AccessibleBubble : public QAccessibleWidget {
 public:
  explicit AccessibleBubble(Bubble& bubble) : QAccessibleWidget(&bubble, QAccessible::Dialog) {}

  QAccessibleInterface* parent() const override {
    MainWindow* const window = isPart(*widget()) ? ProgramWindows::instance().mainWindow() : nullptr;
    return window != nullptr ? QAccessible::queryAccessibleInterface(window) : QAccessibleWidget::parent();
  }
};

QAccessibleInterface* describe(const QString& /*className*/, QObject* object) {
  // Qt owns what it is given.
  if (auto* const window = dynamic_cast<MainWindow*>(object)) return new AccessibleMainWindow(*window);
  if (auto* const bubble = dynamic_cast<Bubble*>(object)) return new AccessibleBubble(*bubble);
  return nullptr;
}

}  // namespace

void describeWindowsToAssistiveTechnology() { QAccessible::installFactory(describe); }

}  // namespace platform::desktop
