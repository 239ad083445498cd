// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

namespace velmora::test {

/// A new folder for one test; removed at its end, but kept if the test failed.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string path = std::filesystem::temp_directory_path() / "velmora-test-XXXXXX";
        if (mkdtemp(path.data()) == nullptr) {
            throw std::runtime_error("no temporary folder: " + path);
        }
        path_ = path;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        if (testing::Test::HasFailure()) {
            std::cerr << "kept: " << path_ << '\n';
            return;
        }
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& Path() const { return path_; }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

    /// Makes a folder, and those above it.
    std::filesystem::path MakeFolder(const std::string& name) const
    {
        std::filesystem::create_directories(path_ / name);
        return path_ / name;
    }

    /// Makes a file of a length, and the folders above it. It is sparse: a large one takes no room.
    std::filesystem::path MakeFile(const std::string& name, std::uintmax_t bytes) const
    {
        const std::filesystem::path file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary).close();
        std::filesystem::resize_file(file, bytes);
        return file;
    }

private:
    std::filesystem::path path_;
};

} // namespace velmora::test
