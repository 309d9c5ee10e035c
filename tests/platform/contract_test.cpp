// SPDX-License-Identifier: MIT
// What every platform has to do alike: this suite runs on each of them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/application.h"
#include "platform/dispatch.h"
#include "platform/file_manager.h"
#include "platform/image.h"
#include "platform/login_item.h"
#include "platform/menu.h"
#include "platform/notification_center.h"
#include "platform/scroll_view.h"
#include "platform/string.h"
#include "platform/timer.h"
#include "platform/user_defaults.h"
#include "platform/workspace.h"
#include "tests/platform/harness.h"

namespace platform {
namespace {

using harness::isShown;
using harness::pass;
using testing::Optional;

class Contract : public testing::Test {
 protected:
  std::shared_ptr<void> world = harness::makeWorld();
};

TEST_F(Contract, TimersAndQueuedWorkComeOnceInTheirOrder) {
  std::string order;
  const auto schedule = [&](double seconds, char name) {
    return NSTimer::scheduledTimerWithTimeInterval(seconds, false, [&order, name] { order += name; });
  };
  const auto passUntil = [&](const std::string& expected) {
    for (int times = 0; times < 500 && order != expected; ++times) pass(0.01);
    EXPECT_EQ(order, expected);
  };
  DispatchQueue& queue = DispatchQueue::main();
  queue.async([&] {
    order += '1';
    queue.async([&] { order += '3'; });
  });
  queue.async([&] { order += '2'; });
  EXPECT_EQ(order, "");
  passUntil("123");
  const auto ofAMinute = schedule(60, 'x');
  schedule(0.03, 'x')->invalidate();
  std::shared_ptr<NSTimer> replaced = NSTimer::scheduledTimerWithTimeInterval(0.06, false, [&] {
    order += '5';
    replaced->invalidate();
    replaced = schedule(0.02, '6');
  });
  schedule(0.02, '4');  // nobody holds it
  passUntil("123456");
  pass(0.1);
  EXPECT_EQ(order, "123456");
  ofAMinute->invalidate();
}

// --- Files

class FileContract : public Contract {
 protected:
  NSFileManager& files = NSFileManager::defaultManager();
  URL file = harness::folder() / "note.txt";
  std::error_code error;

