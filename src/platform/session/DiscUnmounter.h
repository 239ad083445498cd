// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Unmounter.h"

#include <QDBusConnection>

namespace velmora::session {

/// Unmounts a disc as the desktop does, through udisks.
class DiscUnmounter final : public drive::Unmounter {
public:
    /// @param system  the machine's bus
    explicit DiscUnmounter(QDBusConnection system);

    /// Takes ten seconds at most, so it must not be called on the program's thread.
    bool Unmount(const QString& device) override;

private:
    QDBusConnection bus_;
};

} // namespace velmora::session
