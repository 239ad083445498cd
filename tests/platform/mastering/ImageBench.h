// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mastering/image/FileSystemImage.h"
#include "mastering/isofile/FileStream.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeClock.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"
#include "text/PathText.h"

#include <QTimeZone>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace velmora::test {

using namespace Qt::StringLiterals;
using namespace path_literals;

/// An image of the real writer, and a folder for its sources.
class ImageBench : public testing::Test {
protected:
    static text::ProgramPath ProgramPath(const std::filesystem::path& path)
    {
        return text::ToProgramPath(text::NativePath(path.native()));
    }

    /// Makes a file with a text in it.
    std::filesystem::path Write(const std::string& name, const std::string& content) const
    {
        std::filesystem::path file = folder / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }

    imapi::StreamRef Open(const std::filesystem::path& path) const
    {
        return mastering::SHCreateStreamOnFile(ProgramPath(path), imapi::FileStreamMode::Read);
    }

    void AddTree(const std::string& name)
    {
        image->Root()->AddTree(ProgramPath(folder / name), true);
    }

    /// The bytes of the image.
    static std::string BytesOf(imapi::IFileSystemImageResult& result)
    {
        const imapi::StreamRef stream = result.ImageStream();
        std::string bytes(static_cast<std::size_t>(stream->Size()), '\0');
        stream->Seek(0);
        EXPECT_EQ(stream->Read(std::as_writable_bytes(std::span(bytes))), bytes.size());
        return bytes;
    }

    TemporaryFolder folder;
    FakePump pump;
    FakeClock clock {pump, QDateTime({2026, 3, 9}, {7, 5, 4}, QTimeZone::utc())};
    imapi::FileSystemImageRef image = std::make_shared<mastering::FileSystemImage>(clock);
};

/// A directory record's identifier as in ISO 9660.
inline bool HoldsName(const std::string& imageBytes, const std::string& name)
{
    return imageBytes.find(name) != std::string::npos;
}

} // namespace velmora::test
