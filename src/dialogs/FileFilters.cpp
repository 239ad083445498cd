// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/FileFilters.h"

#include "runtime/TextRules.h"

namespace velmora::dialogs {

QList<desktop::FileFilter> FileFilters(const QString& filter)
{
    const QStringList parts = runtime::Split(filter, u'|');
    QList<desktop::FileFilter> filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        filters.append({parts[i], parts[i + 1]});
    }
    return filters;
}

} // namespace velmora::dialogs
