// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QTextLayout>
#include <optional>

#include "platform/text_field.h"

namespace platform::desktop {

/// A label in a colour by its role, which follows the palette. Sizes are in points.
class Label : public QLabel {
 public:
  explicit Label(const NSTextField& field);

  /// Takes a line. Where that is wider than the room, it takes as many as it needs.
  void fitInto(int room);
  /// Of the first line, which may be in a font that only the text asked for.
  double ascent() const { return lines_.lineAt(0).ascent(); }
  /// Takes room above, so that the first line stands on that of a label with this ascent.
  void standOn(double ascent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Gives their height.
  int breakLines(int width);

  NSColor color_;
  std::optional<int> paragraphWidth_;
  QTextLayout lines_;
  int above_ = 0;
};

}  // namespace platform::desktop
