// SPDX-License-Identifier: MIT
#include "bench/screen.h"

#include <poll.h>
#include <xcb/xcb_keysyms.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <map>

namespace bench {
namespace {

constexpr int smallestWindow = 100;  // pixels; helper windows are smaller
constexpr int largestCaret = 1000;   // pixels, with what a toolkit draws anew around it
const std::map<std::string_view, xcb_keysym_t> otherKeys{
    {"Control", 0xffe3}, {"Escape", 0xff1b}, {"BackSpace", 0xff08}, {"End", 0xff57}};

[[noreturn]] void fail(const char* why) {
  std::fprintf(stderr, "bench: %s\n", why);
  std::exit(EXIT_FAILURE);
}

}  // namespace

double millisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

Rect Rect::intersected(const Rect& other) const {
  const int left = std::max(x, other.x);
  const int top = std::max(y, other.y);
  return {left, top, std::min(x + width, other.x + other.width) - left,
          std::min(y + height, other.y + other.height) - top};
}

std::uint32_t Picture::at(int x, int y) const {
  return pixels[static_cast<std::size_t>(y - rect.y) * rect.width + (x - rect.x)];
}

void Picture::save(const std::filesystem::path& file) const {
  std::ofstream out(file, std::ios::binary);
  out.write(reinterpret_cast<const char*>(&rect), sizeof rect);
  out.write(reinterpret_cast<const char*>(pixels.data()), static_cast<std::streamsize>(pixels.size() * 4));
  if (!out.flush()) fail("cannot write a picture");
}

Picture Picture::load(const std::filesystem::path& file) {
  Picture picture;
  std::ifstream in(file, std::ios::binary);
  in.read(reinterpret_cast<char*>(&picture.rect), sizeof picture.rect);
  if (in) picture.pixels.resize(picture.rect.area());
  in.read(reinterpret_cast<char*>(picture.pixels.data()), static_cast<std::streamsize>(picture.pixels.size() * 4));
  if (!in) fail("cannot read a picture");
  return picture;
}

Screen::Screen() : connection_(xcb_connect(nullptr, nullptr), xcb_disconnect) {
  if (xcb_connection_has_error(connection_.get())) fail("no display");
  screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
}

Rect Screen::bounds() const { return {0, 0, screen_->width_in_pixels, screen_->height_in_pixels}; }

Picture Screen::grab(const Rect& rect) const {
  const Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(
      connection_.get(),
      xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root, static_cast<std::int16_t>(rect.x),
                    static_cast<std::int16_t>(rect.y), static_cast<std::uint16_t>(rect.width),
                    static_cast<std::uint16_t>(rect.height), ~0U),
      nullptr));
  if (!image || xcb_get_image_data_length(image.get()) != rect.area() * 4) fail("cannot copy the screen");
  const auto* const data = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get()));
  return {rect, {data, data + rect.area()}};
}

