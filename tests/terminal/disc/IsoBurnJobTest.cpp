// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/IsoBurnJob.h"

#include "mastering/image/FileSystemImage.h"
#include "tests/terminal/disc/DiscJobBench.h"
#include "text/PathText.h"

#include <fstream>

namespace velmora::terminal {

class IsoBurnJobTest : public DiscJobBench {
protected:
    ExitCode Burn(bool isRaw = false)
    {
        return BurnIsoFile({.file = text::NativePath(folder.Path("disc.iso")),
                               .isRaw = isRaw,
                               .terms = {.assent = Assent::Given, .comparesAfterwards = false}},
            Context());
    }

    /// The bytes of an image of one file.
    std::string Image()
    {
        folder.File("tree/sea.jpg", std::string(300'000, 's'));
        mastering::FileSystemImage image(clock);
        image.Root()->AddTree(text::ToProgramPath(text::NativePath(folder.Path("tree"))), true);
        const imapi::ImageResultRef result = image.CreateResultImage();
        std::string bytes(result->ImageStream()->Size(), '\0');
        result->ImageStream()->Read(std::as_writable_bytes(std::span(bytes)));
        return bytes;
    }
    void MakeIso(const std::string& bytes) { file = folder.File("disc.iso", bytes); }

    /// Does something to the file when the drive begins to write.
    void WhenWriting(std::function<void()> action)
    {
        hasBegun = false;
        drive->Calls();
        drive->onCall = [this, action = std::move(action)] {
            if (drive->Count("Write") > 0 && !std::exchange(hasBegun, true)) {
                action();
            }
        };
    }

    void ExpectRefusal(ExitCode code, const std::string& words)
    {
        EXPECT_EQ(code, ExitCode::Failed);
        EXPECT_EQ(screen.Lines().back(), "! Erreur : « " + file + " » " + words);
        EXPECT_EQ(drive->Count("Eject"), 0) << "the tray has moved";
    }

    std::string file;
    bool hasBegun = false;
};

TEST_F(IsoBurnJobTest, AWholeImageIsBurned)
{
    const std::string image = Image();
    MakeIso(image);
    EXPECT_EQ(Burn(), ExitCode::Done) << screen.Text();
    EXPECT_EQ(drive->written.size(), image.size());
}

TEST_F(IsoBurnJobTest, AnImageThatLacksItsEndIsRefusedBeforeTheTrayMoves)
{
    const std::string image = Image();
    MakeIso(image.substr(0, 200 * 2048));
    ExpectRefusal(Burn(),
        "est une image incomplète : il lui faut au moins " + std::to_string(image.size() / 2048)
            + " secteurs, et le fichier n'en a que 200. Reprenez-la à sa source.");
    EXPECT_EQ(Burn(true), ExitCode::Done);
}

TEST_F(IsoBurnJobTest, BytesThatAreNoImageAreBurnedOnlyAsSuch)
{
    MakeIso(std::string(100 * 2048, 'x'));
    ExpectRefusal(Burn(),
        "n'est pas l'image d'un disque : ni ISO 9660, ni UDF, ni partitions. L'option --raw grave "
        "ses octets tels quels.");
    EXPECT_EQ(Burn(true), ExitCode::Done);
    EXPECT_EQ(drive->written.size(), 100 * 2048U);
}

TEST_F(IsoBurnJobTest, ADiscThatNobodyCanChangeIsJudgedAtOnce)
{
    MakeIso(Image());
    drive->disc = test::DiscOf(27, drive::DiscState::Appendable);
    drive->disc.damaged = true;
    EXPECT_EQ(Burn(), ExitCode::Failed);
    EXPECT_TRUE(screen.Lines().back().starts_with(
        "! Erreur : la dernière session de ce disque (DVD+R) est endommagée."));
    EXPECT_EQ(clock.Timer(), 0);
    EXPECT_EQ(drive->Count("Eject"), 0);
}

TEST_F(IsoBurnJobTest, AnImageThatSomebodyWritesIsRefusedInWords)
{
    MakeIso(Image());
    const std::ofstream writer(file, std::ios::binary | std::ios::app);
    for (const bool isRaw : {false, true}) {
        EXPECT_EQ(Burn(isRaw), ExitCode::Failed);
        EXPECT_TRUE(screen.Lines().back().starts_with(
            "! Erreur : « " + file + " » est ouvert en écriture par un autre programme"))
            << screen.Text();
        EXPECT_EQ(drive->Count("Eject"), 0);
    }
}

TEST_F(IsoBurnJobTest, AnImageThatIsRewrittenOrGrowsMeanwhileIsNoPlainSuccess)
{
    const std::string image = Image();
    MakeIso(image);
    WhenWriting([this] { std::ofstream(file, std::ios::app) << "more"; });
    EXPECT_EQ(Burn(), ExitCode::Incomplete);
    EXPECT_TRUE(screen.Shows("! Attention : modifié pendant la gravure, le disque porte ce qui en "
                             "a été lu : "
        + file))
        << screen.Text();
    EXPECT_EQ(drive->written.size(), image.size());
}

TEST_F(IsoBurnJobTest, AnImageThatIsGoneShorterOrReplacedMeanwhileFailsByName)
{
    const std::string image = Image();
    const std::vector<std::pair<std::function<void()>, std::string>> mishaps {
        {[this] { std::filesystem::remove(file); }, "introuvable"},
        {[this] { std::filesystem::resize_file(file, 200 * 2048); },
            "Le fichier a changé de taille."},
        {[&] { std::filesystem::rename(folder.File("new.iso", image), file); },
            "Le fichier a été remplacé par un autre."}};
    for (const auto& [mishap, words] : mishaps) {
        MakeIso(image);
        WhenWriting(mishap);
        EXPECT_EQ(Burn(), ExitCode::Failed) << words;
        EXPECT_TRUE(screen.Shows("« " + file + " » : ")) << screen.Text();
        EXPECT_TRUE(screen.Shows(words)) << screen.Text();
        EXPECT_FALSE(screen.Shows("Gravure effectuée avec succès."));
    }
}

} // namespace velmora::terminal
