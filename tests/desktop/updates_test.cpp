// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QNetworkProxy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

#include "platform/application.h"
#include "platform/application_metadata.h"
#include "platform/desktop/files/module.h"
#include "platform/desktop/updates/appcast.h"
#include "platform/desktop/updates/feed_request.h"
#include "platform/desktop/updates/update_window.h"
#include "platform/desktop/windows/program_windows.h"
#include "tests/desktop/scratch.h"

namespace platform::desktop {
namespace {

using namespace std::chrono_literals;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr int longestWait = 20'000;  // ms
const QByteArray version(metadata::version.data(), metadata::version.size());

QByteArray feed(const QByteArray& items) { return "<rss xmlns:u='urn:x'><channel>" + items + "</channel></rss>"; }
QByteArray item(const QByteArray& itsVersion, const QByteArray& more = {}) {
  return "<item><u:version> " + itsVersion + "</u:version>" + more + "</item>";
}

QByteArray page(const QByteArray& body) {
  return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}
QByteArray redirect(const QString& target) {
  return "HTTP/1.1 302 Found\r\nSet-Cookie: a=b\r\nLocation: " + target.toUtf8() + "\r\nContent-Length: 0\r\n\r\n";
}

TEST(Appcast, OrdersVersionsAsPeopleCount) {
  const auto inOrder = QString(" 0.9 1.0-alpha 1.0b2 1.0rc1 1.0 1.0.1 1.9 1.10 2 10.0").split(' ');
  for (const QString& one : inOrder) {
    for (const QString& other : inOrder) {
      EXPECT_EQ(isNewer(one, other), inOrder.indexOf(one) > inOrder.indexOf(other)) << qPrintable(one + ' ' + other);
    }
  }
  EXPECT_FALSE(isNewer("1.0.0", "1") || isNewer("1", "1.0.0") || isNewer("1.0rc1", "1.0RC1"));
}

TEST(Appcast, GivesTheNewestRelease) {
  const QByteArray deep = QByteArray("<b>").repeated(300'000);
  const QByteArray large = "<!DOCTYPE r [<!ENTITY a '" + QByteArray(1000, 'x') + "'><!ENTITY b '" +
                           QByteArray("&a;").repeated(1000) + "'>]>";
  const std::pair<QByteArray, const char*> cases[] = {
      {feed(""), "|"},
      {feed(item("1.9") + item("1.10", "<link>https://e.org/</link><u:link/>") + item("1.2")), "1.10|https://e.org/"},
      {feed("<item/>" + item("1", "<link>file:///etc/passwd</link>")), "1|"},
      {feed(item("1")).chopped(3), "none"},
      {feed(item("1")) + "<more/>", "none"},
      {feed("<item><description>" + deep), "none"},
      {large + feed(item("1", "<title>" + QByteArray("&b;").repeated(1000) + "</title>")), "none"}};
  for (const auto& [xml, expected] : cases) {
    const auto newest = newestRelease(xml).value_or(Release{"none", {}, {}, {}});
    EXPECT_EQ((newest.version + (newest.version == "none" ? "" : "|") + newest.page.toString()).toStdString(),
              expected);
  }
}

/// With a web server of this process' own, on loopback. Paths that it has no answer for wait for ever.
class Updates : public testing::Test {
 protected:
  scratch::Folder scratch;
  std::shared_ptr<NSApplication> app = NSApplication::sharedApplication();
  QTcpServer server;
  std::map<QByteArray, QByteArray> answers;  // by path, header and all
  QByteArray lastRequest;
  int connections = 0;
  const QStringList modules{"/nonexistent", FEED_MODULE_BUILT_IN};
  std::unique_ptr<UpdateWindow> window;

  Updates() {
    server.listen(QHostAddress::LocalHost);
    QObject::connect(&server, &QTcpServer::newConnection, &server, [this] {
      ++connections;
      QTcpSocket* const client = server.nextPendingConnection();
      QObject::connect(client, &QTcpSocket::readyRead, client, [this, client] { serve(*client); });
    });
  }
  void serve(QTcpSocket& client) {
    if (!client.peek(1 << 16).contains("\r\n\r\n")) return;
    lastRequest = client.readAll().toLower();  // as the headers' names may be written
    const auto answer = answers.find(lastRequest.split(' ').value(1));
    if (answer == answers.end()) return;
    client.write(answer->second);
    client.disconnectFromHost();
  }
  QString url(const QString& path) const { return "http://127.0.0.1:" + QString::number(server.serverPort()) + path; }

  /// The failure, or how many bytes came.
  std::string fetch(const QString& url, std::chrono::milliseconds timeout = 15s) {
    std::unique_ptr<QObject> request;
    std::string told;
    QString missing;
    const auto makeRequest = reinterpret_cast<MakeFeedRequest>(
        loadFromModule(modules, QLatin1String(feedModule), makeFeedRequestName, missing));
    makeRequest(request, QUrl(url), timeout, [&](const QByteArray& bytes, const QString& failure) {
      request.reset();
      told += failure.isEmpty() ? std::to_string(bytes.size()) : failure.toStdString();
    });
    EXPECT_EQ(told, "") << "an answer is for later";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !told.empty(); }, longestWait));
    return told;
  }

