// SPDX-License-Identifier: MIT
// What every platform has to do alike: this suite runs on each of them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/application.h"
#include "platform/button.h"
#include "platform/dispatch.h"
#include "platform/file_manager.h"
#include "platform/hot_key.h"
#include "platform/localized_string.h"
#include "platform/login_item.h"
#include "platform/notification_center.h"
#include "platform/process_info.h"
#include "platform/scroll_view.h"
#include "platform/status_bar.h"
#include "platform/string.h"
#include "platform/timer.h"
#include "platform/updater.h"
#include "platform/workspace.h"
#include "tests/platform/harness.h"

namespace platform {
namespace {

using harness::fileAt;
using harness::isShown;
using harness::pass;
using harness::putFile;
using harness::type;
using testing::ElementsAre;
using testing::Optional;

class Contract : public testing::Test {
 protected:
  harness::World world;
};

// --- Timers

TEST_F(Contract, TimerFiresOnceAndNotBeforeItsTime) {
  int fired = 0;
  auto timer = NSTimer::scheduledTimerWithTimeInterval(0.06, false, [&] { ++fired; });
  pass(0.02);
  EXPECT_EQ(fired, 0);
  pass(0.1);
  pass(0.1);
  EXPECT_EQ(fired, 1);
  timer->invalidate();  // harmless
}

TEST_F(Contract, TimerOutlivesItsHolderAndStopsWhenTold) {
  int fired = 0;
  NSTimer::scheduledTimerWithTimeInterval(0.01, false, [&] { fired += 1; });
  NSTimer::scheduledTimerWithTimeInterval(0.01, false, [&] { fired += 10; })->invalidate();
  pass(0.1);
  EXPECT_EQ(fired, 1);
}

TEST_F(Contract, TimerMayEndAndReplaceItselfWhileItFires) {
  std::shared_ptr<NSTimer> timer;
  int fired = 0;
  timer = NSTimer::scheduledTimerWithTimeInterval(0.01, false, [&] {
    ++fired;
    timer->invalidate();
    timer = NSTimer::scheduledTimerWithTimeInterval(0.01, false, [&] { ++fired; });
  });
  pass(0.2);
  EXPECT_EQ(fired, 2);
}

TEST_F(Contract, QueuedWorkRunsLaterAndInOrder) {
  std::vector<int> order;
  DispatchQueue& queue = DispatchQueue::main();
  queue.asyncAfter(0.05, [&] { order.push_back(4); });
  queue.async([&] {
    order.push_back(1);
    queue.async([&] { order.push_back(3); });
  });
  queue.async([&] { order.push_back(2); });
  EXPECT_THAT(order, ElementsAre());
  pass(0.02);
  EXPECT_THAT(order, ElementsAre(1, 2, 3));
  pass(0.1);
  EXPECT_THAT(order, ElementsAre(1, 2, 3, 4));
}

// --- Files

TEST_F(Contract, TextsComeBackByteForByte) {
  const URL file = harness::folder() / "note.txt";
  std::error_code error;
  EXPECT_FALSE(NSString::stringWithContentsOfURL(file, error));
  EXPECT_EQ(error, std::errc::no_such_file_or_directory);
  for (const std::string& text : {std::string(), std::string("a\0b\r\n\r\n", 7),
                                  std::string("\uFEFF\u2028\uFFFE\u00A0"), std::string(1 << 20, 'x')}) {
    EXPECT_FALSE(NSString::writeToURL(text, file));
    EXPECT_THAT(fileAt(file), Optional(text));
    EXPECT_THAT(NSString::stringWithContentsOfURL(file, error), Optional(text));
  }
  EXPECT_THAT(harness::namesIn(harness::folder()), ElementsAre("note.txt", "there"));
}

TEST_F(Contract, WhatIsNoTextIsRefusedAndLeftAlone) {
  const URL file = harness::folder() / "note.txt";
  putFile(file, "caf\xE9");
  std::error_code error;
  EXPECT_FALSE(NSString::stringWithContentsOfURL(file, error));
  EXPECT_EQ(error, std::errc::illegal_byte_sequence);
  EXPECT_THAT(fileAt(file), Optional(std::string("caf\xE9")));
  EXPECT_TRUE(NSString::writeToURL("text", harness::folder() / "missing" / "note.txt"));
}

TEST_F(Contract, FoldersAreMadeWithTheirParents) {
  NSFileManager& files = NSFileManager::defaultManager();
  const URL deep = harness::folder() / "a" / "b";
  EXPECT_TRUE(files.createDirectoryAtURL(deep, false));
  EXPECT_FALSE(files.createDirectoryAtURL(deep, true));
  EXPECT_FALSE(files.createDirectoryAtURL(deep, true)) << "one that exists is a success";
  EXPECT_FALSE(NSString::writeToURL("text", deep / "file"));
  EXPECT_EQ(files.createDirectoryAtURL(deep / "file", true), std::errc::file_exists);
  EXPECT_TRUE(files.URLsForDirectory(NSApplicationSupportDirectory, NSUserDomainMask).front().is_absolute());
}

TEST_F(Contract, KeepingReplacesNothingAndFindsAFreeName) {
  NSFileManager& files = NSFileManager::defaultManager();
  const URL file = harness::folder() / "x";
  EXPECT_FALSE(files.keepUnreadableItemAtURL(file)) << "nothing to keep is a success";
  putFile(file, "one");
  EXPECT_FALSE(files.keepUnreadableItemAtURL(file));
  EXPECT_FALSE(files.keepUnreadableItemAtURL(file)) << "kept before";
  EXPECT_FALSE(NSString::writeToURL("two", file));
  EXPECT_FALSE(files.keepUnreadableItemAtURL(file));
  EXPECT_THAT(fileAt(harness::folder() / "x.unreadable"), Optional(std::string("one")));
  EXPECT_THAT(fileAt(harness::folder() / "x.unreadable.2"), Optional(std::string("two")));
}

// --- Settings

TEST_F(Contract, SettingsKeepTheirTypesAndRegisteredOnesStandInForThem) {
  harness::putSetting("stored", std::string("text"));
  NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
  defaults.registerDefaults({{"stored", true}, {"position", 30.0}, {"flag", true}});
  EXPECT_EQ(defaults.objectForKey("absent"), std::nullopt);
  EXPECT_EQ(defaults.objectForKey("stored"), DefaultsValue(std::string("text")));
  EXPECT_EQ(defaults.objectForKey("position"), DefaultsValue(30.0));
  EXPECT_FALSE(defaults.boolForKey("absent") || defaults.boolForKey("position")) << "neither is a Boolean";
  EXPECT_TRUE(defaults.boolForKey("flag"));
  for (const bool value : {false, true}) {
    defaults.setBool(value, "flag");
    EXPECT_EQ(defaults.objectForKey("flag"), DefaultsValue(value));
    EXPECT_EQ(defaults.boolForKey("flag"), value);
  }
}

// --- The system

TEST_F(Contract, TheLoginItemGoesOnAndOffAndTwiceIsHarmless) {
  SMAppService& service = SMAppService::mainAppService();
  EXPECT_EQ(service.status(), SMAppServiceStatusNotRegistered);
  for (const bool on : {false, true, true, false, false, true, false}) {
    EXPECT_FALSE(on ? service.registerAndReturnError() : service.unregisterAndReturnError());
    EXPECT_EQ(service.status(), on ? SMAppServiceStatusEnabled : SMAppServiceStatusNotRegistered);
  }
  EXPECT_TRUE(NSProcessInfo::isOperatingSystemAtLeastVersion({13, 0, 0})) << "which the system has";
  EXPECT_TRUE(NSProcessInfo::isOperatingSystemAtLeastVersion({12, 6, 1}));
  EXPECT_FALSE(NSProcessInfo::isOperatingSystemAtLeastVersion({100, 0, 0}));
}

// --- Actions and notifications

class Observer : public NSObject {
 public:
  int told = 0;
  bool perform(Selector action, NSObject* /*sender*/) override {
    if (action != Selector{"edited"}) return false;
    ++told;
    return true;
  }
};

TEST_F(Contract, NotificationsReachWhoAskedForTheirSender) {
  const auto anybody = std::make_shared<Observer>();
  const auto one = std::make_shared<Observer>();
  const auto sender = std::make_shared<Observer>();
  NSNotificationCenter& center = NSWorkspace::sharedWorkspace().notificationCenter();
  center.addObserver(anybody, {"edited"}, NSWorkspaceDidWakeNotification, std::nullopt);
  center.addObserver(one, {"edited"}, NSWorkspaceDidWakeNotification, sender);
  center.postNotificationName(NSWorkspaceDidWakeNotification, nullptr);
  center.postNotificationName(NSWorkspaceDidWakeNotification, sender.get());
  center.postNotificationName(NSWorkspaceScreensDidWakeNotification, sender.get());
  NSDistributedNotificationCenter::defaultCenter().postNotificationName(NSWorkspaceDidWakeNotification, nullptr);
  EXPECT_EQ(anybody->told, 2);
  EXPECT_EQ(one->told, 1);
}

TEST_F(Contract, ATextThatNoTableHasIsShownAsItIs) {
  for (const char* const text : {"", "N", "⌘", "A text of nobody's… 📌"}) EXPECT_EQ(NSLocalizedString(text), text);
}

TEST_F(Contract, MenuItemsActOnTheirTargetsAndShowTheirState) {
  auto target = std::make_shared<Observer>();
  const auto menu = std::make_shared<NSMenu>();
  const auto item = std::make_shared<NSMenuItem>("Edit", Selector{"edited"}, "e");
  menu->addItem(item);
  item->setTarget(target);
  const auto status = NSStatusBar::systemStatusBar().statusItemWithLength(NSSquareStatusItemLength);
  status->button()->setImage(NSImage::imageWithSystemSymbolName("note.text", "Name"));
  status->setMenu(menu);
  EXPECT_TRUE(item->performAction());
  EXPECT_EQ(target->told, 1);
  item->setState(NSControlStateValueOn);
  EXPECT_TRUE(item->isCheckable());
  EXPECT_EQ(item->state(), NSControlStateValueOn);
  target.reset();
  EXPECT_FALSE(item->performAction()) << "a target that is gone is none that is missing";
  EXPECT_FALSE(NSImage::imageWithSystemSymbolName("no.such.symbol", "Name"));
}

TEST_F(Contract, AHotKeyHasAReferenceOrAnError) {
  EventHotKeyRef reference = nullptr;
  const OSStatus status = RegisterEventHotKey(kVK_ANSI_N, cmdKey | optionKey, {fourCharacters("TEST"), 1},
                                              GetApplicationEventTarget(), 0, &reference);
  EXPECT_EQ(status == noErr, reference != nullptr);
}

// --- Text view

class TextViewContract : public Contract {
 protected:
  std::shared_ptr<NSWindow> window = std::make_shared<NSWindow>(
      NSRect{{0, 0}, {420, 320}}, NSWindowStyleMaskTitled | NSWindowStyleMaskResizable, NSBackingStoreBuffered, false);
  std::shared_ptr<NSTextView> view = std::make_shared<NSTextView>(NSRect{{0, 0}, {420, 320}});
  std::shared_ptr<Observer> observer = std::make_shared<Observer>();

