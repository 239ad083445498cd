// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/CompilationIcons.h"

#include "desktop/ThemeIcon.h"

namespace velmora::wizard {

using namespace Qt::StringLiterals;

void CompilationIcons::Create()
{
    constexpr qint32 kSmall = 16;
    imageList1_.Add(u"FD"_s, desktop::FolderIcon());
    sysImageList_.IconSizeX = kSmall;
    sysImageList_.IconSizeY = kSmall;
    sysImageList_.Create();
}

qint32 CompilationIcons::ItemIndex(const text::ProgramPath& path, bool useExisting)
{
    return sysImageList_.ItemIndex(path.Text(), useExisting);
}

void CompilationIcons::AddPicture(const QString& key, const text::ProgramPath& path)
{
    imageList1_.Add(key, sysImageList_.ItemPicture(path.Text()));
}

} // namespace velmora::wizard
