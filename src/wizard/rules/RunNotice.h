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
    Doubtful, ///< done, but not everything as wanted, or the disc wasn't compared
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

/// Why a disc was not erased, according to drive and disc, and whether it is unchanged; empty if it
/// was erased, or wasn't meant to be.
QString CauseOfErase(const writing::RunReport& report);

/// Did it end in a way that the user must see before the window closes?
bool MustBeSeen(const writing::RunReport& report);

} // namespace velmora::wizard
