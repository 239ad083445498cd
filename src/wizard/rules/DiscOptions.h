// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/DiscCapacities.h"

namespace velmora::compilation {
class CapacityAccount;
}
namespace velmora::shell {
struct ProgramState;
}

namespace velmora::wizard {

/// The clicks of the option buttons inside the type frames (BDOptionButton1, DVDOptionButton1,
/// CDOptionButton1): how much the promised disc holds, and for DVD also its type.
class DiscOptions {
public:
    /// Both must outlive it.
    DiscOptions(shell::ProgramState& state, compilation::CapacityAccount& capacity);

    void TakeSize(compilation::DiscSize size);

private:
    shell::ProgramState& state_;
    compilation::CapacityAccount& capacity_;
};

} // namespace velmora::wizard
