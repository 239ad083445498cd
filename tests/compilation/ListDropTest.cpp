// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/ListDrop.h"

#include "compilation/DataObject.h"
#include "compilation/RowView.h"
#include "tests/compilation/CompilationFixture.h"
#include "tests/support/ShellLinkFile.h"

#include <QMimeData>

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;
using compilation::DataObject;
using compilation::SubItem;
using shell::MessageAnswer;

namespace {

constexpr qint32 kCopyOrMove = 3;

/// Rows of ten pixels each, from the top.
class FakeView final : public compilation::RowView {
public:
    explicit FakeView(const compilation::CompilationList& list)
        : list_(list)
    {
    }
    qsizetype RowAt(int x, int y) const override
    {
        const qsizetype row = y / 10 + 1;
        return x >= 0 && y >= 0 && row <= list_.Count() ? row : 0;
    }
    void MarkDropTarget(qsizetype row) override { highlight = row; }
    void ShowRow(qsizetype row) override { shown.push_back(row); }

    qsizetype highlight = -1;
    std::vector<qsizetype> shown;

private:
    const compilation::CompilationList& list_;
};

DataObject Dragged(const QByteArray& addresses)
{
    QMimeData data;
    data.setData(u"text/uri-list"_s, addresses);
    return DataObject(data);
}

DataObject DraggedText()
{
    QMimeData data;
    data.setText(u"file:///a"_s);
    return DataObject(data);
}

class ListDropTest : public test::CompilationFixture<test::FakeFiles> {
protected:
    /// @return the effect that the drag has there
    qint32 DragOver(const DataObject& data, int y)
    {
        qint32 effect = kCopyOrMove;
        drop.OLEDragOver(data, effect, 0, y, view);
        return effect;
    }
    void DropAt(int y, const QByteArray& addresses)
    {
        const DataObject data = Dragged(addresses);
        DragOver(data, y);
        drop.OLEDragDrop(data, drop.DropDirectory(), view);
    }
    QStringList Texts() const
    {
        QStringList texts;
        for (qsizetype i = 1; i <= list.Count(); ++i) {
            texts += list[i].Text();
        }
        return texts;
    }
    void MakeLink(const QString& path, const QString& relativePath)
    {
        files.files[path] = 700;
        const test::ShellLinkFile link {.relativePath = relativePath};
        files.contents[path] = QByteArray::fromStdString(link.Bytes());
    }
    void MakeDesktopLink(const QString& path, const QByteArray& address)
    {
        files.files[path] = 70;
        files.contents[path] = "[Desktop Entry]\nType=Link\nURL=" + address + "\n";
    }

    compilation::ListDrop drop {compilation, list, files, messages};
    FakeView view {list};
};

class DragOverTest : public ListDropTest { };
class DroppedFilesTest : public ListDropTest { };
class DroppedShortcutTest : public ListDropTest { };

constexpr int kBesideAnyRow = 10'000;

} // namespace

TEST_F(DragOverTest, FilesAreCopiedAndNothingElseIsTaken)
{
    EXPECT_EQ(DragOver(Dragged("file:///a"), 0), 1);
    EXPECT_EQ(DragOver(DraggedText(), 0), 0);
    EXPECT_EQ(DragOver(Dragged(""), 0), 0);
    qint32 effect = 2; // the source only offers to move
    drop.OLEDragOver(Dragged("file:///a"), effect, 0, 0, view);
    EXPECT_EQ(effect, 0);
}

TEST_F(DragOverTest, TheRowUnderThePointerIsMarkedAndShown)
{
    compilation.AddMadeDirectory(u"A"_disc);
    files.files[u"C:\\b"_s] = 1;
    compilation.PutFile(u"C:\\b"_path);
    DragOver(Dragged("file:///x"), 5);
    EXPECT_EQ(view.highlight, 1);
    EXPECT_EQ(drop.DropDirectory(), u"A\\"_disc);
    DragOver(Dragged("file:///x"), 15);
    EXPECT_EQ(view.highlight, 2);
    EXPECT_EQ(drop.DropDirectory(), text::DiscPath());
    EXPECT_EQ(view.shown, (std::vector<qsizetype> {1, 2}));
}

TEST_F(DragOverTest, BesideAnyRowIsTheRoot)
{
    compilation.AddMadeDirectory(u"A"_disc);
    DragOver(Dragged("file:///x"), 5);
    DragOver(Dragged("file:///x"), kBesideAnyRow);
    EXPECT_EQ(drop.DropDirectory(), text::DiscPath());
    EXPECT_EQ(view.highlight, 0);
    EXPECT_EQ(view.shown, std::vector<qsizetype> {1});
}

