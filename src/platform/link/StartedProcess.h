// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "unicode/FileDescriptor.h"

#include <QString>
#include <QStringList>

namespace velmora::link {

/// A process that was started and goes its own way: nobody waits for its end, and nothing of it is
/// left when it has ended.
class StartedProcess {
public:
    /// Starts a program. It sees the standard streams, but no other file that is open here: it must
    /// not keep a drive busy.
    /// @param file  program path of the executable
    /// Errors: 53 when there is no such file, 70 without the right to run it, 5 when it is none
    /// that can be run.
    StartedProcess(const QString& file, const QStringList& arguments);

    /// Whether it goes on. It doesn't from the moment that it ends, even where nobody clears the
    /// dead away (the first process of a container may not).
    bool IsRunning() const;

private:
    unicode::FileDescriptor process_; ///< none when it ended before it could be looked at
};

} // namespace velmora::link
