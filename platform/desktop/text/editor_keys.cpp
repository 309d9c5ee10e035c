// SPDX-License-Identifier: MIT
#include "platform/desktop/text/editor_keys.h"

#include <QKeyEvent>
#include <algorithm>

namespace platform::desktop {
namespace {

bool isPrintable(const QString& text) {
  const QList<uint> characters = text.toUcs4();
  return std::all_of(characters.begin(), characters.end(), [](uint c) { return QChar::isPrint(c); });
}

}  // namespace

bool endsLine(const QKeyEvent& key) { return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter; }

QString typedText(const QKeyEvent& key) {
  constexpr Qt::KeyboardModifiers altGr = Qt::ControlModifier | Qt::AltModifier;
  const Qt::KeyboardModifiers held = key.modifiers() & (altGr | Qt::MetaModifier);
  const bool types = held == Qt::NoModifier || (held == altGr && isPrintable(key.text()));
  return types ? key.text() : QString();
}

std::optional<Direction> directionOfEdit(const QKeyEvent& key) {
  const auto isOneOf = [&](std::initializer_list<QKeySequence::StandardKey> commands) {
    return std::any_of(commands.begin(), commands.end(), [&](auto command) { return key.matches(command); });
  };
  if (isOneOf({QKeySequence::Delete, QKeySequence::DeleteEndOfWord, QKeySequence::DeleteEndOfLine})) {
    return Direction::Forward;
  }
  const bool deletes = key.key() == Qt::Key_Backspace || isOneOf({QKeySequence::DeleteStartOfWord});
  return deletes || !typedText(key).isEmpty() ? std::optional(Direction::Backward) : std::nullopt;
}

}  // namespace platform::desktop
