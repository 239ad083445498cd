// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/PublishedCodes.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/writing/ImageStageBench.h"

namespace velmora::test {

using writing::SaveEnd;

/// A stage whose image was made, with an empty transcript.
class ImageSavingTest : public ImageStageBench {
protected:
    void SetUp() override
    {
        state.ImagePath = text::ProgramPath(u"\\home\\u\\disc.iso"_s);
        Configure();
        result = stage.CreateResultImage();
        transcript.Clear();
    }

    imapi::ImageResultRef result;
};

using ImageStageTest = ImageStageBench;

TEST_F(ImageStageTest, TheResultIsAnnouncedMadeAndReported)
{
    Configure();

    stage.CreateResultImage();

    EXPECT_EQ(transcript.Text(), R"(FileBar hidden
Label14 "Lecture des fichiers terminée"
Corvane7ProgressBar1 100
pump
log "Lecture des fichiers terminée"
log "Création de l'image disque...."
log "         Veuillez patienter......."
pump
FSI1.CreateResultImage
log "Création de l'image disque réalisée avec succès..."
Label14 "Création de l'image disque réalisée avec succès..."
)");
}

TEST_F(ImageStageTest, AFailedResultIsTheRunsFailure)
{
    Configure();
    transcript.At("FSI1.CreateResultImage", [] { throw runtime::RuntimeError(-1062555360); });

    EXPECT_EQ(ErrorNumberOf([this] { stage.CreateResultImage(); }), -1062555360);
}

TEST_F(ImageSavingTest, TheImageIsCopiedToItsFileAndBothStreamsAreReleased)
{
    script.totalBlocks = 300;

    EXPECT_EQ(stage.SaveImage(*result), SaveEnd::Saved);
    EXPECT_EQ(transcript.Text(), R"(log "Préparation à la sauvegarde de l'image disque..."
pump
result.ImageStream
SHCreateStreamOnFile(\home\u\disc.iso, 4097)
log "Sauvegarde de l'image disque..."
log "         Veuillez patienter......."
pump
image stream.CopyTo(stream on \home\u\disc.iso, 6144000000)
log "Sauvegarde de l'image disque réalisée avec succès  dans le fichier: "
log "           /home/u/disc.iso"
Label14 "Sauvegarde de l'image disque réalisée avec succès"
pump
stream on \home\u\disc.iso released
image stream released
)");
}

TEST_F(ImageSavingTest, TheLargestImageThatCanBeSavedEndsOneBlockBelowTwoGibibytes)
{
    script.totalBlocks = 1'048'575; // 2,147,481,600 bytes

    EXPECT_EQ(stage.SaveImage(*result), SaveEnd::Saved);
    EXPECT_NE(transcript.Text().find("CopyTo(stream on \\home\\u\\disc.iso, 21474816000000)"),
        std::string::npos);
}

TEST_F(ImageSavingTest, OneBlockMoreOverflowsWithTheEmptyFileLeftBehind)
{
    script.totalBlocks = 1'048'576; // 2,147,483,648 bytes

    EXPECT_EQ(ErrorNumberOf([this] { stage.SaveImage(*result); }), 6);
    EXPECT_EQ(transcript.Text(), R"(log "Préparation à la sauvegarde de l'image disque..."
pump
result.ImageStream
SHCreateStreamOnFile(\home\u\disc.iso, 4097)
log "Sauvegarde de l'image disque..."
log "         Veuillez patienter......."
pump
stream on \home\u\disc.iso released
image stream released
)");
}

TEST_F(ImageSavingTest, AStopBeforeTheCopyLeavesTheEmptyFile)
{
    script.totalBlocks = 1'048'576; // the stop is checked before the overflow
    transcript.At("pump", [this] { state.StopFlag = true; });

    EXPECT_EQ(stage.SaveImage(*result), SaveEnd::Interrupted);
    EXPECT_EQ(transcript.Text(), R"(log "Préparation à la sauvegarde de l'image disque..."
pump
result.ImageStream
SHCreateStreamOnFile(\home\u\disc.iso, 4097)
log "Sauvegarde de l'image disque..."
log "         Veuillez patienter......."
stream on \home\u\disc.iso released
image stream released
)");
}

TEST_F(ImageSavingTest, AFileThatCannotBeCreatedFailsTheCopy)
{
    script.unopenable = state.ImagePath.Text();

    EXPECT_EQ(ErrorNumberOf([this] { stage.SaveImage(*result); }), -2147287031);
    EXPECT_EQ(transcript.Text(), R"(log "Préparation à la sauvegarde de l'image disque..."
pump
result.ImageStream
SHCreateStreamOnFile(\home\u\disc.iso, 4097)
log "Sauvegarde de l'image disque..."
log "         Veuillez patienter......."
pump
image stream.CopyTo(nothing, 20480000)
image stream released
)");
}

TEST_F(ImageSavingTest, AFullDiskIsTheRunsFailure)
{
    transcript.At(R"(image stream.CopyTo(stream on \home\u\disc.iso, 20480000))",
        [] { throw drive::PublishedError(drive::hresult::kStreamMediumFull); });

    EXPECT_EQ(ErrorNumberOf([this] { stage.SaveImage(*result); }), -2147286928);
    EXPECT_EQ(transcript.Text().find("réalisée"), std::string::npos);
}

} // namespace velmora::test
