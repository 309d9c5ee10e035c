// SPDX-License-Identifier: MIT
#include "platform/desktop/updates/appcast.h"

#include "tests/fuzz/fuzz.h"

/// A feed, and three lines with versions.
void fuzz::appcast(const std::string& bytes) {
  using namespace platform::desktop;
  if (const auto newest = newestRelease(QByteArray::fromStdString(bytes))) {
    const QString scheme = newest->page.scheme();
    require(newest->page.isEmpty() || ((scheme == u"https" || scheme == u"http") && !newest->page.host().isEmpty()),
            "a release's page is one on the web");
  }
  const QStringList lines = QString::fromStdString(bytes).split(u'\n');
  const QString one = lines.value(0);
  const QString two = lines.value(1);
  const QString three = lines.value(2);
  require(!isNewer(one, one), "a version is as new as itself");
  require(!isNewer(one, two) || !isNewer(two, one), "of two versions one is newer at most");
  require(!isNewer(one, two) || !isNewer(two, three) || isNewer(one, three), "what is newer than a newer one is newer");
}
