// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/writing/VirtualRunBench.h"

#include <utility>

namespace velmora::test {

using namespace Qt::StringLiterals;
using writing::RunEnding;
using writing::RunReport;

/// Runs that burn an image that is faulty, or becomes so meanwhile.
class IsoImageFlawsTest : public VirtualRunBench {
protected:
    IsoImageFlawsTest() { SaveIso("disc.iso"); }

    RunReport BurnTheImage()
    {
        transcript.Clear();
        return writing::IsoBurnRun(Context()).Run();
    }
    void WhileWriting(std::function<void()> action)
    {
        transcript.AtNth("log \"Gravure en cours...\"", 1, std::move(action));
    }
    /// The run failed with this message, which the log has too.
    void ExpectFailure(const RunReport& report, const QString& words)
    {
        EXPECT_EQ(report.ending, RunEnding::Failed);
        EXPECT_EQ(report.errorText, words);
        const QString line
            = u"\"            %1 (Erreur n° %2) \"\n"_s.arg(words).arg(report.errorNumber);
        EXPECT_TRUE(Log().ends_with("\"Une erreur est survenue : \"\n" + line.toStdString()))
            << Log();
    }

    const std::filesystem::path file = folder / "disc.iso";
    const QString name = QString::fromStdString(file.native());
};

TEST_F(IsoImageFlawsTest, AnImageThatLacksItsEndFailsBeforeAnythingIsWritten)
{
    const auto sectors = std::filesystem::file_size(file) / 2048;
    std::filesystem::resize_file(file, 1000 * 2048);
    const RunReport report = BurnTheImage();
    ExpectFailure(report,
        u"« %1 » est une image incomplète : il lui faut au moins %2 secteurs, et le fichier n'en a "
        "que 1000. Reprenez-la à sa source."_s.arg(name)
            .arg(sectors));
    EXPECT_EQ(report.errorNumber, -2147024858);
    EXPECT_EQ(Sessions(), 0);
}

TEST_F(IsoImageFlawsTest, AnyBytesAreBurnedWhereThatIsWanted)
{
    std::filesystem::resize_file(file, 1000 * 2048);
    options.anyBytes = true;
    EXPECT_EQ(BurnTheImage().ending, RunEnding::Done);
    EXPECT_EQ(Sessions(), 1);
}

TEST_F(IsoImageFlawsTest, AnImageThatSomebodyWritesFailsBeforeAnythingIsWritten)
{
    const std::ofstream writer(file, std::ios::binary | std::ios::app);
    const RunReport report = BurnTheImage();
    EXPECT_EQ(report.ending, RunEnding::Failed);
    EXPECT_EQ(report.errorNumber, -2147287008);
    EXPECT_TRUE(report.errorText.startsWith(u"« %1 » est ouvert en écriture par "_s.arg(name)));
    EXPECT_EQ(Sessions(), 0);
}

TEST_F(IsoImageFlawsTest, AnImageThatIsRewrittenMeanwhileIsBurnedAndTold)
{
    WhileWriting([this] { std::fstream(file, std::ios::in | std::ios::out).put('x'); });
    const RunReport report = BurnTheImage();
    EXPECT_EQ(report.ending, RunEnding::Done);
    EXPECT_EQ(report.changedSources, QList {text::ProgramPath(Path("disc.iso"))});
    EXPECT_TRUE(Log().ends_with("\"Attention : modifié pendant la gravure, le disque porte ce qui "
                                "en a été lu : "
        + file.native() + "\"\n\"Gravure effectuée avec succès.\"\n"))
        << Log();
}

TEST_F(IsoImageFlawsTest, AnImageThatStaysAsItIsChangedNothing)
{
    EXPECT_EQ(BurnTheImage().changedSources, QList<text::ProgramPath>());
}

TEST_F(IsoImageFlawsTest, AnImageThatShrinksOrGoesMeanwhileFailsByName)
{
    WhileWriting([this] { std::filesystem::resize_file(file, 1000 * 2048); });
    ExpectFailure(BurnTheImage(), u"« %1 » : Le fichier a changé de taille."_s.arg(name));

    Insert(u"cd-r");
    SaveIso("disc.iso");
    WhileWriting([this] { std::filesystem::remove(file); });
    ExpectFailure(BurnTheImage(), u"« %1 » : Fichier ou répertoire introuvable."_s.arg(name));
}

} // namespace velmora::test
