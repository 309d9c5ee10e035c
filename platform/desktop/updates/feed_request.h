// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QUrl>
#include <chrono>
#include <functional>
#include <memory>

/// The interface between the program and the module that fetches the release feed over the network.
namespace platform::desktop {

/// Called with the feed and an empty `failure`, or with an empty feed and the reason as a sentence for the user.
using FeedCallback = std::function<void(const QByteArray& feed, const QString& failure)>;

/// The module's one function: starts a request for `url` and stores it in `request`; destroying that cancels it.
/// `callback` is called once, from the event loop and within `timeout`; it may destroy the request.
extern "C" using MakeFeedRequest = void(*)(std::unique_ptr<QObject> & request, const QUrl& url,
                                           std::chrono::milliseconds timeout, FeedCallback callback);
constexpr auto feedModule = "quillberry-feed";
constexpr auto makeFeedRequestName = "quillberryMakeFeedRequest";

}  // namespace platform::desktop
