// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "VirtualErrors.h"

namespace velmora::virtualdrive {

runtime::RuntimeError DriveError(qint32 publishedCode, const QString& description)
{
    runtime::RuntimeError plain = imapi::PublishedError(publishedCode);
    return description.isEmpty() ? plain : runtime::RuntimeError {plain.Number(), description};
}

} // namespace velmora::virtualdrive