xcb_atom_t Screen::atom(std::string_view name) const {
  const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
      connection_.get(), xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
      nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

Rect Screen::activeWindow() const {
  xcb_connection_t* const connection = connection_.get();
  const Reply<xcb_get_property_reply_t> active(xcb_get_property_reply(
      connection, xcb_get_property(connection, 0, screen_->root, atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 0, 1),
      nullptr));
  if (!active || xcb_get_property_value_length(active.get()) != sizeof(xcb_window_t)) return {};
  const auto window = *static_cast<const xcb_window_t*>(xcb_get_property_value(active.get()));
  const Reply<xcb_get_geometry_reply_t> size(
      xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
  const Reply<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(
      connection, xcb_translate_coordinates(connection, window, screen_->root, 0, 0), nullptr));
  if (!size || !place) return {};
  return Rect{place->dst_x, place->dst_y, size->width, size->height}.intersected(bounds());
}

std::uint8_t Screen::keyCode(std::string_view name) const {
  const auto other = otherKeys.find(name);
  const xcb_keysym_t symbol = other != otherKeys.end() ? other->second : static_cast<unsigned char>(name.front());
  const std::unique_ptr<xcb_key_symbols_t, void (*)(xcb_key_symbols_t*)> symbols(
      xcb_key_symbols_alloc(connection_.get()), xcb_key_symbols_free);
  const Reply<xcb_keycode_t> codes(xcb_key_symbols_get_keycode(symbols.get(), symbol));
  if (!codes) fail("the keyboard has no such key");
  return codes.get()[0];
}

void Screen::press(std::string_view chord) const {
  std::vector<std::uint8_t> keys;
  for (std::size_t start = 0; start < chord.size();) {
    const std::size_t end = std::min(chord.find('+', start), chord.size());
    keys.push_back(keyCode(chord.substr(start, end - start)));
    start = end + 1;
  }
  const auto fake = [this](std::uint8_t type, std::uint8_t key) {
    xcb_test_fake_input(connection_.get(), type, key, XCB_CURRENT_TIME, screen_->root, 0, 0, 0);
  };
  for (const std::uint8_t key : keys) fake(XCB_KEY_PRESS, key);
  std::reverse(keys.begin(), keys.end());
  for (const std::uint8_t key : keys) fake(XCB_KEY_RELEASE, key);
  xcb_flush(connection_.get());
}

void Screen::watch() {
  xcb_connection_t* const connection = connection_.get();
  const xcb_query_extension_reply_t* const extension = xcb_get_extension_data(connection, &xcb_damage_id);
  if (extension == nullptr || extension->present == 0) fail("the server does not tell of drawing");
  firstDamageEvent_ = extension->first_event;
  const Reply<xcb_damage_query_version_reply_t> version(
      xcb_damage_query_version_reply(connection, xcb_damage_query_version(connection, 1, 1), nullptr));
  const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(connection, screen_->root, XCB_CW_EVENT_MASK, &mask);
  const Reply<xcb_generic_error_t> refused(
      xcb_request_check(connection, xcb_damage_create_checked(connection, xcb_generate_id(connection), screen_->root,
                                                              XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES)));
  if (refused) fail("the server does not tell of drawing");
}

Reply<xcb_generic_event_t> Screen::waitForEvent(Clock::time_point deadline) const {
  while (true) {
    if (Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) return event;
    if (xcb_connection_has_error(connection_.get())) fail("the display went away");
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) return nullptr;
    pollfd readable{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
    poll(&readable, 1, static_cast<int>(left));
  }
}

std::optional<Rect> Screen::drawnOn(const xcb_generic_event_t& event) const {
  if ((event.response_type & 0x7FU) != firstDamageEvent_ + XCB_DAMAGE_NOTIFY) return std::nullopt;
  const auto& area = reinterpret_cast<const xcb_damage_notify_event_t&>(event).area;
  return Rect{area.x, area.y, area.width, area.height};
}

bool Screen::showsWindow(const xcb_generic_event_t& event) const {
  if ((event.response_type & 0x7FU) != XCB_MAP_NOTIFY) return false;
  const xcb_window_t window = reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
  const Reply<xcb_get_geometry_reply_t> geometry(
      xcb_get_geometry_reply(connection_.get(), xcb_get_geometry(connection_.get(), window), nullptr));
  return geometry && geometry->width >= smallestWindow && geometry->height >= smallestWindow;
}

bool Screen::waitUntilStill(std::chrono::milliseconds quiet, std::chrono::milliseconds limit) const {
  const auto end = Clock::now() + limit;
  for (auto still = Clock::now() + quiet; Clock::now() < end;) {
    const auto event = waitForEvent(still);
    if (!event) return true;
    const auto drawn = drawnOn(*event);
    if (drawn && drawn->area() > largestCaret) still = Clock::now() + quiet;
  }
  return false;
}

}  // namespace bench
