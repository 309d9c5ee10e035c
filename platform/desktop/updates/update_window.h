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

/// The window that tells whether there is a newer version. Hiding it ends a request that is under way.
class UpdateWindow : public QDialog {
 public:
  /// `feed` is the address of an appcast; empty: the system's packages bring the updates.
  /// `windows` outlives this.
  UpdateWindow(ProgramWindows& windows, QString feed, QStringList moduleFolders);

  /// Shows the window in front and asks, if that is not under way.
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
  /// Replaces all that the window says. `page` may be empty, and so may the texts but the first.
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
  std::unique_ptr<QObject> request_;  ///< while it is under way
  bool interrupted_ = false;          ///< it was under way when the window was hidden
};

}  // namespace platform::desktop
