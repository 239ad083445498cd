// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FileIcons.h"

#include "desktop/ThemeIcon.h"
#include "text/PathText.h"

namespace velmora::desktop {

using namespace Qt::StringLiterals;

namespace {

/// The icon that the theme has for a type: its own, else that of its family. "" means the plain
/// sheet that is always there.
QString IconNameOf(const QMimeType& type)
{
    for (const QString& name : {type.iconName(), type.genericIconName()}) {
        if (QIcon::hasThemeIcon(name)) {
            return name;
        }
    }
    return u""_s;
}

} // namespace

qint32 FileIcons::IndexOf(const text::ProgramPath& path, TypeBy by)
{
    const auto mode
        = by == TypeBy::Name ? QMimeDatabase::MatchExtension : QMimeDatabase::MatchDefault;
    return IndexOfType(types_.mimeTypeForFile(text::ToQtPath(path), mode));
}

qint32 FileIcons::IndexOfType(const QMimeType& type)
{
    const auto known = indexes_.constFind(type.name());
    if (known != indexes_.cend()) {
        return *known;
    }
    const QString name = IconNameOf(type);
    if (!names_.contains(name)) {
        names_ += name;
    }
    const auto index = static_cast<qint32>(names_.indexOf(name) + 1);
    indexes_.insert(type.name(), index);
    return index;
}

QIcon FileIcons::Icon(qint32 index) const
{
    if (index < 1 || index > names_.size()) {
        return {};
    }
    return ThemeIcon({names_[index - 1]}, QStyle::SP_FileIcon);
}

} // namespace velmora::desktop
