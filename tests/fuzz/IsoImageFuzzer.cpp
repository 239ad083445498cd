// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/PublishedCodes.h"
#include "mastering/isofile/IsoImageManager.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <span>

using namespace velmora;

namespace {

constexpr std::size_t kSector = 2048;

/// An image made from the fuzzer's bytes: the number of its sectors, in two bytes, then for each
/// filled sector its number, in two bytes, and 600 bytes for its start. Everything else is zero.
class ForeignImage final : public imapi::IStream {
public:
    explicit ForeignImage(std::span<const std::uint8_t> bytes)
        : bytes_(bytes)
    {
        if (bytes_.size() > 1) {
            sectors_ = NumberAt(0);
            bytes_ = bytes_.subspan(2);
        }
    }

    std::size_t Read(std::span<std::byte> out) override
    {
        if (position_ % kSector != 0 || out.size() != kSector || position_ + kSector > Size()) {
            std::abort(); // sectors of the image, and no others
        }
        std::ranges::fill(out, std::byte {0});
        for (std::size_t at = 0; at + 2 < bytes_.size(); at += 2 + kPiece) {
            if (NumberAt(at) == position_ / kSector) {
                const auto piece = bytes_.subspan(at + 2, std::min(kPiece, bytes_.size() - at - 2));
                std::ranges::copy(std::as_bytes(piece), out.begin());
            }
        }
        position_ += out.size();
        return out.size();
    }
    void Write(std::span<const std::byte>) override { std::abort(); }
    void Seek(quint64 position) override { position_ = position; }
    quint64 Position() const override { return position_; }
    std::optional<imapi::StreamFile> File() const override { return std::nullopt; }
    quint64 Size() const override { return sectors_ * kSector; }
    quint64 CopyTo(const imapi::StreamRef&, quint64) override { std::abort(); }

private:
    static constexpr std::size_t kPiece = 600;

    std::size_t NumberAt(std::size_t at) const
    {
        return bytes_[at] + std::size_t {256} * bytes_[at + 1];
    }

    std::span<const std::uint8_t> bytes_;
    std::size_t sectors_ = 0;
    quint64 position_ = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    mastering::IsoImageManager manager;
    manager.SetStream(std::make_shared<ForeignImage>(std::span(data, size)));
    try {
        manager.Validate();
    } catch (const runtime::RuntimeError& failure) {
        const bool isVerdict = failure.Number() == drive::hresult::kNoKnownFileSystem
            || failure.Number() == drive::hresult::kEndOfFile;
        if (!isVerdict) {
            std::abort();
        }
    }
    return 0;
}
