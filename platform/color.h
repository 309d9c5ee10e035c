#pragma once

namespace platform {

/// A colour by its role; a platform takes it from the desktop's palette, in light and dark, when it draws.
enum class NSColor { tertiaryLabelColor };

}  // namespace platform
