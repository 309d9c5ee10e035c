// SPDX-License-Identifier: MIT
#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

#include "platform/desktop/updates/feed_request.h"

namespace platform::desktop {

/// Fetches a feed over HTTPS, or over HTTP from this computer. Keeps nothing of it, and tells nothing but the name and
/// the version of the program.
class FeedFetcher : public FeedRequest {
 public:
  FeedFetcher(const QUrl& url, std::chrono::milliseconds patience, FeedCallback callback);

 private:
  void ask(const QUrl& url);
  void judgeHeader();
  void follow(const QUrl& target);
  void takeBytes();
  void replyFinished();
  void fail(const QString& reason);
  void leaveReply();
  void answer(FeedAnswer answer);

  FeedCallback callback_;
  QTimer deadline_;
  QNetworkAccessManager network_;
  QNetworkReply* reply_ = nullptr;  ///< the manager's; none before and after the request
  int redirects_ = 0;
  QByteArray bytes_;
};

}  // namespace platform::desktop
