// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/ErrorNumberOf.h"
#include "tests/writing/ImageStageBench.h"

#include <array>
#include <string>

namespace velmora::test {

namespace {

struct Choice {
    const char* name;
    qint16 mediaType;
    const char* fileSystem;
    const char* dataMode;
    const char* told; // to FSI1, behind its creation and before the working directory
};

constexpr auto kChoices = std::to_array<Choice>({
    {"CdIsoMode1", 2, "ISO 9660", "Mode 1", R"(FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 1
FSI1.ISO9660InterchangeLevel = 1
FSI1.UseRestrictedCharacterSet = True
FSI1.StrictFileSystemCompliance = True
)"},
    {"CdIsoMode2", 2, "ISO 9660", "Mode 2 / XA", R"(FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 1
FSI1.ISO9660InterchangeLevel = 2
)"},
    {"CdJoliet", 2, "Joliet", "Mode 1", R"(FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 3
)"},
    {"CdJolietMode2SetsNoLevel",
        2,
        "Joliet",
        "Mode 2 / XA",
        R"(FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 3
)"},
    {"CdUdf", 2, "UDF", "Mode 1", R"(FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 4
)"},
    {"CdUdfMode2SetsNoLevel", 2, "UDF", "Mode 2 / XA", R"(FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 4
)"},
    {"CdWithoutFileSystemIsUdf", 2, "", "", R"(FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 4
)"},
    {"DvdIsoMode1SetsNoLevel", 6, "ISO 9660", "Mode 1", R"(FSI1.ChooseImageDefaultsForMediaType(6)
FSI1.FileSystemsToCreate = 1
)"},
    {"DvdIsoMode2SetsNoLevel",
        6,
        "ISO 9660",
        "Mode 2 / XA",
        R"(FSI1.ChooseImageDefaultsForMediaType(6)
FSI1.FileSystemsToCreate = 1
)"},
    {"DvdJoliet", 6, "Joliet", "Mode 1", R"(FSI1.ChooseImageDefaultsForMediaType(6)
FSI1.FileSystemsToCreate = 3
)"},
    {"DualLayerDvdUdf", 8, "UDF", "Mode 1", R"(FSI1.ChooseImageDefaultsForMediaType(8)
FSI1.FileSystemsToCreate = 4
)"},
    {"BluRayUdf", 18, "UDF", "Mode 1", R"(FSI1.ChooseImageDefaultsForMediaType(18)
FSI1.FileSystemsToCreate = 4
)"},
    {"FailedChoiceIsHandedOn",
        -1,
        "Joliet",
        "Mode 1",
        R"(FSI1.ChooseImageDefaultsForMediaType(-1)
FSI1.FileSystemsToCreate = 3
)"},
    {"AutomaticTakesTheDiscsOwn", 0, "Joliet", "Mode 1", R"(FSI1.ChooseImageDefaults(the recorder)
)"},
    {"AutomaticLooksAtNoUdf", 0, "UDF", "Mode 1", R"(FSI1.ChooseImageDefaults(the recorder)
)"},
    {"AutomaticLooksAtNoMode2",
        0,
        "ISO 9660",
        "Mode 2 / XA",
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
    state.MediaTypeChoice = GetParam().mediaType;
    options.fileSystem = QString::fromUtf8(GetParam().fileSystem);
    options.dataMode = QString::fromUtf8(GetParam().dataMode);

    stage.ConfigureImage(std::make_shared<FakeRecorder>());

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
    state.MediaTypeChoice = 2;
    options.fileSystem = u"ISO 9660"_s;
    options.dataMode = u"Mode 2 / XA"_s;
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
    state.MediaTypeChoice = 2;
    options.fileSystem = u"ISO 9660"_s;
    options.dataMode = u"Mode 2 / XA"_s;
    const auto refuse = [] { throw drive::PublishedError(drive::hresult::kInvalidParam); };
    transcript.At("FSI1.ISO9660InterchangeLevel = 2", refuse);
    transcript.At("FSI1.ISO9660InterchangeLevel = 1", refuse);

    EXPECT_EQ(ErrorNumberOf([this] { stage.ConfigureImage(nullptr); }), 0);
}

TEST_F(ImageStageTest, FailuresAreNoLongerIgnoredBehindTheGuardedStep)
{
    state.MediaTypeChoice = 2;
    options.fileSystem = u"ISO 9660"_s;
    options.dataMode = u"Mode 2 / XA"_s;
    const auto refuse = [] { throw drive::PublishedError(drive::hresult::kInvalidParam); };
    transcript.At("FSI1.ISO9660InterchangeLevel = 2", refuse);
    transcript.At(
        "FSI1.WorkingDirectory = \\tmp", [] { throw runtime::RuntimeError(-1062555328); });

    EXPECT_EQ(ErrorNumberOf([this] { stage.ConfigureImage(nullptr); }), -1062555328);
}

TEST_F(ImageStageTest, ARefusedLevel1OfMode1EndsTheConfiguration)
{
    state.MediaTypeChoice = 2;
    options.fileSystem = u"ISO 9660"_s;
    transcript.At(
        "FSI1.ISO9660InterchangeLevel = 1", [] { throw runtime::RuntimeError(-1062555391); });

    EXPECT_EQ(ErrorNumberOf([this] { stage.ConfigureImage(nullptr); }), -1062555391);
}

TEST_F(ImageStageTest, AnEmptyDiscNameBecomesDateAndTime)
{
    options.discName.clear();

    stage.ConfigureImage(std::make_shared<FakeRecorder>());

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
    stage.ConfigureImage(std::make_shared<FakeRecorder>());
    stage.Release();
    clock.Pause(3600);
    transcript.Clear();

    stage.ConfigureImage(std::make_shared<FakeRecorder>());

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

    stage.ConfigureImage(std::make_shared<FakeRecorder>());

    EXPECT_EQ(options.discName, u" "_s);
}

} // namespace velmora::test
