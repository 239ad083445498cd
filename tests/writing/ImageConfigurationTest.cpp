// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/PublishedCodes.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/writing/ImageStageBench.h"

#include <array>
#include <string>

namespace velmora::test {

namespace {

using shell::DiscTypeChoice;
using writing::DataMode;
using writing::FileSystemOption;

struct Choice {
    const char* name;
    DiscTypeChoice disc;
    FileSystemOption fileSystem;
    DataMode dataMode;
    const char* told; // to FSI1, after its creation and before the working directory
};

constexpr auto kChoices = std::to_array<Choice>({
    {"CdIsoMode1",
        DiscTypeChoice::CdR,
        FileSystemOption::Iso9660,
        DataMode::Mode1,
        R"(FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 1
FSI1.ISO9660InterchangeLevel = 1
FSI1.UseRestrictedCharacterSet = True
FSI1.StrictFileSystemCompliance = True
)"},
    {"CdIsoMode2",
        DiscTypeChoice::CdR,
        FileSystemOption::Iso9660,
        DataMode::Mode2Xa,
        R"(FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 1
FSI1.ISO9660InterchangeLevel = 2
)"},
    {"CdJoliet",
        DiscTypeChoice::CdR,
        FileSystemOption::Joliet,
        DataMode::Mode1,
        R"(FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 3
)"},
    {"CdJolietMode2SetsNoLevel",
        DiscTypeChoice::CdR,
        FileSystemOption::Joliet,
        DataMode::Mode2Xa,
        R"(FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 3
)"},
    {"CdUdf",
        DiscTypeChoice::CdR,
        FileSystemOption::Udf,
        DataMode::Mode1,
        R"(FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 4
)"},
    {"CdUdfMode2SetsNoLevel",
        DiscTypeChoice::CdR,
        FileSystemOption::Udf,
        DataMode::Mode2Xa,
        R"(FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 4
)"},
    {"DvdIsoMode1SetsNoLevel",
        DiscTypeChoice::DvdPlusR,
        FileSystemOption::Iso9660,
        DataMode::Mode1,
        R"(FSI1.ChooseImageDefaultsForMediaType(6)
FSI1.FileSystemsToCreate = 1
)"},
    {"DvdIsoMode2SetsNoLevel",
        DiscTypeChoice::DvdPlusR,
        FileSystemOption::Iso9660,
        DataMode::Mode2Xa,
        R"(FSI1.ChooseImageDefaultsForMediaType(6)
FSI1.FileSystemsToCreate = 1
)"},
    {"DvdJoliet",
        DiscTypeChoice::DvdPlusR,
        FileSystemOption::Joliet,
        DataMode::Mode1,
        R"(FSI1.ChooseImageDefaultsForMediaType(6)
FSI1.FileSystemsToCreate = 3
)"},
    {"DualLayerDvdUdf",
        DiscTypeChoice::DvdPlusRDualLayer,
        FileSystemOption::Udf,
        DataMode::Mode1,
        R"(FSI1.ChooseImageDefaultsForMediaType(8)
FSI1.FileSystemsToCreate = 4
)"},
    {"BluRayUdf",
        DiscTypeChoice::BdR,
        FileSystemOption::Udf,
        DataMode::Mode1,
        R"(FSI1.ChooseImageDefaultsForMediaType(18)
FSI1.FileSystemsToCreate = 4
)"},
    {"FailedChoiceIsHandedOn",
        DiscTypeChoice::Failed,
        FileSystemOption::Joliet,
        DataMode::Mode1,
        R"(FSI1.ChooseImageDefaultsForMediaType(-1)
FSI1.FileSystemsToCreate = 3
)"},
    {"AutomaticTakesTheDiscsOwn",
        DiscTypeChoice::AsDetected,
        FileSystemOption::Joliet,
        DataMode::Mode1,
        R"(FSI1.ChooseImageDefaults(the recorder)
)"},
    {"AutomaticLooksAtNoUdf",
        DiscTypeChoice::AsDetected,
        FileSystemOption::Udf,
        DataMode::Mode1,
        R"(FSI1.ChooseImageDefaults(the recorder)
)"},
    {"AutomaticLooksAtNoMode2",
        DiscTypeChoice::AsDetected,
        FileSystemOption::Iso9660,
        DataMode::Mode2Xa,
        R"(FSI1.ChooseImageDefaults(the recorder)
)"},
});

constexpr auto kNaming = R"-(FSI1.WorkingDirectory = \tmp
FSI1.VolumeName = Photos
log "Le titre du disque est : Photos    (ISO_NAME en mode ISO 9660)"
)-";

} // namespace

class ImageConfigurationTest : public ImageStageBench,
                               public testing::WithParamInterface<Choice> { };

