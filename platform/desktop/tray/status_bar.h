// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/one_in_process.h"

namespace platform::desktop {

class Bus;
class FirstFrame;
class OfferedCommands;
class ProgramWindows;
class RequestQueue;

/// What status items work with. All of it outlives this.
struct StatusBar : OneInProcess<StatusBar> {
  StatusBar(Bus& bus, FirstFrame& frame, RequestQueue& queue, ProgramWindows& program, OfferedCommands& offered)
      : sessionBus(bus), firstFrame(frame), requests(queue), windows(program), commands(offered) {}

  Bus& sessionBus;
  FirstFrame& firstFrame;
  RequestQueue& requests;
  ProgramWindows& windows;
  OfferedCommands& commands;
};

}  // namespace platform::desktop
