// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/PublishedCodes.h"
#include "mastering/image/RecordedFileSystem.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>

using namespace velmora;

namespace {

constexpr std::size_t kSector = 2048;
constexpr qint64 kSectors = 300;

/// A disc of a few sectors made from the fuzzer's bytes: for each filled sector its number, in two
/// bytes, and 256 bytes for its start. Everything else is zero.
class ForeignDisc final : public imapi::IMultisession {
public:
    explicit ForeignDisc(std::span<const std::uint8_t> bytes)
        : bytes_(bytes)
    {
        if (bytes_.size() > 2) {
            session_ = {.firstSector = bytes_[0], .sectors = bytes_[1]};
            hasSession_ = (bytes_[2] & 1) != 0;
            bytes_ = bytes_.subspan(3);
        }
    }

    drive::IMAPI_MEDIA_PHYSICAL_TYPE PhysicalMediaType() const override { return {}; }
    drive::DiscState State() const override { return drive::DiscState::Closed; }
    bool IsBlank() const override { return false; }
    QList<drive::SessionFacts> Sessions() const override
    {
        return hasSession_ ? QList {session_} : QList<drive::SessionFacts> {};
    }
    qint64 FreeSectorsOnMedia() const override { return 0; }
    qint64 TotalSectorsOnMedia() const override { return kSectors; }

    void ReadSectors(qint64 firstSector, std::span<std::byte> out) override
    {
        if (firstSector < 0 || out.size() != kSector) {
            std::abort(); // no sane reader asks for that
        }
        if (firstSector >= kSectors) {
            throw drive::PublishedError(drive::hresult::kCancelled);
        }
        std::ranges::fill(out, std::byte {0});
        for (std::size_t at = 0; at + 2 < bytes_.size(); at += 2 + kPiece) {
            if (bytes_[at] + 256 * (bytes_[at + 1] & 1) == firstSector) {
                const std::size_t length = std::min(kPiece, bytes_.size() - at - 2);
                std::memcpy(out.data(), &bytes_[at + 2], length);
            }
        }
    }

private:
    static constexpr std::size_t kPiece = 256;

    std::span<const std::uint8_t> bytes_;
    drive::SessionFacts session_;
    bool hasSession_ = false;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ForeignDisc disc(std::span(data, size));
    try {
        if (mastering::FindRecordedFileSystem(disc).value_or(0) < 0) {
            std::abort(); // it can't end before it begins
        }
    } catch (const runtime::RuntimeError&) {
        return 0; // the disc's
    }
    return 0;
}
