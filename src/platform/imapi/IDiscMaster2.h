// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>

namespace velmora::imapi {

/// The list of the recorders, made anew for each object. It only grows while the program runs: a
/// recorder keeps its place when others come or go, a new one is added at the end, and one that is
/// gone keeps its place and fails when used.
class IDiscMaster2 {
public:
    IDiscMaster2() = default;
    virtual ~IDiscMaster2() = default;
    IDiscMaster2(const IDiscMaster2&) = delete;
    IDiscMaster2& operator=(const IDiscMaster2&) = delete;
    IDiscMaster2(IDiscMaster2&&) = delete;
    IDiscMaster2& operator=(IDiscMaster2&&) = delete;

    /// The number of recorders, including drives that only read and those that are gone.
    virtual qint32 Count() const = 0;

    /// The unique id of a recorder, stable across reboots.
    /// @param index  0 to Count - 1
    /// Errors: E_INVALIDARG (5) for any other index.
    virtual QString Item(qint32 index) const = 0;
};

using DiscMasterRef = std::shared_ptr<IDiscMaster2>;

} // namespace velmora::imapi
