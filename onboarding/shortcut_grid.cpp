// SPDX-License-Identifier: MIT
#include "onboarding/shortcut_grid.h"

#include "platform/localized_string.h"
#include "platform/text_field.h"

namespace quillberry {

using namespace platform;

std::shared_ptr<NSGridView> makeShortcutGrid(const std::vector<ShortcutRow>& rows, ShortcutGridMetrics metrics) {
  auto grid = NSGridView::gridViewWithNumberOfColumns(2, 0);
  grid->setColumnSpacing(metrics.columnSpacing);
  grid->setRowSpacing(metrics.rowSpacing);
  for (const ShortcutRow& row : rows) {
    const auto keyCaps = NSTextField::labelWithString(NSLocalizedString(row.keyCaps));
    keyCaps->setFont(NSFont::monospacedSystemFontOfSize(metrics.fontSize, NSFontWeight::Semibold));
    const auto description = NSTextField::labelWithString(row.description);
    description->setFont(NSFont::systemFontOfSize(metrics.fontSize));
    description->setTextColor(NSColor::secondaryLabelColor());
    grid->addRowWithViews({keyCaps, description});
  }
  return grid;
}

}  // namespace quillberry
