// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"

#include <array>
#include <type_traits>
#include <variant>

#include "platform/user_defaults.h"

namespace quillberry {

using platform::NSObject;
using platform::NSUserDefaults;
using platform::Selector;

namespace {

/// A setting that is on unless the store says false; a value of another type says nothing.
bool settingOnByDefault(std::string_view key) {
  const auto stored = NSUserDefaults::standardUserDefaults().objectForKey(key);
  const bool* value = stored ? std::get_if<bool>(&*stored) : nullptr;
  return value == nullptr || *value;
}

/// An operation as an action: of the controller, or of its sender alone.
template <auto operation>
void call(AppDelegate& controller, NSObject* sender) {
  if constexpr (std::is_invocable_v<decltype(operation), NSObject*>) {
    operation(sender);
  } else {
    (controller.*operation)();
  }
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
    void (*run)(AppDelegate& controller, NSObject* sender);
  };
  static constexpr std::array actions{
      Action{{"textChanged"}, call<&AppDelegate::textChanged>},
      Action{{"toggleWindow"}, call<&AppDelegate::toggleWindow>},
      Action{{"togglePin"}, call<&AppDelegate::togglePin>},
      Action{{"toggleShowOnWake"}, call<&AppDelegate::toggleShowOnWake>},
      Action{{"toggleLaunchAtLogin"}, call<&AppDelegate::toggleLaunchAtLogin>},
      Action{{"screenWoke"}, call<&AppDelegate::screenWoke>},
      Action{{"showInfo"}, call<&AppDelegate::showInfo>},
      Action{{"dismissWelcome"}, call<&AppDelegate::dismissWelcome>},
  };
  for (const Action& candidate : actions) {
    if (candidate.selector != action) continue;
    candidate.run(*this, sender);
    return true;
  }
  return false;
}

std::shared_ptr<AppDelegate> AppDelegate::self() { return std::static_pointer_cast<AppDelegate>(shared_from_this()); }

}  // namespace quillberry
