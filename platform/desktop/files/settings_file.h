// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <filesystem>

namespace platform::desktop {

/// A JSON object in a file. A file that holds none counts as empty, and gets a second name before it is first replaced.
class SettingsFile {
 public:
  explicit SettingsFile(std::filesystem::path file);
  /// The standard user defaults.
  static SettingsFile& ofProgram();

  const QJsonObject& values() const { return values_; }
  /// Undefined if there is none.
  QJsonValue value(const QString& key) const { return values_.value(key); }
  /// Writes the whole file at once, unless it holds this value and all earlier ones already. A value that cannot be
  /// written is kept in memory.
  void store(const QString& key, const QJsonValue& value);
  /// Tries again to write what could not be written.
  void write();

 private:
  std::filesystem::path file_;
  QJsonObject values_;
  bool unreadable_;      ///< a file that is there now, or appears before the first write, needs a second name
  bool written_ = true;  ///< the file holds all that was stored
};

}  // namespace platform::desktop
