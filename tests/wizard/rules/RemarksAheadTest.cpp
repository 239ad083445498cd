// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/RemarksAhead.h"

#include "mastering/ImageForecast.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/Unprivileged.h"
#include "tests/writing/VirtualRunBench.h"
#include "writing/ImageDraft.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <new>

namespace velmora::test {

using namespace Qt::StringLiterals;
using namespace test::path_literals;
using shell::DiscFormat;
using shell::DiscTypeChoice;
using wizard::Remark;
using writing::BurnTarget;
using writing::FileSystemOption;
namespace fs = std::filesystem;

namespace {

/// What is chosen for a burn, and the disc that fits.
struct Choice {
    const char* name;
    QStringView medium;
    DiscTypeChoice type;
    DiscFormat format;
    FileSystemOption fileSystem;
    writing::DataMode mode = writing::DataMode::Mode2Xa;
};

constexpr auto kDetected = DiscTypeChoice::AsDetected;
constexpr Choice kChoices[] {
    {"Cd", u"cd-r", DiscTypeChoice::CdR, DiscFormat::Cd, FileSystemOption::Joliet},
    {"CdIso", u"cd-r", DiscTypeChoice::CdR, DiscFormat::Cd, FileSystemOption::Iso9660},
    {"CdStrict",
        u"cd-r",
        DiscTypeChoice::CdR,
        DiscFormat::Cd,
        FileSystemOption::Iso9660,
        writing::DataMode::Mode1},
    {"Dvd", u"dvd+r", DiscTypeChoice::DvdPlusR, DiscFormat::Dvd, FileSystemOption::Joliet},
    {"DvdUdf", u"dvd+r", DiscTypeChoice::DvdPlusR, DiscFormat::Dvd, FileSystemOption::Udf},
    {"Bd", u"bd-r", DiscTypeChoice::BdR, DiscFormat::BluRay, FileSystemOption::Udf},
    {"DetectedCd", u"cd-r", kDetected, DiscFormat::Cd, FileSystemOption::Joliet},
    {"DetectedDvd", u"dvd+r", kDetected, DiscFormat::Dvd, FileSystemOption::Joliet},
    {"DetectedBd", u"bd-r", kDetected, DiscFormat::BluRay, FileSystemOption::Udf},
};

std::string TextOf(const Remark& remark)
{
    return (remark.isLoss ? "! " : "  ") + (remark.path + u": "_s + remark.words).toStdString();
}

std::vector<std::string> TextsOf(const std::vector<Remark>& remarks)
{
    std::vector<std::string> texts;
    std::ranges::transform(remarks, std::back_inserter(texts), TextOf);
    return texts;
}

} // namespace

/// A compilation of everything that is hard to record.
class RemarksAheadTest : public VirtualRunBench, public testing::WithParamInterface<Choice> {
protected:
    RemarksAheadTest()
    {
        fs::create_directories(folder / "top");
        MakeNames();
        MakeLinks();
        MakeUnreadable();
        state.SourceFolder = text::ProgramPath(Path("top") + u'\\');
        state.HiddenEntries = {text::ProgramPath(Path("top/.brouillon"))};
        for (const auto& entry : fs::directory_iterator(folder / "top")) {
            const std::string name = entry.path().filename().native();
            if (!name.starts_with('.')) AddRow(name, entry.is_directory() && !entry.is_symlink());
        }
        AddMadeDirectory(u"fait\\"_s);
        AddMadeDirectory(u"sans parent\\fait\\"_s);
    }

    void MakeNames() const
    {
        for (const char* name :
            {"top/a:b", "top/Clash", "top/clash", "top/clash ", "top/latin\xE9"})
            WriteFile(name, name);
        WriteFile("top/" + std::string(200, 'n'), "long");
        fs::create_directories(folder / ("top/names/" + std::string(120, 'd')));
        for (const char* name : {"names/CON", "names/...", "names/x?", "names/X?", "names/.seen"})
            WriteFile(std::string("top/") + name, name);
        WriteFile("top/.brouillon", "hidden");
        std::string deep = "top/deep";
        for (int level = 0; level < 10; ++level)
            deep += "/level";
        fs::create_directories(folder / deep);
        WriteFile(deep + "/file", "far below");
    }
    void MakeLinks() const
    {
        fs::create_symlink("/etc/passwd", folder / "top/out");
        fs::create_symlink("nowhere", folder / "top/dangling");
        fs::create_directories(folder / "top/links");
        fs::create_symlink("../../../outside", folder / "top/links/out");
        fs::create_symlink("circle", folder / "top/links/circle");
        fs::create_symlink("../names/CON", folder / "top/links/inside");
        fs::create_directory_symlink("../names", folder / "top/links/folder");
    }
    void MakeUnreadable() const
    {
        fs::create_directories(folder / "top/special/closed");
        ASSERT_EQ(::mkfifo((folder / "top/special/tube").c_str(), 0644), 0);
        ASSERT_EQ(::mkfifo((folder / "top/tube").c_str(), 0644), 0);
        fs::create_directories(folder / "top/shut");
    }
    void AddRow(const std::string& name, bool isDirectory)
    {
        const QString text = text::ToProgramPath(name) + (isDirectory ? u"\\"_s : QString());
        compilation::ListRow& row = list.Add(text, text::DiscPath(text), u"F0"_s);
        list.SetKind(
            row, isDirectory ? compilation::EntryKind::Directory : compilation::EntryKind::File);
        list.SetOrigin(
            row, text::ProgramPath(Path("top/" + name) + (isDirectory ? u"\\"_s : QString())));
    }
    void AddMadeDirectory(const QString& text)
    {
        compilation::ListRow& row = list.Add(text, text::DiscPath(text), u"FD"_s);
        list.SetKind(row, compilation::EntryKind::Directory);
    }

