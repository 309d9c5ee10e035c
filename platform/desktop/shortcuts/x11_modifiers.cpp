// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/x11_modifiers.h"

#include <xcb/xcb_keysyms.h>

#include <algorithm>
#include <array>
#include <memory>

#include "platform/desktop/x11/x11.h"

namespace platform::desktop {
namespace {

using x11::Reply;

constexpr std::array<xcb_keysym_t, 2> lockKeys{0xFF7F, 0xFF14};  // Num Lock, Scroll Lock
constexpr std::array<xcb_keysym_t, 2> altKeys{0xFFE9, 0xFFEA};
constexpr std::array<xcb_keysym_t, 2> superKeys{0xFFEB, 0xFFEC};
constexpr int modifierCount = 8;

bool isOneOf(const std::array<xcb_keysym_t, 2>& keys, xcb_keysym_t key) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

}  // namespace

X11Modifiers X11Modifiers::ofKeyboard(xcb_connection_t* connection) {
  const std::unique_ptr<xcb_key_symbols_t, void (*)(xcb_key_symbols_t*)> symbols(xcb_key_symbols_alloc(connection),
                                                                                 xcb_key_symbols_free);
  const Reply<xcb_get_modifier_mapping_reply_t> map(
      xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr));
  X11Modifiers found;
  if (!symbols || !map) return found;
  unsigned alt = 0;
  unsigned super = 0;
  unsigned locks = 0;
  const xcb_keycode_t* key = xcb_get_modifier_mapping_keycodes(map.get());
  for (unsigned modifier = 0; modifier < modifierCount; ++modifier) {
    for (int i = 0; i < map->keycodes_per_modifier; ++i, ++key) {
      const xcb_keysym_t symbol = *key == 0 ? XCB_NO_SYMBOL : xcb_key_symbols_get_keysym(symbols.get(), *key, 0);
      const unsigned bit = 1U << modifier;
      if (alt == 0 && isOneOf(altKeys, symbol)) alt = bit;
      if (super == 0 && isOneOf(superKeys, symbol)) super = bit;
      if (isOneOf(lockKeys, symbol)) locks |= bit;
    }
  }
  if (alt != 0) found.alt = alt;
  // A bit that Alt, Super, Shift or Control uses too does not count as a lock.
  found.locks |= locks & ~(found.alt | super | XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL);
  return found;
}

std::vector<unsigned> X11Modifiers::lockCombinations() const {
  std::vector<unsigned> all;
  for (unsigned subset = locks;; subset = (subset - 1) & locks) {
    all.push_back(subset);
    if (subset == 0) return all;
  }
}

}  // namespace platform::desktop
