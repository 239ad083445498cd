// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/DriveInUse.h"

#include "drive/FileUsers.h"
#include "drive/MountTable.h"
#include "drive/PublishedCodes.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <string>

namespace velmora::drives {

using namespace Qt::StringLiterals;

namespace {

QString WordsFor(const QString& device, const UseTables& tables)
{
    if (const std::optional<QString> place = MountPointOf(device, tables.mounts)) {
        return u"Le disque est monté sur « %1 » : démontez-le (umount %2), puis recommencez."_s.arg(
            *place, device);
    }
    const QString file = QFileInfo(device).canonicalFilePath();
    const QList<drive::FileUser> users
        = drive::UsersOf(file.isEmpty() ? device : file, tables.processes);
    if (!users.isEmpty()) {
        return drive::InUseBy(users);
    }
    return u"Le graveur est verrouillé par une autre application : fermez-la ou démontez le disque "
           "(umount %1)."_s.arg(device);
}

} // namespace

std::optional<QString> MountPointOf(const QString& device, const QString& mountTable)
{
    constexpr qsizetype kNumber = 2;
    constexpr qsizetype kPlace = 4;
    struct stat facts { };
    QFile table(mountTable);
    if (stat(QFile::encodeName(device).constData(), &facts) != 0
        || !table.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray number
        = QByteArray::number(major(facts.st_rdev)) + ':' + QByteArray::number(minor(facts.st_rdev));
    for (const QByteArray& line : table.readAll().split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        if (words.size() > kPlace && words[kNumber] == number) {
            const std::string place = drive::PathInMountTable(words[kPlace].toStdString());
            return QFile::decodeName(QByteArray::fromStdString(place));
        }
    }
    return {};
}

runtime::RuntimeError DriveInUse(const QString& device, const UseTables& tables)
{
    return drive::PublishedError(drive::hresult::kRecorderLocked, WordsFor(device, tables));
}

} // namespace velmora::drives
