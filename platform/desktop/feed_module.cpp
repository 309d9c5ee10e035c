// SPDX-License-Identifier: MIT
#include "platform/desktop/feed_module.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibrary>

namespace platform::desktop {

QStringList feedModuleFolders() {
  const QString programFolder = QCoreApplication::applicationDirPath();
  return {programFolder, programFolder + QLatin1Char('/') + QStringLiteral(FEED_MODULE_FOLDER)};
}

FeedModule loadFeedModule(const QStringList& folders) {
  for (const QString& folder : folders) {
    const QString file = folder + QLatin1Char('/') + QStringLiteral(FEED_MODULE_FILE);
    if (!QFile::exists(file)) continue;
    QLibrary library(file);
    library.setLoadHints(QLibrary::PreventUnloadHint);
    const auto makeRequest = reinterpret_cast<MakeFeedRequest>(library.resolve(makeFeedRequestName));
    return {makeRequest, makeRequest != nullptr ? QString() : library.errorString()};
  }
  return {nullptr, QStringLiteral("The part of the program that reads the feed, %1, is not installed.")
                       .arg(QStringLiteral(FEED_MODULE_FILE))};
}

}  // namespace platform::desktop