  std::optional<std::string> read(const std::string& suffix = "") {
    return NSString::stringWithContentsOfURL(file.string() + suffix, error);
  }
};

TEST_F(FileContract, TextsComeBackByteForByteAndWhatIsNoneIsRefused) {
  EXPECT_FALSE(read());
  EXPECT_EQ(error, std::errc::no_such_file_or_directory);
  for (const std::string& text : {std::string(), std::string("a\0b\r\n\r\n", 7),
                                  std::string("\uFEFF\u2028\uFFFE\u00A0"), std::string(1 << 20, 'x')}) {
    EXPECT_FALSE(NSString::writeToURL(text, file));
    EXPECT_THAT(read(), Optional(text));
  }
  harness::putFile(file, "caf\xE9");
  EXPECT_FALSE(read());
  EXPECT_EQ(error, std::errc::illegal_byte_sequence);
  EXPECT_TRUE(NSString::writeToURL("text", harness::folder() / "missing" / "note.txt"));
}

TEST_F(FileContract, FoldersAreMadeWithTheirParents) {
  const URL deep = harness::folder() / "a" / "b";
  EXPECT_TRUE(files.createDirectoryAtURL(deep, false));
  EXPECT_FALSE(files.createDirectoryAtURL(deep, true));
  EXPECT_FALSE(files.createDirectoryAtURL(deep, true)) << "one that exists is a success";
  EXPECT_FALSE(NSString::writeToURL("text", deep / "file"));
  EXPECT_EQ(files.createDirectoryAtURL(deep / "file", true), std::errc::file_exists);
}

TEST_F(FileContract, KeepingReplacesNothingAndFindsAFreeName) {
  EXPECT_FALSE(files.keepUnreadableItemAtURL(file)) << "nothing to keep is a success";
  for (const char* const text : {"one", "two", "three"}) {
    EXPECT_FALSE(NSString::writeToURL(text, file));
    EXPECT_FALSE(files.keepUnreadableItemAtURL(file));
    EXPECT_FALSE(files.keepUnreadableItemAtURL(file)) << "kept before";
  }
  EXPECT_THAT(read(".unreadable"), Optional(std::string("one")));
  EXPECT_THAT(read(".unreadable.2"), Optional(std::string("two")));
  EXPECT_THAT(read(".unreadable.3"), Optional(std::string("three")));
}

// --- The system

TEST_F(Contract, SettingsKeepTheirTypesAndRegisteredOnesStandInForThem) {
  harness::putSetting("stored", "text");
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
  }
}

TEST_F(Contract, TheLoginItemGoesOnAndOffAndTwiceIsHarmless) {
  SMAppService& service = SMAppService::mainAppService();
  for (const bool on : {false, true, true, false, false, true, false}) {
    EXPECT_FALSE(on ? service.registerAndReturnError() : service.unregisterAndReturnError());
    EXPECT_EQ(service.status(), on ? SMAppServiceStatusEnabled : SMAppServiceStatusNotRegistered);
  }
}

// --- Actions and notifications

class Observer : public NSObject {
 public:
  int told = 0;
  bool perform(Selector action, NSObject* /*sender*/) override {
    told += action == Selector{"edited"};
    return action == Selector{"edited"};
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
  EXPECT_TRUE(anybody->told == 2 && one->told == 1);
}

TEST_F(Contract, MenuItemsActOnTheirTargetsAndShowTheirState) {
  auto target = std::make_shared<Observer>();
  const auto item = std::make_shared<NSMenuItem>("Edit", Selector{"edited"}, "e");
  item->setTarget(target);
  EXPECT_TRUE(item->performAction());
  item->setState(NSControlStateValueOn);
  EXPECT_TRUE(item->isCheckable() && item->state() == NSControlStateValueOn);
  target.reset();
  EXPECT_FALSE(item->performAction()) << "a target that is gone is none that is missing";
  EXPECT_FALSE(NSImage::imageWithSystemSymbolName("no.such.symbol", "Name"));
}

// --- Windows and the text view

std::shared_ptr<NSWindow> makeWindow() {
  auto window = std::make_shared<NSWindow>(
      NSRect{{0, 0}, {420, 320}}, NSWindowStyleMaskTitled | NSWindowStyleMaskResizable, NSBackingStoreBuffered, false);
  window->center();
  window->setFrameAutosaveName("Test");
  return window;
}

class WindowContract : public Contract {
 protected:
  std::shared_ptr<NSWindow> window = makeWindow();
  std::shared_ptr<NSTextView> view = std::make_shared<NSTextView>(NSRect{{0, 0}, {420, 320}});
  std::shared_ptr<Observer> observer = std::make_shared<Observer>();

