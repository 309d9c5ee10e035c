// SPDX-License-Identifier: MIT
// Thousands of actions at random, on clocks that are moved by hand. The program and a model of it go through the same,
// and after each action all that can be seen of the one is compared with the other.
#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <random>
#include <utility>

#include "platform/notification_center.h"
#include "platform/utf8.h"
#include "platform/workspace.h"
#include "tests/program/program.h"

namespace quillberry {
namespace {

using namespace platform;

const URL anotherFile = noteFile.parent_path().parent_path() / "file";
headless::LoginItem& login = headless::loginItem();
constexpr auto undecodable = "caf\xE9";

struct Model : NSObject {
  std::vector<std::string> effects, log;
  std::map<URL, std::string> files{{anotherFile, ""}};
  std::multimap<double, void (Model::*)()> pending;
  double now = 0, saveDue = 0, wallClock = 0, lastWake = 0;
  std::string text;
  std::optional<std::string> saved;
  std::size_t caret = 0;
  NSRect frame{{430, 240}, {420, 320}};  // centred on 1280 × 800
  bool firstStart = true, running = false, notRead = false, visible = false, active = false;
  bool pinned = true, showOnWake = true, loginItemMarked = false;
  SMAppServiceStatus loginItemBefore = SMAppServiceStatusNotRegistered;

  Model() {
    headless::putFile(anotherFile, "");
    headless::putSetting("didShowWelcome", true);
  }

  void expect(std::initializer_list<std::string> more) { effects.insert(effects.end(), more); }
  void later(double seconds, void (Model::*step)()) { pending.emplace(now + seconds, step); }

  void pass(double seconds) {
    const double until = now + seconds;
    while (!pending.empty() && pending.begin()->first <= until) {
      const auto next = pending.extract(pending.begin());
      now = std::max(now, next.key());
      (this->*next.mapped())();
    }
    now = until;
  }

  void start() {
    if (std::exchange(running, true)) return show();
    expect({"application activation policy 1", "updater start"});
    if (firstStart && !files.contains(noteFile)) expect({"folder " + noteFile.parent_path().string()});
    expect({"application main menu", "window made", "observe NSTextDidChangeNotification", "status item length -2",
            "status item named Quillberry", "status item menu"});
    if (firstStart) expect({"hot key 45 modifiers 2304", "hot key 35 modifiers 2304"});
    expect({"observe NSWorkspaceDidWakeNotification", "observe NSWorkspaceScreensDidWakeNotification",
            "observe com.apple.screenIsUnlocked"});
    saved = read();
    text = saved.value_or("");
    notRead = text.empty();
    caret = utf16Length(text);
    if (saved) expect({"text view string"});
    applyPin();
    loginItemMarked = login.status == SMAppServiceStatusEnabled;
    lastWake = NSDate::distantPast;
    if (!std::exchange(firstStart, false)) return show();
    expect({"store didOfferLaunchAtLogin=true", "login item register"});
    show();
    expect({"observe NSTextDidChangeNotification"});
    NSNotificationCenter::defaultCenter().addObserver(weak_from_this(), {"edited"}, NSTextDidChangeNotification, {});
  }
  /// The process is gone, and with it all that was put off.
  void die() {
    running = visible = active = false;
    pending.clear();
    pass(60);
  }

