// SPDX-License-Identifier: MIT
#include "platform/desktop/updates/appcast.h"

#include "tests/fuzz/fuzz.h"

void fuzz::appcast(const std::string& bytes) {
  using namespace platform::desktop;
  if (const auto newest = newestRelease(QByteArray::fromStdString(bytes))) {
    const QString scheme = newest->page.scheme();
    require(newest->page.isEmpty() || ((scheme == u"https" || scheme == u"http") && !newest->page.host().isEmpty()),
            "a release's page is one on the web");
  }
}
