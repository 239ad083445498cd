// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QIcon>
#include <QString>

namespace velmora::desktop {
class FileIcons;
}

namespace velmora::dialogs {

/// The desktop's icons of file types, in one size. Nothing here fails: a file without an icon has
/// the number 0 and an empty picture.
class cVBALSysImageList {
public:
    /// @param icons  must outlive the list
    explicit cVBALSysImageList(desktop::FileIcons& icons);

    /// Starts again with the current icon size.
    void Create();

    /// The number of a file's icon. A text that reads as a number is taken for an icon's number.
    /// @param bUseExisting  true looks into the file, false uses only its name
    qint32 ItemIndex(const QString& Key, bool bUseExisting);

    /// The picture for a file, chosen only by its name, in the icon size of the last Create.
    QIcon ItemPicture(const QString& Key);

    qint32 IconSizeX = 16; ///< pixels at scale 1
    qint32 IconSizeY = 16;

private:
    QIcon Draw(qint32 index) const;

    desktop::FileIcons& icons_;
    QHash<qint32, QIcon> pictures_; // drawn once for all files of a type
};

} // namespace velmora::dialogs
