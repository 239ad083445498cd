// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IStream.h"
#include "mastering/comparison/PieceDigests.h"

#include <span>
#include <vector>

namespace velmora::mastering {

/// A short digest of each file in a recording whose bytes go by in order; it tells a damaged file
/// from its neighbours.
class FileDigests {
public:
    /// @param files  in the order of their bytes
    explicit FileDigests(std::vector<imapi::FileExtent> files);

    /// Adds the next bytes.
    void Add(std::span<const std::byte> bytes);

    const std::vector<imapi::FileExtent>& Files() const { return files_; }
    /// The digests of the files that went by completely, in order.
    const std::vector<PieceDigests::Digest>& Digests() const { return digests_; }

private:
    std::vector<imapi::FileExtent> files_;
    std::vector<PieceDigests::Digest> digests_;
    RunningDigest running_; // of the file that is going by
    quint64 position_ = 0;
};

} // namespace velmora::mastering