    void Choose(const Choice& choice)
    {
        state.MediaTypeChoice = choice.type;
        state.DiscFormat = choice.format;
        options.fileSystem = choice.fileSystem;
        options.dataMode = choice.mode;
        Insert(choice.medium);
    }
    wizard::RemarksQuestion Question() const
    {
        return {.draft = writing::DraftOf(options, state, list),
            .hiddenEntries = writing::HiddenEntriesLeftOut(state, list)};
    }
    std::vector<Remark> Ahead() const
    {
        return wizard::RemarksAhead(Question(), mastering::ImageForecast(), {});
    }
    /// As the burn page lists them.
    std::vector<Remark> Afterwards(BurnTarget target)
    {
        screen.isoFile = Path("disc.iso");
        const writing::RunReport report = writing::BurnRun(Context()).Run(target);
        EXPECT_TRUE(report.isLaidOut) << Log();
        return wizard::RemarksOf(report);
    }

    /// Without root's rights, as no folder is closed to root.
    template <class Work> void AsSomebody(const Work& work) const
    {
        for (const auto& entry : fs::recursive_directory_iterator(folder.Path()))
            if (!entry.is_symlink()) fs::permissions(entry, fs::perms::all);
        fs::permissions(folder.Path(), fs::perms::all);
        for (const char* name : {"top/shut", "top/special/closed"})
            fs::permissions(folder / name, fs::perms::none);
        const Unprivileged nobody;
        work();
    }
};

TEST_P(RemarksAheadTest, TheyAreThoseOfTheBurn)
{
    Choose(GetParam());
    AsSomebody([this] {
        const std::vector<Remark> ahead = Ahead();
        EXPECT_EQ(TextsOf(ahead), TextsOf(Afterwards(BurnTarget::Disc)));
        EXPECT_GT(ahead.size(), 7U);
        EXPECT_TRUE(wizard::HasLoss(ahead));
    });
}

TEST_P(RemarksAheadTest, TheyAreThoseOfTheIsoFile)
{
    Choose(GetParam());
    AsSomebody([this] {
        const std::vector<Remark> ahead = Ahead();
        EXPECT_EQ(TextsOf(ahead), TextsOf(Afterwards(BurnTarget::IsoFile)));
    });
}

INSTANTIATE_TEST_SUITE_P(
    Choices, RemarksAheadTest, testing::ValuesIn(kChoices), [](const auto& choice) {
        return std::string(choice.param.name);
    });

class RemarksOfManyTest : public testing::Test {
protected:
    /// Reports as many changed names as requested.
    class ManyNames final : public imapi::IImageForecast {
    public:
        std::optional<imapi::ImageRemarks> Forecast(
            const imapi::ImageDraft&, std::size_t mostNames, const std::stop_token&) const override
        {
            asked = mostNames;
            return imapi::ImageRemarks {
                .changedNames = std::vector<imapi::ChangedName>(mostNames, {.path = u"a"_disc})};
        }
        mutable std::size_t asked = 0;
    };
    class NoMemory final : public imapi::IImageForecast {
    public:
        std::optional<imapi::ImageRemarks> Forecast(
            const imapi::ImageDraft&, std::size_t, const std::stop_token&) const override
        {
            throw std::bad_alloc();
        }
    };
};

TEST_F(RemarksOfManyTest, MoreThanAnybodyReadsAreCutAndThatIsSaid)
{
    const ManyNames forecast;
    const std::vector<Remark> remarks = wizard::RemarksAhead({}, forecast, {});
    EXPECT_EQ(remarks.size(), wizard::kMostRemarksAhead + 1);
    EXPECT_TRUE(remarks.back().words.startsWith(u"Il y en a d'autres"_s));
    EXPECT_EQ(forecast.asked, wizard::kMostRemarksAhead + 1) << "a million is never made";
}

TEST_F(RemarksOfManyTest, WithoutMemoryThereAreNone)
{
    EXPECT_TRUE(wizard::RemarksAhead({}, NoMemory(), {}).empty());
}

} // namespace velmora::test
