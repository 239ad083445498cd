// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"
#include "image/ImageStream.h"
#include "image/source/TreeScanner.h"
#include "tests/support/FileChanges.h"
#include "tests/support/Hex.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace velmora::test {

/// 2026-03-09 07:05:04.123456 UTC, the moment of everything that the tests make.
inline constexpr image::TimeStamp kMoment {1773039904, 123456};

inline constexpr std::size_t kSector = 2048;

/// A part of an image: from a byte of a sector on.
inline std::string_view Part(
    std::string_view image, std::size_t sector, std::size_t position, std::size_t length)
{
    return image.substr(sector * kSector + position, length);
}

inline std::string HexOf(
    std::string_view image, std::size_t sector, std::size_t position, std::size_t length)
{
    return Hex(Part(image, sector, position, length));
}

/// A number recorded low byte first.
inline std::uint64_t NumberAt(std::string_view bytes, std::size_t position, std::size_t length)
{
    std::uint64_t value = 0;
    for (std::size_t i = length; i-- > 0;)
        value = value * 256 + static_cast<unsigned char>(bytes[position + i]);
    return value;
}

inline bool IsZeros(std::string_view bytes)
{
    return bytes.find_first_not_of('\0') == std::string_view::npos;
}

/// The bytes of a file.
inline std::string ContentOf(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::string content(std::filesystem::file_size(path), '\0');
    in.read(content.data(), static_cast<std::streamsize>(content.size()));
    EXPECT_EQ(in.gcount(), static_cast<std::streamsize>(content.size())) << path;
    return content;
}

/// A folder for the sources of one image, the tree that is made of them and the options.
class ImageBench : public testing::Test {
protected:
    /// Makes a file of the source; its last change is kMoment, everybody may read it.
    std::string Write(const std::string& name, std::string_view content) const
    {
        const std::filesystem::path file = folder / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
        return Dated(file);
    }

    /// Makes a file of holes.
    std::string WriteSparse(const std::string& name, std::uint64_t bytes) const
    {
        return Dated(folder.MakeFile(name, bytes));
    }

    static std::string Dated(const std::filesystem::path& path)
    {
        const timespec moment {kMoment.seconds, long {kMoment.microseconds} * 1000};
        const timespec times[2] {moment, moment};
        EXPECT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
        EXPECT_EQ(
            ::chmod(path.c_str(), std::filesystem::is_directory(path) ? S_IRWXU : kFileMode), 0);
        return path.native();
    }

    void AddDirectory(const std::string& path) const
    {
        EXPECT_TRUE(tree->AddDirectory(path, kMoment)) << path;
    }

    /// Writes a file of the source and puts it at the same path of the image.
    void AddFile(const std::string& path, std::string_view content) const
    {
        EXPECT_TRUE(tree->AddFile(path, Write("source/" + path, content))) << path;
    }

    void AddSparse(const std::string& path, std::uint64_t bytes) const
    {
        EXPECT_TRUE(tree->AddFile(path, WriteSparse("source/" + path, bytes))) << path;
    }

    image::ScanReport Scan(const std::filesystem::path& path) const
    {
        const image::Result<image::ScanReport> report = image::ScanFolder(
            *tree, image::SourceTree::kRoot, path.native(), image::IncludeBase::No);
        EXPECT_TRUE(report) << path;
        return report ? *report : image::ScanReport {};
    }

    void Choose(bool iso9660, bool joliet, bool udf)
    {
        options.fileSystems = {iso9660, joliet, udf};
    }

    image::ImagePlan Plan() const
    {
        image::Result<image::ImagePlan> plan = image::ImagePlan::Create(tree, options);
        if (!plan) throw std::runtime_error("no plan: " + Describe(plan.Failure()));
        return *plan;
    }

    static std::string Read(image::ImageStream& stream, std::uint64_t offset, std::size_t length)
    {
        std::string bytes(length, '\x5A'); // nothing may be left of it
        const image::Result<> read = stream.Read(offset, std::as_writable_bytes(std::span(bytes)));
        EXPECT_TRUE(read) << (read ? "" : Describe(read.Failure()));
        return bytes;
    }

    /// The whole image.
    std::string Bytes() const
    {
        image::ImageStream stream(Plan());
        return Read(stream, 0, stream.Size());
    }

    /// Some sectors of an image that may be too large to be read whole.
    std::string Sectors(std::uint64_t first, std::size_t count) const
    {
        image::ImageStream stream(Plan());
        return Read(stream, first * kSector, count * kSector);
    }

    static constexpr mode_t kFileMode = 0644;

    TemporaryFolder folder;
    std::shared_ptr<image::SourceTree> tree = std::make_shared<image::SourceTree>(kMoment);
    image::ImageOptions options {.volumeName = "HOLIDAY", .created = kMoment};
};

} // namespace velmora::test
