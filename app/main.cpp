// SPDX-License-Identifier: MIT
#include <memory>

#include "app/app_delegate.h"
#include "platform/application.h"

int main() {
  const auto app = platform::NSApplication::sharedApplication();
  app->setActivationPolicy(platform::NSApplicationActivationPolicyAccessory);
  const auto delegate = std::make_shared<quillberry::AppDelegate>();
  app->setDelegate(delegate);
  app->run();
  return 0;
}
