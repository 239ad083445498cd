// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/RuntimeError.h"
#include "unicode/FileDescriptor.h"

#include <QLatin1StringView>

#include <chrono>
#include <string>

namespace velmora::virtualdrive {

/// The recorder's folder may not be read or written.
runtime::RuntimeError FolderRefused();

/// What a lock protects.
enum class LockPart : short {
    Change, ///< changing the description; held for moments
    Use,    ///< using the drive; held for a whole write or erase
};

/// The lock file of a recorder, with two locks in it. Each object of this class holds its own
/// locks, even against others in the same process; a process that ends releases all of its locks.
class FolderLock {
public:
    static constexpr QLatin1StringView kName {"lock"};

    /// Errors: C0AA... as for any access: 0x80070037 (no such folder), E_ACCESSDENIED.
    explicit FolderLock(const std::string& folder);

    /// Waits for the lock, which is held for moments. Errors: C0AA0210 on a timeout, because its
    /// holder was suspended.
    void Take(LockPart part, std::chrono::milliseconds patience = std::chrono::seconds(10));
    /// @return false when another holds it
    bool TryTake(LockPart part);
    void Release(LockPart part);
    bool IsHeldElsewhere(LockPart part) const;
    /// The error for a recorder in use elsewhere, C0AA0210: names the programs that use it, as far
    /// as the system tells.
    runtime::RuntimeError InUse() const;

private:
    unicode::FileDescriptor file_;
};

} // namespace velmora::virtualdrive
