// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/VirtualErrors.h"

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

runtime::RuntimeError DriveError(qint32 publishedCode, const QString& description)
{
    runtime::RuntimeError plain = drive::PublishedError(publishedCode);
    return description.isEmpty() ? plain : runtime::RuntimeError {plain.Number(), description};
}

runtime::RuntimeError FolderRefused()
{
    return DriveError(code::kAccessDenied,
        u"Accès au dossier du graveur virtuel refusé : vérifiez vos droits sur ce dossier."_s);
}

} // namespace velmora::virtualdrive
