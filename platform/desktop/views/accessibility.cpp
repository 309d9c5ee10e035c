// SPDX-License-Identifier: MIT
#include "platform/desktop/views/accessibility.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QLabel>

#include "platform/desktop/windows/bubble.h"
#include "platform/desktop/windows/decoration.h"

namespace platform::desktop {
namespace {

/// Of the note's tree: a popover that closes by itself.
bool isPart(const QWidget& window) {
  return window.windowType() == Qt::Popup && dynamic_cast<const Bubble*>(&window) != nullptr;
}

/// The note's window. A popover that closes by itself hangs in its tree, for Qt's own list of windows leaves
/// such ones out.
class AccessibleNote : public QAccessibleWidget {
 public:
  explicit AccessibleNote(NoteFrame& frame) : QAccessibleWidget(&frame, QAccessible::Window) {}

  int childCount() const override { return QAccessibleWidget::childCount() + (popover() != nullptr ? 1 : 0); }
  QAccessibleInterface* child(int index) const override {
    const bool last = index == QAccessibleWidget::childCount();
    return last ? QAccessible::queryAccessibleInterface(popover()) : QAccessibleWidget::child(index);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const bool last = popover() != nullptr && child->object() == popover();
    return last ? QAccessibleWidget::childCount() : QAccessibleWidget::indexOfChild(child);
  }
  /// The text that has the focus for it is the only one that is said to have it.
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

/// A popover. It is described by all of its texts, which cannot be reached one by one.
class AccessibleBubble : public QAccessibleWidget {
 public:
  explicit AccessibleBubble(Bubble& bubble) : QAccessibleWidget(&bubble, QAccessible::Dialog) {}

  QAccessibleInterface* parent() const override {
    NoteFrame* const owner = isPart(*widget()) ? NoteFrame::first() : nullptr;
    return owner != nullptr ? QAccessible::queryAccessibleInterface(owner) : QAccessibleWidget::parent();
  }
  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Description) return QAccessibleWidget::text(kind);
    QStringList texts;
    for (const auto* const label : widget()->findChildren<QLabel*>()) texts.append(label->text());
    return texts.join(QLatin1String("\n"));
  }
};

QAccessibleInterface* describe(const QString& /*className*/, QObject* object) {
  // Qt owns what it is given.
  if (auto* const frame = dynamic_cast<NoteFrame*>(object)) return new AccessibleNote(*frame);
  if (auto* const bubble = dynamic_cast<Bubble*>(object)) return new AccessibleBubble(*bubble);
  return nullptr;
}

}  // namespace

void describeWindowsToAssistiveTechnology() { QAccessible::installFactory(describe); }

}  // namespace platform::desktop
