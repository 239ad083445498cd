// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/DiscContents.h"

#include <QLocale>
#include <QString>

namespace velmora::compilation {
struct RowContents;
}
namespace velmora::shell {
struct ProgramState;
}

namespace velmora::wizard {

/// What will be burned, as far as known before the burn.
struct DiscPlan {
    QString name {};    ///< of the disc, or of the image that goes on it
    QString content {}; ///< the contents and their amount, in words
    QString disc {};    ///< the intended disc, in words
    DiscLook look = DiscLook::Dvd;
    double bytes = 0;
    double roomBytes = 0; ///< of the disc; 0: not known
};

/// The plan of a compilation.
/// @param contents  what its rows add to the disc
DiscPlan PlanOf(const shell::ProgramState& state,
    const compilation::RowContents& contents,
    const QString& discName,
    const QLocale& locale = QLocale::system());

/// A plan as the contents of a disc on which nothing was written.
DiscContents ContentsOf(const DiscPlan& plan);

} // namespace velmora::wizard
