// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "VirtualErrors.h"

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

runtime::RuntimeError DriveError(qint32 publishedCode, const QString& detail)
{
    runtime::RuntimeError plain = imapi::PublishedError(publishedCode);
    if (detail.isEmpty()) {
        return plain;
    }
    return {plain.Number(), plain.Description() + u" "_s + detail};
}

} // namespace velmora::virtualdrive
