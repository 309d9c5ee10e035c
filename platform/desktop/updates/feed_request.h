// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QUrl>
#include <chrono>
#include <functional>
#include <memory>

/// What the module that fetches the release feed, over the network, shares with the program.
namespace platform::desktop {

/// Takes the feed or, if that is not to be had, the reason, a sentence for people; the reason is empty if it is.
using FeedCallback = std::function<void(const QByteArray& feed, const QString& failure)>;

/// What the module offers: puts a new request for `url` into `request`, which ends when that is destroyed. The callback
/// is called once, on a later turn of the event loop and within `timeout`, and may destroy the request.
extern "C" using MakeFeedRequest = void(*)(std::unique_ptr<QObject> & request, const QUrl& url,
                                           std::chrono::milliseconds timeout, FeedCallback callback);
constexpr auto feedModule = "quillberry-feed";
constexpr auto makeFeedRequestName = "quillberryMakeFeedRequest";

}  // namespace platform::desktop
