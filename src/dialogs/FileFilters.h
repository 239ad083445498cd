// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/FileChooser.h"

namespace velmora::dialogs {

/// The kinds of file of a filter text, in which texts and patterns alternate, separated by bars. A
/// text without a pattern after it is dropped.
QList<desktop::FileFilter> FileFilters(const QString& filter);

} // namespace velmora::dialogs
