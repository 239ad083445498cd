// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace velmora::terminal {

/// Turns SIGINT, SIGTERM and SIGHUP into a request to stop, for its lifetime. Signals that the
/// process was started to ignore stay ignored. Only one may exist at a time.
///
/// The first signal only sets a flag. A second one ends the process at once with ExitCode::Stopped,
/// after removing the file that is being written.
class StopSignal {
public:
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;
    StopSignal(StopSignal&&) = delete;
    StopSignal& operator=(StopSignal&&) = delete;

    bool Requested() const;

    /// True: a second signal changes nothing, because the current work must end in an orderly way.
    void SetPatient(bool isPatient);

    /// Names the file that a second signal removes; empty = none.
    void SetPartialFile(const std::string& path);

private:
    std::string partialFile_; // the handler reads it through a pointer
};

} // namespace velmora::terminal