TEST_P(ImageConfigurationTest, TellsTheImageWhatTheOptionsSay)
{
    state.MediaTypeChoice = GetParam().disc;
    options.fileSystem = GetParam().fileSystem;
    options.dataMode = GetParam().dataMode;

    stage.ConfigureImage(std::make_shared<UnaskedRecorder>());

    EXPECT_EQ(
        transcript.Text(), std::string("new MsftFileSystemImage\n") + GetParam().told + kNaming);
}

INSTANTIATE_TEST_SUITE_P(Choices,
    ImageConfigurationTest,
    testing::ValuesIn(kChoices),
    [](const testing::TestParamInfo<Choice>& choice) { return std::string(choice.param.name); });

using ImageStageTest = ImageStageBench;

TEST_F(ImageStageTest, ARefusedLevel2FallsBackToLevel1AndSaysSo)
{
    state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
    options.fileSystem = writing::FileSystemOption::Iso9660;
    options.dataMode = writing::DataMode::Mode2Xa;
    transcript.At("FSI1.ISO9660InterchangeLevel = 2",
        [] { throw drive::PublishedError(drive::hresult::kInvalidParam); });

    stage.ConfigureImage(nullptr);

    EXPECT_EQ(transcript.Text(), R"-(new MsftFileSystemImage
FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 1
FSI1.ISO9660InterchangeLevel = 2
log "Le Mode 2/XA n'est pas supporté par votre système. La gravure sera effectuée en mode 1.   "
FSI1.ISO9660InterchangeLevel = 1
FSI1.WorkingDirectory = \tmp
FSI1.VolumeName = Photos
log "Le titre du disque est : Photos    (ISO_NAME en mode ISO 9660)"
)-");
}

TEST_F(ImageStageTest, TheFallbackToLevel1IsStillGuarded)
{
    state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
    options.fileSystem = writing::FileSystemOption::Iso9660;
    options.dataMode = writing::DataMode::Mode2Xa;
    const auto refuse = [] { throw drive::PublishedError(drive::hresult::kInvalidParam); };
    transcript.At("FSI1.ISO9660InterchangeLevel = 2", refuse);
    transcript.At("FSI1.ISO9660InterchangeLevel = 1", refuse);

    EXPECT_EQ(ErrorNumberOf([this] { stage.ConfigureImage(nullptr); }), 0);
}

TEST_F(ImageStageTest, FailuresAreNoLongerIgnoredBehindTheGuardedStep)
{
    state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
    options.fileSystem = writing::FileSystemOption::Iso9660;
    options.dataMode = writing::DataMode::Mode2Xa;
    const auto refuse = [] { throw drive::PublishedError(drive::hresult::kInvalidParam); };
    transcript.At("FSI1.ISO9660InterchangeLevel = 2", refuse);
    transcript.At(
        "FSI1.WorkingDirectory = \\tmp", [] { throw runtime::RuntimeError(-1062555328); });

    EXPECT_EQ(ErrorNumberOf([this] { stage.ConfigureImage(nullptr); }), -1062555328);
}

TEST_F(ImageStageTest, ARefusedLevel1OfMode1EndsTheConfiguration)
{
    state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
    options.fileSystem = writing::FileSystemOption::Iso9660;
    transcript.At(
        "FSI1.ISO9660InterchangeLevel = 1", [] { throw runtime::RuntimeError(-1062555391); });

    EXPECT_EQ(ErrorNumberOf([this] { stage.ConfigureImage(nullptr); }), -1062555391);
}

TEST_F(ImageStageTest, AnEmptyDiscNameBecomesDateAndTime)
{
    options.discName.clear();

    stage.ConfigureImage(std::make_shared<UnaskedRecorder>());

    EXPECT_EQ(transcript.Text(), R"-(new MsftFileSystemImage
FSI1.ChooseImageDefaults(the recorder)
FSI1.WorkingDirectory = \tmp
DiscName = 20260309-070504
FSI1.VolumeName = 20260309-070504
log "Le titre du disque est : 20260309-070504    (ISO_NAME en mode ISO 9660)"
)-");
}

TEST_F(ImageStageTest, ALaterRunKeepsTheFirstStamp)
{
    options.discName.clear();
    stage.ConfigureImage(std::make_shared<UnaskedRecorder>());
    stage.Release();
    clock.Pause(3600);
    transcript.Clear();

    stage.ConfigureImage(std::make_shared<UnaskedRecorder>());

    EXPECT_EQ(transcript.Text(), R"-(new MsftFileSystemImage
FSI1.ChooseImageDefaults(the recorder)
FSI1.WorkingDirectory = \tmp
FSI1.VolumeName = 20260309-070504
log "Le titre du disque est : 20260309-070504    (ISO_NAME en mode ISO 9660)"
)-");
}

TEST_F(ImageStageTest, ADiscNameOfBlanksIsAName)
{
    options.discName = u" "_s;

    stage.ConfigureImage(std::make_shared<UnaskedRecorder>());

    EXPECT_EQ(options.discName, u" "_s);
}

} // namespace velmora::test
