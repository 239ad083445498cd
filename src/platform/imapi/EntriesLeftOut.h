// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/RuntimeError.h"

#include <QString>

#include <utility>
#include <vector>

namespace velmora::imapi {

/// Something on this machine that the image lacks.
struct LeftOutEntry {
    QString path {};   ///< program path, or the path on the disc of what is there alone
    QString reason {}; ///< one French sentence or several, without the path
};

/// The single error of an addition that left entries out and added the rest: number and description
/// are as for any other error, and it holds all of the entries.
class EntriesLeftOut final : public runtime::RuntimeError {
public:
    EntriesLeftOut(qint32 number, const QString& description, std::vector<LeftOutEntry> entries)
        : RuntimeError(number, description)
        , entries_(std::move(entries))
    {
    }

    const std::vector<LeftOutEntry>& Entries() const { return entries_; }

private:
    std::vector<LeftOutEntry> entries_;
};

} // namespace velmora::imapi
