// SPDX-License-Identifier: MIT
#include <QJsonDocument>
#include <QJsonObject>
#include <vector>

#include "platform/desktop/shortcuts/portal_session.h"
#include "tests/fuzz/fuzz.h"

namespace {

using fuzz::require;
using namespace platform::desktop;

/// A portal that nobody is behind: what it says comes from the fuzzer.
const Portal silent{QDBusConnection(QStringLiteral("none")), QStringLiteral(":1.1")};

QVariantMap toMap(std::string_view json) {
  return QJsonDocument::fromJson(QByteArray(json.data(), qsizetype(json.size()))).object().toVariantMap();
}

void checkRequest(uint code, const QVariantMap& results) {
  std::vector<QVariantMap> granted;
  int refused = 0;
  PortalRequest request(
      silent, silent.call(QStringLiteral("a.b"), QStringLiteral("C")), {},
      [&](const QVariantMap& got) { granted.push_back(got); }, [&] { ++refused; });
  for (int times = 0; times < 2; ++times) {
    QMetaObject::invokeMethod(&request, "onResponse", Q_ARG(uint, code), Q_ARG(QVariantMap, results));
  }
  require(granted == std::vector<QVariantMap>(code == 0 ? 1 : 0, results), "success gives its results, once");
  require(refused == (code == 0 ? 0 : 1), "all else is refused, once");
}

}  // namespace

/// Each line is something that the portal says.
void fuzz::portal(const std::string& bytes) {
  checkRequest(bytes.empty() ? 0 : static_cast<unsigned char>(bytes.front()) % 4, toMap(bytes));
  QString open;
  QStringList heard;
  PortalSession session(
      silent, {},
      [&](const QString& id, const QString& token) {
        heard = {id, token};
      },
      [](const QString& /*id*/, const QString& /*keys*/) {}, [](bool /*asks*/) {});
  for (std::string_view rest = bytes; !rest.empty();) {
    std::string_view line = cut(rest, '\n');
    const std::string_view word = cut(line, ' ');
    if (word == "created") {
      QMetaObject::invokeMethod(&session, "onCreated", Q_ARG(QVariantMap, toMap(line)));
      open = QDBusObjectPath(toMap(line).value(QStringLiteral("session_handle")).toString()).path();
    } else if (word == "closed") {
      const auto closed = QDBusMessage::createSignal(open, QStringLiteral("a.b"), QStringLiteral("Closed"));
      QMetaObject::invokeMethod(&session, "onClosed", Q_ARG(QDBusMessage, closed));
      open.clear();
    } else if (word == "activated") {
      const QDBusObjectPath path(QString::fromStdString(std::string(cut(line, ' '))));
      const QString id = QString::fromStdString(std::string(cut(line, ' ')));
      if (path.path().isEmpty()) continue;  // the bus lets none through
      heard.clear();
      QMetaObject::invokeMethod(&session, "onActivated", Q_ARG(QDBusObjectPath, path), Q_ARG(QString, id),
                                Q_ARG(qulonglong, 0), Q_ARG(QVariantMap, toMap(line)));
      const QStringList said{id, toMap(line).value(QStringLiteral("activation_token")).toString()};
      require(heard == (path.path() == open ? said : QStringList()),
              "an open session's shortcuts are heard, no others");
    }
  }
}
