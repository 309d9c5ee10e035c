// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace platform::desktop {

/// Parts of the program that need libraries of their own are files of their own, loaded when they are first needed.

/// Where they are: beside the program, as it is built, and where it is installed.
QStringList moduleFolders();

/// Loads the file of that name, without its ending, from the first of the folders that has it; it stays loaded. Null,
/// for the reason put into `failure`, if it cannot be loaded or has no such function.
QFunctionPointer loadFromModule(const QStringList& folders, const QString& file, const char* function,
                                QString& failure);

}  // namespace platform::desktop
