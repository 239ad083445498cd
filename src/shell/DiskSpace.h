// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QLocale>
#include <QString>

#include <functional>

namespace velmora::shell {

/// Room on a file system, in bytes.
struct DiskSpace {
    double freeForCaller = 0;
    double total = 0;
};

/// Asks for the room at a path; a failure gives zeros.
using DiskSpaceQuery = std::function<DiskSpace(const text::ProgramPath& path)>;

/// The room on the mounted file system that holds a path; zeros when it can't be asked.
DiskSpace QueryDiskSpace(const text::ProgramPath& path);

/// "  123,46 Go libres (476,94 Go Taille totale) ", in binary units; the figure in front has a
/// field of eight characters. A path with a drive letter is cut to its first three characters, in
/// place.
QString DiskSpaceText(QString& drive,
    const DiskSpaceQuery& query = QueryDiskSpace,
    const QLocale& locale = QLocale::system());

} // namespace velmora::shell
