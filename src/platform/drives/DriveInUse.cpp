// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/DriveInUse.h"

#include "drive/FileUsers.h"
#include "drive/PublishedCodes.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace velmora::drives {

using namespace Qt::StringLiterals;

namespace {

// The table has blanks, tabs, line feeds and backslashes as \040, \011, \012 and \134.
QString Unescaped(const QByteArray& word)
{
    constexpr qsizetype kDigits = 3;
    constexpr int kOctal = 8;
    QByteArray bytes;
    for (qsizetype i = 0; i < word.size(); ++i) {
        bool isNumber = false;
        const int number = word.mid(i + 1, kDigits).toInt(&isNumber, kOctal);
        const bool isEscaped = word[i] == '\\' && isNumber;
        bytes.append(isEscaped ? static_cast<char>(number) : word[i]);
        i += isEscaped ? kDigits : 0;
    }
    return QFile::decodeName(bytes);
}

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
            return Unescaped(words[kPlace]);
        }
    }
    return {};
}

runtime::RuntimeError DriveInUse(const QString& device, const UseTables& tables)
{
    return drive::PublishedError(drive::hresult::kRecorderLocked, WordsFor(device, tables));
}

} // namespace velmora::drives
