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

/// The desktop's icons of file types, in one size. Nothing here fails: what has no icon has the
/// number 0 and an empty picture.
class cVBALSysImageList {
public:
    /// @param icons  must outlive the list
    explicit cVBALSysImageList(desktop::FileIcons& icons);

    /// Takes the list of the icon size: the large one from 32 pixels of width on, else the small
    /// one.
    /// @return whether the desktop has an icon for a text file
    bool Create();
    /// Forgets the list; doing so twice is harmless.
    void Destroy();
    /// Which list is held: 0 none, 1 the small one, 2 the large one.
    qint32 hIml() const { return list_; }

    /// The number of a file's icon. A text that reads as a number is taken for an icon's number.
    /// @param bUseExisting  true looks into the file, false goes by its name alone
    qint32 ItemIndex(const QString& Key, bool bUseExisting);

    /// The picture for a file, by its name alone, in the icon size of the last Create.
    QIcon ItemPicture(const QString& Key);

    qint32 IconSizeX = 16; ///< pixels at scale 1
    qint32 IconSizeY = 16;

private:
    QIcon Draw(qint32 index) const;

    desktop::FileIcons& icons_;
    qint32 list_ = 0;
    QHash<qint32, QIcon> pictures_; // drawn once for all files of a type
};

} // namespace velmora::dialogs
