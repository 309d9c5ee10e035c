// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <filesystem>

namespace platform::desktop {

/// A JSON object in a file. A file that cannot be read as one counts as empty; before it is replaced it is kept under a
/// second name.
class SettingsFile {
 public:
  explicit SettingsFile(std::filesystem::path file);
  /// The standard user defaults.
  static SettingsFile& ofProgram();

  const QJsonObject& values() const { return values_; }
  /// Undefined if there is none.
  QJsonValue value(const QString& key) const { return values_.value(key); }
  /// Sets the value and writes the whole file, unless nothing would change in it. If writing fails, the value stays in
  /// memory.
  void store(const QString& key, const QJsonValue& value);
  /// Writes the file if an earlier write has failed.
  void write();

 private:
  std::filesystem::path file_;
  QJsonObject values_;
  bool unreadable_;      ///< nothing was read: whatever file is there at the first write is kept under a second name
  bool written_ = true;  ///< the file holds all that was stored
};

}  // namespace platform::desktop
