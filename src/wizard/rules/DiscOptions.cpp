// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/DiscOptions.h"

#include "compilation/CapacityAccount.h"
#include "shell/ProgramState.h"

namespace velmora::wizard {

DiscOptions::DiscOptions(shell::ProgramState& state, compilation::CapacityAccount& capacity)
    : state_(state)
    , capacity_(capacity)
{
}

void DiscOptions::TakeSize(compilation::DiscSize size)
{
    using compilation::DiscSize;
    if (size == DiscSize::DvdOneLayer) {
        state_.MediaTypeChoice = shell::DiscTypeChoice::DvdPlusR;
    } else if (size == DiscSize::DvdTwoLayers) {
        state_.MediaTypeChoice = shell::DiscTypeChoice::DvdPlusRDualLayer;
    }
    capacity_.ChangeMediaCapacity(compilation::CapacityOf(size));
}

} // namespace velmora::wizard
