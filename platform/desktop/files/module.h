// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace platform::desktop {

/// Where modules are looked for: beside the program in a build, and where they are installed. A module is a part of the
/// program that needs further libraries; it is a shared object of its own, loaded when it is first needed.
QStringList moduleFolders();

/// The function of that name from the module `file`.so, which is loaded from the first of the folders that has it and
/// stays loaded. Null, with the reason in `failure`, if it cannot be loaded or has no such function.
QFunctionPointer loadFromModule(const QStringList& folders, const QString& file, const char* function,
                                QString& failure);

}  // namespace platform::desktop
