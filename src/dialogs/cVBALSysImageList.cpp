// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/cVBALSysImageList.h"

#include "desktop/FileIcons.h"

#include <QPixmap>

#include <cmath>
#include <limits>
#include <optional>

namespace velmora::dialogs {

using desktop::TypeBy;

namespace {

/// The number that a text represents, rounded to the nearest whole one, halves to even.
std::optional<qint32> NumberIn(const QString& text)
{
    bool isNumber = false;
    const double number = std::nearbyint(text.toDouble(&isNumber));
    if (!isNumber || std::abs(number) > std::numeric_limits<qint32>::max()) {
        return std::nullopt;
    }
    return static_cast<qint32>(number);
}

} // namespace

cVBALSysImageList::cVBALSysImageList(desktop::FileIcons& icons)
    : icons_(icons)
{
}

void cVBALSysImageList::Create() { pictures_.clear(); }

qint32 cVBALSysImageList::ItemIndex(const QString& Key, bool bUseExisting)
{
    if (const auto number = NumberIn(Key)) {
        return *number;
    }
    return icons_.IndexOf(text::ProgramPath(Key), bUseExisting ? TypeBy::Content : TypeBy::Name);
}

QIcon cVBALSysImageList::ItemPicture(const QString& Key)
{
    const qint32 index = ItemIndex(Key, false);
    const auto drawn = pictures_.constFind(index);
    return drawn != pictures_.cend() ? *drawn : *pictures_.insert(index, Draw(index));
}

QIcon cVBALSysImageList::Draw(qint32 index) const
{
    const QIcon icon = icons_.Icon(index);
    QIcon picture;
    for (const qreal scale : {1.0, 2.0, 3.0}) {
        const QPixmap drawn = icon.pixmap(QSize(IconSizeX, IconSizeY), scale);
        if (!drawn.isNull()) {
            picture.addPixmap(drawn);
        }
    }
    return picture;
}

} // namespace velmora::dialogs
