// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::wizard {

/// What a screen reader says about a run: each new phase once, and the progress in steps of ten
/// percent. A status line that only counts says nothing.
class SpokenStatus {
public:
    /// @param caption  what the status line shows now
    /// @return what to say; empty: nothing
    QString OnStatus(const QString& caption);

    /// @param percent  0 to 100; less than before starts again
    /// @return as above
    QString OnPercent(int percent);

private:
    QString phase_; ///< the status line without its figures
    int tens_ = 0;
};

} // namespace velmora::wizard
