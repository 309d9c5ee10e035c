#pragma once

#include <QAbstractButton>
#include <string>

#include "platform/color.h"

namespace platform::desktop {

/// A button that is one of the system's symbols: "info.circle" or "xmark.circle".
class SymbolButton : public QAbstractButton {
 public:
  SymbolButton(const std::string& symbolName, const QString& accessibleName);

  void setTint(NSColor tint);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void (*draw_)(class QPainter&, const QRectF&);
  NSColor tint_ = NSColor::tertiaryLabelColor;
};

}  // namespace platform::desktop
