// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drives/SenseData.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <chrono>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <thread>
#include <vector>

namespace velmora::drives {

/// The time that passes while waiting for a drive: the machine's, except in tests.
struct WaitClock {
    std::function<std::chrono::steady_clock::time_point()> now = std::chrono::steady_clock::now;
    std::function<void(std::chrono::milliseconds)> sleep
        = [](std::chrono::milliseconds time) { std::this_thread::sleep_for(time); };
};

/// How long to wait for a drive.
struct Patience {
    std::chrono::milliseconds busy {3000};   ///< another program has it, such as the automounter
    std::chrono::milliseconds ready {60000}; ///< a disc that will be written spins up
    std::chrono::milliseconds look {500}; ///< ... that is only examined: the caller will ask again
    std::chrono::milliseconds step {100}; ///< between two checks
    WaitClock clock {};                   ///< asked on the library's thread
};

/// A drive's device file, opened for our own commands: those that the burning library has no call
/// for, or for which it would spin up the disc.
class DeviceHandle {
public:
    enum class Sharing : std::uint8_t { Shared, Exclusive };

    /// Errors: E_ACCESSDENIED, C0AA0210 (in use; only asked for exclusively), 0x80070037.
    DeviceHandle(const QString& device, Sharing sharing);
    ~DeviceHandle();
    DeviceHandle(const DeviceHandle&) = delete;
    DeviceHandle& operator=(const DeviceHandle&) = delete;
    DeviceHandle(DeviceHandle&&) = delete;
    DeviceHandle& operator=(DeviceHandle&&) = delete;

    /// Sends a command without data. @return why it was refused, none if it wasn't
    /// Errors: 0x80070037, C0AA020D (the transport failed).
    std::optional<Sense> Send(std::initializer_list<std::uint8_t> command) const;
    /// Sends a command that the drive answers with data.
    /// @return its first bytes, no more than the most; empty if the drive, or the disc in it,
    ///         has nothing of the kind
    /// Errors: those of Send; RefusedQuestion if the drive can't answer.
    std::vector<std::uint8_t> Ask(
        std::initializer_list<std::uint8_t> command, std::size_t most) const;

    /// Is the tray known to be open?
    bool TrayIsOpen() const;

private:
    std::optional<Sense> Transfer(
        std::initializer_list<std::uint8_t> command, std::span<std::uint8_t> reply) const;

    int handle_ = -1;
};

/// Opens a device exclusively, waiting for a program that has it now.
/// Errors: those of DeviceHandle.
std::unique_ptr<DeviceHandle> OpenExclusively(const QString& device, const Patience& patience);

/// Waits until no other program has the drive and its disc has spun up, or there is none.
/// Errors: those of DeviceHandle; C0AA02FF (it doesn't identify itself); C0AA0205, C0AA0206,
/// C0AA0207 on a timeout.
void WaitForDrive(const QString& device, const Patience& patience);

/// Is a file system of that device in the file tree?
/// @param mountTable  the kernel's mountinfo
bool IsMounted(const QString& device, const QString& mountTable);

/// Keeps programs that are started meanwhile from inheriting the drive's handles: such a program
/// would lock the drive for as long as it runs.
void CloseOnExec(const QString& device);

/// Takes a drive away from its users in this program: from now on all handles on it lead nowhere,
/// and commands sent through them fail. Any thread may call it; a command that is under way
/// continues to its end.
void CutOff(const QString& device);

/// Allows the tray to be opened by hand again, whatever has become of the drive. Does nothing if
/// another program has the drive, or it is gone.
void AllowRemoval(const QString& device);

/// Does this program have the drive?
bool IsOpen(const QString& device);

} // namespace velmora::drives
