// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/LinkFolder.h"

#include "runtime/RuntimeError.h"
#include "text/PathText.h"

#include <QDir>
#include <QFileInfo>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace velmora::link {

using namespace Qt::StringLiterals;

namespace {

// A socket's path has 107 bytes. The folder's name, the socket's name and the name that the socket
// has until it listens take fewer than 60 of them.
constexpr qsizetype kLongestParent = 47;

/// Can only this user (and root) rename or remove what this user creates there?
bool IsSafe(const QByteArray& parent)
{
    struct stat status { };
    if (::stat(parent.constData(), &status) != 0 || !S_ISDIR(status.st_mode)) {
        return false;
    }
    const bool isOurs = status.st_uid == ::geteuid();
    const bool isSystems = status.st_uid == 0;
    const bool isForOthers = (status.st_mode & (S_IWGRP | S_IWOTH)) != 0;
    const bool keepsOwners = (status.st_mode & S_ISVTX) != 0;
    return isForOthers ? keepsOwners && (isOurs || isSystems) : isOurs;
}

bool CanHoldFolder(const QString& parent)
{
    const QByteArray path = QFile::encodeName(parent);
    return parent.startsWith(u'/') && path.size() <= kLongestParent && IsSafe(path)
        && ::access(path.constData(), W_OK | X_OK) == 0;
}

QString Parent()
{
    for (const QString& parent : {qEnvironmentVariable("XDG_RUNTIME_DIR"), QDir::tempPath()}) {
        if (CanHoldFolder(parent)) {
            return parent;
        }
    }
    return u"/tmp"_s;
}

} // namespace

QString SocketName(const text::NativePath& folder, QString topic)
{
    return text::ToQtPath(folder) + u'/' + topic.replace(u'|', u'-');
}

LinkFolder::LinkFolder()
{
    QByteArray path = QFile::encodeName(Parent() + u"/velmora-XXXXXX"_s);
    if (::mkdtemp(path.data()) != nullptr) {
        folder_ = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    }
    if (folder_ < 0) {
        throw runtime::RuntimeError(runtime::error::kPathAccess);
    }
    path_ = text::NativePath(path.toStdString());
}

LinkFolder::~LinkFolder()
{
    if (DIR* entries = ::fdopendir(folder_)) {
        while (const dirent* entry = ::readdir(entries)) {
            ::unlinkat(folder_, entry->d_name, 0); // refuses folders, "." and ".." among them
        }
        ::closedir(entries); // and with it the descriptor
    }
    ::rmdir(path_.CStr()); // takes an empty folder only
}

bool LinkFolder::HasService(const QString& topic) const
{
    return QFileInfo::exists(SocketName(path_, topic));
}

} // namespace velmora::link
