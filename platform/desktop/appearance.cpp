#include "platform/desktop/appearance.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <cmath>

namespace platform::desktop {
namespace {

// Shares of the text's colour that leave a contrast of 4.5 : 1 for text and 3 : 1 for shapes in light and dark.
constexpr double secondaryShare = 0.68;
constexpr double tertiaryShare = 0.55;
constexpr double hairlineShare = 0.22;

QColor mixed(const QPalette& palette, double shareOfText) {
  const QColor text = palette.color(QPalette::Text);
  const QColor base = palette.color(QPalette::Base);
  const auto mix = [&](double a, double b) { return static_cast<float>(a * shareOfText + b * (1 - shareOfText)); };
  return QColor::fromRgbF(mix(text.redF(), base.redF()), mix(text.greenF(), base.greenF()),
                          mix(text.blueF(), base.blueF()));
}

/// Emoji come in colour where the desktop has such a font, and not from a text font that has some of them.
QFont withColourEmoji(QFont font, int pixelSize, QFont::Weight weight) {
  // The family by its own name: behind an alias, the emoji font would give spaces and digits too.
  font.setFamilies({QFontInfo(font).family(), QStringLiteral("Noto Color Emoji")});
  font.setPixelSize(pixelSize);
  font.setWeight(weight);
  return font;
}

}  // namespace

QFont toQFont(const NSFont& font) {
  return withColourEmoji(QFontDatabase::systemFont(QFontDatabase::FixedFont),
                         static_cast<int>(std::lround(font.pointSize)), QFont::Normal);
}

QFont systemFont(int pixelSize, QFont::Weight weight) {
  return withColourEmoji(QGuiApplication::font(), pixelSize, weight);
}

QColor toQColor(NSColor color, const QPalette& palette) {
  switch (color) {
    case NSColor::tertiaryLabelColor:
      return mixed(palette, tertiaryShare);
  }
  return palette.color(QPalette::Text);
}

QColor secondaryTextColor(const QPalette& palette) { return mixed(palette, secondaryShare); }
QColor hairlineColor(const QPalette& palette) { return mixed(palette, hairlineShare); }

}  // namespace platform::desktop
