// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscRecorder2.h"

#include <functional>

namespace velmora::imapi {

/// Seconds since the erase began, and seconds expected in all; the estimate may move.
using DiscFormat2EraseUpdate
    = std::function<void(qint32 elapsedSeconds, qint32 estimatedTotalSeconds)>;

/// Erases the disc in a recorder. "DEV": the failures of every access to a drive, see
/// IDiscRecorder2.
class IDiscFormat2Erase {
public:
    IDiscFormat2Erase() = default;
    virtual ~IDiscFormat2Erase() = default;
    IDiscFormat2Erase(const IDiscFormat2Erase&) = delete;
    IDiscFormat2Erase& operator=(const IDiscFormat2Erase&) = delete;
    IDiscFormat2Erase(IDiscFormat2Erase&&) = delete;
    IDiscFormat2Erase& operator=(IDiscFormat2Erase&&) = delete;

    /// The recorder, empty until one is set. An empty reference clears it.
    /// Errors: 80AA0900 while an erase runs, 80AA0901 when another one is set already.
    virtual void SetRecorder(const RecorderRef& recorder) = 0;
    virtual RecorderRef Recorder() const = 0;

    /// Who erases: 1 to 63 of A-Z a-z 0-9 blank . , : ; - _; empty until it is set.
    /// Errors: C0AA090B for another name, 80AA0900 while an erase runs.
    virtual void SetClientName(const QString& name) = 0;
    virtual QString ClientName() const = 0;

    /// True: the whole disc is erased. False, as until it is set: only what names its contents.
    /// Errors: 80AA0900 while an erase runs.
    virtual void SetFullErase(bool full) = 0;
    virtual bool FullErase() const = 0; ///< as published; no run asks

    /// Is there a disc of a kind that can be erased? False without a disc.
    /// Errors: E_POINTER (-2147467261) for an empty recorder; DEV.
    virtual bool IsCurrentMediaSupported(const RecorderRef& recorder) = 0;

    /// Beyond the published interface: why a disc is not supported, or can't be erased anyway.
    /// Errors: E_POINTER; C0AA090A (the drive can't erase), C0AA0202 (no disc), C0AA0909 (no kind
    /// of disc that can be erased), 80AA0904 (this disc can't); DEV.
    virtual void RequireSupportedMedia(const RecorderRef& recorder) = 0;

    /// Erases and returns when the drive has finished and the disc was found to be erased. The
    /// drive is locked meanwhile, and a mounted disc unmounted; it waits a minute at most for a
    /// drive that is still recognising its disc. Errors: C0AA0003 (no recorder), C0AA090B (no
    /// client name), 80AA0900 (an erase runs already), C0AA090A (the drive can't erase), C0AA0202
    /// (no disc), C0AA0909 (no kind of disc that can be erased), 80AA0904 (this disc can't),
    /// 80AA0905 (refused), 80AA0906 (over one hour, or a bad disc), 80AA0907 (also: the disc is not
    /// erased), 80AA0908; DEV.
    virtual void EraseMedia() = 0;

    /// Beyond the published interface: ends the running erase; for the handler of its Update. The
    /// drive itself may go on with it. EraseMedia raises C0AA0002 if nothing was erased yet, and
    /// 80AA0907 after that: the disc's contents are then undefined.
    virtual void CancelErase() = 0;

    /// Beyond the published interface: the drive was told to erase, in the last EraseMedia. If that
    /// failed with another error than C0AA0002, the disc's contents are undefined.
    virtual bool HasBegun() const = 0;

    /// Names the one handler of the Update event. It is called on the calling thread, inside
    /// EraseMedia, every half second; before the erase begins each second, with 0 seconds in all.
    /// An error that leaves the handler is dropped.
    virtual void OnUpdate(DiscFormat2EraseUpdate handler) = 0;
};

using DiscFormat2EraseRef = std::shared_ptr<IDiscFormat2Erase>;

} // namespace velmora::imapi
