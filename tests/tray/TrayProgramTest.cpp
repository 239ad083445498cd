// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

namespace velmora::tray {

using namespace Qt::StringLiterals;

class TrayProgramTest : public testing::Test {
protected:
    struct End {
        int code;
        QString out;
        QString error;
    };
    End Run(const QStringList& arguments, const QByteArray& input = {}) const
    {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_DATA_HOME"_s, QString::fromStdString(folder.Path().string()));
        environment.remove(u"DISPLAY"_s);
        environment.remove(u"WAYLAND_DISPLAY"_s);
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(VELMORA_TRAY), arguments);
        program.write(input);
        program.closeWriteChannel();
        program.waitForFinished();
        return {program.exitCode(),
            QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
    }

    test::TemporaryFolder folder;
};

TEST_F(TrayProgramTest, MakesARecorderInTheUsersFolder)
{
    const End made = Run({u"create"_s});
    EXPECT_EQ(made.code, 0);
    EXPECT_EQ(made.out, u"graveur-1 : tiroir fermé, vide\n"_s);
    EXPECT_TRUE(std::filesystem::exists(folder / "velmora/recorders/graveur-1/recorder.json"));
    EXPECT_EQ(Run({u"insert"_s, u"bd-r"_s}).code, 0);
    EXPECT_EQ(Run({u"list"_s}).out, u"graveur-1 : tiroir fermé, BD-R (vierge)\n"_s);
}

TEST_F(TrayProgramTest, EndsWithTheCodeOfItsFate)
{
    const End failed = Run({u"eject"_s});
    EXPECT_EQ(failed.code, 1);
    EXPECT_TRUE(failed.out.isEmpty());
    EXPECT_TRUE(failed.error.startsWith(u"Erreur : "));
    EXPECT_EQ(Run({u"frob"_s}).code, 2);
    EXPECT_EQ(Run({u"--help"_s}).code, 0);
}

TEST_F(TrayProgramTest, DeletesOnlyWhenItIsToldTo)
{
    Run({u"create"_s, u"A"_s});
    const End asked = Run({u"delete"_s, u"A"_s});
    EXPECT_EQ(asked.code, 1);
    EXPECT_TRUE(asked.error.contains(u"[o puis Entrée pour oui, Entrée pour non]"));
    EXPECT_TRUE(std::filesystem::exists(folder / "velmora/recorders/A"));
    EXPECT_EQ(Run({u"delete"_s, u"A"_s}, "o\n").code, 0);
    EXPECT_FALSE(std::filesystem::exists(folder / "velmora/recorders/A"));
}

TEST_F(TrayProgramTest, WithoutADisplayAndACommandItShowsItsHelp)
{
    const End end = Run({});
    EXPECT_EQ(end.code, 2);
    EXPECT_TRUE(end.error.contains(u"Utilisation : velmora-tray"));
}

} // namespace velmora::tray
