// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace velmora::compilation {
class CapacityAccount;
}
namespace velmora::shell {
struct ProgramState;
}

namespace velmora::wizard {

/// The clicks of the option buttons inside the type frames: how much the promised disc holds, and
/// for DVD also its type. A button past the known ones only refreshes what is shown.
class DiscOptions {
public:
    /// Both must outlive it.
    DiscOptions(shell::ProgramState& state, compilation::CapacityAccount& capacity);

    void BDOptionButton1(qint16 index);
    void DVDOptionButton1(qint16 index);
    void CDOptionButton1(qint16 index);

private:
    shell::ProgramState& state_;
    compilation::CapacityAccount& capacity_;
};

} // namespace velmora::wizard
