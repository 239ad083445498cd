// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/LinkFolder.h"

#include "runtime/RuntimeError.h"

#include <QDir>
#include <QFileInfo>

namespace velmora::link {

using namespace Qt::StringLiterals;

namespace {

// A socket's path has 107 bytes. The folder's name and the socket's name behind it, and the name
// that the socket has until it listens, take fewer than 60 of them.
constexpr qsizetype kLongestParent = 47;

bool CanHoldFolder(const QString& parent)
{
    const QFileInfo facts(parent);
    return facts.isAbsolute() && facts.isDir() && facts.isWritable()
        && QFile::encodeName(parent).size() <= kLongestParent;
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

QString SocketPath(const QString& folder, QString topic)
{
    return folder + u'/' + topic.replace(u'|', u'-');
}

LinkFolder::LinkFolder()
    : folder_(Parent() + u"/velmora-XXXXXX"_s)
{
    if (!folder_.isValid()) {
        throw runtime::RuntimeError(runtime::error::kPathAccess);
    }
}

bool LinkFolder::HasService(const QString& topic) const
{
    return QFileInfo::exists(SocketPath(Path(), topic));
}

} // namespace velmora::link