TEST_F(DragOverTest, ADropWithoutFilesAddsNothingAndUnmarksTheRow)
{
    compilation.AddMadeDirectory(u"A"_disc);
    DragOver(DraggedText(), 0);
    EXPECT_EQ(view.highlight, 1);
    drop.OLEDragDrop(DraggedText(), {}, view);
    EXPECT_EQ(view.highlight, 0);
    EXPECT_EQ(list.Count(), 1);
}

TEST_F(DroppedFilesTest, AFileGoesIntoTheDirectoryUnderThePointer)
{
    compilation.AddMadeDirectory(u"Photos"_disc);
    files.files[u"\\home\\u\\a.jpg"_s] = 2000000;
    icons.numbers[u"jpg"_s] = 4;
    DropAt(0, "file:///home/u/a.jpg\r\n");
    ASSERT_EQ(Texts(), (QStringList {u"Photos\\"_s, u"Photos\\a.jpg"_s}));
    const compilation::ListRow& row = list[2];
    EXPECT_EQ(row.Key(), u"Photos\\a.jpg"_s);
    EXPECT_EQ(row.ImageKey(), u"F4"_s);
    EXPECT_EQ(row[SubItem::Taille], u"2 Mo"_s);
    EXPECT_EQ(row[SubItem::Type], u"Fichier"_s);
    EXPECT_EQ(row[SubItem::Origine], u"\\home\\u\\a.jpg"_s);
    EXPECT_EQ(row[SubItem::CheminIso], u"Photos\\a.jpg"_s);
    EXPECT_EQ(row[SubItem::TailleEnOctets], u"2000000"_s);
    EXPECT_EQ(state.TotalSizeBytes, 2000000);
    EXPECT_EQ(view.highlight, 0);
}

TEST_F(DroppedFilesTest, BesideAnyRowAndOnAFileItGoesIntoTheRoot)
{
    files.files = {{u"\\a"_s, 1}, {u"\\b"_s, 2}};
    DropAt(kBesideAnyRow, "file:///a");
    DropAt(0, "file:///b");
    EXPECT_EQ(Texts(), (QStringList {u"a"_s, u"b"_s}));
}

TEST_F(DroppedFilesTest, AFolderGoesInAsOneRow)
{
    compilation.AddMadeDirectory(u"A"_disc);
    files.folders[u"\\home\\u\\d\\"_s] = 5000;
    DropAt(0, "file:///home/u/d");
    ASSERT_EQ(list.Count(), 2);
    EXPECT_EQ(list[2].Text(), u"A\\d\\"_s);
    EXPECT_EQ(list[2].ImageKey(), u"FD"_s);
    EXPECT_EQ(list[2][SubItem::Type], u"Dossier"_s);
    EXPECT_EQ(list[2][SubItem::Origine], u"\\home\\u\\d\\"_s);
    EXPECT_EQ(list[2][SubItem::TailleEnOctets], u"5000"_s);
    EXPECT_EQ(state.TotalSizeBytes, 5000);
    EXPECT_EQ(pointer.history,
        (std::vector {shell::MousePointer::Hourglass, shell::MousePointer::Arrow}));
}

TEST_F(DroppedFilesTest, AWholeFileSystemIsNotAskedAbout)
{
    files.folders[u"\\"_s] = 1;
    files.folders[u"\\mnt\\usb\\"_s] = 2;
    files.mountRoots = {u"\\mnt\\usb"_s, u"\\mnt\\usb\\"_s, u"\\"_s};
    DropAt(kBesideAnyRow, "file:///\nfile:///mnt/usb/");
    EXPECT_EQ(Texts(), (QStringList {u"\\"_s, u"usb\\"_s}));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DroppedFilesTest, NamesThatAreNoUtf8Survive)
{
    const QString cafe = u"\\caf"_s + QChar(0xDCE9);
    files.files[cafe] = 1;
    DropAt(kBesideAnyRow, "file:///caf%E9");
    ASSERT_EQ(list.Count(), 1);
    EXPECT_EQ(list[1][SubItem::Origine], cafe);
}

