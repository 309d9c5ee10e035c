// SPDX-License-Identifier: MIT
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "platform/application_metadata.h"
#include "platform/desktop/base/strings.h"
#include "platform/desktop/updates/feed_request.h"

namespace platform::desktop {
namespace {

constexpr qint64 largestAnswer = 1 << 20;  // bytes
constexpr int mostRedirects = 5;
constexpr int lowestErrorStatus = 400;

bool isHttps(const QUrl& url) { return url.scheme() == QLatin1String("https") && !url.host().isEmpty(); }

bool isHttpOnThisComputer(const QUrl& url) {
  const bool isHere = url.host() == QLatin1String("localhost") || QHostAddress(url.host()).isLoopback();
  return url.scheme() == QLatin1String("http") && isHere;
}

QNetworkRequest requestFor(const QUrl& url) {
  QNetworkRequest request(url);
  request.setHeader(QNetworkRequest::UserAgentHeader,
                    toQString(metadata::name) + QLatin1Char('/') + toQString(metadata::version));
  // No compression: a small answer could decompress into a huge one.
  request.setRawHeader("Accept-Encoding", "identity");
  // Keeps HTTP on this computer. A check in `redirected` would come too late: Qt follows even when aborted there.
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, isHttps(url)
                                                                     ? QNetworkRequest::NoLessSafeRedirectPolicy
                                                                     : QNetworkRequest::SameOriginRedirectPolicy);
  request.setMaximumRedirectsAllowed(mostRedirects);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  return request;
}

/// Fetches a feed over HTTPS, or over HTTP from this computer. Stores no cookies and no cache, and sends nothing but
/// the program's name and version.
class FeedFetcher : public QObject {
 public:
  FeedFetcher(const QUrl& url, std::chrono::milliseconds timeout, FeedCallback callback)
      : callback_(std::move(callback)) {
    if (!isHttps(url) && !isHttpOnThisComputer(url)) {
      failure_ = qtTrId("The address of the feed is neither an HTTPS address nor one on this computer.");
      QTimer::singleShot(0, this, &FeedFetcher::answer);
      return;
    }
    reply_ = network_.get(requestFor(url));
    connect(reply_, &QNetworkReply::metaDataChanged, this, &FeedFetcher::checkSize);
    connect(reply_, &QNetworkReply::readyRead, this, &FeedFetcher::checkSize);
    // From the event loop: the callback may destroy the reply, which must not be on the stack then.
    connect(reply_, &QNetworkReply::finished, this, &FeedFetcher::answer, Qt::QueuedConnection);
    QTimer::singleShot(timeout, this, [this, timeout] {
      const double seconds = std::chrono::duration<double>(timeout).count();
      abort(qtTrId("The server did not answer within %1 s.").arg(seconds));
    });
  }

 private:
  void checkSize() {
    const qint64 announced = reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    if (std::max(announced, reply_->bytesAvailable()) > largestAnswer) abort(qtTrId("The answer is larger than 1 MB."));
  }

  void abort(const QString& reason) {
    failure_ = reason;
    reply_->abort();
  }

  void answer() {
    if (failure_.isEmpty() && reply_->error() != QNetworkReply::NoError) {
      const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
      failure_ = status >= lowestErrorStatus ? qtTrId("The server answered with status %1.").arg(status)
                                             : qtTrId("The connection failed: %1").arg(reply_->errorString());
    }
    const QByteArray feed = failure_.isEmpty() ? reply_->readAll() : QByteArray();
    std::exchange(callback_, {})(feed, QString(failure_));  // which may destroy this object
  }

  FeedCallback callback_;
  QString failure_;
  QNetworkAccessManager network_;
  QNetworkReply* reply_ = nullptr;  ///< the manager's; null if nobody is asked
};

}  // namespace
}  // namespace platform::desktop

extern "C" Q_DECL_EXPORT void quillberryMakeFeedRequest(std::unique_ptr<QObject>& request, const QUrl& url,
                                                        std::chrono::milliseconds timeout,
                                                        platform::desktop::FeedCallback callback) {
  request = std::make_unique<platform::desktop::FeedFetcher>(url, timeout, std::move(callback));
}
