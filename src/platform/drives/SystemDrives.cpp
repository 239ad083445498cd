// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/SystemDrives.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace velmora::drives {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kPrefix = u"sr";

int NumberOf(const QString& name)
{
    bool isNumber = false;
    const int number = name.mid(kPrefix.size()).toInt(&isNumber);
    return name.startsWith(kPrefix) && isNumber ? number : -1;
}

} // namespace

SystemDrives::SystemDrives(BurnDriveContext context)
    : SystemDrives(std::move(context), Folders())
{
}

SystemDrives::SystemDrives(BurnDriveContext context, Folders folders)
    : context_(std::move(context))
    , folders_(std::move(folders))
    , library_(std::make_shared<LibraryThread>())
{
}

QList<SystemDrives::Found> SystemDrives::Find() const
{
    QStringList names
        = QDir(folders_.blocks).entryList({u"sr*"_s}, QDir::AllEntries | QDir::System);
    names.removeIf([](const QString& name) { return NumberOf(name) < 0; });
    std::ranges::sort(names, {}, NumberOf);
    QList<Found> found;
    for (const QString& name : std::as_const(names)) {
        const QString device = folders_.devices + u'/' + name;
        found.append({LastingName(device), device});
    }
    return found;
}

QString SystemDrives::LastingName(const QString& device) const
{
    const QString node = QFileInfo(device).fileName();
    const QDir folder(folders_.names);
    const QFileInfoList links
        = folder.entryInfoList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QFileInfo& link : links) {
        if (link.isSymLink() && QFileInfo(link.symLinkTarget()).fileName() == node) {
            return link.filePath();
        }
    }
    return device;
}

QStringList SystemDrives::Ids()
{
    QStringList ids;
    for (const Found& found : Find()) {
        ids.append(found.id);
    }
    return ids;
}

drive::DriveRef SystemDrives::Open(const QString& id)
{
    if (std::shared_ptr<BurnDrive> drive = open_.value(id).lock()) {
        return drive;
    }
    for (const Found& found : Find()) {
        if (found.id == id || found.device == id) {
            auto drive = std::make_shared<BurnDrive>(found.id, found.device, library_, context_);
            open_.insert(found.id, drive);
            return drive;
        }
    }
    return {};
}

} // namespace velmora::drives
