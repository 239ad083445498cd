// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/QtFileChooser.h"

#include "desktop/FrenchTexts.h"
#include "tests/support/ModalWindow.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WidgetApplication.h"
#include "text/PathText.h"

#include <QAbstractFileIconProvider>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace velmora::desktop {

using namespace Qt::StringLiterals;

namespace fs = std::filesystem;

namespace {

using Paths = QList<text::ProgramPath>;

class QtFileChooserTest : public testing::Test {
protected:
    text::ProgramPath PathOf(const std::string& name) const
    {
        return text::ToProgramPath(text::NativePath((folder_ / name).string()));
    }
    FileQuestion IsoQuestion() const
    {
        return {.title = u"Choisir l'image ISO à graver"_s,
            .filters = {{u"Images Iso (*.iso)"_s, u"*.iso"_s}},
            .folder = PathOf("")};
    }

    static void Type(QWidget& dialog, const QString& name)
    {
        dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(name);
    }
    static void Accept(QWidget& dialog)
    {
        auto* box = dialog.findChild<QDialogButtonBox*>(u"buttonBox"_s);
        QPushButton* open = box->button(QDialogButtonBox::Open);
        (open != nullptr ? open : box->button(QDialogButtonBox::Ok))->click();
    }
    /// What the user types, and then presses the button.
    static std::function<void(QWidget&)> Typing(const QString& name)
    {
        return [name](QWidget& dialog) {
            Type(dialog, name);
            Accept(dialog);
        };
    }

    /// The user types a name and presses the enter key.
    static std::function<void(QWidget&)> Entering(const QString& name)
    {
        return [name](QWidget& dialog) {
            auto* box = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            dialog.activateWindow();
            box->setFocus();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog) && box->hasFocus());
            QTest::keyClicks(box, name);
            QTest::keyClick(box, Qt::Key_Return);
            if (dialog.isVisible()) {
                ADD_FAILURE() << "not taken: " << name.toStdString();
                dialog.close();
            }
        };
    }

    test::TemporaryFolder folder_;
    QtFileChooser chooser_ {DialogsOf::Program};
};

} // namespace

TEST_F(QtFileChooserTest, AnExistingFileIsTaken)
{
    folder_.MakeFile("a.iso", 10);
    const test::ModalWindow user(Typing(u"a.iso"_s));
    EXPECT_EQ(chooser_.AskFiles(IsoQuestion()), Paths({PathOf("a.iso")}));
}

TEST_F(QtFileChooserTest, ANewNameEndsAsTheFiltersNamesDo)
{
    const test::ModalWindow user(Typing(u"new"_s));
    EXPECT_EQ(chooser_.AskFiles(IsoQuestion()), Paths({PathOf("new.iso")}));
}

TEST_F(QtFileChooserTest, AnExistingFileWithoutAnEndIsOpenedUnderItsName)
{
    folder_.MakeFile("backup", 10);
    const test::ModalWindow user(Typing(u"backup"_s));
    EXPECT_EQ(chooser_.AskFiles(IsoQuestion()), Paths({PathOf("backup")}));

    FileQuestion saving = IsoQuestion();
    saving.saves = true;
    const test::ModalWindow again(Typing(u"backup"_s));
    EXPECT_EQ(chooser_.AskFiles(saving), Paths({PathOf("backup.iso")}));
}

TEST_F(QtFileChooserTest, AFileThatIsWrittenIsSavedAndNotOpened)
{
    FileQuestion saving = IsoQuestion();
    saving.saves = true;
    const test::ModalWindow user([](QWidget& window) {
        const auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept), u"&Enregistrer"_s);
        window.close();
    });
    chooser_.AskFiles(saving);
    EXPECT_TRUE(user.WasThere());
}

TEST_F(QtFileChooserTest, ANewNameWithAnEndIsTakenAsItIsTyped)
{
    for (const QString& name : {u"new.iso"_s, u"new.img"_s}) {
        const test::ModalWindow user(Typing(name));
        EXPECT_EQ(chooser_.AskFiles(IsoQuestion()), Paths({PathOf(name.toStdString())}));
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(QtFileChooserTest, SeveralFilesAreTaken)
{
    folder_.MakeFile("a b.txt", 1);
    folder_.MakeFile("c.txt", 1);
    FileQuestion question {.title = u"Ajouter des fichiers..."_s,
        .filters = {{u"All Files(*.*)"_s, u"*.*"_s}},
        .folder = PathOf(""),
        .several = true};
    const test::ModalWindow user(Typing(u"\"a b.txt\" \"c.txt\""_s));
    EXPECT_EQ(chooser_.AskFiles(question), Paths({PathOf("a b.txt"), PathOf("c.txt")}));
}

TEST_F(QtFileChooserTest, SeveralFilesAreOfOneFolder)
{
    folder_.MakeFile("a.txt", 1);
    folder_.MakeFile("sub/b.txt", 1);
    folder_.MakeFile("sub/c.txt", 1);
    const FileQuestion question {.folder = PathOf("sub"), .several = true};
    const test::ModalWindow user(Typing(u"\"b.txt\" \"../a.txt\" \"./c.txt\""_s));
    EXPECT_EQ(chooser_.AskFiles(question), Paths({PathOf("sub/b.txt"), PathOf("sub/c.txt")}));
}

TEST_F(QtFileChooserTest, GivingUpGivesNothing)
{
    const test::ModalWindow user([](QWidget& dialog) { dialog.close(); });
    EXPECT_EQ(chooser_.AskFiles(IsoQuestion()), Paths());
    const test::ModalWindow again([](QWidget& dialog) { dialog.close(); });
    EXPECT_EQ(chooser_.AskFolder({.title = u"x"_s, .folder = PathOf("")}), text::ProgramPath());
}

TEST_F(QtFileChooserTest, ItShowsWhatIsAskedInFrench)
{
    UseFrenchTexts(*QApplication::instance());
    const test::ModalWindow user([](QWidget& window) {
        auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.windowTitle(), u"Choisir l'image ISO à graver"_s);
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept), u"&Ouvrir"_s);
        EXPECT_EQ(dialog.labelText(QFileDialog::Reject), u"&Annuler"_s);
        const auto* kinds = dialog.findChild<QComboBox*>(u"fileTypeCombo"_s);
        EXPECT_EQ(kinds->currentText(), u"Images Iso (*.iso)"_s);
        const auto* types = dialog.iconProvider();
        EXPECT_EQ(types->type(QFileInfo(u"/"_s)), u"Dossier"_s);
        EXPECT_EQ(types->type(QFileInfo(u"film.iso"_s)), u"Fichier iso"_s);
        EXPECT_EQ(types->type(QFileInfo(u"film"_s)), u"Fichier"_s);
        EXPECT_EQ(QApplication::translate("QFileSystemModel", "Date Modified"),
            u"Dernière modification"_s);
        dialog.close();
    });
    chooser_.AskFiles(IsoQuestion());
    EXPECT_TRUE(user.WasThere());
}

