// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <chrono>
#include <functional>
#include <memory>

/// What the module that fetches the release feed, over the network, shares with the program.
namespace platform::desktop {

struct FeedAnswer {
  QByteArray bytes;
  QString failure;  ///< a sentence for people; empty: there is none
};
using FeedCallback = std::function<void(const FeedAnswer&)>;

/// A request under way. Destroying it ends it.
class FeedRequest {
 public:
  FeedRequest() = default;
  FeedRequest(const FeedRequest&) = delete;
  FeedRequest& operator=(const FeedRequest&) = delete;
  virtual ~FeedRequest() = default;
};

/// What the module offers: puts a new request for `url` into `request`. The callback is called once, on a later turn
/// of the event loop and within `patience`, and may destroy the request.
extern "C" using MakeFeedRequest = void(*)(std::unique_ptr<FeedRequest> & request, const QUrl& url,
                                           std::chrono::milliseconds patience, FeedCallback callback);
constexpr auto feedModule = "quillberry-feed";
constexpr auto makeFeedRequestName = "quillberryMakeFeedRequest";

}  // namespace platform::desktop
