// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/TemporaryChoice.h"

#include "shell/Settings.h"
#include "tests/support/FakeSettingsStore.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Unprivileged.h"
#include "text/PathText.h"

#include <QScopeGuard>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;
using shell::TemporaryRow;

namespace {

constexpr double kGibi = 1024.0 * 1024 * 1024;

/// Sets an environment variable, or takes it away, for one test.
class Variable {
public:
    Variable(const char* name, const char* value)
        : name_(name)
    {
        if (const char* before = std::getenv(name)) {
            before_ = before;
        }
        Put(value);
    }
    ~Variable() { Put(before_ ? before_->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    void Put(const char* value) const
    {
        if (value != nullptr) {
            setenv(name_, value, 1);
        } else {
            unsetenv(name_);
        }
    }
    const char* name_;
    std::optional<std::string> before_;
};

class TemporaryChoiceTest : public testing::Test {
protected:
    shell::TemporaryChoice Choice()
    {
        return shell::TemporaryChoice({.fixedDrives
            = [this] { return test::ProgramPaths(drives_); },
            .winTempDir = [] { return u"\\tmp\\"_path; },
            .diskSpace =
                [this](const text::ProgramPath& path) {
                    asked_ += path.Text();
                    return shell::DiskSpace {8.5 * kGibi, 16 * kGibi};
                },
            .canBeHad
            = [this](const text::ProgramPath& path) { return !closed_.contains(path.Text()); }});
    }
    QString Drive() const
    {
        return text::ToProgramPath(text::NativePath(folder_.Path().string() + '/')).Text();
    }

    QStringList drives_ {u"\\"_s, u"\\home\\"_s};
    QStringList asked_;
    QStringList closed_;
    test::TemporaryFolder folder_;
};

} // namespace

TEST_F(TemporaryChoiceTest, TheSystemsDirectoryComesFirstThenTheDrives)
{
    const auto rows = Choice().Rows();
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].text, u"Répertoire temporaire de Windows"_s);
    EXPECT_EQ(rows[0].key, u"WinTempDir"_s);
    EXPECT_EQ(rows[0].icon, u"WT"_s);
    EXPECT_TRUE(rows[0].IsSystems());
    EXPECT_EQ(rows[2].text, u"\\home\\"_s);
    EXPECT_EQ(rows[2].key, u"\\home\\"_s);
    EXPECT_EQ(rows[2].icon, u"DT"_s);
    EXPECT_FALSE(rows[2].IsSystems());
    EXPECT_EQ(asked_, QStringList({u"\\tmp\\"_s, u"\\"_s, u"\\home\\"_s}));
}

TEST_F(TemporaryChoiceTest, EachRowTellsItsRoom)
{
    QString drive = u"\\"_s;
    const QString expected = shell::DiskSpaceText(drive, [](const text::ProgramPath&) {
        return shell::DiskSpace {8.5 * kGibi, 16 * kGibi};
    });
    for (const TemporaryRow& row : Choice().Rows()) {
        EXPECT_EQ(row.space, expected);
        EXPECT_TRUE(row.space.endsWith(u" Go Taille totale) "_s));
    }
}

TEST_F(TemporaryChoiceTest, AMachineWithOneDriveHasTwoRows)
{
    drives_ = QStringList {u"\\"_s};
    EXPECT_EQ(Choice().Rows().size(), 2U);
}

TEST_F(TemporaryChoiceTest, ADriveThatCantHaveTheDirectoryIsNotOnOffer)
{
    closed_ = {u"\\Temp\\"_s};
    const auto rows = Choice().Rows();
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[1].text, u"\\home\\"_s);
}

