// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::drive {

/// The door to whatever mounts discs on this machine.
class Unmounter {
public:
    Unmounter() = default;
    virtual ~Unmounter() = default;
    Unmounter(const Unmounter&) = delete;
    Unmounter& operator=(const Unmounter&) = delete;
    Unmounter(Unmounter&&) = delete;
    Unmounter& operator=(Unmounter&&) = delete;

    /// Takes the disc in that device out of the file tree. Called on the thread that uses the
    /// drive.
    /// @return  false if it couldn't, for whatever reason
    virtual bool Unmount(const QString& device) = 0;
};

} // namespace velmora::drive
