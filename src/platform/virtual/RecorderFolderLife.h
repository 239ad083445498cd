// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "virtual/RecorderFolder.h"

#include <filesystem>
#include <vector>

namespace velmora::virtualdrive {

/// The folder of a recorder that is being made, with any missing folders above it. Unless it is
/// kept, this object removes it at its end, with everything that was made along with it.
class NewRecorderFolder {
public:
    /// @param path  native, absolute
    /// Errors: 58 when there is one already; 75 when it can't be made.
    explicit NewRecorderFolder(std::filesystem::path path);
    NewRecorderFolder(const NewRecorderFolder&) = delete;
    NewRecorderFolder& operator=(const NewRecorderFolder&) = delete;
    ~NewRecorderFolder();

    void Keep() { made_.clear(); }

private:
    void Make(const std::filesystem::path& folder);
    bool TryMake(const std::filesystem::path& folder);
    void RemoveMade();

    std::filesystem::path path_;
    std::vector<std::filesystem::path> made_; // the outer ones first
};

/// Removes a recorder's folder with the recorder's own files. The caller holds both parts of its
/// lock.
/// Errors: 75 when the folder holds other files (then nothing is removed), or can't be removed;
/// E_ACCESSDENIED when it can't be listed.
void RemoveRecorderFolder(RecorderFolder& folder);

} // namespace velmora::virtualdrive
