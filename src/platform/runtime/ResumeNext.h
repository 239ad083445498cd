// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/RuntimeError.h"

#include <utility>

namespace velmora::runtime {

/// The error that an ignored failure left behind. It stays until it is cleared or a new failure
/// takes its place; a statement that succeeds doesn't change it.
class PendingError {
public:
    /// 0 when nothing failed.
    qint32 Number() const { return number_; }
    const QString& Description() const { return description_; }

    void Keep(const RuntimeError& failure)
    {
        number_ = failure.Number();
        description_ = failure.Description();
    }
    void Clear() { *this = {}; }

private:
    qint32 number_ = 0;
    QString description_;
};

/// Runs one statement whose failure is ignored.
/// @return the pending error number: this statement's, or an earlier one's when this one succeeded
template <class Statement> qint32 ResumeNext(PendingError& pending, Statement&& statement)
{
    try {
        std::forward<Statement>(statement)();
    } catch (const RuntimeError& failure) {
        pending.Keep(failure);
    }
    return pending.Number();
}

/// Runs one statement whose failure is ignored.
/// @return its error number, 0 when it succeeded
template <class Statement> qint32 ResumeNext(Statement&& statement)
{
    PendingError pending;
    return ResumeNext(pending, std::forward<Statement>(statement));
}

} // namespace velmora::runtime
