// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/contents/SumsFile.h"

#include <utility>

namespace velmora::image {

SumsFile::SumsFile(const SourceTree& source,
    const SumsList& list,
    const Contents& contents,
    std::shared_ptr<SumMaker> maker)
    : source_(source)
    , list_(list)
    , contents_(contents)
    , own_(contents.NumberOf(source.MadeFile()))
    , maker_(std::move(maker))
{
    sums_.reserve(own_);
    EndFiles();
}

std::uint64_t SumsFile::SizeOf(std::uint32_t content) const
{
    return source_[contents_.All()[content].node].size;
}

void SumsFile::Take(std::uint32_t content, std::uint64_t from, std::span<const std::byte> bytes)
{
    const std::lock_guard lock(mutex_);
    const bool isNext = content == sums_.size() && from <= gone_ && gone_ < from + bytes.size();
    if (!isNext || content >= own_) {
        return;
    }
    maker_->Add(bytes.subspan(gone_ - from));
    gone_ = from + bytes.size();
    EndFiles();
}

/// Takes the sum of the file that has gone by completely, and those of the empty ones after it.
void SumsFile::EndFiles()
{
    while (sums_.size() < own_ && gone_ == SizeOf(static_cast<std::uint32_t>(sums_.size()))) {
        sums_.push_back(maker_->Finish());
        gone_ = 0;
    }
}

std::optional<SumsFile::Place> SumsFile::Missing()
{
    const std::lock_guard lock(mutex_);
    if (sums_.size() == own_) {
        return std::nullopt;
    }
    return Place {static_cast<std::uint32_t>(sums_.size()), gone_};
}

void SumsFile::Render(Window& window) const
{
    const std::uint64_t place = std::uint64_t {contents_.All()[own_].sector} * kSectorSize;
    list_.Render(window, place, [this](NodeId file) -> const FileSum& {
        return sums_[contents_.NumberOf(file)];
    });
}

} // namespace velmora::image
