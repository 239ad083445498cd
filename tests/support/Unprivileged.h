// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unistd.h>

#include <stdexcept>

namespace velmora::test {

/// Drops root's rights for its lifetime, as root can read everything. Without root's rights it does
/// nothing.
class Unprivileged {
public:
    Unprivileged()
    {
        constexpr uid_t kNobody = 65534;
        if (wasRoot_ && seteuid(kNobody) != 0) {
            throw std::runtime_error("root's rights could not be let go");
        }
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
    ~Unprivileged()
    {
        if (wasRoot_ && seteuid(0) != 0) {
            _exit(1); // the rest of the run would fail misleadingly
        }
    }

private:
    bool wasRoot_ = geteuid() == 0;
};

} // namespace velmora::test
