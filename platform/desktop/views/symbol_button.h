// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <string>

#include "platform/color.h"

namespace platform::desktop {

/// A button that shows nothing but a symbol (see symbols.h).
class SymbolButton : public QAbstractButton {
 public:
  SymbolButton();

  void setSymbol(std::string symbolName, const QString& accessibleName);
  void setTint(const NSColor& tint);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::string symbolName_;
  NSColor tint_ = NSColor::tertiaryLabelColor();
};

}  // namespace platform::desktop
