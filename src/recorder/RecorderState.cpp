// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/RecorderState.h"

namespace velmora::recorder {

using namespace Qt::StringLiterals;

QString RecorderItemText(const RecorderRecord& record)
{
    return record.RecorderVendor + u":"_s + record.RecorderProduct + u" ("_s + record.RecorderPath
        + u")"_s;
}

} // namespace velmora::recorder
