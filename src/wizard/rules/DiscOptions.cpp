// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/DiscOptions.h"

#include "compilation/CapacityAccount.h"
#include "compilation/DiscCapacities.h"
#include "shell/ProgramState.h"

namespace velmora::wizard {

namespace {

constexpr qint16 kDvdPlusR = 6;
constexpr qint16 kDvdPlusRDualLayer = 8;

} // namespace

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
    if (index == 0 || index == 1) {
        state_.MediaTypeChoice = index == 0 ? kDvdPlusR : kDvdPlusRDualLayer;
    }
    capacity_.ChangeMediaCapacity(compilation::CapacityOfDvdOption(index));
}

void DiscOptions::CDOptionButton1(qint16 index)
{
    capacity_.ChangeMediaCapacity(compilation::CapacityOfCdOption(index));
}

} // namespace velmora::wizard
