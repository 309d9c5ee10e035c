// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <chrono>
#include <functional>
#include <memory>

/// What fetches the release feed is a module of its own, so that the network library is loaded when it is first needed.
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
constexpr const char* makeFeedRequestName = "quillberryMakeFeedRequest";

struct FeedModule {
  MakeFeedRequest makeRequest = nullptr;
  QString failure;  ///< why there is no function
};

/// Where the module is: beside the program, as it is built, and where it is installed.
QStringList feedModuleFolders();

/// Loads the module from the first of the folders that has it. It stays loaded.
FeedModule loadFeedModule(const QStringList& folders);

}  // namespace platform::desktop
