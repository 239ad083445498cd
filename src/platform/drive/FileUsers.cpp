// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/FileUsers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <unistd.h>

#include <algorithm>

namespace velmora::drive {

using namespace Qt::StringLiterals;

namespace {

constexpr QDir::Filters kEntries = QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot;

QByteArray Contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool Uses(const QString& process, const QString& path, const UseFilter& counts)
{
    const QStringList handles = QDir(process + "/fd"_L1).entryList(kEntries);
    return std::ranges::any_of(handles, [&](const QString& handle) {
        return QFile::symLinkTarget(process + "/fd/"_L1 + handle) == path
            && (!counts || counts(Contents(process + "/fdinfo/"_L1 + handle)));
    });
}

QString Named(const FileUser& user)
{
    return u"« %1 » (processus %2)"_s.arg(user.program, QString::number(user.process));
}

} // namespace

QList<FileUser> UsersOf(const QString& path, const QString& processes, const UseFilter& counts)
{
    QList<FileUser> users;
    for (const QString& name : QDir(processes).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        bool isNumber = false;
        const qint64 number = name.toLongLong(&isNumber);
        const QString process = processes + u'/' + name;
        if (isNumber && number != getpid() && Uses(process, path, counts)) {
            const QByteArray program = Contents(process + "/comm"_L1).trimmed();
            users.append({QString::fromLocal8Bit(program), number});
        }
    }
    std::ranges::sort(users, {}, &FileUser::process);
    return users;
}

QString InUseBy(const QList<FileUser>& users)
{
    constexpr qsizetype kMost = 3; // the program that has it comes first, being there first
    QStringList names;
    for (const FileUser& user : users.first(std::min(kMost, users.size()))) {
        names.append(Named(user));
    }
    if (names.size() == 1) {
        return u"Le graveur est utilisé par %1 : fermez ce programme, puis recommencez."_s.arg(
            names.first());
    }
    const QString last = names.takeLast();
    return u"Le graveur est utilisé par %1 et %2 : fermez ces programmes, puis recommencez."_s.arg(
        names.join(u", "_s), last);
}

} // namespace velmora::drive
