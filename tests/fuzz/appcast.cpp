// SPDX-License-Identifier: MIT
#include "platform/desktop/updates/appcast.h"

#include "tests/fuzz/fuzz.h"

namespace {

using fuzz::require;
using namespace platform::desktop;

void checkOrder(const QString& one, const QString& two, const QString& three) {
  require(!isNewer(one, one), "a version is as new as itself");
  require(!isNewer(one, two) || !isNewer(two, one), "of two versions one is newer at most");
  const bool ordered = isNewer(one, two) && isNewer(two, three);
  require(!ordered || isNewer(one, three), "what is newer than a newer one is newer");
}

void checkRelease(const Release& release) {
  const QString scheme = release.page.scheme();
  require(release.page.isEmpty() || ((scheme == u"https" || scheme == u"http") && !release.page.host().isEmpty()),
          "a release's page is one on the web");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes = fuzz::bytesOf(data, size);
  if (const auto newest = newestRelease(QByteArray::fromStdString(bytes))) checkRelease(*newest);
  std::string_view rest = bytes;
  const auto version = [&rest] {
    const std::string_view line = fuzz::cut(rest, '\n');
    return QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
  };
  const QString one = version();
  const QString two = version();
  checkOrder(one, two, version());
  return 0;
}
