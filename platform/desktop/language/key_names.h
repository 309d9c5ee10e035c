// SPDX-License-Identifier: MIT
#pragma once

#include <QKeySequence>
#include <QMap>
#include <QObject>
#include <QString>
#include <optional>

#include "platform/desktop/base/singleton.h"

namespace platform::desktop {

/// The combination that a text like "⌥⌘N" stands for: ⌥ or ⌘ or both before one character, or "esc". Nothing for any
/// other text.
std::optional<QKeySequence> keysOfSymbols(const QString& text);

/// What key combinations are called on the screen: by Qt's names, in the user's language, or by the desktop's name for
/// other keys that the user has chosen there.
class KeyNames : public QObject, public Singleton<KeyNames> {
  Q_OBJECT

 public:
  QString nameOf(const QKeySequence& keys) const;
  /// The keys to press in place of `keys`. Empty if Qt cannot read the desktop's name for them.
  QKeySequence keysFor(const QKeySequence& keys) const;
  /// The user has chosen other keys at the desktop, which calls them `name`; an empty name takes that back.
  void replaceKeys(const QKeySequence& keys, const QString& name);

  /// What the screen shows for a combination has changed.
  Q_SIGNAL void renamed(const QString& before, const QString& now);

 private:
  QMap<QKeySequence, QString> replaced_;
};

}  // namespace platform::desktop
