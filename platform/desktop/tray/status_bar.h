// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/base/singleton.h"

namespace platform::desktop {

class Bus;
class FirstFrame;
class ExportedActions;
class ProgramWindows;
class RequestQueue;

/// What a status item uses of the other folders. All of it outlives this.
struct StatusBar : Singleton<StatusBar> {
  StatusBar(Bus& bus, FirstFrame& frame, RequestQueue& queue, ProgramWindows& program, ExportedActions& actions)
      : sessionBus(bus), firstFrame(frame), requests(queue), windows(program), exportedActions(actions) {}

  Bus& sessionBus;
  FirstFrame& firstFrame;
  RequestQueue& requests;
  ProgramWindows& windows;
  ExportedActions& exportedActions;
};

}  // namespace platform::desktop
