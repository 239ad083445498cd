// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/RuntimeError.h"

#include <utility>

namespace velmora::test {

/// The number of the error that the statement raises; 0 for none.
template <class Statement> qint32 ErrorNumberOf(Statement&& statement)
{
    try {
        std::forward<Statement>(statement)();
    } catch (const runtime::RuntimeError& failure) {
        return failure.Number();
    }
    return 0;
}

} // namespace velmora::test
