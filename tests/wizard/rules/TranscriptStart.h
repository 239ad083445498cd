// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/writing/Transcript.h"
#include "wizard/rules/StartScreen.h"

#include <QStringList>

#include <functional>

namespace velmora::test {

using namespace Qt::StringLiterals;

/// A window that records how it is set up. Selecting a recorder runs the click, as it does on the
/// window.
class TranscriptStart final : public wizard::StartScreen {
public:
    explicit TranscriptStart(Transcript& transcript)
        : transcript_(transcript)
    {
    }

    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override
    {
        transcript_.Tell(u"box %1 %2 %3"_s.arg(style).arg(Quoted(title), Quoted(text)));
        return shell::MessageAnswer::Ok;
    }
    void SetCaption(const QString& caption) override
    {
        transcript_.Tell(u"caption "_s + Quoted(caption));
    }
    QString FolderText() const override { return u"Gravure du contenu du dossier :"_s; }
    void ShowFolder(const QString& caption) override
    {
        transcript_.Tell(u"lblDossier "_s + Quoted(caption));
    }
    void ShowRecorder(const QString& caption) override
    {
        transcript_.Tell(u"lblGraveur "_s + Quoted(caption));
    }
    void ClearRecorders() override
    {
        Combo1.clear();
        transcript_.Tell(u"Combo1 emptied"_s);
    }
    void OfferRecorder(const QString& item) override
    {
        Combo1 += item;
        transcript_.Tell(u"Combo1 + "_s + Quoted(item));
    }
    qint16 RecorderCount() const override { return static_cast<qint16>(Combo1.size()); }
    QString RecorderName(qint16 index) const override { return Combo1.at(index); }
    qint16 SelectedRecorder() const override { return listIndex; }
    void SelectRecorder(qint16 index) override
    {
        listIndex = index;
        transcript_.Tell(u"Combo1 item %1"_s.arg(index));
        onCombo1Click();
    }
    void ShowTemporaryDirectory(const text::ProgramPath& path) override
    {
        transcript_.Tell(u"RepTempTxt "_s + Quoted(path.Text()));
    }
    void CreateIcons() override { transcript_.Tell(u"SysImageList made"_s); }
    void SetUpList() override { transcript_.Tell(u"ListFile set up"_s); }
    void SetDiscName(const QString& name) override
    {
        transcript_.Tell(u"DiscName "_s + Quoted(name));
    }

    QStringList Combo1;
    qint16 listIndex = -1;
    std::function<void()> onCombo1Click;

private:
    Transcript& transcript_;
};

} // namespace velmora::test
