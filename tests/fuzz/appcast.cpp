// SPDX-License-Identifier: MIT
#include "platform/desktop/updates/appcast.h"

#include "tests/fuzz/fuzz.h"

namespace {

using fuzz::require;
using namespace platform::desktop;

int sign(int number) { return (number > 0) - (number < 0); }

void checkOrder(const QString& one, const QString& two, const QString& three) {
  require(compareVersions(one, one) == 0, "a version is as new as itself");
  const int order = sign(compareVersions(one, two));
  require(order == -sign(compareVersions(two, one)), "one is newer than the other exactly if the other is older");
  if (order == sign(compareVersions(two, three))) {
    require(order == sign(compareVersions(one, three)), "what is newer than a newer one is newer");
  }
}

void checkRelease(const Release& release) {
  require(!release.version.isEmpty() && !release.shownVersion.isEmpty(), "a release has a version, and shows one");
  const QString scheme = release.page.scheme();
  require(release.page.isEmpty() || ((scheme == u"https" || scheme == u"http") && !release.page.host().isEmpty()),
          "a release's page is one on the web");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes = fuzz::bytesOf(data, size);
  if (const auto appcast = readAppcast(QByteArray::fromStdString(bytes)); appcast && appcast->newest) {
    checkRelease(*appcast->newest);
  }
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
