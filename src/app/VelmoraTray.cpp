// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/EventPump.h"
#include "tray/SampleDisc.h"
#include "tray/TrayCommandLine.h"
#include "tray/TrayJob.h"
#include "tray/TrayTexts.h"
#include "tray/TrayWindow.h"
#include "virtual/Recorders.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <variant>
#include <vector>

namespace {

using namespace velmora;
using namespace Qt::StringLiterals;

bool IsSet(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

/// Without a command the user means the window, if there is a display to show it on.
bool IsForWindow(int argc) { return argc == 1 && (IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY")); }

int Tell(const tray::TrayReply& reply)
{
    std::FILE* out = reply.code == tray::TrayExit::Done ? stdout : stderr;
    std::fputs(tray::TextForTerminal(reply.text).c_str(), out);
    return static_cast<int>(reply.code);
}

bool AskAtTerminal(const QString& question)
{
    const std::string text
        = tray::TextForTerminal(question + u"\n[o puis Entrée pour oui, Entrée pour non]"_s);
    std::fputs(text.c_str(), stderr);
    std::string answer;
    std::getline(std::cin, answer);
    return answer.starts_with('o') || answer.starts_with('O');
}

} // namespace

int main(int argc, char** argv)
{
    // A file size limit must reach the recorder as a failed write.
    std::signal(SIGXFSZ, SIG_IGN);
    if (IsForWindow(argc)) {
        return tray::RunTrayWindow(argc, argv);
    }
    const tray::TrayCommand command = tray::ParseTrayCommandLine({argv + 1, argv + argc});
    if (const auto* reply = std::get_if<tray::TrayReply>(&command)) {
        return Tell(*reply);
    }
    runtime::SystemEventPump pump;
    const runtime::SystemClock clock(pump);
    return Tell(tray::RunTrayJob(std::get<tray::TrayRequest>(command),
        virtualdrive::Recorders::OfUser(tray::SampleImage),
        clock,
        AskAtTerminal));
}
