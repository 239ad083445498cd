// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <stop_token>

namespace velmora::wizard {

/// Works things out beside the user's work, one at a time; the newest counts.
class SideWork {
public:
    /// Shows what came of a piece of work, on the program's thread.
    using Show = std::function<void()>;
    /// A piece of work, on whatever thread: it uses nothing that the program may change meanwhile,
    /// and gives up soon after the stop is requested.
    using Work = std::function<Show(const std::stop_token& stop)>;

    SideWork() = default;
    virtual ~SideWork() = default;
    SideWork(const SideWork&) = delete;
    SideWork& operator=(const SideWork&) = delete;
    SideWork(SideWork&&) = delete;
    SideWork& operator=(SideWork&&) = delete;

    /// Drops what was begun before, and begins this. Returns at once.
    virtual void Begin(Work work) = 0;
    /// What was begun is to give up, and shows nothing any more. Returns at once.
    virtual void Drop() = 0;
};

} // namespace velmora::wizard
