// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/DiscChoices.h"

#include <QLocale>
#include <QString>

namespace velmora::wizard {

/// What a tile of the page of formats says below its caption: the kinds of disc that belong to the
/// format and how much the largest one takes, by the table of disc kinds; of the disc in the drive
/// that it is recognised.
QString WhatFits(shell::DiscFormat format, const QLocale& locale = QLocale::system());

} // namespace velmora::wizard
