// SPDX-License-Identifier: MIT
#include <QJsonDocument>

#include "platform/desktop/files/settings_file.h"
#include "tests/desktop/scratch.h"
#include "tests/fuzz/fuzz.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using fuzz::require;
  using platform::desktop::SettingsFile;
  static const scratch::Folder scratch;
  static const QString key = QStringLiteral("pinned");

  const std::string bytes = fuzz::bytesOf(data, size);
  const auto file = scratch.path() / "settings.json";
  const auto kept = scratch.path() / "settings.json.unreadable";
  std::filesystem::remove(kept);
  scratch::put(file, bytes);

  SettingsFile settings(file);
  QJsonObject expected = settings.values();
  const bool pinned = !settings.value(key).toBool();
  settings.store(key, pinned);
  expected.insert(key, pinned);
  const SettingsFile again(file);
  require(again.values() == expected, "a new value is read again beside all the old ones");

  const bool isObject = QJsonDocument::fromJson(QByteArray::fromStdString(bytes)).isObject();
  require(scratch::get(kept) == (isObject ? std::nullopt : std::optional(bytes)),
          "a file without an object is kept beside, and no other");
  return 0;
}
