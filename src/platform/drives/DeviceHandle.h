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

/// The time that passes while a drive is waited for: the machine's, but for tests.
struct WaitClock {
    std::function<std::chrono::steady_clock::time_point()> now = std::chrono::steady_clock::now;
    std::function<void(std::chrono::milliseconds)> sleep
        = [](std::chrono::milliseconds time) { std::this_thread::sleep_for(time); };
};

/// How long a drive is waited for.
struct Patience {
    std::chrono::milliseconds busy {3000};   ///< somebody else has it, such as the automounter
    std::chrono::milliseconds ready {60000}; ///< a disc spins up that is to be written
    std::chrono::milliseconds look {500};    ///< ... that is looked at: who asks will ask again
    std::chrono::milliseconds step {100};    ///< from one look to the next
    WaitClock clock {};                      ///< asked on the library's thread
};

/// A drive's device file, opened for commands of our own: those that the burning library has no
/// call for, or would spin up the disc for.
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
    /// Sends a command that has the drive answer.
    /// @return its first bytes, no more than the most; empty where the drive, or the disc in it,
    ///         has nothing of the kind
    /// Errors: those of Send; RefusedQuestion where the drive can't answer.
    std::vector<std::uint8_t> Ask(
        std::initializer_list<std::uint8_t> command, std::size_t most) const;

    /// Is the tray known to be open?
    bool TrayIsOpen() const;

private:
    std::optional<Sense> Transfer(
        std::initializer_list<std::uint8_t> command, std::span<std::uint8_t> reply) const;

    int handle_ = -1;
};

/// Opens a device for nobody else, with patience for whoever has it now.
/// Errors: those of DeviceHandle.
std::unique_ptr<DeviceHandle> OpenExclusively(const QString& device, const Patience& patience);

/// Waits until nobody else has the drive and its disc has spun up, or there is none.
/// Errors: those of DeviceHandle; C0AA02FF (it doesn't say what it is); C0AA0205, C0AA0206,
/// C0AA0207 when the patience is over.
void WaitForDrive(const QString& device, const Patience& patience);

/// Is a file system of that device in the file tree?
/// @param mountTable  the kernel's mountinfo
bool IsMounted(const QString& device, const QString& mountTable);

/// Keeps the drive's handles out of programs that are started meanwhile: one of them would lock the
/// drive for as long as it runs.
void CloseOnExec(const QString& device);

/// Takes a drive away from whoever uses it in this program: all handles on it lead nowhere from
/// now on, and commands fail that are sent through them. From any thread; a command that is under
/// way goes on to its end.
void CutOff(const QString& device);

/// Lets the tray be opened by hand again, whatever has become of the drive. Does nothing where
/// somebody else has the drive, or where there is none any more.
void AllowRemoval(const QString& device);

/// Does this program have the drive?
bool IsOpen(const QString& device);

} // namespace velmora::drives
