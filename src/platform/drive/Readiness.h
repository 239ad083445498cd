// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/PublishedCodes.h"
#include "runtime/Clock.h"
#include "runtime/RuntimeError.h"

#include <QtGlobal>

namespace velmora::drive {

/// Does an error's number only mean that the drive isn't ready yet?
constexpr bool IsGettingReady(qint32 number)
{
    using namespace hresult;
    return number == kBecomingReady || number == kFormatInProgress || number == kMediaBusy;
}

/// Queries a drive that may still be recognising its disc until it answers: at once, then every
/// second.
/// @param mostSeconds  after this long its failure is raised
/// @param goesOn  called before each second of waiting with the seconds so far; false gives
///                     up, and the failure is raised
/// @return             what the drive answered
/// Errors: what the query raises for other reasons.
template <class Question, class GoesOn>
auto AnswerOnceReady(Question&& question, int mostSeconds, runtime::Clock& clock, GoesOn&& goesOn)
{
    for (int waited = 0;; ++waited) {
        try {
            return question();
        } catch (const runtime::RuntimeError& failure) {
            if (!IsGettingReady(failure.Number()) || waited == mostSeconds || !goesOn(waited)) {
                throw;
            }
        }
        clock.Pause(1);
    }
}

} // namespace velmora::drive
