// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/disc/DiscContext.h"

#include <QString>

#include <string>

namespace velmora::terminal {

/// Says what a disc is still good for after a write that failed or wasn't even begun: judged by
/// what the drive reported about the write, and about the disc before it.
class DiscAftermath {
public:
    /// @param context  must outlive the object
    DiscAftermath(const DiscContext& context, QString recorderId);

    /// Something was written.
    bool IsTouched() const;
    /// The rest of a sentence about a failed write, with its full stop.
    std::string Words() const;
    /// ...about a stopped one: a stop may come while the drive only ends what it has written.
    std::string WordsOfStop(bool tookAllSectors) const;
    /// How to blank a used erasable disc, as a sentence to follow another one; empty if no such
    /// disc was seen.
    std::string AdviceToErase() const;

private:
    bool IsBlankNoMore() const;

    const DiscContext& context_;
    QString recorderId_;
    const WitnessedRecording* recording_;
};

} // namespace velmora::terminal
