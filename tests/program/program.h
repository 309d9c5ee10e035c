// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "app/app_delegate.h"
#include "platform/headless/headless.h"

namespace quillberry {

inline const platform::URL noteFile = "/home/user/.local/share/Quillberry/note.txt";

/// The program, launched as its entry point does it.
struct Program {
  std::shared_ptr<platform::NSApplication> app = platform::NSApplication::sharedApplication();
  std::shared_ptr<AppDelegate> delegate;

  Program() {
    app->setActivationPolicy(platform::NSApplicationActivationPolicyAccessory);
    delegate = std::make_shared<AppDelegate>();
    app->setDelegate(delegate);
    app->run();
  }
};

}  // namespace quillberry
