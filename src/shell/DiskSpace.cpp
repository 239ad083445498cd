// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/DiskSpace.h"

#include "runtime/Formats.h"
#include "runtime/TextRules.h"
#include "text/PathText.h"

#include <sys/statvfs.h>

namespace velmora::shell {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kRootLength = 3; // "C:\"
constexpr qsizetype kFieldWidth = 8;
constexpr double kGibibyte = 1073741824;

bool HasDriveLetter(const QString& path)
{
    return path.size() > 1 && path[0].isLetter() && path[1] == u':';
}

} // namespace

DiskSpace QueryDiskSpace(const text::ProgramPath& path)
{
    struct statvfs room { };
    if (statvfs(text::ToNativePath(path).CStr(), &room) != 0) {
        return {};
    }
    const auto blockSize = static_cast<double>(room.f_frsize);
    return {static_cast<double>(room.f_bavail) * blockSize,
        static_cast<double>(room.f_blocks) * blockSize};
}

QString DiskSpaceText(QString& drive, const DiskSpaceQuery& query, const QLocale& locale)
{
    // A path of this machine has no drive letter: its file system is asked for by the whole path.
    if (HasDriveLetter(drive)) {
        drive.truncate(kRootLength);
    }
    const DiskSpace space = query(text::ProgramPath(drive));
    const QString free = runtime::FormatTwoDecimals(space.freeForCaller / kGibibyte, locale);
    const QString total = runtime::FormatTwoDecimals(space.total / kGibibyte, locale);
    return runtime::RSet(free, kFieldWidth) + u" Go libres ("_s + total + u" Go Taille totale) "_s;
}

} // namespace velmora::shell
