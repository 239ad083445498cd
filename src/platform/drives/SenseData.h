// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

namespace velmora::drives {

/// Why a drive refused a command: sense key, additional code and its qualifier.
struct Sense {
    int key = 0;
    int code = 0;
    int qualifier = 0;

    bool operator==(const Sense&) const = default;
};

/// The published code that a task ends with when the drive says so; C0AA02FF for sense data without
/// a code of its own.
qint32 CodeOf(const Sense& sense);
/// The sense data that a message of the library holds.
std::optional<Sense> SenseIn(const QString& message);

} // namespace velmora::drives
