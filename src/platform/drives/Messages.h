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

/// What the library has said during one task. Its queue is one for all drives, so it is emptied at
/// each look.
class Messages {
public:
    /// Forgets what was said before the task.
    static void Discard();
    /// Takes what was said since the last call.
    void Collect();

    /// Something went wrong for good, whatever else the library says of the task.
    bool Failed() const;
    /// What a drive has answered that was asked whether it is done, other than that it is busy.
    std::vector<Sense> Interruptions() const;
    /// The published code of what went wrong first.
    qint32 Cause(Task task) const;
    /// What the drive itself said of that.
    std::optional<Sense> SenseOfCause() const;

private:
    std::vector<Message> messages_;
};

/// The published code of one message.
qint32 CodeOf(const Message& message, Task task);

} // namespace velmora::drives
