// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IFsiDirectoryItem.h"
#include "mastering/image/ImageState.h"

#include <memory>
#include <string>
#include <vector>

namespace velmora::mastering {

/// A directory of an image, known by its path.
class FsiDirectoryItem final : public imapi::IFsiDirectoryItem {
public:
    /// @param path  from the root, '/' between the names; empty for the root
    FsiDirectoryItem(std::shared_ptr<ImageState> image, std::string path);

    std::shared_ptr<imapi::IFsiDirectoryItem> Item(const text::DiscPath& path) override;
    void AddTree(const text::ProgramPath& sourceDirectory, bool includeBaseDirectory) override;
    void AddDirectory(const text::DiscPath& path) override;
    void AddFile(const text::DiscPath& path, const imapi::StreamRef& fileData) override;

private:
    std::shared_ptr<ImageState> image_;
    std::string path_;
};

} // namespace velmora::mastering
