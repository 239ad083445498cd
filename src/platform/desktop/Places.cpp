// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Places.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QUrl>
#include <QXmlStreamReader>

#include <algorithm>
#include <array>

namespace velmora::desktop {

using namespace Qt::StringLiterals;

namespace {

/// A path, or nothing if it isn't on this machine.
QString PathOf(const QString& address) { return QUrl(address).toLocalFile(); }

/// One address a line, optionally followed by a blank and a name.
QStringList GtkBookmarks(const QString& file)
{
    QStringList paths;
    QFile lines(file);
    if (lines.open(QIODevice::ReadOnly)) {
        while (!lines.atEnd()) {
            const QString line = QString::fromUtf8(lines.readLine()).trimmed();
            paths += PathOf(line.section(u' ', 0, 0));
        }
    }
    return paths;
}

/// The places of KDE's dialogs: an XBEL file, in which a place may be marked as hidden.
QStringList KdePlaces(const QString& file)
{
    QStringList paths;
    QFile content(file);
    if (!content.open(QIODevice::ReadOnly)) {
        return paths;
    }
    QXmlStreamReader xml(&content);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (xml.name() == "bookmark"_L1) {
            paths += PathOf(xml.attributes().value("href"_L1).toString());
        } else if (xml.name() == "IsHidden"_L1 && !paths.isEmpty()
            && xml.readElementText() == "true"_L1) {
            paths.back().clear();
        }
    }
    return paths;
}

} // namespace

QStringList MountedVolumes()
{
    constexpr std::array kWhereVolumesAre {"/media/"_L1, "/run/media/"_L1, "/mnt/"_L1};
    QStringList paths;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const QString path = volume.rootPath() + u'/';
        const bool isPersons = std::ranges::any_of(
            kWhereVolumesAre, [&path](QLatin1StringView place) { return path.startsWith(place); });
        if (isPersons) {
            paths += volume.rootPath();
        }
    }
    return paths;
}

PlacesContext PlacesContext::OfUser()
{
    return {.configFolder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
        .dataFolder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)};
}

QStringList Places(const PlacesContext& context)
{
    QStringList found = GtkBookmarks(context.configFolder + u"/gtk-3.0/bookmarks"_s)
        + KdePlaces(context.dataFolder + u"/user-places.xbel"_s) + context.volumes();
    QStringList places;
    for (const QString& path : found) {
        const QString place = path.isEmpty() ? path : QDir::cleanPath(path);
        if (!place.isEmpty() && !places.contains(place) && QDir(place).exists()) {
            places += place;
        }
    }
    return places;
}

} // namespace velmora::desktop
