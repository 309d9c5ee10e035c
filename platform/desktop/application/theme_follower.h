// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusVariant>
#include <QObject>

namespace platform::desktop {

class Bus;
class FirstFrame;

/// Dark or light as the desktop says, now and whenever it changes: the portal of settings, or in Xfce the name of the
/// theme, decides between dark and light colours; the colours are those of Qt's own theme, if it has such. What the
/// desktop said last is remembered, for the first frame does not wait for a bus.
class ThemeFollower : public QObject {
  Q_OBJECT

 public:
  /// To be made after Qt's application.
  ThemeFollower();

  /// Takes what the desktop said last, and listens to it once the first frame has been drawn. Both outlive this.
  void followDesktop(FirstFrame& firstFrame, Bus& sessionBus);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// As the portal of settings counts them.
  enum class Scheme : uint { NoPreference = 0, Dark = 1, Light = 2 };

  Q_SLOT void onSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  static Scheme schemeIn(const QVariant& value);

  void askDesktop();
  void setScheme(Scheme scheme);
  void applyScheme();

  bool styleNamesTheColors_;
  Scheme scheme_ = Scheme::NoPreference;
};

}  // namespace platform::desktop
