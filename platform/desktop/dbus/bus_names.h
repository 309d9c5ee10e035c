// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "platform/application_metadata.h"
#include "platform/desktop/base/strings.h"

/// What this program is called on the session bus.
namespace platform::desktop {

/// The bus name, which is the program's id for the portal, too.
inline QString serviceName() { return toQString(metadata::identifier); }
/// The path of the one object that the program exports.
inline QString servicePath() { return u'/' + serviceName().replace(u'.', u'/'); }
/// That object's interface.
inline QString serviceInterface() { return QStringLiteral("org.freedesktop.Application"); }
/// The entry of a request's platform data that has an activation token.
inline QString activationTokenKey() { return QStringLiteral("activation-token"); }

}  // namespace platform::desktop
