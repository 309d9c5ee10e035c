// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace platform::desktop {

/// Takes the style's colours anew when the desktop's theme turns dark or light. The toolkit keeps those that it had at
/// the start where the desktop names no colours of its own; where it does, they are followed by the toolkit.
class ThemeFollower : public QObject {
 public:
  /// To be made after the toolkit's application.
  ThemeFollower();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool styleNamesTheColors_;
};

}  // namespace platform::desktop
