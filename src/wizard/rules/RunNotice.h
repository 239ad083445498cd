// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::writing {
struct RunReport;
}

namespace velmora::wizard {

/// How a run ended, at a glance.
enum class Outcome : qint8 {
    None,     ///< nothing was begun
    Done,     ///< and there is nothing to add
    Doubtful, ///< done, but not all is as it was wanted, or nobody compared the disc
    Stopped,
    Refused, ///< nothing was written
    Failed,
};

/// How a run ended, in French.
struct RunNotice {
    Outcome outcome = Outcome::None;
    QString title {};  ///< the end in a few words
    QString words {};  ///< the details: one or more sentences, or a path
    QString advice {}; ///< what the user can do next; often empty
};

RunNotice NoticeOfBurn(const writing::RunReport& report);
RunNotice NoticeOfErase(const writing::RunReport& report);

/// Why a disc was not erased, as drive and disc tell it, and whether it is as before; empty where
/// it was erased, or nobody wanted it.
QString CauseOfErase(const writing::RunReport& report);

/// Did it end in a way that the user must see before the window closes?
bool MustBeSeen(const writing::RunReport& report);

} // namespace velmora::wizard
