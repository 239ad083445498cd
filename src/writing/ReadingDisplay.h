// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/ProgramState.h"
#include "writing/BurnScreen.h"

#include <QString>

namespace velmora::writing {

/// Shows which file is being read. The window keeps it: the last file and the points outlive a run.
class ReadingDisplay {
public:
    ReadingDisplay(BurnScreen& screen, const shell::ProgramState& state);

    /// The Update event of the image. A file reported by several events in a row gets its bar and a
    /// growing row of points; a short one just its name. Error 6 when the bar's value needs more
    /// than 16 bits.
    void FSI1_Update(const QString& currentFile, qint32 copiedSectors, qint32 totalSectors);

private:
    void Animate(const QString& currentFile);

    BurnScreen& screen_;
    const shell::ProgramState& state_;
    QString lastFile_;
    QString dots_;
};

} // namespace velmora::writing
