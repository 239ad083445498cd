// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/writing/Transcript.h"
#include "writing/StopCompanion.h"

namespace velmora::test {

using namespace Qt::StringLiterals;

/// A companion that records what it is told. A test presses its button by setting isStopAsked.
class TranscriptCompanion final : public writing::StopCompanion {
public:
    explicit TranscriptCompanion(Transcript& transcript)
        : transcript_(transcript)
    {
    }

    void Start() override
    {
        transcript_.Tell(u"companion started"_s);
        isStopAsked = false;
    }
    void Finish() override
    {
        transcript_.Tell(u"companion told to quit"_s);
        isStopAsked = false;
    }
    bool IsStopAsked() const override { return isStopAsked; }

    bool isStopAsked = false;

private:
    Transcript& transcript_;
};

} // namespace velmora::test
