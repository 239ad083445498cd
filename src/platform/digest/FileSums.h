// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "digest/Sha256.h"
#include "image/contents/SumsFile.h"

namespace velmora::digest {

/// Computes the sums of the files in an image.
class FileSums final : public image::SumMaker {
public:
    void Add(std::span<const std::byte> bytes) override { sha256_.Add(bytes); }
    image::FileSum Finish() override { return sha256_.Finish(); }

private:
    Sha256 sha256_;
};

} // namespace velmora::digest
