// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/DriveMastering.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/writing/ImageStageBench.h"
#include "text/PathText.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace velmora::test {

/// The stages with the real writer below them: a folder of the machine becomes an ISO file.
class SavedImageTest : public ImageStageBench {
protected:
    SavedImageTest()
    {
        state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
        state.ImagePath = text::ProgramPath(Path("disc.iso"));
        options.tempDir = Path("");
        Write("source/Photos/beach.txt", "sand and sea");
        Write("source/letter.txt", "dear all");
    }

    QString Path(const std::string& name) const
    {
        return text::ToProgramPath((folder / name).native());
    }

    void Write(const std::string& name, const std::string& content) const
    {
        std::filesystem::create_directories((folder / name).parent_path());
        std::ofstream(folder / name, std::ios::binary) << content;
    }

    writing::SaveEnd Run()
    {
        run.ConfigureImage(nullptr);
        run.AddCompilationToImage();
        const imapi::ImageResultRef result = run.CreateResultImage();
        const writing::SaveEnd end = run.SaveImage(*result);
        run.Release();
        return end;
    }

    std::string DiscBytes() const
    {
        std::ifstream in(folder / "disc.iso", std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    /// The log's lines of the transcript, with FOLDER for the temporary folder.
    std::string Log() const
    {
        std::string log;
        std::istringstream lines(transcript.Text());
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("log ")) {
                log += line.substr(4) + '\n';
            }
        }
        const std::string& place = folder.Path().native();
        for (auto at = log.find(place); at != std::string::npos; at = log.find(place)) {
            log.replace(at, place.size(), "FOLDER");
        }
        return log;
    }

    TemporaryFolder folder;
    std::unique_ptr<imapi::Mastering> realMastering = mastering::MasteringOf({}, clock);
    writing::ImageStage run {ContextWith(*realMastering), stageReport};
};

TEST_F(SavedImageTest, AFolderAndAFileBecomeAnImageFile)
{
    AddRow(u"Album\\"_s, compilation::EntryKind::Directory, u""_s);
    AddRow(u"Album\\Photos\\"_s, compilation::EntryKind::Directory, Path("source/Photos/"));
    AddRow(u"letter.txt"_s, compilation::EntryKind::File, Path("source/letter.txt"));

    EXPECT_EQ(Run(), writing::SaveEnd::Saved);

    const std::string bytes = DiscBytes();
    ASSERT_GT(bytes.size(), 40'000U);
    EXPECT_EQ(bytes.substr(32'769, 5), "CD001");
    EXPECT_EQ(bytes.substr(32'808, 7), "PHOTOS ");
    EXPECT_NE(bytes.find("sand and sea"), std::string::npos);
    EXPECT_NE(bytes.find("dear all"), std::string::npos);
    const std::string expected = R"-("Le titre du disque est : Photos    (PHOTOS en mode ISO 9660)"
"Lecture des fichiers terminée"
"Création de l'image disque...."
"         Veuillez patienter......."
"Création de l'image disque réalisée avec succès..."
"Préparation à la sauvegarde de l'image disque..."
"Sauvegarde de l'image disque..."
"         Veuillez patienter......."
"Sauvegarde de l'image disque réalisée avec succès  dans le fichier: "
"           FOLDER/disc.iso"
)-";
    EXPECT_EQ(Log(), expected);
}

TEST_F(SavedImageTest, WhatIsMissingIsLoggedAndTheRestIsSaved)
{
    AddRow(u"gone.txt"_s, compilation::EntryKind::File, Path("source/gone.txt"));
    AddRow(u"Nowhere\\Photos\\"_s, compilation::EntryKind::Directory, Path("source/Photos/"));
    AddRow(u"letter.txt"_s, compilation::EntryKind::File, Path("source/letter.txt"));

    EXPECT_EQ(Run(), writing::SaveEnd::Saved);

    const std::string failures = R"("Impossible d'ajouter à l'image disque le fichier :"
"      FOLDER/source/gone.txt"
"                Ouverture du fichier impossible : aucun flux à lire."
"Impossible d'ajouter à l'image disque le répertoire :"
"      FOLDER/source/Photos"
"                « Nowhere » : Élément introuvable dans l'image."
)";
    EXPECT_NE(Log().find(failures), std::string::npos) << Log();
    EXPECT_NE(DiscBytes().find("dear all"), std::string::npos);
}

TEST_F(SavedImageTest, EveryEntryIsShownWhileItIsRead)
{
    AddRow(u"letter.txt"_s, compilation::EntryKind::File, Path("source/letter.txt"));

    Run();

    EXPECT_NE(transcript.Text().find(R"(FileBar hidden
Label14 "Lecture des fichiers : letter.txt"
FileBar 0
pump
FileBar shown
Label14 "Lecture des fichiers : letter.txt."
FileBar 100
pump
Corvane7ProgressBar1 100
)"),
        std::string::npos)
        << transcript.Text();
}

} // namespace velmora::test
