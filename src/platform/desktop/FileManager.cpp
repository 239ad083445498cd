// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FileManager.h"

#include "runtime/RuntimeError.h"
#include "text/PathText.h"

#include <QDesktopServices>
#include <QUrl>

namespace velmora::desktop {

using namespace Qt::StringLiterals;

void OpenInFileManager(const text::ProgramPath& folder)
{
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(text::ToQtPath(folder)))) {
        throw runtime::RuntimeError(
            runtime::error::kFileNotFound, u"Aucun gestionnaire de fichiers n'a pu être ouvert."_s);
    }
}

} // namespace velmora::desktop
