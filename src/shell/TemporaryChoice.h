// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/DiskSpace.h"
#include "shell/FixedDrives.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace velmora::store {
class SettingsStore;
}

namespace velmora::shell {

/// The operating system's temporary directory: a program path that ends in a backslash.
QString GetWinTempDir();

/// The temporary directory at the program's start: the one that the settings name, else the
/// operating system's. Only a person puts it there, who may write it as Linux does.
/// @return a program path
QString TempDirSetting(store::SettingsStore& store);

/// What the choice of a temporary directory asks the system.
struct TemporaryChoiceContext {
    std::function<QStringList()> fixedDrives = [] { return ListFixedDrives(); };
    std::function<QString()> winTempDir = GetWinTempDir;
    DiskSpaceQuery diskSpace = QueryDiskSpace;
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

    /// What is on offer now: the system's temporary directory, then the fixed drives, each with its
    /// room.
    std::vector<TemporaryRow> Rows() const;

    /// Takes a place: on a drive its directory "Temp", which is made; whether that succeeds is not
    /// looked at.
    /// @return the directory's program path
    QString Take(const TemporaryRow& row) const;

private:
    QString SpaceAt(QString place) const;

    TemporaryChoiceContext context_;
};

} // namespace velmora::shell
