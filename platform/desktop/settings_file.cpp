// SPDX-License-Identifier: MIT
#include "platform/desktop/settings_file.h"

#include <QJsonDocument>
#include <utility>

#include "platform/desktop/atomic_file.h"
#include "platform/file_manager.h"

namespace platform::desktop {

SettingsFile::SettingsFile(std::filesystem::path file) : file_(std::move(file)) {
  sweepAuxiliaryFiles(file_);
  std::error_code error;
  const auto contents = readFile(file_, largestSettings, error);
  const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(contents.value_or("")));
  values_ = document.object();
  unreadable_ = contents ? !document.isObject() : error != std::errc::no_such_file_or_directory;
}

void SettingsFile::store(const QString& key, const QJsonValue& value) {
  if (values_.value(key) == value) return;
  values_.insert(key, value);
  if (unreadable_) unreadable_ = bool(NSFileManager::defaultManager().keepUnreadableItemAtURL(file_));
  if (unreadable_) return;
  makeFolder(file_.parent_path(), true);
  replaceFile(file_, QJsonDocument(values_).toJson().toStdString());
}

}  // namespace platform::desktop
