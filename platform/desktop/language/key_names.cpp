// SPDX-License-Identifier: MIT
#include "platform/desktop/language/key_names.h"

namespace platform::desktop {
namespace {

constexpr qsizetype longestName = 40;  // characters; the desktop may send anything

/// GNOME names keys as GTK writes them: "Press <Control><Alt>n".
QString asQtNames(const QString& told) {
  const qsizetype first = told.indexOf(u'<');
  if (first < 0) return told;
  QString keys = told.mid(first);
  for (const auto& [ofGtk, ofQt] : {std::pair{"<Control>", "Ctrl+"},
                                    {"<Primary>", "Ctrl+"},
                                    {"<Alt>", "Alt+"},
                                    {"<Shift>", "Shift+"},
                                    {"<Super>", "Meta+"}})
    keys.replace(QLatin1String(ofGtk), QLatin1String(ofQt));
  const auto read = QKeySequence::fromString(keys);
  return read.isEmpty() || read[0].key() == Qt::Key_unknown ? told : read.toString(QKeySequence::NativeText);
}

}  // namespace

std::optional<QKeySequence> keysOfSymbols(const QString& text) {
  if (text == QLatin1String("esc")) return QKeySequence(Qt::Key_Escape);
  Qt::KeyboardModifiers modifiers;
  for (const QChar symbol : text.chopped(text.isEmpty() ? 0 : 1)) {
    if (symbol == u'⌘') {
      modifiers |= Qt::ControlModifier;
    } else if (symbol == u'⌥') {
      modifiers |= Qt::AltModifier;
    } else {
      return std::nullopt;
    }
  }
  if (!modifiers) return std::nullopt;
  return QKeySequence(QKeyCombination(modifiers, static_cast<Qt::Key>(text.back().unicode())));
}

QString KeyNames::nameOf(const QKeySequence& keys) const {
  const QString told = replaced_.value(keys);
  return told.isEmpty() ? keys.toString(QKeySequence::NativeText) : told;
}

QKeySequence KeyNames::keysFor(const QKeySequence& keys) const {
  const QString told = replaced_.value(keys);
  if (told.isEmpty()) return keys;
  const auto read = QKeySequence::fromString(told, QKeySequence::NativeText);
  return read.toString(QKeySequence::NativeText) == told ? read : QKeySequence();
}

void KeyNames::replaceKeys(const QKeySequence& keys, const QString& name) {
  const QString before = nameOf(keys);
  replaced_.insert(keys, asQtNames(name.left(longestName).simplified()));
  const QString now = nameOf(keys);
  if (now != before) Q_EMIT renamed(before, now);
}

}  // namespace platform::desktop
