// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/drives/MediaLook.h"

#include "drive/Readiness.h"

namespace velmora::terminal {

namespace {

/// Waits until the drive tells about its disc.
bool WaitForMedia(imapi::IDiscFormat2Data& writer,
    const imapi::RecorderRef& recorder,
    runtime::Clock& clock,
    TerminalScreen& screen,
    const std::function<bool()>& stopRequested)
{
    constexpr int kMostSeconds = 30;
    return drive::AnswerOnceReady([&] { return writer.IsCurrentMediaSupported(recorder); },
        kMostSeconds,
        clock,
        [&](int waited) {
            if (waited == 0) {
                screen.Notice("Le lecteur se prépare ; patience, une demi-minute environ.");
            }
            return !stopRequested || !stopRequested();
        });
}

} // namespace

MediaLook LookAtMedia(imapi::IDiscFormat2Data& writer,
    const imapi::RecorderRef& recorder,
    runtime::Clock& clock,
    TerminalScreen& screen,
    const std::function<bool()>& stopRequested)
{
    MediaLook look;
    look.isRecordable = WaitForMedia(writer, recorder, clock, screen, stopRequested);
    const imapi::MultisessionRef disc = writer.MultisessionInterfaces().front();
    look.hasDisc = disc->State() != drive::DiscState::None;
    if (!look.hasDisc) {
        return look;
    }
    look.type = writer.CurrentPhysicalMediaType();
    look.status = writer.CurrentMediaStatus();
    look.isBlank = writer.MediaHeuristicallyBlank();
    look.totalSectors = writer.TotalSectorsOnMedia();
    look.sessions = disc->Sessions();
    if (look.isRecordable) {
        look.freeSectors = writer.FreeSectorsOnMedia();
        look.speeds = writer.SupportedWriteSpeeds();
    }
    return look;
}

} // namespace velmora::terminal
