// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/forms/FrmTemp.h"

#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WidgetApplication.h"
#include "text/PathText.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace velmora::shell {

using namespace Qt::StringLiterals;
using namespace test::path_literals;

namespace {

constexpr double kGibibyte = 1024.0 * 1024 * 1024;

class FrmTempTest : public testing::Test {
protected:
    TemporaryChoiceContext Context() const
    {
        return {.fixedDrives =
                    [this] {
                        return QList {u"\\"_path, text::ProgramPath(Drive())};
                    },
            .winTempDir = [] { return u"\\tmp\\"_path; },
            .diskSpace =
                [](const text::ProgramPath& path) {
                    const double free = path == u"\\"_path ? 123.456 : 8.5;
                    return DiskSpace {free * kGibibyte, 476.94 * kGibibyte};
                },
            .canBeHad = [](const text::ProgramPath&) { return true; }};
    }
    QString Drive() const
    {
        return text::ToProgramPath(text::NativePath(folder_.Path().string() + '/')).Text();
    }
    template <class Child> Child& Find(const char* name)
    {
        return *window_.findChild<Child*>(QString::fromLatin1(name));
    }
    QTreeWidgetItem& Row(int index)
    {
        return *Find<QTreeWidget>("ListViewTemp").topLevelItem(index);
    }
    /// The press of a double click comes first, and selects.
    void DoubleClick(int index)
    {
        auto& list = Find<QTreeWidget>("ListViewTemp");
        const QPointF place = list.visualItemRect(&Row(index)).center();
        for (const auto type :
            {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick}) {
            QMouseEvent event(type,
                place,
                list.viewport()->mapToGlobal(place),
                Qt::LeftButton,
                Qt::LeftButton,
                Qt::NoModifier);
            QApplication::sendEvent(list.viewport(), &event);
        }
    }
    void Select(int index) { Find<QTreeWidget>("ListViewTemp").setCurrentItem(&Row(index)); }

    test::TemporaryFolder folder_;
    FrmTemp window_ {TemporaryChoice(Context())};
};

} // namespace

TEST_F(FrmTempTest, ItsTextsAreWhatAPersonReads)
{
    EXPECT_EQ(window_.windowTitle(), u"Choix du répertoire temporaire"_s);
    EXPECT_EQ(Find<QLabel>("Label1").text(),
        u"Il est souhaitable de choisir le disque le plus rapide et où il existe le maximum "
        "d'espace libre."_s);
    EXPECT_EQ(Find<QPushButton>("Command2").text(), u"&OK"_s);
    EXPECT_EQ(Find<QPushButton>("Command1").text(), u"&Annuler"_s);
    const QTreeWidgetItem* heads = Find<QTreeWidget>("ListViewTemp").headerItem();
    EXPECT_EQ(heads->text(0), u"Chemin du répertoire temporaite de windows"_s);
    EXPECT_EQ(heads->text(1), u"Espace libre"_s);
}

TEST_F(FrmTempTest, TheRowsShowPathsAsLinuxWritesThem)
{
    ASSERT_EQ(Find<QTreeWidget>("ListViewTemp").topLevelItemCount(), 3);
    EXPECT_EQ(Row(0).text(0), u"Répertoire temporaire de Windows"_s);
    EXPECT_EQ(Row(1).text(0), u"/"_s);
    EXPECT_EQ(Row(2).text(0), QString::fromStdString(folder_.Path().string() + '/'));
    EXPECT_TRUE(Row(1).text(1).contains(u" Go libres ("_s));
    EXPECT_FALSE(Row(0).icon(0).isNull());
    EXPECT_FALSE(Row(1).icon(0).isNull());
}

TEST_F(FrmTempTest, OkAtOnceTakesTheSystemsDirectory)
{
    Find<QPushButton>("Command2").click();
    EXPECT_EQ(window_.result(), QDialog::Accepted);
    EXPECT_EQ(window_.TempDirectory().Text(), u"\\tmp\\"_s);
}

TEST_F(FrmTempTest, OkTakesTheSelectedRow)
{
    Select(2);
    Find<QPushButton>("Command2").click();
    EXPECT_EQ(window_.TempDirectory().Text(), Drive() + u"Temp\\"_s);
    EXPECT_TRUE(std::filesystem::is_directory(folder_ / "Temp"));
}

TEST_F(FrmTempTest, ADoubleClickIsOk)
{
    window_.show();
    DoubleClick(2);
    EXPECT_EQ(window_.result(), QDialog::Accepted);
    EXPECT_EQ(window_.TempDirectory().Text(), Drive() + u"Temp\\"_s);
}

TEST_F(FrmTempTest, CancelTakesNothing)
{
    Select(2);
    Find<QPushButton>("Command1").click();
    EXPECT_EQ(window_.result(), QDialog::Rejected);
    EXPECT_EQ(window_.TempDirectory().Text(), QString());
    EXPECT_FALSE(std::filesystem::exists(folder_ / "Temp"));
}
} // namespace velmora::shell
