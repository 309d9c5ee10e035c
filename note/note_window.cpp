// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"
#include "platform/button.h"
#include "platform/localized_string.h"
#include "platform/notification_center.h"
#include "platform/scroll_view.h"

namespace quillberry {

using namespace platform;

namespace {

constexpr NSSize noteSize{420, 320};
constexpr NSSize smallestNoteSize{260, 160};
constexpr NSSize textInset{14, 36};  // the height keeps the first line below the title bar
constexpr double textSize = 14;
constexpr double infoButtonRightMargin = 8;
constexpr double infoButtonTopMargin = 5;
constexpr auto frameName = "QuillberryWindow";

std::shared_ptr<NSWindow> makeWindow(const std::weak_ptr<NSWindowDelegate>& delegate) {
  constexpr unsigned style = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable | NSWindowStyleMaskResizable |
                             NSWindowStyleMaskFullSizeContentView;
  auto window = std::make_shared<NSWindow>(NSRect{{}, noteSize}, style, NSBackingStoreBuffered, false);
  window->setTitlebarAppearsTransparent(true);
  window->setReleasedWhenClosed(false);
  window->setMinSize(smallestNoteSize);
  window->setDelegate(delegate);
  // The order matters: a frame kept under the name replaces the centred one.
  window->center();
  window->setFrameAutosaveName(frameName);
  return window;
}

std::shared_ptr<NSScrollView> makeScrollView(NSRect frame) {
  auto scrollView = std::make_shared<NSScrollView>(frame);
  scrollView->setHasVerticalScroller(true);
  scrollView->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
  scrollView->setDrawsBackground(true);
  return scrollView;
}

std::shared_ptr<NoteTextView> makeTextView(NSSize contentSize) {
  auto view = std::make_shared<NoteTextView>(NSRect{{}, contentSize});
  view->setMinSize({0, 0});
  view->setMaxSize({greatestFiniteLength, greatestFiniteLength});
  view->setVerticallyResizable(true);
  view->setHorizontallyResizable(false);
  view->setAutoresizingMask(NSViewWidthSizable);
  view->textContainer().setContainerSize({contentSize.width, greatestFiniteLength});
  view->textContainer().setWidthTracksTextView(true);
  view->setRichText(false);
  view->setAllowsUndo(true);
  view->setFont(NSFont::monospacedSystemFontOfSize(textSize, NSFontWeight::Regular));
  view->setTextContainerInset(textInset);
  view->setAutomaticQuoteSubstitutionEnabled(false);
  view->setAutomaticDashSubstitutionEnabled(false);
  view->setAutomaticSpellingCorrectionEnabled(false);
  view->setAutomaticTextReplacementEnabled(false);
  return view;
}

std::shared_ptr<NSButton> makeInfoButton(NSRect contentBounds, const std::weak_ptr<NSObject>& target) {
  const auto image = NSImage::imageWithSystemSymbolName("info.circle", NSLocalizedString("Shortcuts"));
  auto button = NSButton::buttonWithImage(image, target, {"showInfo"});
  button->setBordered(false);
  button->setContentTintColor(NSColor::tertiaryLabelColor());
  button->sizeToFit();
  const NSRect frame = button->frame();
  button->setFrameOrigin({contentBounds.maxX() - frame.size.width - infoButtonRightMargin,
                          contentBounds.maxY() - frame.size.height - infoButtonTopMargin});
  button->setAutoresizingMask(NSViewMinXMargin | NSViewMinYMargin);
  return button;
}

}  // namespace

void AppDelegate::buildNoteWindow() {
  window = makeWindow(self());
  NSView& content = window->contentView();
  const auto scrollView = makeScrollView(content.bounds());
  textView = makeTextView(scrollView->contentSize());
  scrollView->setDocumentView(textView);
  content.addSubview(scrollView);
  content.addSubview(makeInfoButton(content.bounds(), self()));
  NSNotificationCenter::defaultCenter().addObserver(weak_from_this(), {"textChanged"}, NSTextDidChangeNotification,
                                                    textView);
}

}  // namespace quillberry
