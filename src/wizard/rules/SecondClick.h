// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/Clock.h"

#include <optional>

namespace velmora::wizard {

/// Back and out are one button at one place: the second click of a double click on the way back is
/// none on the way out, which the first one has put there.
class SecondClick {
public:
    /// @param clock    must outlive this
    /// @param seconds  that may lie between the two clicks of a double click
    SecondClick(const runtime::Clock& clock, double seconds)
        : clock_(clock)
        , seconds_(seconds)
    {
    }

    /// What the button leads to is another page from now on.
    void OnPageChange() { change_ = clock_.Timer(); }

    /// A click now may still have meant the page before.
    bool IsPossible() const { return change_ && clock_.Timer() - *change_ < seconds_; }

private:
    const runtime::Clock& clock_;
    double seconds_;
    std::optional<double> change_;
};

} // namespace velmora::wizard
