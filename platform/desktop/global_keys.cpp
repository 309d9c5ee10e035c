#include "platform/desktop/global_keys.h"

#include "platform/desktop/desktop.h"
#include "platform/desktop/x11.h"
#include "platform/desktop/x11_global_keys.h"
#include "platform/hot_key.h"

namespace platform {
namespace desktop {
namespace {

/// A display that gives no keys away. The menu's actions on the bus are there for its own shortcuts.
class NoGlobalKeys : public GlobalKeys {
 public:
  bool listen(std::uint32_t /*keyCode*/, std::uint32_t /*modifiers*/, std::function<void()> /*pressed*/) override {
    return false;
  }
};

}  // namespace

std::unique_ptr<GlobalKeys> GlobalKeys::forThisDisplay() {
  if (x11::connection() != nullptr) return makeX11GlobalKeys(x11::connection());
  return std::make_unique<NoGlobalKeys>();
}

}  // namespace desktop

bool listenForHotKey(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) {
  return desktop::globalKeys().listen(keyCode, modifiers,
                                      [pressed = std::move(pressed)] { desktop::requests().add(pressed); });
}

}  // namespace platform
