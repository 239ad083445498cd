// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ImageList.h"

#include "runtime/RuntimeError.h"

namespace velmora::desktop {

void ImageList::Add(const QString& key, const QIcon& picture)
{
    if (pictures_.contains(key)) {
        throw runtime::RuntimeError(runtime::error::kKeyNotUnique);
    }
    pictures_.insert(key, picture);
}

} // namespace velmora::desktop
