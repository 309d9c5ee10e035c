// SPDX-License-Identifier: MIT
#include "platform/localized_string.h"

#include <QCoreApplication>

#include "platform/desktop/base/strings.h"
#include "platform/desktop/language/key_names.h"

namespace platform {

std::string NSLocalizedString(std::string_view key) {
  const auto keys = desktop::keysOfSymbols(desktop::toQString(key));
  const QString shown = keys ? desktop::KeyNames::instance().nameOf(*keys) : qtTrId(std::string(key).c_str());
  return shown.toStdString();
}

}  // namespace platform
