// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>
#include <memory>

namespace platform::desktop {

class ProgramWindows;

/// The window that says whether there is a newer version. Hiding it cancels a running request.
class UpdateWindow : public QDialog {
 public:
  /// `feed` is the URL of an appcast, or empty if updates come as packages of the system. `windows` outlives this.
  UpdateWindow(ProgramWindows& windows, QString feed, QStringList moduleFolders);

  /// Shows and activates the window, and starts a request unless one is running.
  void check();
  void done(int result) override;

 protected:
  void hideEvent(QHideEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void moveToMiddle();
  void ask();
  void tellAnswer(const QByteArray& feed, const QString& failure);
  void tellFailure(const QString& reason);
  /// Replaces the window's texts. Empty ones, and the button for an empty `page`, are hidden.
  void tell(const QString& message, const QString& details = {}, const QString& notes = {}, const QUrl& page = {});

  ProgramWindows& windows_;
  const QString feed_;
  const QStringList moduleFolders_;
  QUrl page_;
  QVBoxLayout column_;
  QLabel message_;
  QLabel details_;
  QPlainTextEdit notes_;
  QHBoxLayout buttons_;
  QPushButton openPage_;
  QPushButton close_;
  std::unique_ptr<QObject> request_;  ///< null unless one is running
  bool interrupted_ = false;          ///< a request was running when the window was hidden
};

}  // namespace platform::desktop
