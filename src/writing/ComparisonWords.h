// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/DiscComparison.h"

#include <QLocale>
#include <QStringList>

namespace velmora::writing {

/// What the user has to know about a comparison, in lines for the log; none if the disc is as
/// written, or wasn't meant to be compared. Bytes of files are counted from 0.
QStringList WordsOf(
    const imapi::DiscComparison& comparison, const QLocale& locale = QLocale::system());

} // namespace velmora::writing
