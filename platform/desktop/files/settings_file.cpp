// SPDX-License-Identifier: MIT
#include "platform/desktop/files/settings_file.h"

#include <QJsonDocument>
#include <utility>

#include "platform/application_metadata.h"
#include "platform/desktop/files/atomic_file.h"
#include "platform/desktop/files/base_directories.h"
#include "platform/file_manager.h"

namespace platform::desktop {

SettingsFile::SettingsFile(std::filesystem::path file) : file_(std::move(file)) {
  removeStaleTemporaries(file_);
  std::error_code error;
  const auto contents = readFile(file_, largestSettings, error);
  const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(contents.value_or("")));
  values_ = document.object();
  unreadable_ = !document.isObject();
}

SettingsFile& SettingsFile::ofProgram() {
  static SettingsFile settings(configHome() / metadata::name / "settings.json");
  return settings;
}

void SettingsFile::store(const QString& key, const QJsonValue& value) {
  if (values_.value(key) != value) {
    values_.insert(key, value);
    written_ = false;
  }
  write();
}

void SettingsFile::write() {
  if (written_ || (unreadable_ && NSFileManager::defaultManager().keepUnreadableItemAtURL(file_))) return;
  makeFolder(file_.parent_path(), true);
  written_ = !replaceFile(file_, QJsonDocument(values_).toJson().toStdString());
  if (written_) unreadable_ = false;
}

}  // namespace platform::desktop
