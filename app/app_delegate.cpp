#include "app/app_delegate.h"

#include <array>
#include <variant>

#include "platform/user_defaults.h"

namespace quillberry {

using platform::NSUserDefaults;
using platform::Selector;

namespace {

/// A setting that is on unless the store says false; a value of another type says nothing.
bool settingOnByDefault(std::string_view key) {
  const auto stored = NSUserDefaults::standardUserDefaults().objectForKey(key);
  const bool* value = stored ? std::get_if<bool>(&*stored) : nullptr;
  return value == nullptr || *value;
}

}  // namespace

AppDelegate::AppDelegate()
    : updaterController(std::make_shared<platform::SPUStandardUpdaterController>(true, nullptr, nullptr)),
      pinned(settingOnByDefault("pinned")),
      showOnWake(settingOnByDefault("showOnWake")),
      noteURL(supportDir() / "note.txt") {}

void AppDelegate::applicationDidFinishLaunching() {
  shared = self();
  buildMainMenu();
  buildNoteWindow();
  buildStatusItem();
  registerHotKeys();
  observeWake();
  loadNote();
  applyPin();
  registerAtFirstLaunch();
  showWindow();
  showWelcomeIfFirstRun();
}

void AppDelegate::applicationWillTerminate() { saveNow(); }

bool AppDelegate::perform(Selector action, NSObject* sender) {
  struct Action {
    Selector selector;
    void (AppDelegate::*run)();
  };
  static constexpr std::array actions{
      Action{{"textChanged"}, &AppDelegate::textChanged},
      Action{{"toggleWindow"}, &AppDelegate::toggleWindow},
      Action{{"togglePin"}, &AppDelegate::togglePin},
      Action{{"toggleShowOnWake"}, &AppDelegate::toggleShowOnWake},
      Action{{"toggleLaunchAtLogin"}, &AppDelegate::toggleLaunchAtLogin},
      Action{{"screenWoke"}, &AppDelegate::screenWoke},
      Action{{"dismissWelcome"}, &AppDelegate::dismissWelcome},
  };
  if (action == Selector{"showInfo"}) {
    showInfo(sender);
    return true;
  }
  for (const Action& candidate : actions) {
    if (candidate.selector != action) continue;
    (this->*candidate.run)();
    return true;
  }
  return false;
}

std::shared_ptr<AppDelegate> AppDelegate::self() { return std::static_pointer_cast<AppDelegate>(shared_from_this()); }

}  // namespace quillberry
