// SPDX-License-Identifier: MIT
#include "platform/desktop/files/module.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibrary>

namespace platform::desktop {

QStringList moduleFolders() {
  const QString programFolder = QCoreApplication::applicationDirPath();
  return {programFolder, programFolder + QLatin1Char('/') + QStringLiteral(MODULE_FOLDER)};
}

QFunctionPointer loadFromModule(const QStringList& folders, const QString& file, const char* function,
                                QString& failure) {
  const QString name = file + QStringLiteral(".so");
  for (const QString& folder : folders) {
    const QString path = folder + QLatin1Char('/') + name;
    if (!QFile::exists(path)) continue;
    QLibrary library(path);
    library.setLoadHints(QLibrary::PreventUnloadHint);
    const QFunctionPointer found = library.resolve(function);
    if (found == nullptr) failure = library.errorString();
    return found;
  }
  failure = QStringLiteral("A part of the program, %1, is not installed.").arg(name);
  return nullptr;
}

}  // namespace platform::desktop
