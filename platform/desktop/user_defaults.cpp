#include "platform/user_defaults.h"

#include <QJsonDocument>
#include <QJsonObject>

#include "platform/application_metadata.h"
#include "platform/desktop/atomic_file.h"
#include "platform/desktop/base_directories.h"
#include "platform/desktop/strings.h"
#include "platform/file_manager.h"

namespace platform {

using desktop::toQString;

struct NSUserDefaults::Impl {
  URL file = desktop::configHome() / metadata::name / "settings.json";
  QJsonObject values;
  bool unreadable = false;

  Impl() {
    desktop::sweepAuxiliaryFiles(file);
    std::error_code error;
    const auto contents = desktop::readFile(file, error);
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(contents.value_or("")));
    values = document.object();
    unreadable = contents ? !document.isObject() : error != std::errc::no_such_file_or_directory;
  }

  void store(std::string_view key, const QJsonValue& value) {
    if (values.value(toQString(key)) == value) return;
    values.insert(toQString(key), value);
    if (unreadable) unreadable = bool(NSFileManager::defaultManager().keepUnreadableItemAtURL(file));
    if (unreadable) return;
    desktop::makeFolder(file.parent_path(), true);
    desktop::replaceFile(file, QJsonDocument(values).toJson().toStdString());
  }
};

NSUserDefaults::NSUserDefaults() : impl_(std::make_unique<Impl>()) {}
NSUserDefaults::~NSUserDefaults() = default;

NSUserDefaults& NSUserDefaults::standardUserDefaults() {
  static NSUserDefaults defaults;
  return defaults;
}

std::optional<DefaultsValue> NSUserDefaults::storedObjectForKey(std::string_view key) const {
  const QJsonValue value = impl_->values.value(toQString(key));
  switch (value.type()) {
    case QJsonValue::Undefined:
      return std::nullopt;
    case QJsonValue::Bool:
      return value.toBool();
    case QJsonValue::Double:
      return value.toDouble();
    case QJsonValue::String:
      return value.toString().toStdString();
    default:
      return OtherValue{};
  }
}

void NSUserDefaults::setBool(bool value, std::string_view key) { impl_->store(key, value); }

void NSUserDefaults::setString(std::string_view value, std::string_view key) { impl_->store(key, toQString(value)); }

}  // namespace platform
