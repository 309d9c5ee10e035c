// SPDX-License-Identifier: MIT
#pragma once

#include <QKeySequence>
#include <QMap>
#include <QObject>
#include <QString>
#include <optional>

#include "platform/desktop/one_in_process.h"

namespace platform::desktop {

/// The keys of a combination in symbols, "⌥⌘N" or "esc"; none in any other text.
std::optional<QKeySequence> keysOfSymbols(const QString& text);

/// What the user's combinations are called: as Qt names them, in the user's language, unless the desktop gives
/// other keys in their place.
class KeyNames : public QObject, public OneInProcess<KeyNames> {
  Q_OBJECT

 public:
  QString nameOf(const QKeySequence& keys) const;
  /// The keys that act for these. Empty where the desktop has told of some that Qt cannot read.
  QKeySequence keysFor(const QKeySequence& keys) const;
  /// The desktop gives others in their place, by the name that it has for them; an empty name takes that back.
  void tell(const QKeySequence& keys, const QString& name);

  Q_SIGNAL void renamed(const QString& before, const QString& now);

 private:
  QMap<QKeySequence, QString> told_;
};

}  // namespace platform::desktop
