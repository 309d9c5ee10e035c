// SPDX-License-Identifier: MIT
#include "platform/desktop/views/appearance.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace platform::desktop {
namespace {

// Shares of the text's colour that leave a contrast of 4.5 : 1 for text and 3 : 1 for shapes in light and dark.
constexpr double secondaryShare = 0.68;
constexpr double tertiaryShare = 0.55;
constexpr double hairlineShare = 0.22;
constexpr double activeBorderShare = 0.45;
constexpr double popoverShare = 0.015;
constexpr double typographicPointsPerInch = 72;

QColor mixed(const QPalette& palette, double shareOfText) {
  const QColor text = palette.color(QPalette::Text);
  const QColor base = palette.color(QPalette::Base);
  const auto mix = [&](double a, double b) { return static_cast<float>(a * shareOfText + b * (1 - shareOfText)); };
  return QColor::fromRgbF(mix(text.redF(), base.redF()), mix(text.greenF(), base.greenF()),
                          mix(text.blueF(), base.blueF()));
}

QString anyFixedPitchFamily(const QString& otherwise) {
  const QStringList families = QFontDatabase::families(QFontDatabase::Latin);
  const auto found = std::find_if(families.begin(), families.end(),
                                  [](const QString& family) { return QFontDatabase::isFixedPitch(family); });
  return found == families.end() ? otherwise : *found;
}

/// Emoji come in colour where the desktop has such a font, and not from a text font that has some of them.
void addColourEmoji(QFont& font, bool wantsFixedPitch) {
  // The family by its own name: behind an alias, the emoji font would give spaces and digits too.
  const QFontInfo found(font);
  // In some locales the alias "monospace" is not a fixed-pitch font.
  const bool wrongPitch = wantsFixedPitch && !found.fixedPitch();
  const QString family = wrongPitch ? anyFixedPitchFamily(found.family()) : found.family();
  font.setFamilies({family, QStringLiteral("Noto Color Emoji")});
}

QFont::Weight toWeight(NSFontWeight weight) {
  switch (weight) {
    case NSFontWeight::Semibold:
      return QFont::DemiBold;
    case NSFontWeight::Bold:
      return QFont::Bold;
    case NSFontWeight::Regular:
      break;
  }
  return QFont::Normal;
}

/// Relative luminance, from 0 to 1.
double luminance(const QColor& color) {
  const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

}  // namespace

QFont toQFont(const NSFont& font) {
  QFont face = font.monospaced ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : QGuiApplication::font();
  addColourEmoji(face, font.monospaced);
  // Pixel sizes are whole numbers; the size in typographic points may be a fraction.
  face.setPointSizeF(font.pointSize * typographicPointsPerInch /
                     QGuiApplication::primaryScreen()->logicalDotsPerInchY());
  face.setWeight(toWeight(font.weight));
  return face;
}

QColor toQColor(const NSColor& color, const QPalette& palette) {
  switch (color.role) {
    case NSColor::Role::Label:
      return palette.color(QPalette::Text);
    case NSColor::Role::SecondaryLabel:
      return secondaryTextColor(palette);
    case NSColor::Role::TertiaryLabel:
      return mixed(palette, tertiaryShare);
    case NSColor::Role::None:
      break;
  }
  return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                          static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

QColor secondaryTextColor(const QPalette& palette) { return mixed(palette, secondaryShare); }
QColor popoverColor(const QPalette& palette) { return mixed(palette, popoverShare); }

QColor textColorOn(const QColor& background) {
  // The contrast with black is (L + 0.05) / 0.05, with white 1.05 / (L + 0.05).
  const double lightness = luminance(background) + 0.05;
  return lightness / 0.05 >= 1.05 / lightness ? Qt::black : Qt::white;
}

Qt::LayoutDirection directionOf(const QString& text) {
  return text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}

QColor hairlineColor(const QPalette& palette) { return mixed(palette, hairlineShare); }
QColor activeBorderColor(const QPalette& palette) { return mixed(palette, activeBorderShare); }

}  // namespace platform::desktop
