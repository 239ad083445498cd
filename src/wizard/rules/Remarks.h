// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <vector>

namespace velmora::writing {
struct RunReport;
}

namespace velmora::wizard {

/// A difference between a disc and the folder that it is made from.
struct Remark {
    QString path {};     ///< for display
    QString words {};    ///< French sentences: what it is and, for a loss, how to fix it
    bool isLoss = false; ///< visible in the folder, but unreadable on the disc
};

/// The remarks of a run on what it wrote, losses first.
std::vector<Remark> RemarksOf(const writing::RunReport& report);

bool HasLoss(const std::vector<Remark>& remarks);

/// All of them as one text, a paragraph each.
QString TextOf(const std::vector<Remark>& remarks);

} // namespace velmora::wizard
