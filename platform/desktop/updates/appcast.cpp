// SPDX-License-Identifier: MIT
#include "platform/desktop/updates/appcast.h"

#include <QVersionNumber>
#include <QXmlStreamReader>
#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "platform/process_info.h"

namespace platform::desktop {
namespace {

constexpr QStringView systemName = u"linux";

struct Enclosure {
  QString system;  ///< empty: any
  QString version;
  QString shownVersion;

  bool runsHere() const { return system.isEmpty() || system.compare(systemName, Qt::CaseInsensitive) == 0; }
};

struct Item {
  Release release;
  QString link;
  QString notesLink;
  QString minimumSystem;
  bool forSomeUsers = false;
  std::vector<Enclosure> enclosures;

  bool hasVersion() const {
    const auto named = [](const Enclosure& enclosure) { return !enclosure.version.isEmpty(); };
    return !release.version.isEmpty() || std::any_of(enclosures.begin(), enclosures.end(), named);
  }
};

/// The text up to the end of this element. Not by recursion: a feed may be nested to any depth.
QString textOf(QXmlStreamReader& xml) {
  QString text;
  for (int depth = 1; depth > 0 && !xml.atEnd();) {
    xml.readNext();
    if (xml.isStartElement()) ++depth;
    if (xml.isEndElement()) --depth;
    if (xml.isCharacters()) text += xml.text();
  }
  return text.trimmed();
}

/// The first one that says something counts.
void take(QString& field, QXmlStreamReader& xml) {
  const QString text = textOf(xml);
  if (field.isEmpty()) field = text;
}

Enclosure readEnclosure(QXmlStreamReader& xml) {
  Enclosure enclosure;
  for (const QXmlStreamAttribute& attribute : xml.attributes()) {
    const QString value = attribute.value().trimmed().toString();
    if (attribute.name() == u"os") enclosure.system = value;
    if (attribute.name() == u"version") enclosure.version = value;
    if (attribute.name() == u"shortVersionString") enclosure.shownVersion = value;
  }
  xml.skipCurrentElement();
  return enclosure;
}

Item readItem(QXmlStreamReader& xml) {
  Item item;
  const std::pair<QStringView, QString*> texts[] = {{u"title", &item.release.title},
                                                    {u"description", &item.release.notes},
                                                    {u"version", &item.release.version},
                                                    {u"shortVersionString", &item.release.shownVersion},
                                                    {u"link", &item.link},
                                                    {u"releaseNotesLink", &item.notesLink},
                                                    {u"minimumSystemVersion", &item.minimumSystem}};
  while (xml.readNextStartElement()) {
    const auto* const text =
        std::find_if(std::begin(texts), std::end(texts), [&](const auto& known) { return known.first == xml.name(); });
    if (text != std::end(texts)) {
      take(*text->second, xml);
    } else if (xml.name() == u"enclosure") {
      item.enclosures.push_back(readEnclosure(xml));
    } else {
      item.forSomeUsers |= xml.name() == u"channel";
      xml.skipCurrentElement();
    }
  }
  return item;
}

QUrl firstPage(std::initializer_list<QString> addresses) {
  for (const QString& address : addresses) {
    QUrl url(address, QUrl::StrictMode);
    const bool isPage = url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
    if (isPage && !url.host().isEmpty()) return url;
  }
  return {};
}

bool systemIsAtLeast(const QString& version) {
  const auto numbers = QVersionNumber::fromString(version);
  return NSProcessInfo::isOperatingSystemAtLeastVersion(
      {numbers.majorVersion(), numbers.minorVersion(), numbers.microVersion()});
}

/// The release that the item is here, if it is one.
std::optional<Release> releaseOf(const Item& item, const QString& channelLink) {
  const auto enclosure =
      std::find_if(item.enclosures.begin(), item.enclosures.end(), std::mem_fn(&Enclosure::runsHere));
  const bool runsHere = item.enclosures.empty() || enclosure != item.enclosures.end();
  if (!runsHere || item.forSomeUsers || !systemIsAtLeast(item.minimumSystem)) return std::nullopt;

  Release release = item.release;
  if (enclosure != item.enclosures.end()) {
    if (release.version.isEmpty()) release.version = enclosure->version;
    if (release.shownVersion.isEmpty()) release.shownVersion = enclosure->shownVersion;
  }
  if (release.version.isEmpty()) return std::nullopt;
  if (release.shownVersion.isEmpty()) release.shownVersion = release.version;
  release.page = firstPage({item.link, item.notesLink, channelLink});
  return release;
}

struct Channel {
  QString link;
  std::vector<Item> items;
};

Channel readChannel(QXmlStreamReader& xml) {
  Channel channel;
  while (xml.readNextStartElement()) {
    if (xml.name() == u"item") {
      channel.items.push_back(readItem(xml));
    } else if (xml.name() == u"link") {
      take(channel.link, xml);
    } else {
      xml.skipCurrentElement();
    }
  }
  return channel;
}

/// Up to the end of the document: what is not well-formed there makes the whole of it no feed.
std::optional<Channel> readFeed(QXmlStreamReader& xml) {
  std::optional<Channel> channel;
  if (!xml.readNextStartElement() || xml.name() != u"rss") return std::nullopt;
  while (xml.readNextStartElement()) {
    if (xml.name() == u"channel" && !channel) {
      channel = readChannel(xml);
    } else {
      xml.skipCurrentElement();
    }
  }
  while (!xml.atEnd()) xml.readNext();
  return xml.hasError() ? std::nullopt : channel;
}

/// Cuts what is of this kind off the front of the text.
template <typename Kind>
QStringView cut(QStringView& text, Kind isOfKind) {
  const auto* const end = std::find_if_not(text.begin(), text.end(), isOfKind);
  const QStringView front = text.first(end - text.begin());
  text = text.sliced(front.size());
  return front;
}

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }
bool isNoDigit(QChar c) { return !isDigit(c); }

bool startsWithNumber(QStringView text) {
  if (text.startsWith(u'.')) text = text.sliced(1);
  return !text.isEmpty() && isDigit(text.front());
}

/// The number, without leading zeros, that the text goes on with, and nothing if it goes on with a suffix.
QStringView cutNumber(QStringView& text) {
  if (!startsWithNumber(text)) return {};
  if (text.startsWith(u'.')) text = text.sliced(1);
  cut(text, [](QChar c) { return c == u'0'; });
  return cut(text, isDigit);
}

int compareNumbers(QStringView one, QStringView other) {
  if (one.size() != other.size()) return one.size() < other.size() ? -1 : 1;
  return one.compare(other);
}

}  // namespace

int compareVersions(QStringView one, QStringView other) {
  for (;;) {
    while (startsWithNumber(one) || startsWithNumber(other)) {
      const int numbers = compareNumbers(cutNumber(one), cutNumber(other));
      if (numbers != 0) return numbers;
    }
    if (one.isEmpty() || other.isEmpty()) return int(one.isEmpty()) - int(other.isEmpty());
    const int words = cut(one, isNoDigit).compare(cut(other, isNoDigit), Qt::CaseInsensitive);
    if (words != 0) return words;
  }
}

std::optional<Appcast> readAppcast(const QByteArray& bytes) {
  QXmlStreamReader xml(bytes);
  const std::optional<Channel> channel = readFeed(xml);
  if (!channel) return std::nullopt;
  const std::vector<Item>& items = channel->items;
  if (!items.empty() && std::none_of(items.begin(), items.end(), std::mem_fn(&Item::hasVersion))) return std::nullopt;

  Appcast appcast;
  for (const Item& item : items) {
    std::optional<Release> release = releaseOf(item, channel->link);
    if (!release) continue;
    if (!appcast.newest || compareVersions(release->version, appcast.newest->version) > 0) {
      appcast.newest = std::move(release);
    }
  }
  return appcast;
}

}  // namespace platform::desktop
