// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/writing/Transcript.h"
#include "wizard/rules/NavigationScreen.h"

namespace velmora::test {

using namespace Qt::StringLiterals;

/// A window that records what is moved.
class TranscriptPages final : public wizard::NavigationScreen {
public:
    explicit TranscriptPages(Transcript& transcript)
        : transcript_(transcript)
    {
    }

    void PlaceRootPage(wizard::RootPage page, bool isOnScreen) override
    {
        Place(u"root %1"_s.arg(static_cast<int>(page)), isOnScreen);
    }
    void PlaceBurnPage(shell::WizardPage page, bool isOnScreen) override
    {
        Place(u"page %1"_s.arg(static_cast<int>(page)), isOnScreen);
    }
    void SelectTab(wizard::Tab tab) override
    {
        transcript_.Tell(u"tab %1"_s.arg(static_cast<int>(tab)));
    }
    void HideEraseStatus() override { transcript_.Tell(u"lblErase hidden"_s); }
    void FocusDiscName() override { transcript_.Tell(u"focus DiscName"_s); }
    void FocusCloseList() override { transcript_.Tell(u"focus CorvFermer"_s); }
    void CloseWindow() override { transcript_.Tell(u"closed"_s); }

private:
    void Place(const QString& page, bool isOnScreen)
    {
        transcript_.Tell(page + (isOnScreen ? u" comes"_s : u" goes"_s));
    }

    Transcript& transcript_;
};

} // namespace velmora::test
