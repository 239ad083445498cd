// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/writing/VirtualRunBench.h"
#include "writing/EraseScreen.h"

namespace velmora::test {

using shell::MessageAnswer;
using virtualdrive::DiscPreset;
using virtualdrive::FaultKind;

namespace {

class EraseLabel final : public writing::EraseScreen {
public:
    void Pump() override { }
    MessageAnswer MsgBox(const QString&, qint32 style, const QString&) override
    {
        return (style & shell::message_style::kYesNo) != 0 ? MessageAnswer::Yes : MessageAnswer::Ok;
    }
    bool AskForFullErase() override { return isFull; }
    qint16 RecorderPlace() const override { return 0; }
    void SetStatus(const QString& text) override { label = text; }
    void CaptureMouse() override { isCaptured = true; }
    void ReleaseMouse() override { isCaptured = false; }

    bool isFull = false;
    bool isCaptured = false;
    QString label;
};

} // namespace

class VirtualEraseTest : public VirtualRunBench {
protected:
    std::string Erase(bool full)
    {
        label.isFull = full;
        writing::EraseRun(label, recorders, *mastering, DataEraser).Run();
        EXPECT_FALSE(label.isCaptured);
        return label.label.toStdString();
    }

    EraseLabel label;
    imapi::DiscFormat2EraseRef DataEraser;
};

TEST_F(VirtualEraseTest, AUsedRewritableDiscIsErasedAndBurnedAgain)
{
    for (const bool full : {false, true}) {
        Insert(u"cd-rw");
        Burn();
        ASSERT_TRUE(state.BurnDone) << Log();
        EXPECT_EQ(Erase(full), "Effacement réussi");
        EXPECT_EQ(Sessions(), 0);
        EXPECT_EQ(DataEraser->FullErase(), full);
        Burn();
        EXPECT_TRUE(state.BurnDone) << Log();
        EXPECT_EQ(Sessions(), 1);
    }
}

TEST_F(VirtualEraseTest, ADiscThatCantBeErasedIsTold)
{
    EXPECT_EQ(Erase(false), "Erreur au cours de la procédure d'effacement !");
    drives.TakeOut(u"A"_s);
    EXPECT_EQ(Erase(false), "Erreur au cours de la procédure d'effacement !");
    ExpectAGoodBurn();
}

TEST_F(VirtualEraseTest, AnEraseThatFailsIsToldAsASuccessAndTheNextOneWorks)
{
    Insert(u"cd-rw", DiscPreset::Closed);
    Plan(FaultKind::EraseFails, 0);
    EXPECT_EQ(Erase(false), "Effacement réussi");
    EXPECT_EQ(Sessions(), 1);
    EXPECT_EQ(Erase(false), "Effacement réussi");
    EXPECT_EQ(Sessions(), 0);
}

} // namespace velmora::test
