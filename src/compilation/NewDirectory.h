// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/DiscPath.h"

#include <QString>
#include <QStringList>

namespace velmora::compilation {

class CompilationList;

/// What FrmMakeDir asks for: a directory to create on the disc, and where.
class NewDirectory {
public:
    /// Offers every directory that is in the list now.
    explicit NewDirectory(const CompilationList& list);

    /// The items of Combo1: the disc's root, then disc paths in the order of the list.
    const QStringList& Combo1() const { return combo1_; }

    /// Click of Command2: sets the path of the directory `Text1` below an item of Combo1. The name
    /// isn't checked.
    /// @return false, with no path set, when the name is empty
    bool Command2(qsizetype Combo1ListIndex, const QString& Text1);

    /// Click of Command1.
    void Command1() { NewDirectoryPath_ = {}; }

    /// The path that was set, with a backslash at its end; empty for none.
    const text::DiscPath& NewDirectoryPath() const { return NewDirectoryPath_; }

private:
    QStringList combo1_;
    text::DiscPath NewDirectoryPath_;
};

} // namespace velmora::compilation
