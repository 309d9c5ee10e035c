// SPDX-License-Identifier: MIT
#include "platform/desktop/files/settings_file.h"

#include <QJsonDocument>

#include "tests/desktop/scratch.h"
#include "tests/fuzz/fuzz.h"

void fuzz::settings(const std::string& bytes) {
  const QString key = QStringLiteral("pinned");
  const auto file = std::filesystem::path(std::getenv("HOME")) / "settings.json";
  const auto kept = file.string() + ".unreadable";
  std::filesystem::remove(kept);
  scratch::put(file, bytes);
  const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(bytes));

  platform::desktop::SettingsFile settings(file);
  QJsonObject expected = document.object();
  require(settings.values() == expected, "what the file has is what counts");
  expected.insert(key, !settings.value(key).toBool());
  settings.store(key, expected.value(key));
  require(platform::desktop::SettingsFile(file).values() == expected, "a new value is read again beside the old ones");
  require(scratch::get(kept) == (document.isObject() ? std::nullopt : std::optional(bytes)),
          "a file without an object is kept beside, and no other");
}
