// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/writing/Transcript.h"
#include "writing/BurnOptions.h"

namespace velmora::test {

using namespace Qt::StringLiterals;

/// Options as the page would hold them.
class FakeOptions final : public writing::BurnOptions {
public:
    explicit FakeOptions(Transcript& transcript)
        : transcript_(transcript)
    {
    }

    qint16 Combo1ListIndex() const override { return recorder; }
    QString Combo2(qint16 index) const override
    {
        switch (index) {
        case 0:
            return dataMode;
        case 1:
            return fileSystem;
        default:
            return speed;
        }
    }
    qint16 Combo2ListIndex(qint16 index) const override { return index == 2 ? speedIndex : 0; }
    qint16 Combo2ListCount(qint16 index) const override { return index == 2 ? speedCount : 1; }
    bool MultiSession(qint16 index) const override { return index == multiSession; }
    QString DiscName() const override { return discName; }
    void SetDiscName(const QString& name) override
    {
        discName = name;
        transcript_.Tell(u"DiscName = "_s + name);
    }
    QString RepTempTxt() const override { return tempDir; }

    qint16 recorder = 0;
    QString dataMode = u"Mode 1"_s;
    QString fileSystem = u"Joliet"_s;
    QString speed = u"Maximum"_s;
    qint16 speedIndex = 0;
    qint16 speedCount = 4;
    qint16 multiSession = 0;
    QString discName = u"Photos"_s;
    QString tempDir = u"\\tmp"_s;

private:
    Transcript& transcript_;
};

} // namespace velmora::test
