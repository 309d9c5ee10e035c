// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QNetworkProxy>

#include "platform/application.h"
#include "platform/desktop/application/module.h"
#include "platform/desktop/updates/appcast.h"
#include "platform/desktop/updates/update_window.h"
#include "tests/desktop/feed_server.h"
#include "tests/desktop/scratch.h"

namespace platform::desktop {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr qsizetype megabyte = 1 << 20;

/// Runs the event loop until then, or for as long as a test may hang.
template <typename Condition>
void until(Condition holds) {
  QElapsedTimer clock;
  for (clock.start(); !holds() && clock.elapsed() < 20'000;) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  ASSERT_TRUE(holds());
}

QByteArray feed(const QByteArray& content) {
  return "<?xml version='1.0'?><rss version='2.0' xmlns:u='urn:example'><channel>"
         "<title>Releases</title><link>https://e.org/</link>" +
         content + "</channel></rss>";
}

QByteArray item(const QByteArray& version, const QByteArray& more = {}) {
  return "<item><u:version>" + version + "</u:version>" + more + "</item>";
}

TEST(Versions, AreOrderedAsPeopleCount) {
  // Each older than the next.
  const QStringList versions =
      QString(" 0.9 1.0-alpha 1.0b2 1.0b10 1.0rc1 1.0 1.0.1 1.9 1.10 2 10.0 20261123095959").split(' ');
  for (qsizetype i = 0; i < versions.size(); ++i) {
    for (qsizetype k = 0; k < versions.size(); ++k) {
      const int order = compareVersions(versions[i], versions[k]);
      EXPECT_EQ((order > 0) - (order < 0), (i > k) - (i < k)) << qPrintable(versions[i] + " and " + versions[k]);
    }
  }
  EXPECT_EQ(compareVersions(u"1.0", u"1"), 0);
  EXPECT_EQ(compareVersions(u"01.0.0B2", u"1.0b2"), 0);
}

TEST(Appcast, GivesTheNewestReleaseThatRunsHere) {
  const QByteArray x = "x";
  const QByteArray growing = "<!DOCTYPE r [<!ENTITY a '" + x.repeated(1000) + "'><!ENTITY b '" +
                             QByteArray("&a;").repeated(1000) + "'><!ENTITY c '" + QByteArray("&b;").repeated(1000) +
                             "'>]><rss><channel><link>&c;</link></channel></rss>";
  const struct {
    const char* expected;
    QByteArray xml;
  } cases[] = {
      {"none", feed("")},
      {"1.10 1.10 https://e.org/2", feed(item("1.9") + item("1.10", "<link>https://e.org/2</link>") + item("1.2"))},
      {"7 1.2 https://e.org/", feed(item("7", "<u:shortVersionString> 1.2 </u:shortVersionString>"))},
      {"3 3.0 https://e.org/", feed("<item><enclosure u:os='Linux' u:version='3' shortVersionString='3.0'/></item>")},
      {"2 2 https://e.org/", feed(item("3", "<enclosure u:os='windows'/>") + item("2", "<enclosure url='x'/>"))},
      {"3 3 https://e.org/", feed(item("3", "<enclosure u:os='windows'/><enclosure u:os='linux'/>"))},
      {"none", feed(item("4", "<u:minimumSystemVersion>13.0.1</u:minimumSystemVersion>"))},
      {"3 3 https://e.org/", feed(item("3", "<u:minimumSystemVersion>13.0</u:minimumSystemVersion>"))},
      {"none", feed(item("4", "<u:channel>beta</u:channel>"))},
      {"1 1 https://e.org/", feed(item("1", "<u:deltas><enclosure u:version='9' u:os='x'/></u:deltas>"))},
      {"1 1 https://n/", feed(item("1", "<link>file:///x</link><u:releaseNotesLink>https://n/</u:releaseNotesLink>"))},
      {"1 1 ", "<rss><channel><item><link>javascript:x</link><version>1</version></item></channel></rss>"},
      {"not an appcast", feed("<item><title>1.0</title></item>")},
      {"not an appcast", "<html><body>Sign in</body></html>"},
      {"not an appcast", "<rss/>"},
      {"not an appcast", feed(item("1")).chopped(3)},
      {"not an appcast", feed(item("1")) + "<more/>"},
      {"not an appcast", feed("<item><description>" + QByteArray("<b>").repeated(300'000))},
      {"not an appcast", growing},
  };
  for (const auto& [expected, xml] : cases) {
    QString told = "not an appcast";
    if (const auto appcast = readAppcast(xml)) {
      const auto& newest = appcast->newest;
      told = newest ? newest->version + ' ' + newest->shownVersion + ' ' + newest->page.toString() : "none";
    }
    EXPECT_EQ(told.toStdString(), expected) << xml.left(400).toStdString();
  }
}

class Updates : public testing::Test {
 protected:
  scratch::Folder scratch;
  std::shared_ptr<NSApplication> app = NSApplication::sharedApplication();
  FeedServer server;
  const QStringList modules{"/nonexistent", FEED_MODULE_BUILT_IN};

  /// The failure, or "bytes" and how many came.
  std::string fetch(const QString& url, std::chrono::milliseconds patience = 15s) {
    std::unique_ptr<FeedRequest> request;
    std::string told;
    QString failure;
    const auto makeRequest = reinterpret_cast<MakeFeedRequest>(
        loadFromModule(modules, QLatin1String(feedModule), makeFeedRequestName, failure));
    makeRequest(request, QUrl(url), patience, [&](const FeedAnswer& answer) {
      request.reset();
      told = answer.failure.isEmpty() ? "bytes " + std::to_string(answer.bytes.size()) : answer.failure.toStdString();
    });
    EXPECT_EQ(told, "") << "an answer is for later";
    until([&] { return !told.empty(); });
    return told;
  }
};

TEST_F(Updates, FetchesOnlyWhatIsFitToBeRead) {
  const QByteArray fits(megabyte, 'x');
  const struct {
    const char* path;
    QByteArray answer;
    const char* expected;
  } cases[] = {
      {"/fits", FeedServer::page(fits), "bytes 1048576"},
      {"/untold", FeedServer::pageOfUntoldLength(fits), "bytes 1048576"},
      {"/large", "HTTP/1.1 200 OK\r\nContent-Length: 1048577\r\n\r\n", "The answer is larger than 1 MB."},
      {"/untold-large", FeedServer::pageOfUntoldLength(fits + 'x'), "The answer is larger than 1 MB."},
      {"/short", FeedServer::page(fits).chopped(1), "closed"},
      {"/missing", "HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\nnone", "status 404"},
      {"/nowhere", "HTTP/1.1 302 Found\r\nContent-Length: 0\r\n\r\n", "status 302"},
      {"/moved", FeedServer::redirect("/fits"), "bytes 1048576"},
      {"/loop", FeedServer::redirect("/loop"), "redirects too many times"},
      {"/to-https", FeedServer::redirect("https://127.0.0.1/"), "not allowed: https://127.0.0.1/"},
      {"/to-ftp", FeedServer::redirect("ftp://127.0.0.1/"), "not allowed: ftp://127.0.0.1/"},
      {"/to-file", FeedServer::redirect("file:///etc/passwd"), "not allowed: file:///etc/passwd"},
      {"/to-network", FeedServer::redirect("http://feed.invalid/"), "not allowed: http://feed.invalid/"},
  };
  for (const auto& [path, answer, expected] : cases) {
    server.answers[path] = answer;
    EXPECT_THAT(fetch(server.url(path)), HasSubstr(expected)) << path;
  }
  EXPECT_THAT(fetch(server.url("/silent"), 50ms), HasSubstr("did not answer within 0.05 s."));

  server.connections = 0;
  fetch(server.url("/loop"));
  EXPECT_LE(server.connections, 6);
}

TEST_F(Updates, TellsTheServerNothingButTheVersion) {
  server.answers = {{"/", "HTTP/1.1 302 Found\r\nSet-Cookie: a=b\r\nLocation: /then\r\nContent-Length: 0\r\n\r\n"},
                    {"/then", FeedServer::page("x")}};
  EXPECT_EQ(fetch(server.url("/")), "bytes 1");
  const std::string request = server.lastRequest.toLower().toStdString();  // as the headers' names may be written
  EXPECT_THAT(request, AllOf(HasSubstr("get /then "), HasSubstr("user-agent: quillberry/"), Not(HasSubstr("cookie"))));
}

TEST_F(Updates, DoesNotTrustEveryCertificate) {
  FeedServer secure(true);
  secure.answers["/"] = FeedServer::page(feed(""));
  EXPECT_THAT(fetch(secure.url("/")), HasSubstr("certificate"));
  EXPECT_EQ(secure.lastRequest, "");
}

TEST_F(Updates, AsksNobodyOverAnInsecureNetwork) {
  QNetworkProxy::setApplicationProxy({QNetworkProxy::HttpProxy, "127.0.0.1", server.port()});
  for (const char* const url :
       {"http://feed.invalid/", "http://192.0.2.1/", "http://127.0.0.1.feed.invalid/", "http://localhost.feed.invalid/",
        "ftp://127.0.0.1/", "file:///etc/passwd", "feed", ""}) {
    EXPECT_THAT(fetch(url), HasSubstr("neither an HTTPS address")) << url;
  }
  EXPECT_EQ(server.connections, 0);
  fetch("https://feed.invalid/", 1s);
  EXPECT_GT(server.connections, 0) << "what goes out is seen here";
}

class UpdatesWindow : public Updates {
 protected:
  std::unique_ptr<UpdateWindow> window;

  void check(const QString& url) {
    window = std::make_unique<UpdateWindow>(UpdateSource{url, "0.1.0", modules});
    window->check();
    EXPECT_TRUE(window->isVisible());
  }
  std::string answer() {
    until([&] { return button("Close") != nullptr; });
    return texts();
  }
  std::string texts() const {
    QStringList all;
    for (const auto* const label : window->findChildren<QLabel*>()) {
      if (label->isVisible()) all += label->text();
    }
    const auto* const notes = window->findChild<QPlainTextEdit*>();
    if (notes->isVisible()) all += notes->toPlainText();
    return all.join('|').toStdString();
  }
  QPushButton* button(const char* text) const {
    for (auto* const found : window->findChildren<QPushButton*>()) {
      if (found->isVisible() && found->text() == QLatin1String(text)) return found;
    }
    return nullptr;
  }
};

TEST_F(UpdatesWindow, TellsEveryAnswer) {
  server.answers = {
      {"/same", FeedServer::page(feed(item("0.1.0") + item("0.0.9")))},
      {"/older", FeedServer::page(feed(item("0.1b3")))},
      {"/html", FeedServer::page("<p>Hello")},
      {"/no-page", FeedServer::page("<rss><channel><item><version>2</version></item></channel></rss>")},
  };
  const struct {
    QString url;
    const char* expected;
  } cases[] = {
      {server.url("/same"), "Quillberry 0.1.0 is up to date."},
      {server.url("/older"), "Quillberry 0.1.0 is up to date."},
      {server.url("/html"), "Could not check for updates.|What the server sent is not an appcast."},
      {server.url("/no-page"), "Quillberry 2 is available. You have 0.1.0."},
      {"http://127.0.0.1:1/", "Could not check for updates.|The connection failed: Connection refused"},
      {"", "Updates of Quillberry come with your system's packages."},
  };
  for (const auto& [url, expected] : cases) {
    check(url);
    EXPECT_EQ(answer(), expected);
    EXPECT_EQ(button("Open Page"), nullptr) << expected;
    EXPECT_TRUE(button("Close")->isDefault()) << expected;
  }
  window = std::make_unique<UpdateWindow>(UpdateSource{server.url("/same"), "0.1.0", {"/nonexistent"}});
  window->check();
  EXPECT_THAT(answer(), HasSubstr("Could not check for updates.|A part of the program"));
}

/// Stands for the user's web browser.
class Browser : public QObject {
  Q_OBJECT
 public:
  Browser() { QDesktopServices::setUrlHandler("https", this, "open"); }
  QUrl opened;
  Q_INVOKABLE void open(const QUrl& url) { opened = url; }
};

TEST_F(UpdatesWindow, ShowsWhatIsNewAsPlainTextAndOpensItsPage) {
  const QByteArray notes = "<![CDATA[<h1>New</h1><img src='http://x/y.png'><ul><li>Faster</ul>" +
                           QByteArray("<p>much").repeated(5000) + "]]>";
  server.answers["/"] = FeedServer::page(
      feed(item("2",
                "<u:shortVersionString>2.0 &lt;b&gt;</u:shortVersionString><title>Big &lt;i&gt;one</title>"
                "<link>https://e.org/2</link><description>" +
                    notes + "</description>")));
  check(server.url("/"));
  const std::string text = answer();
  EXPECT_THAT(text, HasSubstr("Quillberry 2.0 <b> is available. You have 0.1.0.|Big <i>one|New\nFaster"));
  EXPECT_LT(text.size(), 5000U);
  EXPECT_LT(window->height(), 500);
  for (const auto* const label : window->findChildren<QLabel*>()) EXPECT_EQ(label->textFormat(), Qt::PlainText);

  Browser browser;
  ASSERT_NE(button("Open Page"), nullptr);
  EXPECT_TRUE(button("Open Page")->isDefault());
  button("Open Page")->click();
  EXPECT_EQ(browser.opened, QUrl("https://e.org/2"));
}

TEST_F(UpdatesWindow, AsksAgainOnlyWhenAnAnswerStandsThere) {
  check(server.url("/"));
  EXPECT_EQ(texts(), "Checking for updates…");
  until([&] { return !server.lastRequest.isEmpty(); });
  window->check();
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QCoreApplication::sendEvent(button("Cancel"), &escape);
  EXPECT_FALSE(window->isVisible());

  server.answers["/"] = FeedServer::page(feed(""));
  window->check();
  EXPECT_EQ(answer(), "Quillberry 0.1.0 is up to date.");
  EXPECT_EQ(server.connections, 2) << "while it was asking, it did not ask again";
  window->check();
  EXPECT_EQ(texts(), "Checking for updates…");
  EXPECT_EQ(answer(), "Quillberry 0.1.0 is up to date.");
  window->check();
  window.reset();  // while it asks
  QCoreApplication::processEvents();
}

}  // namespace
}  // namespace platform::desktop

#include "updater_test.moc"
