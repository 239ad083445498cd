// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/ImageErrors.h"

#include "runtime/RuntimeError.h"
#include "text/PathText.h"

#include <QString>

namespace velmora::mastering {

void Raise(const image::Error& failure)
{
    throw runtime::RuntimeError(runtime::MapHresult(image::PublishedNumber(failure.kind)),
        QString::fromStdString(image::Describe(failure)));
}

std::vector<imapi::LeftOutEntry> EntriesOf(const std::vector<image::Error>& leftOut)
{
    std::vector<imapi::LeftOutEntry> entries;
    entries.reserve(leftOut.size());
    for (const image::Error& error : leftOut) {
        entries.push_back({.path = text::ToProgramPath(error.path),
            .reason = QString::fromStdString(image::Describe(error))});
    }
    return entries;
}

} // namespace velmora::mastering
