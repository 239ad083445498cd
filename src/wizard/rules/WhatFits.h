// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/DiscChoices.h"

#include <QLocale>
#include <QString>

namespace velmora::wizard {

/// The text of a format tile below its caption: the format's kinds of disc and the capacity of the
/// largest one, by the table of disc kinds; for the disc in the drive, that it is recognised.
QString WhatFits(shell::DiscFormat format, const QLocale& locale = QLocale::system());

} // namespace velmora::wizard
