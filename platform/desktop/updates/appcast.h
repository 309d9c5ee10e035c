// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>
#include <optional>

/// An appcast: an RSS feed in which each item is a release of the program.
namespace platform::desktop {

/// A release, in the words of its feed. They are a stranger's, and of any length.
struct Release {
  QString version;       ///< what releases are compared by
  QString shownVersion;  ///< what people call it
  QString title;
  QString notes;  ///< plain text or HTML
  QUrl page;      ///< http or https; empty if there is none
};

struct Appcast {
  std::optional<Release> newest;  ///< of the releases for every user that run here
};

/// Nothing if that is no appcast.
std::optional<Appcast> readAppcast(const QByteArray& xml);

/// Less than, equal to or greater than 0 as the first version is older than, as new as, or newer than the second.
/// Numbers are compared as numbers, and missing ones are 0; a version with a suffix comes before the one without.
int compareVersions(QStringView one, QStringView other);

}  // namespace platform::desktop
