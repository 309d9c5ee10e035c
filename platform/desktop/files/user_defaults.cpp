// SPDX-License-Identifier: MIT
#include "platform/user_defaults.h"

#include "platform/desktop/base/strings.h"
#include "platform/desktop/files/settings_file.h"

namespace platform {

using desktop::SettingsFile;
using desktop::toQString;

struct NSUserDefaults::Impl {};

NSUserDefaults::NSUserDefaults() = default;
NSUserDefaults::~NSUserDefaults() = default;

NSUserDefaults& NSUserDefaults::standardUserDefaults() {
  static NSUserDefaults defaults;
  return defaults;
}

std::optional<DefaultsValue> NSUserDefaults::storedObjectForKey(std::string_view key) const {
  const QJsonValue value = SettingsFile::ofProgram().value(toQString(key));
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

void NSUserDefaults::setBool(bool value, std::string_view key) {
  SettingsFile::ofProgram().store(toQString(key), value);
}

void NSUserDefaults::setString(std::string_view value, std::string_view key) {
  SettingsFile::ofProgram().store(toQString(key), toQString(value));
}

}  // namespace platform
