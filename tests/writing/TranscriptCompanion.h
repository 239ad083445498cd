// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/writing/Transcript.h"
#include "writing/StopCompanion.h"

namespace velmora::test {

using namespace Qt::StringLiterals;

/// A companion that records what it is told. A test presses its button by setting DDETool.
class TranscriptCompanion final : public writing::StopCompanion {
public:
    explicit TranscriptCompanion(Transcript& transcript)
        : transcript_(transcript)
    {
    }

    void Commandundo() override
    {
        transcript_.Tell(u"companion started"_s);
        tool.clear();
    }
    void Commandpoke() override
    {
        transcript_.Tell(u"companion told to quit"_s);
        tool = u"Quit"_s;
    }
    QString DDETool() const override { return tool; }

    QString tool;

private:
    Transcript& transcript_;
};

} // namespace velmora::test
