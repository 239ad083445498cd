// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/DiskSpace.h"
#include "shell/FixedDrives.h"
#include "text/Paths.h"

#include <QList>
#include <QString>

#include <functional>
#include <vector>

namespace velmora::store {
class SettingsStore;
}

namespace velmora::shell {

/// The operating system's temporary directory; it ends in a backslash.
text::ProgramPath GetWinTempDir();

/// The temporary directory at the program's start: the one that the settings name, else the
/// operating system's. Only the user sets it there, and may write it as Linux does.
text::ProgramPath TempDirSetting(store::SettingsStore& store);

/// Whether the user may write into a directory, or create it if missing.
bool CanBeHad(const text::ProgramPath& directory);

/// What the choice of a temporary directory needs from the system.
struct TemporaryChoiceContext {
    std::function<QList<text::ProgramPath>()> fixedDrives = [] { return ListFixedDrives(); };
    std::function<text::ProgramPath()> winTempDir = GetWinTempDir;
    DiskSpaceQuery diskSpace = QueryDiskSpace;
    /// Whether the directory of a drive exists and is writable, or can be created.
    std::function<bool(const text::ProgramPath& directory)> canBeHad = CanBeHad;
};

/// A place on offer, as a row of ListViewTemp.
struct TemporaryRow {
    QString text; ///< words for the system's own directory, else the program path of a drive
    QString key;
    QString icon;
    QString space;

    bool IsSystems() const;
};

/// The rules of FrmTemp: where the temporary directory may lie.
class TemporaryChoice {
public:
    explicit TemporaryChoice(TemporaryChoiceContext context = {});

    /// What is on offer now: the system's temporary directory, then the fixed drives that can have
    /// a directory "Temp", each with its room.
    std::vector<TemporaryRow> Rows() const;

    /// Selects a place: on a drive its directory "Temp", which is created; success isn't checked.
    text::ProgramPath Take(const TemporaryRow& row) const;

private:
    QString SpaceAt(const text::ProgramPath& place) const;

    TemporaryChoiceContext context_;
};

} // namespace velmora::shell
