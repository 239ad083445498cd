// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/EventPump.h"
#include "tray/SampleDisc.h"
#include "tray/TrayCommandLine.h"
#include "tray/TrayJob.h"
#include "tray/TrayWindow.h"
#include "virtual/Recorders.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <variant>
#include <vector>

namespace {

using namespace velmora;

bool IsSet(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

/// Without a command a person means the window, where there is a display to show it on.
bool IsForWindow(int argc) { return argc == 1 && (IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY")); }

int Tell(const tray::TrayReply& reply)
{
    std::FILE* out = reply.code == tray::TrayExit::Done ? stdout : stderr;
    std::fputs((reply.text.trimmed() + u'\n').toUtf8().constData(), out);
    return static_cast<int>(reply.code);
}

} // namespace

int main(int argc, char** argv)
{
    if (IsForWindow(argc)) {
        return tray::RunTrayWindow(argc, argv);
    }
    const tray::TrayCommand command = tray::ParseCommandLine({argv + 1, argv + argc});
    if (const auto* reply = std::get_if<tray::TrayReply>(&command)) {
        return Tell(*reply);
    }
    runtime::SystemEventPump pump;
    const runtime::SystemClock clock(pump);
    return Tell(tray::RunTrayJob(std::get<tray::TrayRequest>(command),
        virtualdrive::Recorders::OfUser(tray::SampleImage),
        clock));
}