TEST_F(TemporaryChoiceTest, ADirectoryCanBeHadWhereItCanBeWrittenOrMade)
{
    namespace fs = std::filesystem;
    constexpr fs::perms kNoMoreThanPassed
        = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    fs::permissions(folder_.Path(), kNoMoreThanPassed, fs::perm_options::add);
    fs::permissions(folder_.MakeFolder("open"), fs::perms::all);
    fs::permissions(folder_.MakeFolder("closed"), kNoMoreThanPassed);
    fs::permissions(folder_.MakeFolder("kept/Temp"), fs::perms::all);
    fs::permissions(folder_ / "kept", kNoMoreThanPassed);
    const auto opened = qScopeGuard([this] { // for who removes them
        fs::permissions(folder_ / "closed", fs::perms::all);
        fs::permissions(folder_ / "kept", fs::perms::all);
    });
    folder_.MakeFile("open/file/Temp", 1);
    fs::permissions(folder_ / "open/file", fs::perms::all);
    const test::Unprivileged nobody;
    EXPECT_TRUE(shell::CanBeHad(text::ProgramPath(Drive() + u"open\\Temp\\"_s)));
    EXPECT_FALSE(shell::CanBeHad(text::ProgramPath(Drive() + u"closed\\Temp\\"_s)));
    EXPECT_TRUE(shell::CanBeHad(text::ProgramPath(Drive() + u"kept\\Temp\\"_s)));
    EXPECT_FALSE(shell::CanBeHad(text::ProgramPath(Drive() + u"open\\file\\Temp\\"_s)))
        << "a file is in its place";
    EXPECT_FALSE(shell::CanBeHad(u"\\Temp\\"_path));
}

TEST_F(TemporaryChoiceTest, ASecondLookListsTheDrivesAfresh)
{
    const auto choice = Choice();
    EXPECT_EQ(choice.Rows().size(), 3U);
    EXPECT_EQ(choice.Rows().size(), 3U);
    drives_ += u"\\new\\"_s;
    EXPECT_EQ(choice.Rows().size(), 4U);
}

TEST_F(TemporaryChoiceTest, TheSystemsRowGivesItsDirectory)
{
    EXPECT_EQ(Choice().Take(Choice().Rows()[0]).Text(), u"\\tmp\\"_s);
}

TEST_F(TemporaryChoiceTest, ADriveGivesItsDirectoryTempWhichIsMade)
{
    const TemporaryRow row {Drive(), Drive(), u"DT"_s, {}};
    EXPECT_EQ(Choice().Take(row).Text(), Drive() + u"Temp\\"_s);
    EXPECT_TRUE(std::filesystem::is_directory(folder_ / "Temp"));
    EXPECT_EQ(Choice().Take(row).Text(), Drive() + u"Temp\\"_s);
}

TEST_F(TemporaryChoiceTest, ADirectoryThatCantBeMadeGoesUnnoticed)
{
    const QString drive = Drive() + u"missing\\"_s;
    EXPECT_EQ(Choice().Take({drive, drive, u"DT"_s, {}}).Text(), drive + u"Temp\\"_s);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "missing"));
}

TEST(WinTempDirTest, ItIsTheEnvironmentsAndEndsInABackslash)
{
    {
        const Variable variable("TMPDIR", "/var/my tmp");
        EXPECT_EQ(shell::GetWinTempDir(), u"\\var\\my tmp\\"_path);
    }
    {
        const Variable variable("TMPDIR", "/big/");
        EXPECT_EQ(shell::GetWinTempDir(), u"\\big\\"_path);
    }
    {
        const Variable variable("TMPDIR", "./mine");
        const auto current = std::filesystem::current_path() / "mine/";
        EXPECT_EQ(shell::GetWinTempDir(), text::ToProgramPath(text::NativePath(current.native())));
    }
    for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
        const Variable variable("TMPDIR", nothing);
        EXPECT_EQ(shell::GetWinTempDir(), u"\\tmp\\"_path);
    }
}

TEST(TempDirSettingTest, TheSettingsComeBeforeTheSystem)
{
    const Variable variable("TMPDIR", "/big");
    test::FakeSettingsStore store;
    EXPECT_EQ(shell::TempDirSetting(store), u"\\big\\"_path);
    shell::SaveSetting(store, u"Velmora"_s, u"Option"_s, u"TempDir"_s, u"\\mnt\\a/b\\"_s);
    EXPECT_EQ(shell::TempDirSetting(store), u"\\mnt\\a/b\\"_path);
}

TEST(TempDirSettingTest, APersonWritesItAsLinuxDoes)
{
    test::FakeSettingsStore store;
    shell::SaveSetting(store, u"Velmora"_s, u"Option"_s, u"TempDir"_s, u"/mnt/big disk"_s);
    EXPECT_EQ(shell::TempDirSetting(store), u"\\mnt\\big disk"_path);
}
