// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/DiscOptions.h"

#include "compilation/CapacityAccount.h"
#include "compilation/DiscCapacities.h"
#include "shell/ProgramState.h"

namespace velmora::wizard {

DiscOptions::DiscOptions(shell::ProgramState& state, compilation::CapacityAccount& capacity)
    : state_(state)
    , capacity_(capacity)
{
}

void DiscOptions::BDOptionButton1(qint16 index)
{
    capacity_.ChangeMediaCapacity(compilation::CapacityOfBdOption(index));
}

void DiscOptions::DVDOptionButton1(qint16 index)
{
    using shell::DiscTypeChoice;
    if (index == 0 || index == 1) {
        state_.MediaTypeChoice
            = index == 0 ? DiscTypeChoice::DvdPlusR : DiscTypeChoice::DvdPlusRDualLayer;
    }
    capacity_.ChangeMediaCapacity(compilation::CapacityOfDvdOption(index));
}

void DiscOptions::CDOptionButton1(qint16 index)
{
    capacity_.ChangeMediaCapacity(compilation::CapacityOfCdOption(index));
}

} // namespace velmora::wizard
