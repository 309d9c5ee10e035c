// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <filesystem>

namespace platform::desktop {

/// One JSON object in a file, and what was stored in it since. A file that holds none counts as empty, and gets a
/// second name before it is first replaced.
class SettingsFile {
 public:
  explicit SettingsFile(std::filesystem::path file);
  /// The standard user defaults.
  static SettingsFile& ofProgram();

  const QJsonObject& values() const { return values_; }
  /// Undefined if there is none.
  QJsonValue value(const QString& key) const { return values_.value(key); }
  /// Writes the whole file at once, if that or an earlier value is not written yet. What cannot be written holds all
  /// the same.
  void store(const QString& key, const QJsonValue& value);
  /// Tries again to write what could not be written.
  void write();

 private:
  std::filesystem::path file_;
  QJsonObject values_;
  bool notRead_;         ///< what is there, or turns up there, before the first write
  bool written_ = true;  ///< all that was stored
};

}  // namespace platform::desktop
