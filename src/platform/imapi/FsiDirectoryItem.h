// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IFsiDirectoryItem.h"
#include "imapi/ImageState.h"

#include <memory>
#include <string>
#include <vector>

namespace velmora::imapi {

/// A directory of an image, known by its path.
class FsiDirectoryItem final : public IFsiDirectoryItem {
public:
    /// @param nativePath  from the root, '/' between the names; empty for the root
    FsiDirectoryItem(std::shared_ptr<ImageState> image, std::string nativePath);

    std::shared_ptr<IFsiDirectoryItem> Item(const QString& path) override;
    void AddTree(const QString& sourceDirectory, bool includeBaseDirectory) override;
    void AddDirectory(const QString& path) override;
    void AddFile(const QString& path, const StreamRef& fileData) override;

private:
    std::shared_ptr<ImageState> image_;
    std::string path_;
};

} // namespace velmora::imapi