  /// What an edit makes of the text is the platform's, and so is which edits there are.
  void seeText() {
    text = headless::textView().string();
    caret = headless::textViewState().selection.location;
  }
  bool perform(Selector /*edited*/, NSObject* /*sender*/) override {
    saveDue = now + 0.8;
    later(0.8, &Model::saveIfDue);
    return true;
  }
  void saveIfDue() {
    if (now == saveDue) save();
  }
  std::optional<std::string> read() {
    const bool can = files.contains(noteFile) && files[noteFile] != undecodable && !headless::faults().noRead;
    return can ? std::optional(files[noteFile]) : std::nullopt;
  }
  void save() {
    saveDue = -1;
    if (notRead && files.contains(noteFile) && !(saved && read() == saved) && !keep()) return;
    if (text.size() > headless::faults().roomInBytes.value_or(-1)) return;
    saved = files[noteFile] = text;
    expect({"write " + noteFile.string() + " " + std::to_string(text.size()) + " bytes"});
  }
  /// Whether the note on the disk has a second name.
  bool keep() {
    URL kept = noteFile.string() + ".unreadable";
    for (int number = 2; files.contains(kept) && files[kept] != files[noteFile]; ++number)
      kept = noteFile.string() + ".unreadable." + std::to_string(number);
    if (files.contains(kept)) return true;
    if (headless::faults().noLink) return false;
    files[kept] = files[noteFile];
    expect({"link " + noteFile.string() + " as " + kept.string()});
    return true;
  }

  void show() {
    expect({"window make key and order front", "application activate", "window first responder"});
    visible = active = true;
  }
  void hide() {
    save();
    expect({"window order out", "application hide"});
    visible = active = false;
  }
  void toggle() { (visible && active) ? hide() : show(); }
  void togglePin() {
    pinned = !pinned;
    expect({pinned ? "store pinned=true" : "store pinned=false"});
    applyPin();
  }
  void applyPin() {
    if (pinned) expect({"window level 3", "window behaviour 257", "window title Quillberry 📌"});
    if (!pinned) expect({"window level 0", "window behaviour 4", "window title Quillberry"});
  }
  void pressN() { later(0, &Model::toggle); }
  void pressP() { later(0, &Model::togglePin); }

