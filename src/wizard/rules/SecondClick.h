// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/Clock.h"

#include <optional>

namespace velmora::wizard {

/// Back and out are one button in one place: the second click of a double click on "back" must not
/// count as a click on "out", which the first one has put there.
class SecondClick {
public:
    /// @param clock    must outlive this
    /// @param seconds  the longest time between the two clicks of a double click
    SecondClick(const runtime::Clock& clock, double seconds)
        : clock_(clock)
        , seconds_(seconds)
    {
    }

    /// From now on the button leads elsewhere.
    void OnPageChange() { change_ = clock_.Timer(); }

    /// A click now may still be meant for the previous page.
    bool IsPossible() const { return change_ && clock_.Timer() - *change_ < seconds_; }

private:
    const runtime::Clock& clock_;
    double seconds_;
    std::optional<double> change_;
};

} // namespace velmora::wizard
