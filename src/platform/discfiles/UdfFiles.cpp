// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "discfiles/FileSystemReaders.h"

#include <udfread/blockinput.h>
#include <udfread/udfread.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

namespace velmora::discfiles {

namespace {

constexpr unsigned kMostLevels = 200; // directories on a disc may form a cycle

/// How the library reads the disc.
struct Input : udfread_block_input {
    explicit Input(const ReadSectors& reader)
        : udfread_block_input {.close = nullptr, .read = Read, .size = nullptr}
        , readSectors(reader)
    {
    }

    static int Read(
        udfread_block_input* input, std::uint32_t first, void* out, std::uint32_t count, int)
    {
        const std::span bytes(static_cast<std::byte*>(out), count * kSectorBytes);
        return static_cast<Input*>(input)->readSectors(first, bytes) ? static_cast<int>(count) : -1;
    }

    const ReadSectors& readSectors;
};

struct Close {
    void operator()(udfread* volume) const { udfread_close(volume); }
    void operator()(UDFDIR* folder) const { udfread_closedir(folder); }
    void operator()(UDFFILE* file) const { udfread_file_close(file); }
};
using Folder = std::unique_ptr<UDFDIR, Close>;
using File = std::unique_ptr<UDFFILE, Close>;

std::vector<Extent> ExtentsOf(UDFFILE* file, std::uint64_t bytes)
{
    std::vector<Extent> extents;
    for (std::uint64_t at = 0; at < bytes; at += kSectorBytes) {
        const std::uint32_t sector
            = udfread_file_lba(file, static_cast<std::uint32_t>(at / kSectorBytes));
        const std::uint64_t part = std::min<std::uint64_t>(kSectorBytes, bytes - at);
        const bool goesOn = !extents.empty()
            && extents.back().firstSector + extents.back().bytes / kSectorBytes == sector;
        if (sector == 0) {
            return extents; // embedded in the file's entry, or missing
        }
        if (goesOn) {
            extents.back().bytes += part;
        } else {
            extents.push_back({sector, part});
        }
    }
    return extents;
}

/// @return false if a folder can't be read
bool ListFolder(UDFDIR* folder, const std::string& path, unsigned level, Listing& listing)
{
    udfread_dirent entry {};
    while (udfread_readdir(folder, &entry) != nullptr) {
        const std::string_view name = entry.d_name;
        if (name == "." || name == "..") {
            continue;
        }
        const std::string inside = path + std::string(name);
        if (entry.d_type == UDF_DT_DIR) {
            const Folder below(udfread_opendir_at(folder, entry.d_name));
            if (!below || level == kMostLevels
                || !ListFolder(below.get(), inside + '/', level + 1, listing)) {
                return false;
            }
            continue;
        }
        const File file(udfread_file_openat(folder, entry.d_name));
        if (!file) {
            continue; // a symbolic link or a device
        }
        const auto bytes
            = static_cast<std::uint64_t>(std::max<std::int64_t>(udfread_file_size(file.get()), 0));
        listing.files.push_back({inside, bytes, ExtentsOf(file.get(), bytes)});
    }
    return true;
}

/// The descriptors after the system area announce UDF (ECMA-167 3/9.1).
bool IsAnnounced(const ReadSectors& read)
{
    constexpr std::uint32_t kFirst = 16;
    constexpr std::uint32_t kMost = 32;
    for (std::uint32_t sector = kFirst; sector < kFirst + kMost; ++sector) {
        std::array<std::byte, kSectorBytes> bytes {};
        const std::string_view mark(reinterpret_cast<const char*>(bytes.data()) + 1, 5);
        if (read(sector, bytes) && (mark == "NSR02" || mark == "NSR03")) {
            return true;
        }
    }
    return false;
}

} // namespace

std::optional<Listing> ListUdf(const ReadSectors& read)
{
    if (!IsAnnounced(read)) {
        return std::nullopt; // the library would print warnings
    }
    Input input(read);
    const std::unique_ptr<udfread, Close> volume(udfread_init());
    if (!volume || udfread_open_input(volume.get(), &input) < 0) {
        return std::nullopt;
    }
    const Folder root(udfread_opendir(volume.get(), "/"));
    const char* name = udfread_get_volume_id(volume.get());
    Listing listing {.volume = name ? name : "", .files = {}};
    if (!root || !ListFolder(root.get(), {}, 0, listing)) {
        return std::nullopt;
    }
    return listing;
}

} // namespace velmora::discfiles
