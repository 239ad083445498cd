// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drives/SenseData.h"

#include <QString>
#include <QtGlobal>

#include <cstdint>
#include <vector>

namespace velmora::drives {

/// A message of the burning library.
struct Message {
    enum class Weight : std::uint8_t { Remark, Sorry, Failure };
    quint32 code = 0; ///< the library's own
    int systemError = 0;
    Weight weight = Weight::Remark;
    QString text;
};

/// What the library has reported during one task. All drives share one queue, so each read empties
/// it.
class Messages {
public:
    /// Drops the messages from before the task.
    static void Discard();
    /// Collects the messages since the last call.
    void Collect();

    /// Something failed for good, whatever else the library says about the task.
    bool Failed() const;
    /// The answer of a polled drive, other than that it is busy.
    std::vector<Sense> Interruptions() const;
    /// The published code of the first failure.
    qint32 Cause(Task task) const;
    /// The drive's sense data for it.
    std::optional<Sense> SenseOfCause() const;

private:
    std::vector<Message> messages_;
};

/// The published code of one message.
qint32 CodeOf(const Message& message, Task task);

} // namespace velmora::drives
