// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/forms/FrmBurner.h"

#include "recorder/RecorderState.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/WidgetApplication.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSet>

#include <gtest/gtest.h>

namespace velmora::recorder {

using namespace Qt::StringLiterals;

namespace {

class FrmBurnerTest : public testing::Test {
protected:
    FrmBurnerTest()
    {
        state_.RecorderList = {{},
            {.RecorderVendor = u"HL-DT-ST"_s,
                .RecorderProduct = u"BD-RE BH16NS55"_s,
                .RecorderRevision = u"1.05"_s,
                .RecorderCanLoadMedia = u"True"_s,
                .RecorderPath = u"/dev/sr0"_s,
                .RecorderMediaList
                = u"CD-R;CD-RW;DVD-R;DVD-RW;DVD-RAM;DVD+R;DVD+R DL;BD-R;BD-RE;"_s},
            {}};
    }
    template <class Child> static Child& Find(const FrmBurner& window, const QString& name)
    {
        return *window.findChild<Child*>(name);
    }
    static QStringList Boxes(const FrmBurner& window)
    {
        QStringList texts;
        for (int i = 0; i < 5; ++i) {
            texts += Find<QLineEdit>(window, u"Text1_%1"_s.arg(i)).text();
        }
        for (int i = 0; i < 4; ++i) {
            texts += Find<QPlainTextEdit>(window, u"Text2_%1"_s.arg(i)).toPlainText();
        }
        return texts;
    }

    RecorderState state_;
};

} // namespace

TEST_F(FrmBurnerTest, ItsTextsAreWhatAPersonReads)
{
    const FrmBurner window(state_, 1);
    EXPECT_EQ(window.windowTitle(), u"Caractéristiques du graveur choisi"_s);
    EXPECT_EQ(Find<QGroupBox>(window, u"ReyFrameOption_0"_s).title(), u"Graveur"_s);
    EXPECT_EQ(
        Find<QGroupBox>(window, u"ReyFrameOption_1"_s).title(), u"Type de médias compatibles"_s);
    const QStringList labels {u"Manufacturier :"_s,
        u"Référence :"_s,
        u"Révision :"_s,
        u"Affecté au disque :"_s,
        u"Chargement auto du média possible :"_s,
        u"DVD --"_s,
        u"DVD +"_s,
        u"BD"_s};
    QStringList shown;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        shown += label->text();
    }
    EXPECT_EQ(
        QSet<QString>(shown.begin(), shown.end()), QSet<QString>(labels.begin(), labels.end()));
    EXPECT_EQ(Find<QPushButton>(window, u"BurnISO"_s).text(), u"&Retour"_s);
}

TEST_F(FrmBurnerTest, ItShowsTheRecorderOfThePlaceGiven)
{
    const FrmBurner window(state_, 1);
    EXPECT_EQ(Boxes(window),
        (QStringList {u"HL-DT-ST"_s,
            u"BD-RE BH16NS55"_s,
            u"1.05"_s,
            u"/dev/sr0"_s,
            u"Oui"_s,
            u"CD-R\nCD-RW\n"_s,
            u"DVD-R\nDVD-RW\nDVD-RAM\n"_s,
            u"DVD+R\nDVD+R DL\n"_s,
            u"BD-R\nBD-RE\n"_s}));
}

TEST_F(FrmBurnerTest, OpenedTwiceItShowsTheSame)
{
    const QStringList first = Boxes(FrmBurner(state_, 1));
    EXPECT_EQ(Boxes(FrmBurner(state_, 1)), first);
}

TEST_F(FrmBurnerTest, NothingCanBeChanged)
{
    const FrmBurner window(state_, 1);
    for (const QLineEdit* box : window.findChildren<QLineEdit*>()) {
        EXPECT_TRUE(box->isReadOnly());
    }
    for (const QPlainTextEdit* box : window.findChildren<QPlainTextEdit*>()) {
        EXPECT_TRUE(box->isReadOnly());
    }
}

TEST_F(FrmBurnerTest, TheButtonClosesIt)
{
    FrmBurner window(state_, 1);
    window.show();
    Find<QPushButton>(window, u"BurnISO"_s).click();
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FrmBurnerTest, NoRecorderChosenIsError9)
{
    EXPECT_EQ(test::ErrorNumberOf([this] { const FrmBurner window(state_, -1); }), 9);
}
} // namespace velmora::recorder