  void SetUp() override {
    const auto scroll = std::make_shared<NSScrollView>(window->contentView().bounds());
    view->setAllowsUndo(true);
    view->setFont(NSFont::monospacedSystemFontOfSize(14, NSFontWeight::Regular));
    view->setTextContainerInset({14, 36});
    scroll->setDocumentView(view);
    window->contentView().addSubview(scroll);
    NSNotificationCenter::defaultCenter().addObserver(observer, {"edited"}, NSTextDidChangeNotification, view);
  }
};

TEST_F(TextViewContract, TellsOfEditsAndOfNothingElse) {
  view->setString("loaded");
  view->setSelectedRange({6, 0});
  EXPECT_EQ(observer->told, 0);
  type(*view, "ab\n");
  harness::pressEscape(*view);  // types nothing
  EXPECT_EQ(view->string(), "loadedab\n");
  EXPECT_EQ(observer->told, 3);
  harness::undo(*view);
  const int afterUndo = observer->told;
  EXPECT_GT(afterUndo, 3);
  harness::redo(*view);
  EXPECT_GT(observer->told, afterUndo);
  EXPECT_EQ(view->string(), "loadedab\n");
  for (int i = 0; i < 9; ++i) harness::undo(*view);
  EXPECT_EQ(view->string(), "loaded") << "where undo ends";
}

TEST_F(TextViewContract, ActionsWithoutATargetGoToTheFirstResponder) {
  const auto send = [](Selector action) {
    return NSApplication::sharedApplication()->sendAction(action, std::nullopt, nullptr);
  };
  EXPECT_FALSE(send({"selectAll"})) << "no window has the keyboard";
  window->makeKeyAndOrderFront(nullptr);
  window->makeFirstResponder(*view);
  pass(0.05);
  type(*view, "ab");
  EXPECT_TRUE(send({"selectAll"}) && send({"copy"}) && send({"paste"}) && send({"paste"}));
  EXPECT_EQ(view->string(), "abab");
  EXPECT_TRUE(send({"selectAll"}) && send({"cut"}));
  EXPECT_EQ(view->string(), "");
  EXPECT_TRUE(send({"undo"}));
  EXPECT_EQ(view->string(), "abab");
  EXPECT_TRUE(send({"redo"}));
  EXPECT_EQ(view->string(), "");
  EXPECT_FALSE(send({"noSuchAction"}));
}

TEST_F(TextViewContract, SelectionCountsUtf16UnitsOfTheText) {
  const auto typedAt = [this](std::string_view text, NSRange range) {
    view->setString(text);
    view->setSelectedRange(range);
    type(*view, "|");
    return view->string();
  };
  EXPECT_EQ(typedAt("a\U0001F4CCb", {3, 0}), "a\U0001F4CC|b");
  EXPECT_EQ(typedAt("ab\r\ncd", {4, 0}), "ab\r\n|cd");
  EXPECT_EQ(typedAt("ab\r\ncd", {3, 0}), "ab|\r\ncd") << "never inside a line end";
  EXPECT_EQ(typedAt("ab\u2029cd\rx", {5, 1}), "ab\u2029cd|x");
  EXPECT_EQ(typedAt("abc", {1, 1}), "a|c");
  EXPECT_EQ(typedAt("abc", {99, 5}), "abc|");
  EXPECT_EQ(typedAt("", {0, 0}), "|");
}

TEST_F(TextViewContract, AnOpenCompositionIsPartOfTheTextAndNoEdit) {
  view->setString("ac");
  view->setSelectedRange({1, 0});
  window->makeKeyAndOrderFront(nullptr);
  window->makeFirstResponder(*view);
  harness::compose(*view, "\u3042");
  EXPECT_EQ(view->string(), "a\u3042c");
  window->orderOut(nullptr);
  harness::compose(*view, "");
  EXPECT_EQ(view->string(), "a\u3042c") << "what was composed stays when the note is hidden";
  EXPECT_EQ(observer->told, 0);
}

TEST_F(TextViewContract, ASubclassSeesEveryKeyFirst) {
  class Deaf : public NSTextView {
   public:
    using NSTextView::NSTextView;
    std::vector<unsigned short> keys;
    void keyDown(NSEvent& event) override { keys.push_back(event.keyCode()); }
  };
  const auto deaf = std::make_shared<Deaf>(NSRect{{0, 0}, {100, 100}});
  type(*deaf, "a");
  harness::pressEscape(*deaf);
  EXPECT_EQ(deaf->string(), "");
  EXPECT_THAT(deaf->keys, ElementsAre(kVK_Unnamed, kVK_Escape));
}

// --- Views and windows

TEST_F(Contract, ViewsFollowTheirMasks) {
  const auto content = std::make_shared<NSView>(NSRect{{0, 0}, {400, 300}});
  const auto add = [&](NSRect frame, unsigned mask) {
    auto view = std::make_shared<NSView>(frame);
    view->setAutoresizingMask(mask);
    content->addSubview(view);
    return view;
  };
  const auto fill = add({{0, 0}, {400, 300}}, NSViewWidthSizable | NSViewHeightSizable);
  const auto corner = add({{380, 280}, {17, 17}}, NSViewMinXMargin | NSViewMinYMargin);
  const auto fixed = add({{5, 5}, {10, 10}}, 0);
  content->setFrame({{0, 0}, {500, 250}});
  EXPECT_EQ(fill->frame(), (NSRect{{0, 0}, {500, 250}}));
  EXPECT_EQ(corner->frame(), (NSRect{{480, 230}, {17, 17}}));
  EXPECT_EQ(fixed->frame(), (NSRect{{5, 5}, {10, 10}}));
}

class Closer : public NSWindowDelegate {
 public:
  int asked = 0;
  bool answer = false;
  bool windowShouldClose(NSWindow& /*window*/) override {
    ++asked;
    return answer;
  }
};

TEST_F(TextViewContract, ClosingIsTheDelegatesDecision) {
  const auto closer = std::make_shared<Closer>();
  window->setDelegate(closer);
  EXPECT_FALSE(window->isVisible());
  window->makeKeyAndOrderFront(nullptr);
  harness::pressCloseButton(*window);
  EXPECT_EQ(closer->asked, 1);
  EXPECT_TRUE(window->isVisible());
  closer->answer = true;
  harness::pressCloseButton(*window);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(TextViewContract, PopoversTakeTheKeyboardAndGoAndComeWithTheProgram) {
  const auto show = [this](NSPopoverBehavior behavior) {
    const auto popover = std::make_shared<NSPopover>();
    popover->setContentViewController(std::make_shared<NSViewController>());
    popover->contentViewController()->setView(std::make_shared<NSView>(NSRect{{0, 0}, {50, 20}}));
    popover->setBehavior(behavior);
    popover->showRelativeToRect(view->bounds(), *view, NSMinYEdge);
    pass(0.05);
    return popover;
  };
  const auto app = NSApplication::sharedApplication();
  window->makeKeyAndOrderFront(nullptr);
  const auto first = show(NSPopoverBehaviorApplicationDefined);
  EXPECT_TRUE(isShown(*first) && !window->isKeyWindow()) << "it is a window of its own";
  const auto transient = show(NSPopoverBehaviorTransient);
  EXPECT_TRUE(isShown(*transient));
  app->hide(nullptr);
  const auto late = show(NSPopoverBehaviorApplicationDefined);
  EXPECT_FALSE(window->isVisible() || window->isKeyWindow() || isShown(*first) || isShown(*late));
  window->makeKeyAndOrderFront(nullptr);
  app->activateIgnoringOtherApps(true);
  pass(0.05);
  EXPECT_TRUE(isShown(*first) && isShown(*late) && window->isKeyWindow());
  EXPECT_FALSE(isShown(*transient)) << "it closed";
  app->hide(nullptr);
  first->performClose(nullptr);
  window->makeKeyAndOrderFront(nullptr);
  app->activateIgnoringOtherApps(true);
  EXPECT_FALSE(isShown(*first)) << "also while it was hidden";
}

class FrameContract : public Contract {
 protected:
  static std::shared_ptr<NSWindow> makeWindow() {
    auto window =
        std::make_shared<NSWindow>(NSRect{{0, 0}, {420, 320}}, NSWindowStyleMaskTitled | NSWindowStyleMaskResizable,
                                   NSBackingStoreBuffered, false);
    window->setMinSize({260, 160});
    window->center();
    window->setFrameAutosaveName("Test");
    return window;
  }
};

TEST_F(FrameContract, IsCentredAtFirstAndKeptAfterwards) {
  NSRect middle{{}, {420, 320}};
  middle.origin = {(harness::screen().size.width - 420) / 2, (harness::screen().size.height - 320) / 2};
  const NSRect moved{{30, 40}, {300, 200}};
  {
    const auto window = makeWindow();
    EXPECT_EQ(harness::frameOf(*window), middle);
    window->makeKeyAndOrderFront(nullptr);
    harness::moveByUser(*window, moved);
    window->orderOut(nullptr);
    EXPECT_EQ(harness::frameOf(*window), moved);
  }
  EXPECT_EQ(harness::frameOf(*makeWindow()), moved);
}

TEST_F(FrameContract, AFrameWithoutItsScreenComesBackWhole) {
  harness::putSetting("NSWindow Frame Test", std::string("9000 9000 420 320 8000 8000 1920 1080"));
  const NSRect screen = harness::screen();
  EXPECT_EQ(harness::frameOf(*makeWindow()), (NSRect{{screen.maxX() - 420, screen.maxY() - 320}, {420, 320}}));
}

TEST_F(FrameContract, AKeptFrameThatIsNoneIsIgnored) {
  harness::putSetting("NSWindow Frame Test", std::string("nonsense"));
  EXPECT_EQ(harness::frameOf(*makeWindow()).size, (NSSize{420, 320}));
}

// --- The application

TEST_F(Contract, AnUpdaterKnowsOneAction) {
  const auto updater = std::make_shared<SPUStandardUpdaterController>(true, nullptr, nullptr);
  EXPECT_FALSE(updater->perform({"check"}, nullptr));
  EXPECT_TRUE(updater->perform({"checkForUpdates"}, nullptr));
}

}  // namespace
}  // namespace platform
