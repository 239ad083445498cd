// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/SourceFiles.h"

namespace velmora::compilation {

/// The mounted file systems of this machine.
class NativeSourceFiles final : public SourceFiles {
public:
    QStringList Names(const text::ProgramPath& folder) override;
    bool IsDirectory(const text::ProgramPath& path) override;
    bool IsMountRoot(const text::ProgramPath& path) override;
    double FolderSize(const text::ProgramPath& folder) override;
    double FileSize(const text::ProgramPath& file) override;
    bool FindsFile(const text::ProgramPath& path) override;
    bool FindsFolder(const text::ProgramPath& path) override;
    QByteArray Beginning(const text::ProgramPath& file, qsizetype limit) override;
};

} // namespace velmora::compilation
