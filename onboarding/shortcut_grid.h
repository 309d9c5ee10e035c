// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/grid_view.h"

namespace quillberry {

struct ShortcutRow {
  std::string_view keyCaps;  ///< in symbols
  std::string description;
};

/// In points.
struct ShortcutGridMetrics {
  double fontSize;
  double columnSpacing;
  double rowSpacing;
};

/// The shortcuts in two columns: the key caps, and what they do.
std::shared_ptr<platform::NSGridView> makeShortcutGrid(const std::vector<ShortcutRow>& rows,
                                                       ShortcutGridMetrics metrics);

}  // namespace quillberry
