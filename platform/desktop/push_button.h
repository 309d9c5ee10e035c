#pragma once

#include <QPushButton>

#include "platform/color.h"

namespace platform::desktop {

/// A push button with a face in a colour of its own, on which the title is dark or light, whichever is read better.
class PushButton : public QPushButton {
 public:
  explicit PushButton(const QString& title);

  void setFace(const QColor& face);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor face_;
};

}  // namespace platform::desktop
