// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/comparison/FileDigests.h"

#include <algorithm>
#include <utility>

namespace velmora::mastering {

FileDigests::FileDigests(std::vector<imapi::FileExtent> files)
    : files_(std::move(files))
{
}

void FileDigests::Add(std::span<const std::byte> bytes)
{
    const quint64 end = position_ + bytes.size();
    while (digests_.size() < files_.size() && files_[digests_.size()].firstByte < end) {
        const imapi::FileExtent& file = files_[digests_.size()];
        const quint64 from = std::max(position_, file.firstByte);
        const quint64 to = std::min(end, file.firstByte + file.bytes);
        running_.Add(bytes.subspan(from - position_, to - from));
        if (to < file.firstByte + file.bytes) {
            break; // the next bytes go on with it
        }
        digests_.push_back(running_.Finish());
    }
    position_ = end;
}

} // namespace velmora::mastering
