// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/writing/Transcript.h"
#include "wizard/rules/FormatScreen.h"

#include <map>
#include <utility>

namespace velmora::test {

using namespace Qt::StringLiterals;

/// Format buttons and an options page that write down what is done to them.
class TranscriptFormats final : public wizard::FormatScreen {
public:
    explicit TranscriptFormats(Transcript& transcript)
        : transcript_(transcript)
    {
    }

    void Paint(wizard::FormatButton button, quint32 colour) override
    {
        colours[{button.kind, button.index}] = colour;
        transcript_.Tell(u"%1(%2) painted %3"_s.arg(NameOf(button.kind))
                             .arg(button.index)
                             .arg(QString::number(colour, 16).toUpper()));
    }
    quint32 BackColor(wizard::FormatButton button) const override
    {
        const auto found = colours.find({button.kind, button.index});
        return found == colours.end() ? wizard::format_colour::kPossible : found->second;
    }
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
    void EnableBox(wizard::OptionBox box, bool isEnabled) override
    {
        Enable(u"Combo2(%1)"_s.arg(static_cast<int>(box)), isEnabled);
    }
    void SelectItem(wizard::OptionBox box, qint16 listIndex) override
    {
        transcript_.Tell(u"Combo2(%1) item %2"_s.arg(static_cast<int>(box)).arg(listIndex));
    }
    void ClearItems(wizard::OptionBox box) override
    {
        transcript_.Tell(u"Combo2(%1) emptied"_s.arg(static_cast<int>(box)));
    }
    void AddItem(wizard::OptionBox box, const QString& item) override
    {
        transcript_.Tell(u"Combo2(%1) + "_s.arg(static_cast<int>(box)) + Quoted(item));
    }
    void EnableSession(writing::SessionOption option, bool isEnabled) override
    {
        Enable(u"MultiSession(%1)"_s.arg(static_cast<int>(option)), isEnabled);
    }
    void SelectSession(writing::SessionOption option) override
    {
        transcript_.Tell(u"MultiSession(%1) selected"_s.arg(static_cast<int>(option)));
    }

    std::map<std::pair<wizard::FormatKind, qint16>, quint32> colours;

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
};

} // namespace velmora::test
