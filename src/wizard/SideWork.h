// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <stop_token>

namespace velmora::wizard {

/// Computes things in the background, one at a time; the newest counts.
class SideWork {
public:
    /// Shows the result of a piece of work, on the program's thread.
    using Show = std::function<void()>;
    /// A piece of work, on any thread: it uses nothing that the program may change meanwhile, and
    /// gives up soon after a stop is requested.
    using Work = std::function<Show(const std::stop_token& stop)>;

    SideWork() = default;
    virtual ~SideWork() = default;
    SideWork(const SideWork&) = delete;
    SideWork& operator=(const SideWork&) = delete;
    SideWork(SideWork&&) = delete;
    SideWork& operator=(SideWork&&) = delete;

    /// Drops earlier work, and begins this. Returns at once.
    virtual void Begin(Work work) = 0;
    /// Makes current work give up without showing a result. Returns at once.
    virtual void Drop() = 0;
};

} // namespace velmora::wizard