TEST_F(DroppedFilesTest, WhatIsNotThereIsPassedOverWithoutAWord)
{
    files.files[u"\\a"_s] = 1;
    DropAt(kBesideAnyRow, "file:///gone\nfile:///a");
    EXPECT_EQ(Texts(), QStringList {u"a"_s});
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DroppedFilesTest, ADuplicateOverwritesTheRowBeforeItAndCountsNothing)
{
    compilation.AddMadeDirectory(u"A"_disc);
    files.files = {{u"\\c"_s, 100}};
    DropAt(0, "file:///c");
    files.files = {{u"\\d\\a"_s, 1},
        {u"\\d\\b"_s, 20},
        {u"\\d\\c"_s, 3000},
        {u"\\d\\e"_s, 4},
        {u"\\d\\f"_s, 500}};
    DropAt(0, "file:///d/a\nfile:///d/b\nfile:///d/c\nfile:///d/e\nfile:///d/f");
    EXPECT_EQ(
        Texts(), (QStringList {u"A\\"_s, u"A\\c"_s, u"A\\a"_s, u"A\\b"_s, u"A\\e"_s, u"A\\f"_s}));
    EXPECT_EQ(list[2][SubItem::Origine], u"\\c"_s);
    EXPECT_EQ(list[4][SubItem::Origine], u"\\d\\c"_s);
    EXPECT_EQ(list[4][SubItem::Taille], u"3 Ko"_s);
    EXPECT_EQ(list[4][SubItem::CheminIso], u"A\\c"_s);
    EXPECT_EQ(list[4][SubItem::TailleEnOctets], u"3000"_s);
    EXPECT_EQ(state.TotalSizeBytes, 100 + 1 + 20 + 4 + 500);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DroppedFilesTest, AFolderThatIsThereOverwritesTheFileBeforeIt)
{
    files.folders[u"\\d\\"_s] = 7;
    DropAt(kBesideAnyRow, "file:///d");
    files.files[u"\\a"_s] = 1;
    files.folders[u"\\e\\d\\"_s] = 9000;
    DropAt(kBesideAnyRow, "file:///a\nfile:///e/d");
    EXPECT_EQ(Texts(), (QStringList {u"d\\"_s, u"a"_s}));
    EXPECT_EQ(list[2][SubItem::Type], u"Dossier"_s);
    EXPECT_EQ(list[2][SubItem::Origine], u"\\e\\d\\"_s);
    EXPECT_EQ(state.TotalSizeBytes, 8);
}

TEST_F(DroppedFilesTest, ADuplicateWithNoRowBeforeItChangesNothing)
{
    files.files = {{u"\\a"_s, 1}, {u"\\d\\a"_s, 20}};
    DropAt(kBesideAnyRow, "file:///a");
    DropAt(kBesideAnyRow, "file:///d/a");
    ASSERT_EQ(list.Count(), 1);
    EXPECT_EQ(list[1][SubItem::Origine], u"\\a"_s);
    EXPECT_EQ(state.TotalSizeBytes, 1);
}

TEST_F(DroppedFilesTest, AnAddressOfAnotherMachineIsToldAndTheRestIsAdded)
{
    files.files = {{u"\\a"_s, 1}, {u"\\b"_s, 2}};
    DropAt(kBesideAnyRow, "file:///a\nsftp://u@h/x\nfile:///b");
    EXPECT_EQ(Texts(), (QStringList {u"a"_s, u"b"_s}));
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.shown[0].text,
        u"Impossible de trouver un ou plusieurs fichiers ! Merci de vérifier votre sélection."_s);
    EXPECT_EQ(messages.shown[0].style, 16);
}

TEST_F(DroppedFilesTest, AnyOtherFailureIsToldByItsNumberAndEndsTheDrop)
{
    files.files = {{u"\\a"_s, 1}, {u"\\b"_s, 2}};
    files.folders[u"\\d\\"_s] = 4;
    files.unreadable = {u"\\d\\"_s};
    EXPECT_FALSE(drop.AddDroppedFiles(Dragged("file:///a\nfile:///d\nfile:///b"), {}));
    EXPECT_EQ(Texts(), QStringList {u"a"_s});
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.shown[0].text, u"70 - Permission refusée"_s);
    EXPECT_EQ(messages.shown[0].style, 0);
    EXPECT_EQ(pointer.history, std::vector {shell::MousePointer::Hourglass});
}