TEST_F(QtFileChooserTest, TheStarredPatternShowsNamesWithoutAFullStop)
{
    const test::ModalWindow user([](QWidget& window) {
        auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.nameFilters(), QStringList({u"All Files(*.*) (*)"_s}));
        EXPECT_EQ(
            dialog.findChild<QComboBox*>(u"fileTypeCombo"_s)->currentText(), u"All Files(*.*)"_s);
        dialog.close();
    });
    chooser_.AskFiles({.filters = {{u"All Files(*.*)"_s, u"*.*"_s}}, .folder = PathOf("")});
    EXPECT_TRUE(user.WasThere());
}

TEST_F(QtFileChooserTest, TheFolderItBeginsInIsTheAnswerAtOnce)
{
    folder_.MakeFolder("music");
    const test::ModalWindow user([](QWidget& dialog) { Accept(dialog); });
    EXPECT_EQ(chooser_.AskFolder({.title = u"x"_s, .folder = PathOf("music")}), PathOf("music"));
}

TEST_F(QtFileChooserTest, AFolderThatIsTypedIsTheAnswerWhateverTheListSelects)
{
    folder_.MakeFolder("music/live");
    folder_.MakeFolder("musical");
    const QString parent = QString::fromStdString(folder_.Path().native());
    for (int tries = 0; tries < 5; ++tries) {
        for (const std::string name :
            {"music", "music/live", "musical", "music/../musical", "music/"}) {
            const QString relative = QString::fromStdString(name);
            for (const QString& typed : {relative, parent + u'/' + relative}) {
                const test::ModalWindow user(Entering(typed));
                EXPECT_EQ(chooser_.AskFolder({.title = u"x"_s, .folder = PathOf("")}),
                    text::ToProgramPath(text::NativePath(fs::canonical(folder_ / name).native())))
                    << name;
            }
        }
    }
}

TEST_F(QtFileChooserTest, ANameThatNamesNoFolderIsNotTaken)
{
    folder_.MakeFile("file", 1);
    const test::ModalWindow user([](QWidget& dialog) {
        Type(dialog, u"file"_s);
        EXPECT_TRUE(dialog.isVisible());
        dialog.close();
    });
    EXPECT_EQ(chooser_.AskFolder({.title = u"x"_s, .folder = PathOf("")}), text::ProgramPath());
}

TEST_F(QtFileChooserTest, InASandboxTheDialogIsTheDesktops)
{
    QtFileChooser sandboxed(DialogsOf::Desktop);
    FileQuestion saving = IsoQuestion();
    saving.saves = true;
    const test::ModalWindow user([](QWidget& window) {
        const auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_FALSE(dialog.testOption(QFileDialog::DontUseNativeDialog));
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept), u"Enregistrer"_s);
        window.close();
    });
    sandboxed.AskFiles(saving);
    EXPECT_TRUE(user.WasThere());
}

TEST_F(QtFileChooserTest, AFolderThatIsGoneBeginsAboveIt)
{
    const test::ModalWindow user([this](QWidget& window) {
        EXPECT_EQ(dynamic_cast<QFileDialog&>(window).directory().absolutePath(),
            QString::fromStdString(folder_.Path()));
        window.close();
    });
    chooser_.AskFolder({.title = u"x"_s, .folder = PathOf("gone/deeper")});
    const test::ModalWindow again([](QWidget& window) {
        EXPECT_EQ(
            dynamic_cast<QFileDialog&>(window).directory().absolutePath(), QDir::currentPath());
        window.close();
    });
    chooser_.AskFolder({.title = u"x"_s});
    EXPECT_TRUE(user.WasThere() && again.WasThere());
}

TEST_F(QtFileChooserTest, FoldersAreMadeOnlyWhereThatIsWanted)
{
    for (const bool mayMakeFolders : {true, false}) {
        const test::ModalWindow user([mayMakeFolders](QWidget& window) {
            const auto* maker = window.findChild<QWidget*>(u"newFolderButton"_s);
            EXPECT_EQ(maker->isEnabled() && maker->isVisible(), mayMakeFolders);
            window.close();
        });
        chooser_.AskFolder(
            {.title = u"x"_s, .folder = PathOf(""), .mayMakeFolders = mayMakeFolders});
        EXPECT_TRUE(user.WasThere());
    }
}

} // namespace velmora::desktop
