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

/// What is to be burned, as far as it is known before the burn.
struct DiscPlan {
    QString name {};    ///< of the disc, or of the image that goes on it
    QString content {}; ///< how much there is of what, in words
    QString disc {};    ///< the disc that is meant, in words
    DiscLook look = DiscLook::Dvd;
    double bytes = 0;
    double roomBytes = 0; ///< of the disc; 0: not known
};

/// The plan of a compilation.
/// @param contents  what its rows bring onto the disc
DiscPlan PlanOf(const shell::ProgramState& state,
    const compilation::RowContents& contents,
    const QString& discName,
    const QLocale& locale = QLocale::system());

/// A plan as the contents of a disc on which nothing was written.
DiscContents ContentsOf(const DiscPlan& plan);

} // namespace velmora::wizard
