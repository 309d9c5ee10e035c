// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QTextLayout>
#include <optional>

#include "platform/text_field.h"

namespace platform::desktop {

/// A label whose colour has a role (see NSColor) and follows the palette. Sizes are in points.
class Label : public QLabel {
 public:
  explicit Label(const NSTextField& field);

  /// Breaks the text into lines that are no wider than `room`.
  void fitInto(int room);
  /// Of the first line, whose font may be a fallback for its letters.
  double ascent() const { return lines_.lineAt(0).ascent(); }
  /// Adds room above, so that the first baseline is that of a label with this ascent.
  void standOn(double ascent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Returns the height of all lines.
  int breakLines(int width);

  NSColor color_;
  std::optional<int> paragraphWidth_;
  QTextLayout lines_;
  int above_ = 0;
};

}  // namespace platform::desktop
