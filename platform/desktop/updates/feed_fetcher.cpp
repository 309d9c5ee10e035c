// SPDX-License-Identifier: MIT
#include "platform/desktop/updates/feed_fetcher.h"

#include <QHostAddress>
#include <utility>

#include "platform/application_metadata.h"
#include "platform/desktop/language/strings.h"

namespace platform::desktop {
namespace {

constexpr qint64 largestAnswer = 1 << 20;  // bytes
constexpr int mostRedirects = 5;
constexpr int statusOk = 200;

bool isOnThisComputer(const QString& host) {
  return host == QLatin1String("localhost") || QHostAddress(host).isLoopback();
}

bool mayBeAsked(const QUrl& url) {
  if (url.host().isEmpty()) return false;
  if (url.scheme() == QLatin1String("https")) return true;
  return url.scheme() == QLatin1String("http") && isOnThisComputer(url.host());
}

QNetworkRequest requestFor(const QUrl& url) {
  QNetworkRequest request(url);
  request.setHeader(QNetworkRequest::UserAgentHeader,
                    toQString(metadata::name) + QLatin1Char('/') + toQString(metadata::version));
  // As it is: a small answer that unfolds into a large one is none that we want.
  request.setRawHeader("Accept-Encoding", "identity");
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  return request;
}

}  // namespace

FeedFetcher::FeedFetcher(const QUrl& url, std::chrono::milliseconds patience, FeedCallback callback)
    : callback_(std::move(callback)) {
  network_.setAutoDeleteReplies(true);
  deadline_.setSingleShot(true);
  QObject::connect(&deadline_, &QTimer::timeout, &network_, [this] {
    const double seconds = std::chrono::duration<double>(deadline_.intervalAsDuration()).count();
    fail(qtTrId("The server did not answer within %1 s.").arg(seconds));
  });
  deadline_.start(patience);
  if (mayBeAsked(url)) {
    ask(url);
  } else {
    fail(qtTrId("The address of the feed is neither an HTTPS address nor one on this computer."));
  }
}

void FeedFetcher::ask(const QUrl& url) {
  reply_ = network_.get(requestFor(url));
  QObject::connect(reply_, &QNetworkReply::metaDataChanged, &network_, [this] { judgeHeader(); });
  QObject::connect(reply_, &QNetworkReply::readyRead, &network_, [this] { takeBytes(); });
  QObject::connect(reply_, &QNetworkReply::finished, &network_, [this] { replyFinished(); });
}

void FeedFetcher::judgeHeader() {
  const QUrl target = reply_->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
  const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  if (!target.isEmpty()) {
    follow(reply_->url().resolved(target));
  } else if (status != statusOk) {
    fail(qtTrId("The server answered with status %1.").arg(status));
  } else if (reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong() > largestAnswer) {
    fail(qtTrId("The answer is larger than 1 MB."));
  }
}

void FeedFetcher::follow(const QUrl& target) {
  if (target.scheme() != reply_->url().scheme() || !mayBeAsked(target)) {
    return fail(qtTrId("The server redirects to an address that is not allowed: %1").arg(target.toString()));
  }
  if (++redirects_ > mostRedirects) return fail(qtTrId("The server redirects too many times."));
  leaveReply();
  ask(target);
}

void FeedFetcher::takeBytes() {
  bytes_ += reply_->readAll();
  if (bytes_.size() > largestAnswer) fail(qtTrId("The answer is larger than 1 MB."));
}

void FeedFetcher::replyFinished() {
  if (reply_->error() != QNetworkReply::NoError) {
    return fail(qtTrId("The connection failed: %1").arg(reply_->errorString()));
  }
  leaveReply();
  answer({bytes_, {}});
}

void FeedFetcher::fail(const QString& reason) {
  leaveReply();
  answer({{}, reason});
}

void FeedFetcher::leaveReply() {
  QNetworkReply* const left = std::exchange(reply_, nullptr);
  if (left == nullptr) return;
  QObject::disconnect(left, nullptr, &network_, nullptr);
  left->abort();
}

/// Later, when nothing of the network library is on the stack: the callback may destroy all of it.
void FeedFetcher::answer(FeedAnswer answer) {
  deadline_.stop();
  QMetaObject::invokeMethod(
      &deadline_, [callback = std::exchange(callback_, {}), answer = std::move(answer)] { callback(answer); },
      Qt::QueuedConnection);
}

}  // namespace platform::desktop

extern "C" Q_DECL_EXPORT void quillberryMakeFeedRequest(std::unique_ptr<platform::desktop::FeedRequest>& request,
                                                        const QUrl& url, std::chrono::milliseconds patience,
                                                        platform::desktop::FeedCallback callback) {
  request = std::make_unique<platform::desktop::FeedFetcher>(url, patience, std::move(callback));
}
