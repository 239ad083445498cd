// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

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

    /// Click of Commandundo: starts the companion, joins it and empties DDETool.
    /// Errors: 53 when its file is missing, 5 or 70 when it can't be started, 282 when it doesn't
    /// answer.
    virtual void Commandundo() = 0;

    /// Click of Commandpoke: DDETool becomes "Quit" and the companion is told to quit. Never fails;
    /// harmless when none runs.
    virtual void Commandpoke() = 0;

    /// The write's progress, for its window. Never fails; harmless when none runs.
    virtual void ShowProgress(const RunFigures& /*figures*/) { }

    /// The text of DDETool: empty, "Undo" once the companion's button was pressed, or "Quit".
    virtual QString DDETool() const = 0;
};

} // namespace velmora::writing