  std::string answer() const {
    EXPECT_TRUE(QTest::qWaitFor([this] { return !said().contains("Cancel"); }, longestWait));
    return said().toStdString();
  }
  /// The window's texts, then its buttons, the one for the Enter key with a star.
  QString said() const {
    QStringList all;
    for (const auto* const label : window->findChildren<QLabel*>()) {
      EXPECT_EQ(label->textFormat(), Qt::PlainText);
      if (label->isVisible()) all += label->text();
    }
    if (const auto* notes = window->findChild<QPlainTextEdit*>(); notes->isVisible()) all += notes->toPlainText();
    for (const auto* const button : window->findChildren<QPushButton*>()) {
      if (button->isVisible()) all += button->text() + (button->isDefault() ? "*" : "");
    }
    return all.join('|').replace(version, "VERSION");
  }
};

TEST_F(Updates, FetchOnlyWhatIsFitToBeRead) {
  const QByteArray fits(1 << 20, 'x');
  const struct {
    const char* path;
    QByteArray answer;
    const char* expected;
    int asked = 1;  // how often
  } cases[] = {
      {"/fits", page(fits), "1048576"},
      {"/large", "HTTP/1.1 200 OK\r\nContent-Length: 1048577\r\n\r\n", "The answer is larger than 1 MB."},
      {"/untold-large", "HTTP/1.1 200 OK\r\n\r\n" + fits + 'x', "The answer is larger than 1 MB."},
      {"/short", page(fits).chopped(1), "The connection failed: Connection closed"},
      {"/missing", "HTTP/1.1 400 No\r\nContent-Length: 4\r\n\r\nnone", "The server answered with status 400."},
      {"/moved", redirect("/fits"), "1048576", 2},
      {"/loop", redirect("/loop"), "The connection failed: Too many redirects", 6},
      {"/away", redirect(url("/fits").replace("127.0.0.1", "0.0.0.0")), "The connection failed: Insecure redirect"},
      {"/to-file", redirect("file:///etc/passwd"), "The connection failed: Unknown protocol specified"}};
  for (const auto& [path, answer, expected, asked] : cases) {
    answers[path] = answer;
    connections = 0;
    EXPECT_EQ(fetch(url(path)), expected) << path;
    EXPECT_EQ(connections, asked) << path;
    EXPECT_TRUE(lastRequest.contains("user-agent: quillberry/") && !lastRequest.contains("cookie"));
  }
  EXPECT_EQ(fetch(url("/silent"), 50ms), "The server did not answer within 0.05 s.");
}

TEST_F(Updates, AskNobodyButByHttpsOrOnThisComputer) {
  QNetworkProxy::setApplicationProxy({QNetworkProxy::HttpProxy, "127.0.0.1", server.serverPort()});
  for (const char* const url : {"http://feed.invalid/", "http://192.0.2.1/", "http://127.0.0.1.feed.invalid/",
                                "ftp://127.0.0.1/", "file:///etc/passwd", ""}) {
    EXPECT_THAT(fetch(url), HasSubstr("neither an HTTPS address")) << url;
  }
  EXPECT_EQ(connections, 0);
  fetch("https://feed.invalid/", 1s);
  EXPECT_GT(connections, 0) << "what goes out is seen here";
}

TEST_F(Updates, TellEveryAnswer) {
  const QByteArray news =
      "<title>Big &lt;i&gt;\none</title><link>https://e.org/2</link><description><![CDATA[<h1>New</h1>"
      "<img src='http://x/y.png'><ul><li>Faster</ul>" +
      QByteArray("<p>much").repeated(50'000) + "]]></description>";
  answers = {{"/same", page(feed(item(version) + item("0.9")))},
             {"/html", page("<p>Hello")},
             {"/no-page", page(feed(item("99")))},
             {"/newer", page(feed(item("99 &lt;b&gt;", news)))}};
  const std::pair<QString, const char*> cases[] = {
      {url("/same"), "Quillberry VERSION is up to date.|Close*"},
      {url("/html"), "Could not check for updates.|What the server sent is not an appcast.|Close*"},
      {url("/no-page"), "Quillberry 99 is available. You have VERSION.|Close*"},
      {"http://127.0.0.1:1/", "Could not check for updates.|The connection failed: Connection refused|Close*"},
      {"", "Updates of Quillberry come with your system's packages.|Close*"},
      {url("/newer"), "Quillberry 99 <b> is available. You have VERSION.|Big <i> one|New\nFaster\nmuch\n"}};
  for (const auto& [url, expected] : cases) {
    window = std::make_unique<UpdateWindow>(ProgramWindows::instance(), url, modules);
    window->check();
    EXPECT_THAT(answer(), StartsWith(expected));
  }
  EXPECT_THAT(answer(), EndsWith("|Close|Open Page*"));
  EXPECT_LT(answer().size(), 33'000U);
  EXPECT_LT(window->height(), 500);
  QTest::keyClick(window.get(), Qt::Key_Return);
  EXPECT_THAT(answer(), HasSubstr("|There is no program that opens https://e.org/2|")) << "as there is none in a test";
}

TEST_F(Updates, AskAgainOnlyWhenAnAnswerStandsThere) {
  window = std::make_unique<UpdateWindow>(ProgramWindows::instance(), url("/"), modules);
  window->check();
  EXPECT_EQ(said(), "Checking for updates…|Cancel*");
  EXPECT_TRUE(QTest::qWaitFor([this] { return connections == 1; }, longestWait));
  window->check();
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
  window->check();
  window->hide();  // with the program
  answers["/"] = page(feed(""));
  for (int times = 0; times < 2; ++times) {
    window->show();
    EXPECT_EQ(answer(), "Quillberry VERSION is up to date.|Close*");
    window->hide();
  }
  EXPECT_LE(connections, 3) << "an answer stays";
  window->check();
  EXPECT_EQ(said(), "Checking for updates…|Cancel*");
  window.reset();  // while it asks
  QCoreApplication::processEvents();
}

}  // namespace
}  // namespace platform::desktop
