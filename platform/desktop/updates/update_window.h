// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <chrono>

#include "platform/desktop/updates/appcast.h"
#include "platform/desktop/updates/feed_request.h"

namespace platform::desktop {

struct UpdateSource {
  QString feed;     ///< address of an appcast; empty: the system's packages bring the updates
  QString version;  ///< of this program
  QStringList moduleFolders;
  std::chrono::milliseconds patience{15'000};  ///< for the whole of a request
};

/// The window that tells whether there is a newer version. Hiding it ends a request that is under way.
class UpdateWindow : public QDialog {
 public:
  explicit UpdateWindow(UpdateSource source);

  /// Shows the window in front and asks, if that is not under way.
  void check();
  void done(int result) override;

 protected:
  void hideEvent(QHideEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void moveToMiddle();
  void ask();
  void understand(const FeedAnswer& answer);
  void tellChecking();
  void tellNewest(const Appcast& appcast);
  void tellNewer(const Release& release);
  void tellFailure(const QString& reason);
  /// Replaces all that the window says. `page` may be empty, and so may the texts but the first.
  void tell(const QString& message, const QString& details = {}, const QString& notes = {}, const QUrl& page = {});
  void openPage();

  UpdateSource source_;
  QUrl page_;
  QVBoxLayout column_;
  QLabel message_;
  QLabel details_;
  QPlainTextEdit notes_;
  QHBoxLayout buttons_;
  QPushButton openPage_;
  QPushButton close_;
  std::unique_ptr<FeedRequest> request_;  ///< while it is under way
  bool interrupted_ = false;              ///< it was under way when the window was hidden
};

}  // namespace platform::desktop
