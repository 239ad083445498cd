// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "virtual/RecorderFolder.h"

#include <filesystem>
#include <vector>

namespace velmora::virtualdrive {

/// The folder of a recorder that is being made, with the folders above it that are missing. It goes
/// again with this object, and all that was made with it, unless it is kept.
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

/// Removes a recorder's folder with the files that are the recorder's own. To be called by who
/// holds both parts of its lock.
/// Errors: 75 when the folder holds what is none of the recorder's (all stays as it was then), or
/// can't be removed; E_ACCESSDENIED when it can't be listed.
void RemoveRecorderFolder(RecorderFolder& folder);

} // namespace velmora::virtualdrive
