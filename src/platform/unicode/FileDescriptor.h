// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velmora::unicode {

/// A file descriptor that is closed with its owner.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor)
        : descriptor_(descriptor)
    {
    }
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor_(other.Release())
    {
    }
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        Reset(other.Release());
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { Reset(); }

    int Get() const { return descriptor_; }
    explicit operator bool() const { return descriptor_ >= 0; }
    /// Gives the descriptor away: its new owner closes it.
    int Release()
    {
        const int descriptor = descriptor_;
        descriptor_ = -1;
        return descriptor;
    }
    /// Closes the owned descriptor and takes another one; -1 for none.
    void Reset(int descriptor = -1);

private:
    int descriptor_ = -1;
};

} // namespace velmora::unicode
