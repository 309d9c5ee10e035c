// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusVariant>
#include <QObject>

namespace platform::desktop {

class Bus;
class FirstFrame;

/// Dark or light colours, as the desktop has them now and whenever that changes. The settings portal decides, or in
/// Xfce the name of the theme. The colours themselves are those of Qt's platform theme if that has such a scheme. The
/// last known choice is stored, since the first frame does not wait for a bus.
class ThemeFollower : public QObject {
  Q_OBJECT

 public:
  /// To be made after Qt's application.
  ThemeFollower();

  /// Applies the stored choice, and listens to the desktop once the first frame has been drawn. Both outlive this.
  void followDesktop(FirstFrame& firstFrame, Bus& sessionBus);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The settings portal's values of "color-scheme".
  enum class Scheme : uint { NoPreference = 0, Dark = 1, Light = 2 };

  Q_SLOT void onSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  static Scheme schemeIn(const QVariant& value);

  void listenToDesktop();
  void setScheme(Scheme scheme);
  void applyScheme();

  bool styleNamesTheColors_;
  Scheme scheme_ = Scheme::NoPreference;
};

}  // namespace platform::desktop