TEST_F(DroppedFilesTest, TheResultIsTrueEvenWhenNothingWasAdded)
{
    EXPECT_TRUE(drop.AddDroppedFiles(Dragged("file:///gone\nhttp://x"), {}));
    EXPECT_TRUE(drop.AddDroppedFiles(Dragged(""), {}));
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(DroppedShortcutTest, TheTargetIsAddedUnderItsOwnName)
{
    files.files[u"\\home\\u\\docs\\a.txt"_s] = 5;
    MakeLink(u"\\home\\u\\links\\My a.LNK"_s, u"..\\docs\\.\\a.txt"_s);
    DropAt(kBesideAnyRow, "file:///home/u/links/My%20a.LNK");
    ASSERT_EQ(Texts(), QStringList {u"a.txt"_s});
    EXPECT_EQ(list[1][SubItem::Origine], u"\\home\\u\\docs\\a.txt"_s);
    EXPECT_EQ(state.TotalSizeBytes, 5);
}

TEST_F(DroppedShortcutTest, TheTargetMayBeAFolder)
{
    files.folders[u"\\docs\\"_s] = 5;
    MakeLink(u"\\docs.lnk"_s, u".\\docs"_s);
    DropAt(kBesideAnyRow, "file:///docs.lnk");
    EXPECT_EQ(Texts(), QStringList {u"docs\\"_s});
}

TEST_F(DroppedShortcutTest, ASymbolicLinkIsTakenForWhatItLeadsTo)
{
    files.files[u"\\docs\\a.txt"_s] = 5;
    files.folders[u"\\docs\\"_s] = 7;
    files.links = {{u"\\toFile"_s, u"\\docs\\a.txt"_s},
        {u"\\toFolder"_s, u"\\docs"_s},
        {u"\\toNothing"_s, u""_s}};
    DropAt(kBesideAnyRow, "file:///toFile\nfile:///toFolder\nfile:///toNothing");
    EXPECT_EQ(Texts(), (QStringList {u"a.txt"_s, u"docs\\"_s}));
    EXPECT_EQ(list[1][SubItem::Origine], u"\\docs\\a.txt"_s);
    EXPECT_EQ(state.TotalSizeBytes, 12);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DroppedShortcutTest, ASymbolicLinkMayLeadToAShortcutAndAShortcutToALink)
{
    files.files[u"\\docs\\a.txt"_s] = 5;
    files.files[u"\\docs\\link"_s] = 5;
    files.links = {{u"\\first"_s, u"\\a.lnk"_s}, {u"\\docs\\link"_s, u"\\docs\\a.txt"_s}};
    MakeLink(u"\\a.lnk"_s, u".\\docs\\link"_s);
    DropAt(kBesideAnyRow, "file:///first");
    EXPECT_EQ(Texts(), QStringList {u"a.txt"_s});
}

TEST_F(DroppedShortcutTest, ATargetThatIsGoneAddsNothingAndSaysNothing)
{
    files.files[u"\\b"_s] = 1;
    MakeLink(u"\\a.lnk"_s, u".\\a"_s);
    DropAt(kBesideAnyRow, "file:///a.lnk\nfile:///gone.lnk\nfile:///b");
    EXPECT_EQ(Texts(), QStringList {u"b"_s});
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DroppedShortcutTest, AFileThatIsNoShortcutIsToldAndEndsTheDrop)
{
    files.files = {{u"\\bad.lnk"_s, 3}, {u"\\b"_s, 1}};
    files.contents[u"\\bad.lnk"_s] = "no link";
    DropAt(kBesideAnyRow, "file:///bad.lnk\nfile:///b");
    EXPECT_EQ(list.Count(), 0);
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.shown[0].text, u"-2147467259 - Raccourci illisible : /bad.lnk"_s);
}

TEST_F(DroppedShortcutTest, ALinkFileOfTheDesktopLeadsToItsTarget)
{
    files.files[u"\\home\\u\\a b.txt"_s] = 5;
    files.folders[u"\\docs\\"_s] = 6;
    MakeDesktopLink(u"\\a.desktop"_s, "file:///home/u/a%20b.txt");
    MakeDesktopLink(u"\\d.desktop"_s, "/docs");
    DropAt(kBesideAnyRow, "file:///a.desktop\nfile:///d.desktop");
    EXPECT_EQ(Texts(), (QStringList {u"a b.txt"_s, u"docs\\"_s}));
}

TEST_F(DroppedShortcutTest, ADesktopLinkWhoseTargetIsGoneAddsNothing)
{
    MakeDesktopLink(u"\\a.desktop"_s, "file:///gone");
    DropAt(kBesideAnyRow, "file:///a.desktop");
    EXPECT_EQ(list.Count(), 0);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DroppedShortcutTest, AnyOtherDesktopFileIsAddedAsTheFileThatItIs)
{
    files.files[u"\\app.desktop"_s] = 3;
    files.contents[u"\\app.desktop"_s] = "[Desktop Entry]\nType=Application\nExec=x\n";
    MakeDesktopLink(u"\\web.desktop"_s, "https://example.org/");
    DropAt(kBesideAnyRow, "file:///app.desktop\nfile:///web.desktop");
    EXPECT_EQ(Texts(), (QStringList {u"app.desktop"_s, u"web.desktop"_s}));
}
