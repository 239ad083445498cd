// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/SourceFiles.h"

namespace velmora::compilation {

/// The mounted file systems of this machine.
class NativeSourceFiles final : public SourceFiles {
public:
    QStringList Names(const QString& folder) override;
    bool IsDirectory(const QString& path) override;
    bool IsMountRoot(const QString& path) override;
    double FolderSize(const QString& folder) override;
    double FileSize(const QString& file) override;
    bool FindsFile(const QString& path) override;
    bool FindsFolder(const QString& path) override;
    QByteArray Beginning(const QString& file, qsizetype limit) override;
};

} // namespace velmora::compilation
