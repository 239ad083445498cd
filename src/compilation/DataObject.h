// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QtGlobal>

#include <optional>
#include <vector>

class QMimeData;

namespace velmora::compilation {

/// What a drag carries. It outlives the drag.
class DataObject {
public:
    /// The format of a list of files.
    static constexpr qint16 kFiles = 15;

    /// Extracts the addresses from the desktop's data.
    explicit DataObject(const QMimeData& data);

    /// Whether the drag offers a format; only lists of files are known.
    bool GetFormat(qint16 format) const { return format == kFiles && !files_.empty(); }

    qsizetype FilesCount() const { return static_cast<qsizetype>(files_.size()); }
    /// A file, counted from 1.
    /// Error 461 for an address that leads to another machine, and outside the list.
    text::ProgramPath Files(qsizetype index) const;

private:
    std::vector<std::optional<text::ProgramPath>> files_;
};

} // namespace velmora::compilation
