// SPDX-License-Identifier: MIT
#include "platform/drawing.h"

#include <cstdio>

#include "platform/headless/world.h"
#include "platform/utf8.h"

namespace platform {

using headless::world;

namespace {

template <typename... Numbers>
std::string formatted(const char* format, Numbers... numbers) {
  char text[160];
  std::snprintf(text, sizeof text, format, numbers...);
  return text;
}

std::string describe(const NSColor& color) {
  return formatted("%.3f %.3f %.3f %.1f", color.red, color.green, color.blue, color.alpha);
}

std::string describe(const NSBezierPath& path) {
  const NSRect rect = path.rect();
  return formatted("%g %g %g %g radius %g %g", rect.origin.x, rect.origin.y, rect.size.width, rect.size.height,
                   path.xRadius(), path.yRadius());
}

void draw(std::string what) {
  if (world().drawing) world().drawing->push_back(std::move(what));
}

}  // namespace

void NSColor::setStroke() const { world().strokeColor = describe(*this); }

void NSBezierPath::stroke() const {
  draw("stroke " + describe(*this) + " width " + formatted("%g", lineWidth_) + " in " + world().strokeColor);
}

void NSGradient::drawInBezierPath(const NSBezierPath& path, double angle) const {
  draw("fill " + describe(path) + " from " + describe(colors_.front()) + " to " + describe(colors_.back()) +
       formatted(" at %g", angle));
}

// A character is as wide as the font is high.
NSSize NSString::sizeWithAttributes(std::string_view text, const NSStringAttributes& attributes) {
  const double height = attributes.font.pointSize;
  return {height * static_cast<double>(utf16Length(text)) / 2, height};
}

void NSString::drawAtPoint(std::string_view text, NSPoint point, const NSStringAttributes& attributes) {
  draw("text " + std::string(text) + formatted(" at %g %g size %g", point.x, point.y, attributes.font.pointSize));
}

std::vector<std::string> headless::drawingOf(const NSImage& image) {
  world().drawing.emplace();
  const bool drawn = image.drawingHandler && image.drawingHandler({{0, 0}, image.size()});
  auto operations = *std::exchange(world().drawing, std::nullopt);
  if (!drawn) operations.emplace_back("not drawn");
  return operations;
}

}  // namespace platform
