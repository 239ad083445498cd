// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/LinkFolder.h"
#include "link/TextLink.h"
#include "runtime/Clock.h"
#include "runtime/EventPump.h"
#include "text/Paths.h"
#include "writing/RunFigures.h"
#include "writing/StopCompanion.h"

#include <QRect>
#include <QString>

#include <functional>
#include <utility>

namespace velmora::writing {

/// The stop companion in its own process, joined by a link.
///
/// A new one is started for each write, as the last one has quit by then. The folder in which the
/// two meet lasts until they are joined, or have failed to.
class LinkedStopCompanion final : public StopCompanion {
public:
    /// @param programFolder  the program's own
    /// @param DDETool        the linked text; it, the pump and the clock outlive the companion
    LinkedStopCompanion(const text::ProgramPath& programFolder,
        link::TextLink& DDETool,
        runtime::EventPump& pump,
        runtime::Clock& clock);

    /// From then on the companion appears beside a window, whose position is asked for at each
    /// start.
    /// @param window  with its frame, on the desktop
    void StandBeside(std::function<QRect()> window) { window_ = std::move(window); }

    /// Besides, error 285 or 286 when the started program isn't the companion or hangs.
    void Start() override;
    void Finish() override;
    void ShowProgress(const RunFigures& figures) override;
    bool IsStopAsked() const override;

private:
    void StartProcess(const link::LinkFolder& meetingPlace);
    void JoinProgress(const link::LinkFolder& meetingPlace);

    text::ProgramPath file_;
    link::TextLink& DDETool_;
    runtime::EventPump& pump_;
    runtime::Clock& clock_;
    std::function<QRect()> window_;
    bool hasQuit_ = false; // its last word is none for the next run
    link::TextLink progress_;
    RunPhase shownPhase_ = RunPhase::Idle;
    double nextProgress_ = 0; // by the clock
};

} // namespace velmora::writing
