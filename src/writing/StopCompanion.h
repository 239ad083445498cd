// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velmora::writing {

struct RunFigures;

/// The second program, which lets the user stop a write at any moment, as this one sees it.
class StopCompanion {
public:
    StopCompanion() = default;
    virtual ~StopCompanion() = default;
    StopCompanion(const StopCompanion&) = delete;
    StopCompanion& operator=(const StopCompanion&) = delete;
    StopCompanion(StopCompanion&&) = delete;
    StopCompanion& operator=(StopCompanion&&) = delete;

    /// Starts the companion, joins it and takes an earlier wish to stop back (the hidden button
    /// Commandundo).
    /// Errors: 53 when its file is missing, 5 or 70 when it can't be started, 282 when it doesn't
    /// answer.
    virtual void Start() = 0;

    /// Tells the companion to quit (the hidden button Commandpoke). Never fails; harmless when none
    /// runs.
    virtual void Finish() = 0;

    /// The write's progress, for its window. Never fails; harmless when none runs.
    virtual void ShowProgress(const RunFigures& /*figures*/) { }

    /// The companion's button was pressed: the text that both share (DDETool) says "Undo", and not
    /// only since the companion was told to quit.
    virtual bool IsStopAsked() const = 0;
};

} // namespace velmora::writing
