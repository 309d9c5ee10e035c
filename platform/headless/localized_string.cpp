// SPDX-License-Identifier: MIT
#include "platform/localized_string.h"

namespace platform {

std::string NSLocalizedString(std::string_view key) { return std::string(key); }

}  // namespace platform
