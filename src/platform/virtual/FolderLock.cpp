// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/FolderLock.h"

#include "drive/FileUsers.h"
#include "drive/PublishedCodes.h"

#include <QFile>

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <thread>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

namespace {

// One byte of the file for each lock. These locks belong to the open file, not to the process.
struct flock ByteOf(LockPart part, short type)
{
    struct flock lock { };
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = static_cast<off_t>(part);
    lock.l_len = 1;
    return lock;
}

// The fdinfo of a handle on the lock file: a line for each lock that it holds, ending in the byte
// range.
bool HoldsUse(const QByteArray& facts)
{
    const QByteArray part = QByteArray::number(static_cast<int>(LockPart::Use));
    const QList<QByteArray> lines = facts.split('\n');
    return std::ranges::any_of(lines, [&part](const QByteArray& line) {
        return line.startsWith("lock:") && line.endsWith(' ' + part + ' ' + part);
    });
}

} // namespace

runtime::RuntimeError FolderRefused()
{
    return drive::PublishedError(drive::hresult::kAccessDenied,
        u"Accès au dossier du graveur virtuel refusé : vérifiez vos droits sur ce dossier."_s);
}

FolderLock::FolderLock(const std::string& folder)
{
    constexpr mode_t kMode = 0666; // less what the user's mask takes away
    constexpr int kFlags = O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    file_.Reset(::open((folder + '/' + kName.latin1()).c_str(), kFlags, kMode));
    if (!file_) {
        const bool isMissing = errno == ENOENT || errno == ENOTDIR;
        throw isMissing ? drive::PublishedError(drive::hresult::kDeviceGone) : FolderRefused();
    }
}

void FolderLock::Take(LockPart part, std::chrono::milliseconds patience)
{
    constexpr std::chrono::milliseconds kStep {2};
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!TryTake(part)) {
        if (std::chrono::steady_clock::now() >= end) {
            throw drive::PublishedError(drive::hresult::kRecorderLocked,
                u"Le graveur virtuel est retenu par un programme qui ne répond plus : terminez-le, "
                u"puis "
                "recommencez."_s);
        }
        std::this_thread::sleep_for(kStep);
    }
}

bool FolderLock::TryTake(LockPart part)
{
    struct flock lock = ByteOf(part, F_WRLCK);
    return ::fcntl(file_.Get(), F_OFD_SETLK, &lock) == 0;
}

void FolderLock::Release(LockPart part)
{
    struct flock lock = ByteOf(part, F_UNLCK);
    ::fcntl(file_.Get(), F_OFD_SETLK, &lock);
}

bool FolderLock::IsHeldElsewhere(LockPart part) const
{
    struct flock lock = ByteOf(part, F_WRLCK);
    return ::fcntl(file_.Get(), F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

runtime::RuntimeError FolderLock::InUse() const
{
    const QString own = QFile::symLinkTarget(u"/proc/self/fd/%1"_s.arg(file_.Get()));
    const QList<drive::FileUser> users = drive::UsersOf(own, u"/proc"_s, HoldsUse);
    return drive::PublishedError(
        drive::hresult::kRecorderLocked, users.isEmpty() ? QString() : drive::InUseBy(users));
}

} // namespace velmora::virtualdrive