  void SetUp() override {
    const auto scroll = std::make_shared<NSScrollView>(window->contentView().bounds());
    view->setAllowsUndo(true);
    scroll->setDocumentView(view);
    window->contentView().addSubview(scroll);
    NSNotificationCenter::defaultCenter().addObserver(observer, {"edited"}, NSTextDidChangeNotification, view);
  }
  void show() {
    window->makeKeyAndOrderFront(nullptr);
    window->makeFirstResponder(*view);
    pass(0.05);
  }
};

TEST_F(WindowContract, EditsByKeysAndByActionsAreToldAndNothingElseIs) {
  const auto send = [](Selector action) {
    return NSApplication::sharedApplication()->sendAction(action, std::nullopt, nullptr);
  };
  EXPECT_FALSE(send({"selectAll"})) << "no window has the keyboard";
  show();
  view->setString("loaded");
  view->setSelectedRange({6, 0});
  EXPECT_EQ(observer->told, 0);
  harness::type(*view, "ab\n\x1B");  // Escape types nothing
  EXPECT_EQ(observer->told, 3);
  struct Step {
    Selector action;
    const char* text;
    bool edits;
  };
  for (const Step& step : {Step{{"selectAll"}, "loadedab\n", false}, Step{{"copy"}, "loadedab\n", false},
                           Step{{"cut"}, "", true}, Step{{"paste"}, "loadedab\n", true}, Step{{"undo"}, "", true},
                           Step{{"undo"}, "loadedab\n", true}, Step{{"redo"}, "", true}}) {
    observer->told = 0;
    EXPECT_TRUE(send(step.action));
    EXPECT_EQ(view->string(), step.text) << step.action.name;
    EXPECT_EQ(observer->told > 0, step.edits) << step.action.name;
  }
  for (int i = 0; i < 9; ++i) send({"undo"});
  EXPECT_EQ(view->string(), "loaded") << "where undo ends";
  EXPECT_FALSE(send({"noSuchAction"}));
}

TEST_F(WindowContract, SelectionCountsUtf16UnitsOfTheText) {
  const auto typedAt = [this](std::string_view text, NSRange range) {
    view->setString(text);
    view->setSelectedRange(range);
    harness::type(*view, "|");
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

TEST_F(WindowContract, AnOpenCompositionIsPartOfTheTextAndNoEdit) {
  view->setString("ac");
  view->setSelectedRange({1, 0});
  show();
  harness::compose(*view, "\u3042");
  EXPECT_EQ(view->string(), "a\u3042c");
  window->orderOut(nullptr);
  harness::compose(*view, "");
  EXPECT_EQ(view->string(), "a\u3042c") << "what was composed stays when the note is hidden";
  EXPECT_EQ(observer->told, 0);
}

TEST_F(WindowContract, PopoversTakeTheKeyboardAndGoAndComeWithTheProgram) {
  const auto showPopover = [this](NSPopoverBehavior behavior) {
    const auto popover = std::make_shared<NSPopover>();
    popover->setContentViewController(std::make_shared<NSViewController>());
    popover->contentViewController()->setView(std::make_shared<NSView>(NSRect{{0, 0}, {50, 20}}));
    popover->setBehavior(behavior);
    popover->showRelativeToRect(view->bounds(), *view, NSMinYEdge);
    pass(0.05);
    return popover;
  };
  const auto app = NSApplication::sharedApplication();
  const auto comeBack = [&] {
    app->activateIgnoringOtherApps(true);
    show();
  };
  show();
  const auto first = showPopover(NSPopoverBehaviorApplicationDefined);
  EXPECT_TRUE(isShown(*first) && !window->isKeyWindow()) << "it is a window of its own";
  const auto transient = showPopover(NSPopoverBehaviorTransient);
  EXPECT_TRUE(isShown(*transient));
  app->hide(nullptr);
  const auto late = showPopover(NSPopoverBehaviorApplicationDefined);
  EXPECT_FALSE(window->isVisible() || window->isKeyWindow() || isShown(*first) || isShown(*late));
  comeBack();
  EXPECT_TRUE(isShown(*first) && isShown(*late) && window->isKeyWindow());
  EXPECT_FALSE(isShown(*transient)) << "it closed";
  app->hide(nullptr);
  first->performClose(nullptr);
  comeBack();
  EXPECT_FALSE(isShown(*first)) << "also while it was hidden";
}

TEST_F(WindowContract, IsCentredAtFirstAndKeepsTheFrameThatTheUserGaveIt) {
  const NSSize screen = harness::screen().size;
  EXPECT_EQ(harness::frameOf(*window), (NSRect{{(screen.width - 420) / 2, (screen.height - 320) / 2}, {420, 320}}));
  show();
  const NSRect moved{{30, 40}, {300, 200}};
  harness::moveByUser(*window, moved);
  window->orderOut(nullptr);
  EXPECT_EQ(harness::frameOf(*window), moved);
  window.reset();
  EXPECT_EQ(harness::frameOf(*makeWindow()), moved);
}

TEST_F(Contract, AFrameWithoutItsScreenComesBackWhole) {
  harness::putSetting("NSWindow Frame Test", "9000 9000 420 320 8000 8000 1920 1080");
  const NSRect screen = harness::screen();
  EXPECT_EQ(harness::frameOf(*makeWindow()), (NSRect{{screen.maxX() - 420, screen.maxY() - 320}, {420, 320}}));
}

}  // namespace
}  // namespace platform
