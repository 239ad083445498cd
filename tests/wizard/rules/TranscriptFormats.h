// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/writing/Transcript.h"
#include "wizard/rules/FormatScreen.h"

#include <set>

namespace velmora::test {

using namespace Qt::StringLiterals;

/// Format buttons and an options page that write down what is done to them.
class TranscriptFormats final : public wizard::FormatScreen {
public:
    explicit TranscriptFormats(Transcript& transcript)
        : transcript_(transcript)
    {
    }

    void SetPossible(wizard::FormatButton button, bool isPossible) override
    {
        if (button.kind == wizard::FormatKind::Data) {
            Grey(static_cast<shell::DiscFormat>(button.index), !isPossible);
        }
        transcript_.Tell(u"%1(%2) painted %3"_s.arg(NameOf(button.kind))
                             .arg(button.index)
                             .arg(isPossible ? u"C06040"_s : u"808080"_s));
    }
    bool IsPossible(shell::DiscFormat format) const override { return !grey_.contains(format); }
    void EnableSize(compilation::DiscSize size, bool isEnabled) override
    {
        Enable(NameOf(size), isEnabled);
    }
    void SelectSize(compilation::DiscSize size) override
    {
        transcript_.Tell(NameOf(size) + u" selected"_s);
    }
    void PlaceSizes(shell::DiscFormat format, bool isOnScreen) override
    {
        transcript_.Tell(u"ReyFrame1(%1)"_s.arg(static_cast<int>(format))
            + (isOnScreen ? u" comes"_s : u" goes"_s));
    }
    void ShowTitle(const QString& caption) override
    {
        transcript_.Tell(u"Label3 "_s + Quoted(caption));
    }
    void DescribeDisc(const QString& caption) override
    {
        transcript_.Tell(u"Label5 "_s + Quoted(caption));
    }
    void EnableDataMode(bool isEnabled) override { Enable(u"Combo2(0)"_s, isEnabled); }
    void SelectDataMode(writing::DataMode mode) override
    {
        transcript_.Tell(u"Combo2(0) item %1"_s.arg(static_cast<int>(mode)));
    }
    void EnableFileSystem(bool isEnabled) override { Enable(u"Combo2(1)"_s, isEnabled); }
    void SelectFileSystem(writing::FileSystemOption fileSystem) override
    {
        transcript_.Tell(u"Combo2(1) item %1"_s.arg(static_cast<int>(fileSystem)));
    }
    void ClearSpeeds() override { transcript_.Tell(u"Combo2(2) emptied"_s); }
    void OfferSpeed(const QString& speed) override
    {
        transcript_.Tell(u"Combo2(2) + "_s + Quoted(speed));
    }
    void SelectFirstSpeed() override { transcript_.Tell(u"Combo2(2) item 0"_s); }
    void EnableSession(writing::SessionOption option, bool isEnabled) override
    {
        Enable(u"MultiSession(%1)"_s.arg(static_cast<int>(option)), isEnabled);
    }
    void SelectSession(writing::SessionOption option) override
    {
        transcript_.Tell(u"MultiSession(%1) selected"_s.arg(static_cast<int>(option)));
    }

    /// The format can't be written, as far as the screen tells; or it can.
    void Grey(shell::DiscFormat format, bool isGrey)
    {
        if (isGrey) {
            grey_.insert(format);
        } else {
            grey_.erase(format);
        }
    }

private:
    static QString NameOf(wizard::FormatKind kind)
    {
        const char* const names[] {"CorvaneButton2", "CorvaneButtonAudio", "CorvaneButtonVideo"};
        return QString::fromLatin1(names[static_cast<int>(kind)]);
    }
    static QString NameOf(compilation::DiscSize size)
    {
        const char* const names[] {"BDOptionButton1(0)",
            "BDOptionButton1(1)",
            "DVDOptionButton1(0)",
            "DVDOptionButton1(1)",
            "CDOptionButton1(0)",
            "CDOptionButton1(1)",
            "CDOptionButton1(2)"};
        return QString::fromLatin1(names[static_cast<int>(size)]);
    }
    void Enable(const QString& what, bool isEnabled)
    {
        transcript_.Tell(what + (isEnabled ? u" enabled"_s : u" disabled"_s));
    }

    Transcript& transcript_;
    std::set<shell::DiscFormat> grey_;
};

} // namespace velmora::test
