// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/SecondClick.h"

namespace velmora::wizard {

class Navigation;

/// The button at the head of every page (CorvaneButton1), which leads back, or out of the program.
class WayOut {
public:
    /// Both must outlive this.
    /// @param seconds  that may lie between the two clicks of a double click
    WayOut(Navigation& navigation, const runtime::Clock& clock, double seconds);

    /// Another page came into view.
    void OnPageChange() { secondClick_.OnPageChange(); }

    /// Finds out again where the button leads, after anything that may have changed that.
    /// @return whether it leads out of the program
    bool Look();

    /// The click of the button; the second one of a double click does nothing on another page.
    void CorvaneButton1();

private:
    Navigation& navigation_;
    SecondClick secondClick_;
    bool leadsOut_ = true;
};

} // namespace velmora::wizard
