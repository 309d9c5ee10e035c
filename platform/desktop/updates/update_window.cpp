// SPDX-License-Identifier: MIT
#include "platform/desktop/updates/update_window.h"

#include <QAccessible>
#include <QDesktopServices>
#include <QHideEvent>
#include <QTextDocumentFragment>
#include <algorithm>
#include <utility>

#include "platform/application_metadata.h"
#include "platform/desktop/application/desktop.h"
#include "platform/desktop/application/module.h"
#include "platform/desktop/language/strings.h"
#include "platform/desktop/windows/decoration.h"

namespace platform::desktop {
namespace {

constexpr int textWidth = 60;     // average characters
constexpr int notesHeight = 10;   // lines
constexpr int longestName = 40;   // characters: a version
constexpr int longestLine = 200;  // a title, a reason
constexpr int longestNotes = 4000;
constexpr int longestRead = 32'000;  // of what is shortened further

QString cutTo(int length, const QString& text) {
  return text.size() <= length ? text : text.left(length - 1) + QChar(u'…');
}

QString line(int length, const QString& text) { return cutTo(length, text.left(longestRead).simplified()); }

/// What the feed says is new, without its markup and its pictures.
QString plainNotes(const QString& notes) {
  const QString text = notes.left(longestRead);
  QString plain = Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
  plain.remove(QChar::ObjectReplacementCharacter);
  return cutTo(longestNotes, plain.trimmed());
}

QString programName() { return toQString(metadata::name); }

void setUpLabel(QLabel& label) {
  label.setTextFormat(Qt::PlainText);
  label.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  label.setWordWrap(true);
  const QFontMetrics metrics = label.fontMetrics();
  // The average of a font for Chinese or Japanese is twice that of its own Latin letters.
  label.setFixedWidth(std::min(metrics.averageCharWidth(), metrics.horizontalAdvance(u'x')) * textWidth);
}

}  // namespace

UpdateWindow::UpdateWindow(UpdateSource source) : source_(std::move(source)) {
  setWindowTitle(programName());
  QFont bold = message_.font();
  bold.setBold(true);
  setUpLabel(message_);
  setUpLabel(details_);
  message_.setFont(bold);
  notes_.setReadOnly(true);
  notes_.setTabChangesFocus(true);
  notes_.setAccessibleName(qtTrId("What is new"));
  notes_.setFixedHeight(notes_.fontMetrics().lineSpacing() * notesHeight);
  openPage_.setText(qtTrId("Open Page"));
  QObject::connect(&openPage_, &QPushButton::clicked, this, [this] { openPage(); });
  QObject::connect(&close_, &QPushButton::clicked, this, &QDialog::reject);

  buttons_.addStretch();
  buttons_.addWidget(&close_);
  buttons_.addWidget(&openPage_);
  for (QWidget* const row : std::initializer_list<QWidget*>{&message_, &details_, &notes_}) column_.addWidget(row);
  column_.addLayout(&buttons_);
  column_.setSizeConstraint(QLayout::SetFixedSize);  // as large as what it says
  setLayout(&column_);
}

void UpdateWindow::check() {
  interrupted_ = false;
  if (!request_) ask();
  addActions(applicationMenuCommands());
  if (!testAttribute(Qt::WA_Moved)) moveToMiddle();
  if (!isVisible()) NoteFrame::showBeside(*this);
  NoteFrame::activateBeside(*this);
}

/// Of the note's screen. Left to themselves, window managers put it into a corner.
void UpdateWindow::moveToMiddle() {
  const QWidget* const note = NoteFrame::first();
  QRect place({}, sizeHint());
  place.moveCenter((note != nullptr ? note : this)->screen()->availableGeometry().center());
  move(place.topLeft());
}

void UpdateWindow::done(int result) {
  NoteFrame::hideBeside(*this);
  QDialog::done(result);
}

void UpdateWindow::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (event->spontaneous()) return;
  interrupted_ = request_ != nullptr;
  request_.reset();
}

void UpdateWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (std::exchange(interrupted_, false)) ask();  // it was hidden with the program, and came back
}

void UpdateWindow::ask() {
  if (source_.feed.isEmpty()) {
    return tell(qtTrId("Updates of %1 come with your system's packages.").arg(programName()));
  }
  QString failure;
  const auto makeRequest = reinterpret_cast<MakeFeedRequest>(
      loadFromModule(source_.moduleFolders, QLatin1String(feedModule), makeFeedRequestName, failure));
  if (makeRequest == nullptr) return tellFailure(failure);
  makeRequest(request_, QUrl(source_.feed), source_.patience, [this](const FeedAnswer& answer) {
    request_.reset();
    understand(answer);
  });
  tellChecking();
}

void UpdateWindow::understand(const FeedAnswer& answer) {
  if (!answer.failure.isEmpty()) return tellFailure(answer.failure);
  const std::optional<Appcast> appcast = readAppcast(answer.bytes);
  if (!appcast) return tellFailure(qtTrId("What the server sent is not an appcast."));
  tellNewest(*appcast);
}

void UpdateWindow::tellChecking() {
  tell(qtTrId("Checking for updates…"));
  close_.setText(qtTrId("Cancel"));
}

void UpdateWindow::tellNewest(const Appcast& appcast) {
  if (appcast.newest && compareVersions(appcast.newest->version, source_.version) > 0) {
    return tellNewer(*appcast.newest);
  }
  tell(qtTrId("%1 %2 is up to date.").arg(programName(), source_.version));
}

void UpdateWindow::tellNewer(const Release& release) {
  tell(qtTrId("%1 %2 is available. You have %3.")
           .arg(programName(), line(longestName, release.shownVersion), source_.version),
       line(longestLine, release.title), plainNotes(release.notes), release.page);
}

void UpdateWindow::tellFailure(const QString& reason) {
  tell(qtTrId("Could not check for updates."), line(longestLine, reason));
}

void UpdateWindow::tell(const QString& message, const QString& details, const QString& notes, const QUrl& page) {
  message_.setText(message);
  details_.setText(details);
  details_.setVisible(!details.isEmpty());
  notes_.setPlainText(notes);
  notes_.setVisible(!notes.isEmpty());
  page_ = page;
  openPage_.setVisible(!page.isEmpty());
  close_.setText(qtTrId("Close"));
  QPushButton& first = page.isEmpty() ? close_ : openPage_;
  first.setDefault(true);
  first.setFocus();
  QAccessibleEvent spoken(&message_, QAccessible::Alert);
  QAccessible::updateAccessibility(&spoken);
}

void UpdateWindow::openPage() {
  if (QDesktopServices::openUrl(page_)) return;
  details_.setText(qtTrId("There is no program that opens %1").arg(cutTo(longestLine, page_.toString())));
  details_.show();
}

}  // namespace platform::desktop