  void wake() {
    if (!showOnWake || wallClock - lastWake <= 5) return;
    lastWake = wallClock;
    later(0.6, &Model::show);
  }
  void toggleShowOnWake() {
    showOnWake = !showOnWake;
    expect({showOnWake ? "store showOnWake=true" : "store showOnWake=false"});
  }
  void toggleLoginItem() {
    expect({loginItemBefore == SMAppServiceStatusEnabled ? "login item unregister" : "login item register"});
    if (login.failure) log.push_back("Quillberry: launch-at-login toggle failed: " + *login.failure);
    loginItemMarked = login.status == SMAppServiceStatusEnabled;
  }
};

std::unique_ptr<Program> program;

void startProgram() { program ? void(headless::reopen()) : void(program = std::make_unique<Program>()); }
void endProgram() {
  program.reset();
  headless::activateOtherProgram();
  headless::advance(60);
}
void choose(std::string_view title) { headless::menuItem(*headless::statusItem().menu, title).performAction(); }
void wake(std::string_view signal) {
  NSWorkspace::sharedWorkspace().notificationCenter().postNotificationName(signal, nullptr);
}
void unlock() {
  NSDistributedNotificationCenter::defaultCenter().postNotificationName("com.apple.screenIsUnlocked", nullptr);
}

enum When { running, stopped, anyTime };
struct Action {
  const char* name;
  std::function<void()> take;
  std::function<void(Model&)> follow;
  When when = running;
};
using Actions = std::vector<const Action*>;

Action passing(const char* name, double seconds) {
  return {name, [=] { headless::advance(seconds); }, [=](Model& model) { model.pass(seconds); }};
}
Action movingWallClock(const char* name, double seconds) {
  return {name, [] {}, [=](Model& model) { headless::setWallClock(model.wallClock += seconds); }};
}
Action resizing(const char* name, NSRect to, NSRect result) {
  return {name, [=] { headless::moveWindow(to); }, [=](Model& model) { model.frame = result; }};
}
Action writing(const char* name, const std::string& note) {
  return {name, [=] { headless::putFile(noteFile, note); }, [=](Model& model) { model.files[noteFile] = note; },
          anyTime};
}
Action storing(const char* name, const char* key, bool Model::*setting, const DefaultsValue& value, bool result) {
  return {name, [=] { headless::putSetting(key, value); }, [=](Model& model) { model.*setting = result; }, stopped};
}

const std::vector<Action> everyday{
    {"types a", [] { headless::type("a"); }, &Model::seeText},
    {"types ä€📌 and Return", [] { headless::type("ä€📌\n"); }, &Model::seeText},
    {"⌘Z", [] { headless::pressKeyEquivalent("z", NSEventModifierFlagCommand); }, &Model::seeText},
    {"⇧⌘Z", [] { headless::pressKeyEquivalent("z", 0x120000); }, &Model::seeText},
    {"⌘X", [] { headless::pressKeyEquivalent("x", NSEventModifierFlagCommand); }, &Model::seeText},
    {"⌘A", [] { headless::pressKeyEquivalent("a", NSEventModifierFlagCommand); }, &Model::seeText},
    {"Escape", [] { headless::pressKey(kVK_Escape); }, &Model::hide},
    {"close button", headless::pressCloseButton, &Model::hide},
    {"⌥⌘N", [] { headless::pressHotKey(kVK_ANSI_N, cmdKey | optionKey); }, &Model::pressN},
    {"⌥⌘P", [] { headless::pressHotKey(kVK_ANSI_P, cmdKey | optionKey); }, &Model::pressP},
    {"a hot key without a number", [] { sendHotKeyEvent(std::nullopt); }, {}},
    {"a hot key that nobody asked for", [] { sendHotKeyEvent({{.id = 3}}); }, {}},
    {"Show / Hide Note", [] { choose("Show / Hide Note"); }, &Model::toggle},
    {"Keep on Top", [] { choose("Keep on Top"); }, &Model::togglePin},
    {"Show on Screen Wake", [] { choose("Show on Screen Wake"); }, &Model::toggleShowOnWake},
    {"Start at Login", [] { choose("Start at Login"); }, &Model::toggleLoginItem},
    {"Check for Updates…", [] { choose("Check for Updates…"); }, [](Model& model) { model.expect({"updater check"}); }},
    {"goes to another program", headless::activateOtherProgram, [](Model& model) { model.active = false; }},
    resizing("makes the window high and narrow", {{7, 8}, {10, 500}}, {{7, 8}, {260, 500}}),
    {"the session may end", headless::terminate, &Model::save},
    {"the system wakes", [] { wake(NSWorkspaceDidWakeNotification); }, &Model::wake},
    {"the screens wake", [] { wake(NSWorkspaceScreensDidWakeNotification); }, &Model::wake},
    {"the screen is unlocked", unlock, &Model::wake},
    movingWallClock("the clock is set back", -60),
    movingWallClock("1 s by the clock", 1),
    movingWallClock("5 s by the clock", 5),
    passing("0.3 s", 0.3),
    passing("0.79 s", 0.79),
    passing("a minute", 60)};

const std::vector<Action> rare{
    {"Quit Quillberry", [] { choose("Quit Quillberry"), endProgram(); },
     [](Model& model) { model.save(), model.die(); }},
    {"is killed", endProgram, &Model::die},
    writing("another program spoils the note", undecodable),
    writing("another program writes the note", "\uFEFFe\u0301\r\n\u2028📌"),
    storing("pinned: false", "pinned", &Model::pinned, false, false),
    storing("pinned: \"false\"", "pinned", &Model::pinned, std::string("false"), true),
    storing("showOnWake: false", "showOnWake", &Model::showOnWake, false, false),
    {"the disk is full", [] { headless::faults().roomInBytes = 5; }, {}, anyTime},
    {"the disk has room", [] { headless::faults().roomInBytes.reset(); }, {}, anyTime},
    {"files get no second name, or do", [] { headless::faults().noLink ^= true; }, {}, anyTime},
    {"files cannot be read, or can", [] { headless::faults().noRead ^= true; }, {}, anyTime},
    {"the login service fails", [] { login.failure = "the folder is read-only"; }, {}, anyTime},
    {"the login service works", [] { login.failure.reset(); }, {}, anyTime},
    {"login items need approval",
     [] { login.statusAfterRegistration = SMAppServiceStatusRequiresApproval; },
     {},
     anyTime},
    {"the login item is removed", [] { login.status = SMAppServiceStatusNotRegistered; }, {}, anyTime}};

const Action start{"starts the program", startProgram, &Model::start, anyTime};

/// What the program shows after an action and the model does not, a line each.
std::string differencesAfter(const Action& action, Model& model) {
  headless::clearEffects();
  model.effects.clear();
  model.loginItemBefore = login.status;
  action.take();
  if (action.follow) action.follow(model);
  std::string lines;
  const auto compare = [&](std::string_view what, const auto& seen, const auto& expected) {
    using testing::PrintToString;
    if (seen == expected) return;
    lines += std::string(what) + ": " + PrintToString(seen) + ", not " + PrintToString(expected) + '\n';
  };
  compare("effects", headless::effects(), model.effects);
  compare("log", headless::log(), model.log);
  compare("files are right", headless::files() == model.files, true);
  compare("controller lives", !AppDelegate::shared.expired(), model.running);
  if (!program) return lines;
  const NSMenu& menu = *headless::statusItem().menu;
  const NSRect infoButton = headless::button().frame();
  compare("text", headless::textView().string(), model.text);
  compare("caret", headless::textViewState().selection.location, model.caret);
  compare("frame", headless::windowState().frame, model.frame);
  compare("frame of the text", headless::window().contentView().subviews().at(0)->frame().size, model.frame.size);
  compare("margin of the info button", model.frame.size.width - infoButton.maxX(), 8);
  compare("margin above the info button", model.frame.size.height - infoButton.maxY(), 5);
  compare("mark of the pin", headless::menuItem(menu, "Keep on Top").state(), int(model.pinned));
  compare("mark of wakes", headless::menuItem(menu, "Show on Screen Wake").state(), int(model.showOnWake));
  compare("mark of the login item", headless::menuItem(menu, "Start at Login").state(), int(model.loginItemMarked));
  return lines;
}

/// In a process of its own: there is one world a process.
bool goesWell(const Actions& actions, bool telling = false) {
  const pid_t child = fork();
  if (child == 0) {
    const auto model = std::make_shared<Model>();
    std::string differences;
    for (const Action* action : actions) {
      const bool can = action->when == anyTime || (action->when == running) == (program != nullptr);
      if (can && differences.empty()) differences = differencesAfter(*action, *model);
    }
    if (telling) std::cerr << differences;
    _exit(differences.empty() ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status == 0;
}

TEST(Life, IsAsTheModelSays) {
  for (unsigned seed = 0; seed < 500; ++seed) {
    std::mt19937 random(seed);
    Actions actions;
    while (actions.size() < 150) {
      const auto& table = random() % 4 == 0 ? rare : everyday;
      actions.push_back(random() % 12 == 0 ? &start : &table[random() % table.size()]);
    }
    if (goesWell(actions)) continue;
    for (std::size_t before = 0; before != actions.size();) {
      before = actions.size();
      for (auto at = actions.end(); at != actions.begin();) {
        const Action* const action = *--at;
        at = actions.erase(at);
        if (goesWell(actions)) at = actions.insert(at, action);
      }
    }
    goesWell(actions, true);
    std::string names;
    for (const Action* action : actions) names += std::string("\n  ") + action->name;
    FAIL() << "with seed " << seed << ", in the end after:" << names;
  }
}

TEST(Life, TakesNoMoreMemoryAsItGoesOn) {
  const auto model = std::make_shared<Model>();
  std::size_t before = 0;
  EXPECT_EQ(differencesAfter(start, *model), "");
  for (int round = 0; round < 200; ++round) {
    std::mt19937 random(0);
    for (int i = 0; i < 300; ++i) ASSERT_EQ(differencesAfter(everyday[random() % everyday.size()], *model), "");
    headless::textView().setString({});  // with the steps to undo, which a text view keeps for ever
    model->seeText();
    if (round == 20) before = mallinfo2().uordblks;
  }
  EXPECT_LE(mallinfo2().uordblks, before);
}

}  // namespace
}  // namespace quillberry
