// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

#include "platform/desktop/shortcuts/portal_session.h"
#include "tests/fuzz/fuzz.h"

namespace {

using fuzz::require;
using namespace platform::desktop;

QString toText(std::string_view bytes) { return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())); }

QVariantMap toMap(std::string_view json) {
  return QJsonDocument::fromJson(QByteArray(json.data(), static_cast<qsizetype>(json.size()))).object().toVariantMap();
}

/// A portal that nobody is behind: what it says comes from the fuzzer.
Portal silentPortal() { return {QDBusConnection(QStringLiteral("none")), QStringLiteral(":1.1")}; }

/// A session of shortcuts, and beside it what should come of each thing that the portal says.
class Session {
 public:
  void hear(std::string_view line) {
    const std::string_view word = fuzz::cut(line, ' ');
    if (word == "created") {
      const QVariantMap results = toMap(line);
      QMetaObject::invokeMethod(&shortcuts_, "onCreated", Q_ARG(QVariantMap, results));
      session_ = QDBusObjectPath(results.value(QStringLiteral("session_handle")).toString()).path();
    } else if (word == "closed") {
      const auto closed = QDBusMessage::createSignal(session_, QStringLiteral("a.b"), QStringLiteral("Closed"));
      QMetaObject::invokeMethod(&shortcuts_, "onClosed", Q_ARG(QDBusMessage, closed));
      session_.clear();
    } else if (word == "activated") {
      const QDBusObjectPath path(toText(fuzz::cut(line, ' ')));
      const QString id = toText(fuzz::cut(line, ' '));
      activate(path, id, toMap(line));
    }
  }

 private:
  /// The bus lets no empty path through.
  void activate(const QDBusObjectPath& path, const QString& id, const QVariantMap& options) {
    if (path.path().isEmpty()) return;
    const int before = heard_;
    QMetaObject::invokeMethod(&shortcuts_, "onActivated", Q_ARG(QDBusObjectPath, path), Q_ARG(QString, id),
                              Q_ARG(qulonglong, 0), Q_ARG(QVariantMap, options));
    const bool open = path.path() == session_;
    require(heard_ - before == int(open), "a shortcut is heard once in its own open session, and else never");
    if (open) require(lastId_ == id, "the shortcut is the one that was pressed");
  }

  QString session_;
  int heard_ = 0;
  QString lastId_;
  PortalSession shortcuts_{silentPortal(),
                           {},
                           [this](const QString& id, const QString& /*token*/) {
                             ++heard_;
                             lastId_ = id;
                           },
                           [](const QString& /*id*/, const QString& /*keys*/) {},
                           [](bool /*asks*/) {}};
};

void checkRequest(uint code, const QVariantMap& results) {
  int answers = 0;
  PortalRequest request(silentPortal(), silentPortal().call(QStringLiteral("a.b"), QStringLiteral("C")), {},
                        [&](const QVariantMap& got) {
                          ++answers;
                          require(got == results, "the answer arrives as it was given");
                        });
  for (int times = 0; times < 2; ++times) {
    QMetaObject::invokeMethod(&request, "onResponse", Q_ARG(uint, code), Q_ARG(QVariantMap, results));
  }
  require(answers == (code == 0 ? 1 : 0), "a request is granted at most once, and by success alone");
}

}  // namespace

/// Each line is something that the portal says.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static int argc = 1;
  static char name[] = "fuzz";
  static char* argv[] = {name, nullptr};
  static const QCoreApplication app(argc, argv);

  const std::string bytes = fuzz::bytesOf(data, size);
  checkRequest(size == 0 ? 0 : data[0] % 4, toMap(bytes));
  Session session;
  for (std::string_view rest = bytes; !rest.empty();) session.hear(fuzz::cut(rest, '\n'));
  QCoreApplication::processEvents();
  return 0;
}
