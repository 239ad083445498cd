// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"
#include "unicode/FileDescriptor.h"

#include <QStringList>

namespace velmora::link {

/// A process that was started and runs on its own: nobody waits for its end, and it leaves no
/// zombie.
class StartedProcess {
public:
    /// Starts a program. It inherits the standard streams but no other open file: it must not keep
    /// a drive busy.
    /// @param file  the executable
    /// Errors: 53 when there is no such file, 70 without the right to run it, 5 when it isn't
    /// executable code.
    StartedProcess(const text::ProgramPath& file, const QStringList& arguments);

    /// Whether it is running. False from the moment that it ends, even if nobody reaps the process
    /// (the first process of a container may not).
    bool IsRunning() const;

private:
    unicode::FileDescriptor process_; ///< none if it ended before it could be opened
};

} // namespace velmora::link
