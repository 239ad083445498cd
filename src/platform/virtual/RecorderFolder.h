// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "unicode/FileDescriptor.h"
#include "virtual/Description.h"

#include <QString>

#include <functional>
#include <string>

namespace velmora::virtualdrive {

/// The folder of one virtual recorder: `recorder.json` (its description), `disc-N.iso` (the sectors
/// of its disc) and `lock`. Any number of processes may use it at once, and each sees only complete
/// descriptions.
class RecorderFolder {
public:
    /// @param path  native
    RecorderFolder(QString name, std::string path);

    const QString& Name() const { return name_; }
    const std::string& Path() const { return path_; }
    std::string SectorPath(const QString& sectorFile) const;

    /// The description as it is now. A folder without one is a recorder as NewDescription makes it.
    /// Errors: 0x80070037 (no such folder), E_ACCESSDENIED, C0AA02FF (it can't be understood, or
    /// isn't a plain file of a description's size).
    const Description& Load();

    /// Changes the description atomically, with others locked out meanwhile. When `change` raises,
    /// nothing is changed.
    /// Errors: those of Load; E_FAIL when it can't be written; what `change` raised.
    void Change(const std::function<void(Description&)>& change);

    /// Waits until the last change is on the computer's disk.
    /// Errors: E_FAIL when it doesn't get there.
    void Flush() const;

    /// Makes an empty file for the sectors of another disc; it is spare until a disc refers to it.
    /// @return  its name
    /// Errors: those of Change; C0AA0301 when it can't be made.
    QString MakeSectorFile();
    /// Removes the spare files, and nothing else. The caller holds the drive.
    /// Errors: those of Change.
    void RemoveSpareFiles();

private:
    QString MakeFreeFile(const Description& description) const;

    QString name_;
    std::string path_;
    // The file that was read last stays open, so that no later one can get its inode number.
    unicode::FileDescriptor read_;
    Description description_;
};

} // namespace velmora::virtualdrive
