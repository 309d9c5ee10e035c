// SPDX-License-Identifier: MIT
#include "platform/desktop/updates/appcast.h"

#include <QHash>
#include <QTextDocumentFragment>
#include <QVersionNumber>
#include <QXmlStreamReader>
#include <tuple>

namespace platform::desktop {
namespace {

constexpr int longestLine = 200;  // characters
constexpr int longestNotes = 32'000;

QString line(const QString& text) { return text.left(longestLine).simplified(); }

/// The text of HTML, without images.
QString plainText(const QString& notes) {
  const QString text = notes.left(longestNotes);
  QString plain = Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
  return plain.remove(QChar::ObjectReplacementCharacter).trimmed();
}

QUrl webPage(const QString& address) {
  const QUrl url(address, QUrl::StrictMode);
  const bool isOnWeb = url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
  return isOnWeb && !url.host().isEmpty() ? url : QUrl();
}

Release readItem(QXmlStreamReader& xml) {
  QHash<QString, QString> texts;
  while (xml.readNextStartElement()) {
    QString& text = texts[xml.name().toString()];
    // Child elements are skipped: Qt reads them by recursion, and a feed may be nested to any depth.
    const QString read = xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
    if (text.isEmpty()) text = read;
  }
  return {line(texts[QStringLiteral("version")]), line(texts[QStringLiteral("title")]),
          plainText(texts[QStringLiteral("description")]), webPage(texts[QStringLiteral("link")])};
}

}  // namespace

bool isNewer(const QString& version, const QString& other) {
  const auto order = [](const QString& text) {
    qsizetype suffixIndex = 0;
    const QVersionNumber numbers = QVersionNumber::fromString(text, &suffixIndex).normalized();
    const QString suffix = text.sliced(suffixIndex).toLower();
    return std::tuple(numbers, suffix.isEmpty(), suffix);
  };
  return order(version) > order(other);
}

std::optional<Release> newestRelease(const QByteArray& bytes) {
  QXmlStreamReader xml(bytes);
  if (!xml.readNextStartElement() || xml.name() != u"rss") return std::nullopt;
  if (!xml.readNextStartElement() || xml.name() != u"channel") return std::nullopt;
  Release newest;
  bool hasItems = false;
  while (xml.readNextStartElement()) {
    if (xml.name() == u"item") {
      hasItems = true;
      const Release release = readItem(xml);
      if (newest.version.isEmpty() || isNewer(release.version, newest.version)) newest = release;
    } else {
      xml.skipCurrentElement();
    }
  }
  while (!xml.atEnd()) xml.readNext();
  if (xml.hasError() || (hasItems && newest.version.isEmpty())) return std::nullopt;
  return newest;
}

}  // namespace platform::desktop
