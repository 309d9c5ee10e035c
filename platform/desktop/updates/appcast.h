// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>
#include <optional>

/// An appcast: an RSS feed in which each item is a release of the program.
namespace platform::desktop {

/// A release as its feed describes it, in plain text, cut to the length that is shown.
struct Release {
  QString version;  ///< the item's element of that name, in any namespace
  QString title;
  QString notes;  ///< the item's description, which may be HTML; any number of lines
  QUrl page;      ///< http or https; empty if there is none
};

/// The newest release; one without a version if the feed has no items. Nothing if `xml` is no appcast: not well-formed,
/// no RSS, or without a version in all of its items.
std::optional<Release> newestRelease(const QByteArray& xml);

/// Numbers, which fit an int, are compared as such, and missing ones are 0; a version with a suffix is older than the
/// one without. Suffixes are compared as text.
bool isNewer(const QString& version, const QString& other);

}  // namespace platform::desktop
