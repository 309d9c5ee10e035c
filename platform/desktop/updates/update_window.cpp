// SPDX-License-Identifier: MIT
#include "platform/desktop/updates/update_window.h"

#include <QAccessible>
#include <QDesktopServices>
#include <QHideEvent>
#include <algorithm>
#include <utility>

#include "platform/application_metadata.h"
#include "platform/desktop/base/strings.h"
#include "platform/desktop/files/module.h"
#include "platform/desktop/updates/appcast.h"
#include "platform/desktop/updates/feed_request.h"
#include "platform/desktop/windows/main_window.h"
#include "platform/desktop/windows/program_windows.h"
#include "platform/desktop/windows/screens.h"

namespace platform::desktop {
namespace {

using namespace std::chrono_literals;

constexpr auto requestTimeout = 15s;
constexpr int textWidth = 60;        // average characters
constexpr int notesHeight = 10;      // lines
constexpr int longestAddress = 200;  // characters that are shown

const QString programName = toQString(metadata::name);
const QString programVersion = toQString(metadata::version);

}  // namespace

UpdateWindow::UpdateWindow(ProgramWindows& windows, QString feed, QStringList moduleFolders)
    : windows_(windows), feed_(std::move(feed)), moduleFolders_(std::move(moduleFolders)) {
  setWindowTitle(programName);
  const QFontMetrics metrics = message_.fontMetrics();
  for (QLabel* const label : {&message_, &details_}) {
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setWordWrap(true);
    // In a Chinese or Japanese font the average character is twice as wide as the Latin letters.
    label->setFixedWidth(std::min(metrics.averageCharWidth(), metrics.horizontalAdvance(u'x')) * textWidth);
    column_.addWidget(label);
  }
  QFont bold = message_.font();
  bold.setBold(true);
  message_.setFont(bold);
  notes_.setReadOnly(true);
  notes_.setTabChangesFocus(true);
  notes_.setAccessibleName(qtTrId("What is new"));
  notes_.setFixedHeight(notes_.fontMetrics().lineSpacing() * notesHeight);
  column_.addWidget(&notes_);

  openPage_.setText(qtTrId("Open Page"));
  QObject::connect(&openPage_, &QPushButton::clicked, this, [this] {
    if (QDesktopServices::openUrl(page_)) return;
    details_.setText(qtTrId("There is no program that opens %1").arg(page_.toString().left(longestAddress)));
    details_.show();
  });
  QObject::connect(&close_, &QPushButton::clicked, this, &QDialog::reject);

  buttons_.addStretch();
  buttons_.addWidget(&close_);
  buttons_.addWidget(&openPage_);
  column_.addLayout(&buttons_);
  column_.setSizeConstraint(QLayout::SetFixedSize);  // as large as what it says
  setLayout(&column_);
}

void UpdateWindow::check() {
  interrupted_ = false;
  if (!request_) ask();
  addActions(windows_.companionCommands());
  if (!testAttribute(Qt::WA_Moved)) moveToMiddle();
  if (!isVisible()) windows_.showCompanion(*this);
  windows_.activateCompanion(*this);
}

/// The middle of the note's screen: window managers would put the window into a corner.
void UpdateWindow::moveToMiddle() {
  const QWidget* const mainWindow = windows_.mainWindow();
  QRect place({}, sizeHint());
  place.moveCenter(roomOf(*(mainWindow != nullptr ? mainWindow : this)->screen()).center());
  move(place.topLeft());
}

void UpdateWindow::done(int /*result*/) { windows_.hideCompanion(*this); }

void UpdateWindow::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (event->spontaneous()) return;
  interrupted_ = request_ != nullptr;
  request_.reset();
}

void UpdateWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (std::exchange(interrupted_, false)) ask();  // the window was hidden with the program and is shown again
}

void UpdateWindow::ask() {
  if (feed_.isEmpty()) return tell(qtTrId("Updates of %1 come with your system's packages.").arg(programName));
  QString failure;
  const auto makeRequest = reinterpret_cast<MakeFeedRequest>(
      loadFromModule(moduleFolders_, QLatin1String(feedModule), makeFeedRequestName, failure));
  if (makeRequest == nullptr) return tellFailure(failure);
  makeRequest(request_, QUrl(feed_), requestTimeout, [this](const QByteArray& feed, const QString& reason) {
    request_.reset();
    tellAnswer(feed, reason);
  });
  tell(qtTrId("Checking for updates…"));
}

void UpdateWindow::tellAnswer(const QByteArray& feed, const QString& failure) {
  if (!failure.isEmpty()) return tellFailure(failure);
  const std::optional<Release> release = newestRelease(feed);
  if (!release) return tellFailure(qtTrId("What the server sent is not an appcast."));
  if (!isNewer(release->version, programVersion)) {
    return tell(qtTrId("%1 %2 is up to date.").arg(programName, programVersion));
  }
  tell(qtTrId("%1 %2 is available. You have %3.").arg(programName, release->version, programVersion), release->title,
       release->notes, release->page);
}

void UpdateWindow::tellFailure(const QString& reason) { tell(qtTrId("Could not check for updates."), reason); }

void UpdateWindow::tell(const QString& message, const QString& details, const QString& notes, const QUrl& page) {
  message_.setText(message);
  details_.setText(details);
  details_.setVisible(!details.isEmpty());
  notes_.setPlainText(notes);
  notes_.setVisible(!notes.isEmpty());
  page_ = page;
  openPage_.setVisible(!page.isEmpty());
  close_.setText(request_ != nullptr ? qtTrId("Cancel") : qtTrId("Close"));
  QPushButton& first = page.isEmpty() ? close_ : openPage_;
  first.setDefault(true);
  first.setFocus();
  QAccessibleEvent spoken(&message_, QAccessible::Alert);
  QAccessible::updateAccessibility(&spoken);
}

}  // namespace platform::desktop
