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

    qint16 RecorderPlace() const override { return recorder; }
    writing::DataMode Mode() const override { return dataMode; }
    writing::FileSystemOption FileSystem() const override { return fileSystem; }
    writing::SpeedSelection Speed() const override { return speed; }
    writing::SessionOption Session() const override { return session; }
    QString DiscName() const override { return discName; }
    void SetDiscName(const QString& name) override
    {
        discName = name;
        transcript_.Tell(u"DiscName = "_s + name);
    }
    bool TakesAnyBytes() const override { return anyBytes; }
    text::ProgramPath TemporaryDirectory() const override { return text::ProgramPath(tempDir); }

    qint16 recorder = 0;
    writing::DataMode dataMode = writing::DataMode::Mode1;
    writing::FileSystemOption fileSystem = writing::FileSystemOption::Joliet;
    writing::SpeedSelection speed {.text = u"Maximum"_s, .listIndex = 0, .listCount = 4};
    writing::SessionOption session = writing::SessionOption::StartMultisession;
    bool anyBytes = false;
    QString discName = u"Photos"_s;
    QString tempDir = u"\\tmp"_s; ///< program path

private:
    Transcript& transcript_;
};

} // namespace velmora::test
