// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/contents/Contents.h"
#include "image/names/SumsList.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

namespace velmora::image {

/// Computes SHA-256 sums; this library has no fast implementation of its own.
class SumMaker {
public:
    SumMaker() = default;
    virtual ~SumMaker() = default;
    SumMaker(const SumMaker&) = delete;
    SumMaker& operator=(const SumMaker&) = delete;
    SumMaker(SumMaker&&) = delete;
    SumMaker& operator=(SumMaker&&) = delete;

    virtual void Add(std::span<const std::byte> bytes) = 0;
    /// Of all that was added since the last call.
    virtual FileSum Finish() = 0;
};

/// The file of an image that lists the sums of the others. They are computed while the files' bytes
/// go by in order, so that no file is read twice, and its own bytes lie after theirs.
///
/// Several threads may use it.
class SumsFile {
public:
    /// @param contents  of the image, placed; all outlive the file
    SumsFile(const SourceTree& source,
        const SumsList& list,
        const Contents& contents,
        std::shared_ptr<SumMaker> maker);

    /// Bytes of a file that were read go by. Those that aren't next in the order are ignored.
    /// @param content  its number
    /// @param from     place of the first of them in the file
    void Take(std::uint32_t content, std::uint64_t from, std::span<const std::byte> bytes);

    /// A place in a file.
    struct Place {
        std::uint32_t content = 0; ///< its number
        std::uint64_t byte = 0;
    };
    /// What must go by next before the bytes of the list are known; nothing when they are.
    std::optional<Place> Missing();

    /// Fills in the window's part of the list; nothing may be missing.
    void Render(Window& window) const;

private:
    std::uint64_t SizeOf(std::uint32_t content) const;
    void EndFiles();

    const SourceTree& source_;
    const SumsList& list_;
    const Contents& contents_;
    std::uint32_t own_; // number of the list's own content
    std::mutex mutex_;  // guards what follows
    std::shared_ptr<SumMaker> maker_;
    std::vector<FileSum> sums_; // of the contents that went by completely
    std::uint64_t gone_ = 0;    // bytes of the next one
};

} // namespace velmora::image
