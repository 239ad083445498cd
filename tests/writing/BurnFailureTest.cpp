// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/writing/RunBench.h"

#include "drive/PublishedCodes.h"

namespace velmora::test {

namespace {

enum class Released : quint8 { Nothing, Writer, All };

struct FailureRow {
    const char* name;
    const char* line; ///< at which the platform fails
    Released released;
    bool hasStream = false; ///< the image's stream is there already
};

void PrintTo(const FailureRow& row, std::ostream* out) { *out << row.name; }

class BurnFailureTest : public RunBench, public testing::WithParamInterface<FailureRow> { };

std::string LinesOf(Released released)
{
    const std::string writer = released == Released::Nothing ? "" : "dataWriter1 released\n";
    return (released == Released::All ? "FSI1 released\n" : "") + writer;
}

} // namespace

TEST_P(BurnFailureTest, IsLoggedAndTheNextRunWorks)
{
    const FailureRow& row = GetParam();
    options.session = writing::SessionOption::CloseDisc;
    state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
    FailAt(row.line);

    const std::string run = Burn();

    const std::string end = std::string(row.line) + '\n'
        + (row.hasStream ? "image stream released\n" : "") + Failure("Panne", -1) + kPutBack
        + LinesOf(row.released) + kStartButtons;
    EXPECT_TRUE(run.ends_with(end)) << run;
    EXPECT_FALSE(state.BurnDone);
    EXPECT_FALSE(transcript.Holds("log \"Gravure effectuée avec succès.\""));

    transcript.NothingAt(row.line);
    options.session = writing::SessionOption::StartMultisession;
    EXPECT_EQ(Burn(), WholeDiscRun());
    EXPECT_TRUE(state.BurnDone);
}

INSTANTIATE_TEST_SUITE_P(EveryCall,
    BurnFailureTest,
    testing::Values(FailureRow {"TheListOfRecorders", "new MsftDiscMaster2", Released::Nothing},
        FailureRow {"TheRecorder", "new MsftDiscRecorder2", Released::Nothing},
        FailureRow {"TheId", "DiscMaster.Item(0)", Released::Nothing},
        FailureRow {"TheDrive", "recorder.InitializeDiscRecorder(id of 0)", Released::Nothing},
        FailureRow {"TheWriter", "new MsftDiscFormat2Data", Released::Nothing},
        FailureRow {"TheWritersRecorder", "dataWriter1.Recorder = recorder", Released::Writer},
        FailureRow {"TheClientName", "dataWriter1.ClientName = Tamsel", Released::Writer},
        FailureRow {"TheImage", "new MsftFileSystemImage", Released::Writer},
        FailureRow {"TheDefaults", "FSI1.ChooseImageDefaultsForMediaType(2)", Released::All},
        FailureRow {"TheFileSystems", "FSI1.FileSystemsToCreate = 3", Released::All},
        FailureRow {"TheTemporaryDirectory", "FSI1.WorkingDirectory = \\tmp", Released::All},
        FailureRow {"TheVolumeName", "FSI1.VolumeName = Photos", Released::All},
        FailureRow {"TheResult", "FSI1.CreateResultImage", Released::All},
        FailureRow {"TheStream", "result.ImageStream", Released::All},
        FailureRow {"TheSpeed", "dataWriter1.SetWriteSpeed(-1, False)", Released::All, true},
        FailureRow {"TheClosing", "dataWriter1.ForceMediaToBeClosed = True", Released::All, true},
        FailureRow {"TheCompanion", "companion started", Released::All, true},
        FailureRow {"TheWrite", "dataWriter1.Write(image stream)", Released::All, true},
        FailureRow {"TheTray", "recorder.EjectMedia", Released::All, true}),
    [](const auto& row) { return std::string(row.param.name); });

using BurnRunTest = RunBench;

TEST_F(BurnRunTest, AWriteThatFailsLeavesTheMouseCapturedAndTheLabelAsItStood)
{
    FailAt("dataWriter1 is done");

    Burn();

    EXPECT_TRUE(transcript.Holds("mouse captured"));
    EXPECT_FALSE(transcript.Holds("mouse free"));
    EXPECT_FALSE(transcript.Holds("recorder.EjectMedia"));
    EXPECT_EQ(screen.status, u"Gravure en cours...\r\nProgression :  50,00%  "_s);
}

TEST_F(BurnRunTest, ADiscThatCantBeEjectedIsNoSuccessAlthoughItWasWritten)
{
    FailAt("recorder.EjectMedia");

    Burn();

    EXPECT_TRUE(transcript.Holds("mouse free"));
    EXPECT_FALSE(state.BurnDone);
}

TEST_F(BurnRunTest, MoreRowsThan16BitsCountFailBeforeTheFirstEntry)
{
    for (int row = 0; row < 32'767; ++row) {
        const QString name = QString::number(row);
        list.Add(name, text::DiscPath(name), u"FD"_s);
    }
    const std::string run = Burn();

    EXPECT_TRUE(
        run.ends_with("Corvane7ProgressBar1 shown\npump\n" + Failure("Dépassement de capacité", 6)
            + "log \"            Une compilation a 32\u202F767 lignes au plus : rassemblez des "
              "éléments "
              "dans un répertoire.\"\n"
            + kAbandoned));
    EXPECT_FALSE(transcript.Holds("SHCreateStreamOnFile(\\home\\u\\letter.txt, 32)"));
}

TEST_F(BurnRunTest, ThePlatformsOwnWordsAreLogged)
{
    transcript.At(
        "dataWriter1 is done", [] { throw drive::PublishedError(drive::hresult::kWriteError); });

    Burn();

    EXPECT_TRUE(transcript.Holds("log \"Une erreur est survenue : \""));
    const std::string text = transcript.Text();
    EXPECT_NE(text.find("log \"            Erreur d'écriture irrécupérable"), std::string::npos);
    EXPECT_NE(text.find(" (Erreur n° -1062599935) \""), std::string::npos);
}

} // namespace velmora::test
