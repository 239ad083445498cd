// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/SourceFiles.h"
#include "image/source/LinkFollower.h"

#include <functional>
#include <optional>
#include <string_view>
#include <utility>

namespace velmora::compilation {

/// The mounted file systems of this machine.
class NativeSourceFiles final : public SourceFiles {
public:
    NativeSourceFiles() = default;
    /// @param goesOn  asked for each entry of a listing, and about 25 times a second while a tree
    /// is
    ///                measured; false interrupts
    explicit NativeSourceFiles(std::function<bool()> goesOn)
        : goesOn_(std::move(goesOn))
    {
    }

    /// From now on sizes are those of what symbolic links lead to.
    /// @param source  the folder that is measured part by part, each part once
    /// Errors: those of ContentsOf.
    void FollowLinks(const text::ProgramPath& source);

    /// From now on hidden names are treated like others.
    void TakeHidden() { takesHidden_ = true; }

    QStringList Names(const text::ProgramPath& folder) override;
    QStringList HiddenNames(const text::ProgramPath& folder) override;
    bool IsDirectory(const text::ProgramPath& path) override;
    bool IsMountRoot(const text::ProgramPath& path) override;
    FolderContents ContentsOf(const text::ProgramPath& folder) override;
    double FileSize(const text::ProgramPath& file) override;
    text::ProgramPath BehindLink(const text::ProgramPath& path) override;
    bool FindsFile(const text::ProgramPath& path) override;
    bool FindsFolder(const text::ProgramPath& path) override;
    QByteArray Beginning(const text::ProgramPath& file, qsizetype limit) override;

private:
    void RequireGoingOn() const;
    QStringList List(const text::ProgramPath& folder,
        const std::function<bool(std::string_view name)>& isWanted) const;
    image::ScanOptions ScanOptions() const;
    double SizeBehindLink(const text::ProgramPath& link);

    std::function<bool()> goesOn_;
    bool takesHidden_ = false;
    std::optional<image::LinkFollower> follower_; // none: links count nothing
};

} // namespace velmora::compilation
