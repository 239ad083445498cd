// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/IconSource.h"

#include "runtime/ResumeNext.h"

namespace velmora::compilation {

QString GetFileIconKey(IconSource& icons, const text::ProgramPath& path)
{
    qint32 number = 0;
    runtime::ResumeNext([&] { number = icons.ItemIndex(path, true); });
    QString key = u'F' + QString::number(number);
    runtime::ResumeNext([&] { icons.AddPicture(key, path); });
    return key;
}

} // namespace velmora::compilation
