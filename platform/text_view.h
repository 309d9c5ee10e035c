// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/font.h"
#include "platform/view.h"

namespace platform {

/// A length without a bound.
constexpr double greatestFiniteLength = 1.7976931348623157e308;

/// Virtual key codes name physical keys. A key that the program has no name for has the code `kVK_Unnamed`.
constexpr unsigned short kVK_Escape = 53;
constexpr unsigned short kVK_Unnamed = 0xFFFF;

/// A key press on its way through the responders.
class NSEvent {
 public:
  /// The platform's own event; opaque to everybody else.
  struct Native;

  NSEvent(unsigned short keyCode, Native* native) : keyCode_(keyCode), native_(native) {}
  unsigned short keyCode() const { return keyCode_; }
  Native* native() const { return native_; }

 private:
  unsigned short keyCode_;
  Native* native_;
};

/// Where the text of a text view is laid out.
struct NSTextContainer {
  NSSize containerSize;
  bool widthTracksTextView = false;

  void setContainerSize(NSSize size) { containerSize = size; }
  void setWidthTracksTextView(bool tracks) { widthTracksTextView = tracks; }
};

/// An editor of plain text. It holds every text of Unicode scalar values exactly, whatever they are, and nothing
/// that is typed, pasted or dropped is replaced by anything else; what is no scalar value comes in as U+FFFD. A key
/// with Command, Option or Control types nothing, unless the keyboard's layout makes text of it. The line ends LF, CR
/// LF, CR and U+2029 each show as one line end; a new line gets the kind of the line before.
class NSTextView : public NSView {
 public:
  explicit NSTextView(NSRect frame);
  ~NSTextView() override;

  /// These four and the container do nothing: the view always fills its scroll view and wraps its lines to that width.
  void setMinSize(NSSize);
  void setMaxSize(NSSize);
  void setVerticallyResizable(bool);
  void setHorizontallyResizable(bool);
  NSTextContainer& textContainer();
  /// Does nothing: the view holds plain text only.
  void setRichText(bool);
  /// Whether edits can be undone and redone, back to the last `setString`.
  void setAllowsUndo(bool);
  void setFont(const NSFont&);
  /// Empty room around the text, in points. Of the height, what the title bar covers stays empty, for the text is cut
  /// below it; the rest scrolls with the text.
  void setTextContainerInset(NSSize);
  /// These four do nothing: no platform of ours substitutes anything.
  void setAutomaticQuoteSubstitutionEnabled(bool);
  void setAutomaticDashSubstitutionEnabled(bool);
  void setAutomaticSpellingCorrectionEnabled(bool);
  void setAutomaticTextReplacementEnabled(bool);

  /// The whole text, in UTF-8, an input method's open composition included where it stands.
  std::string string() const;
  /// Replaces the whole text, which is valid UTF-8. No edit: nothing is posted and nothing can be undone.
  void setString(std::string_view text);
  /// Selects, or with a length of 0 places the caret. Counted in UTF-16 units of `string`; a range that reaches
  /// past the text ends with it, and a position inside a CR LF stands before it.
  void setSelectedRange(NSRange);

  /// Gets the key presses that the main menu and the input method leave, and Escape before an input method under X11;
  /// on native Wayland one that composes takes Escape for itself. The base gives the key to the editor.
  virtual void keyDown(NSEvent& event);

  /// Knows "undo", "redo", "cut", "copy", "paste" and "selectAll".
  bool perform(Selector action, NSObject* sender) override;

 private:
  struct Impl;
  std::shared_ptr<Impl> impl_;
};

}  // namespace platform
