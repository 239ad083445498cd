// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <string_view>
#include <vector>

namespace velmora::image {

/// Place of a name in a NameArena.
using NameRef = std::uint32_t;

/// Keeps short byte strings (up to 255 bytes) for as long as it lives, each with one byte of
/// overhead.
///
/// Several threads may add names at once, each through a Writer of its own. A name may be read by
/// any thread that learned of its NameRef from the thread that wrote it.
class NameArena {
    static constexpr std::uint32_t kChunkBits = 16;
    static constexpr std::uint32_t kChunkSize = 1U << kChunkBits;
    static constexpr std::uint32_t kMaxChunks = 1U << (32 - kChunkBits);
    using Chunk = std::array<char, kChunkSize>;

public:
    /// Adds names from one thread, into chunks of its own.
    class Writer {
    public:
        explicit Writer(NameArena& arena)
            : arena_(arena)
        {
        }

        NameRef Add(std::string_view name)
        {
            const auto need = static_cast<std::uint32_t>(name.size()) + 1;
            if (room_ < need) {
                next_ = arena_.NewChunk();
                room_ = kChunkSize;
            }
            const NameRef ref = next_;
            char* place = arena_.Place(ref);
            *place = static_cast<char>(name.size());
            std::memcpy(place + 1, name.data(), name.size());
            next_ += need;
            room_ -= need;
            return ref;
        }

    private:
        NameArena& arena_;
        NameRef next_ = 0;
        std::uint32_t room_ = 0;
    };

    NameArena() // calloc leaves the unused part of the table to the kernel, untouched
        : chunks_(
            static_cast<char**>(std::calloc(kMaxChunks, sizeof(char*)))) // NOLINT(*-no-malloc)
    {
        if (!chunks_) {
            throw std::bad_alloc();
        }
    }

    /// Forgets all names, and the writers with them; the memory is reused.
    void Clear() { used_ = 0; }

    std::string_view operator[](NameRef ref) const
    {
        const char* place = Place(ref);
        return {place + 1, static_cast<std::uint8_t>(*place)};
    }

private:
    struct Free {
        void operator()(void* table) const { std::free(table); } // NOLINT(*-no-malloc)
    };

    char* Place(NameRef ref) const
    {
        return chunks_.get()[ref >> kChunkBits] + (ref & (kChunkSize - 1));
    }

    NameRef NewChunk()
    {
        const std::lock_guard lock(mutex_);
        if (used_ == kMaxChunks) {
            throw std::bad_alloc();
        }
        if (used_ == owned_.size()) {
            owned_.push_back(std::make_unique_for_overwrite<Chunk>());
            chunks_.get()[used_] = owned_.back()->data();
        }
        const std::uint32_t index = used_++;
        return index << kChunkBits;
    }

    std::unique_ptr<char*, Free> chunks_; // a table of fixed size, so that readers need no lock
    std::vector<std::unique_ptr<Chunk>> owned_;
    std::uint32_t used_ = 0; // of those
    std::mutex mutex_;
};

} // namespace velmora::image
