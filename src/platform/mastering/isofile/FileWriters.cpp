// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/isofile/FileWriters.h"

#include "drive/FileUsers.h"

#include <QFile>
#include <QList>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace velmora::mastering {

using namespace Qt::StringLiterals;

namespace {

enum class Writers : quint8 { Nobody, Somebody, Unknown };

/// On these the server grants leases: a refused one tells nothing about writers.
bool IsNetworkFileSystem(int file)
{
    constexpr quint32 kCifs = 0xFF534D42;
    constexpr quint32 kSmb2 = 0xFE534D42;
    struct statfs volume { };
    if (::fstatfs(file, &volume) != 0) {
        return true;
    }
    const auto type = static_cast<quint32>(volume.f_type);
    return type == NFS_SUPER_MAGIC || type == SMB_SUPER_MAGIC || type == kCifs || type == kSmb2;
}

/// The system grants a read lease only on a file that nobody has open for writing. It is returned
/// at once; if a writer came just then, its signal would be an ignored one.
Writers AskForLease(int file)
{
    if (IsNetworkFileSystem(file) || ::fcntl(file, F_SETSIG, SIGURG) != 0) {
        return Writers::Unknown;
    }
    if (::fcntl(file, F_SETLEASE, F_RDLCK) == 0) {
        ::fcntl(file, F_SETLEASE, F_UNLCK);
        return Writers::Nobody;
    }
    return errno == EAGAIN ? Writers::Somebody : Writers::Unknown;
}

/// Only a process that may write a file can lock it against reading, on a network file system too.
bool IsLockedAgainstReading(int file)
{
    struct flock lock { };
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    return ::fcntl(file, F_GETLK, &lock) == 0 && lock.l_type == F_WRLCK;
}

/// The flags of an open file are listed in octal digits.
bool IsForWriting(const QByteArray& facts)
{
    constexpr qsizetype kAt = 6;
    constexpr int kOctal = 8;
    for (const QByteArray& line : facts.split('\n')) {
        if (line.startsWith("flags:")) {
            const int flags = line.sliced(kAt).trimmed().toInt(nullptr, kOctal);
            return (flags & O_ACCMODE) != O_RDONLY && (flags & O_PATH) == 0;
        }
    }
    return false;
}

QList<drive::FileUser> WritingPrograms(int file)
{
    const QString path = QFile::symLinkTarget(u"/proc/self/fd/%1"_s.arg(file));
    return path.isEmpty() ? QList<drive::FileUser>()
                          : drive::UsersOf(path, u"/proc"_s, IsForWriting);
}

} // namespace

std::optional<QString> WriterOf(int file)
{
    const Writers writers = AskForLease(file);
    if (writers == Writers::Nobody) {
        return std::nullopt;
    }
    const QList<drive::FileUser> programs = WritingPrograms(file);
    if (!programs.isEmpty()) {
        const drive::FileUser& first = programs.front();
        return u"le programme « %1 » (processus %2)"_s.arg(
            first.program, QString::number(first.process));
    }
    const bool isWritten = writers == Writers::Somebody || IsLockedAgainstReading(file);
    return isWritten ? std::optional(u"un autre programme"_s) : std::nullopt;
}

} // namespace velmora::mastering
