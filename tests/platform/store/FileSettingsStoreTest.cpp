// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/FileSettingsStore.h"

#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Unprivileged.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <thread>

using namespace velmora;
using namespace Qt::StringLiterals;
using store::FileSettingsStore;
using store::KeyHandle;
using store::ValueType;
namespace result = store::result;

namespace {

class FileSettingsStoreTest : public testing::Test {
protected:
    QString Path() const
    {
        return QString::fromStdString(folder_ / "config/velmora/settings.json");
    }

    void WriteFile(const std::string& text) const
    {
        folder_.MakeFolder("config/velmora");
        std::ofstream(folder_ / "config/velmora/settings.json") << text;
    }
    static std::string TextOf(const std::string& path)
    {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::string FileText() const { return TextOf(folder_ / "config/velmora/settings.json"); }

    static void Write(
        FileSettingsStore& store, const QString& path, const QString& name, const QString& text)
    {
        KeyHandle key {};
        ASSERT_EQ(store.CreateKey(path, key), result::kDone);
        EXPECT_EQ(store.SetValue(key, name, text), result::kDone);
        store.CloseKey(key);
    }
    static QString Read(FileSettingsStore& store, const QString& path, const QString& name)
    {
        KeyHandle key {};
        EXPECT_EQ(store.OpenKey(path, key), result::kDone);
        ValueType type {};
        qint32 size = 0;
        EXPECT_EQ(store.QueryValue(key, name, type, size), result::kDone);
        EXPECT_EQ(type, ValueType::String);
        QString buffer;
        EXPECT_EQ(store.ReadValue(key, name, size, buffer), result::kDone);
        EXPECT_EQ(buffer.size(), size);
        store.CloseKey(key);
        return buffer;
    }

    test::TemporaryFolder folder_;
};

const QString kKey = u"SOFTWARE\\Velmora\\Settings\\Data"_s;

} // namespace

TEST_F(FileSettingsStoreTest, WhatWasWrittenIsReadByTheNextProgram)
{
    {
        FileSettingsStore store(Path());
        Write(store, kKey, u"LastDir"_s, u"\\home\\u"_s);
    }
    FileSettingsStore store(Path());
    EXPECT_EQ(Read(store, kKey, u"LastDir"_s), u"\\home\\u"_s + QChar(u'\0'));
}

TEST_F(FileSettingsStoreTest, AStringsSizeCountsItsTerminator)
{
    FileSettingsStore store(Path());
    Write(store, kKey, u"LastDir"_s, u"abc"_s);
    Write(store, kKey, u"Nothing"_s, QString());
    KeyHandle key {};
    ASSERT_EQ(store.OpenKey(kKey, key), result::kDone);
    ValueType type {};
    qint32 size = 0;
    EXPECT_EQ(store.QueryValue(key, u"LastDir"_s, type, size), result::kDone);
    EXPECT_EQ(size, 4);
    EXPECT_EQ(store.QueryValue(key, u"Nothing"_s, type, size), result::kDone);
    EXPECT_EQ(size, 1);
}

TEST_F(FileSettingsStoreTest, EveryTextComesBackWhole)
{
    const QString text = u"a\\b/c \"é\" \u4E2D\n"_s + QChar(0xDCE9) + u"😀"_s;
    FileSettingsStore store(Path());
    Write(store, kKey, u"LastDir"_s, text);
    EXPECT_EQ(Read(store, kKey, u"LastDir"_s), text + QChar(u'\0'));
}

TEST_F(FileSettingsStoreTest, TooLittleRoomIsRefused)
{
    FileSettingsStore store(Path());
    Write(store, kKey, u"LastDir"_s, u"abc"_s);
    KeyHandle key {};
    ASSERT_EQ(store.OpenKey(kKey, key), result::kDone);
    QString buffer = u"as it was"_s;
    EXPECT_EQ(store.ReadValue(key, u"LastDir"_s, 3, buffer), result::kMoreData);
    EXPECT_EQ(buffer, u"as it was"_s);
}

TEST_F(FileSettingsStoreTest, NamesAreTheSameWhateverTheirCase)
{
    FileSettingsStore store(Path());
    Write(store, kKey, u"LastDir"_s, u"old"_s);
    Write(store, kKey.toUpper(), u"LASTDIR"_s, u"new"_s);
    EXPECT_EQ(Read(store, kKey.toLower(), u"lastdir"_s), u"new"_s + QChar(u'\0'));
    EXPECT_EQ(FileText().find("LASTDIR"), std::string::npos);
}

TEST_F(FileSettingsStoreTest, OtherKeysAndValuesStay)
{
    WriteFile(R"({"Other": {"a": [1, 2]}, "SOFTWARE\\Velmora\\Settings\\Data": {"b": true}})");
    FileSettingsStore store(Path());
    Write(store, kKey, u"LastDir"_s, u"x"_s);
    EXPECT_EQ(FileText(),
        "{\n"
        "    \"Other\": {\n"
        "        \"a\": [\n"
        "            1,\n"
        "            2\n"
        "        ]\n"
        "    },\n"
        "    \"SOFTWARE\\\\Velmora\\\\Settings\\\\Data\": {\n"
        "        \"LastDir\": \"x\",\n"
        "        \"b\": true\n"
        "    }\n"
        "}\n");
}

TEST_F(FileSettingsStoreTest, AValueOfAnotherTypeSaysSo)
{
    WriteFile(R"({"k": {"number": 7, "list": [1]}})");
    FileSettingsStore store(Path());
    KeyHandle key {};
    ASSERT_EQ(store.OpenKey(u"k"_s, key), result::kDone);
    ValueType type {};
    qint32 size = 0;
    EXPECT_EQ(store.QueryValue(key, u"number"_s, type, size), result::kDone);
    EXPECT_EQ(type, ValueType::Number);
    EXPECT_EQ(store.QueryValue(key, u"list"_s, type, size), result::kDone);
    EXPECT_EQ(type, ValueType::Binary);
}

TEST_F(FileSettingsStoreTest, AQuestionMakesNothing)
{
    FileSettingsStore store(Path());
    KeyHandle key {};
    EXPECT_EQ(store.OpenKey(kKey, key), result::kNotFound);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "config"));
}

TEST_F(FileSettingsStoreTest, AMissingValueIsNotFound)
{
    FileSettingsStore store(Path());
    KeyHandle key {};
    ASSERT_EQ(store.CreateKey(kKey, key), result::kDone);
    ValueType type {};
    qint32 size = 0;
    QString buffer;
    EXPECT_EQ(store.QueryValue(key, u"LastDir"_s, type, size), result::kNotFound);
    EXPECT_EQ(store.ReadValue(key, u"LastDir"_s, 9, buffer), result::kNotFound);
}

TEST_F(FileSettingsStoreTest, AClosedKeyIsNoKey)
{
    FileSettingsStore store(Path());
    KeyHandle key {};
    ASSERT_EQ(store.CreateKey(kKey, key), result::kDone);
    store.CloseKey(key);
    store.CloseKey(key);
    ValueType type {};
    qint32 size = 0;
    EXPECT_EQ(store.SetValue(key, u"a"_s, u"b"_s), result::kBadHandle);
    EXPECT_EQ(store.QueryValue(key, u"a"_s, type, size), result::kBadHandle);
}

TEST_F(FileSettingsStoreTest, AnEmptyFileHoldsNoKeys)
{
    WriteFile("\n");
    FileSettingsStore store(Path());
    KeyHandle key {};
    EXPECT_EQ(store.OpenKey(kKey, key), result::kNotFound);
    Write(store, kKey, u"LastDir"_s, u"x"_s);
    EXPECT_EQ(Read(store, kKey, u"LastDir"_s), u"x"_s + QChar(u'\0'));
}

TEST_F(FileSettingsStoreTest, ADamagedFileIsPutAsideAndToldOnce)
{
    int copies = 0;
    for (const std::string text : {"{\"k\": ", "[]", "\xff"}) {
        WriteFile(text);
        QStringList told;
        FileSettingsStore store(Path(), [&told](const QString& message) { told += message; });
        KeyHandle key {};
        EXPECT_EQ(store.OpenKey(kKey, key), result::kNotFound) << text;
        Write(store, kKey, u"LastDir"_s, u"x"_s);

        FileSettingsStore next(Path());
        EXPECT_EQ(Read(next, kKey, u"LastDir"_s), u"x"_s + QChar(u'\0')) << text;
        const QString copy = Path() + u".illisible-%1"_s.arg(++copies);
        EXPECT_EQ(TextOf(copy.toStdString()), text);
        ASSERT_EQ(told.size(), 1) << text;
        EXPECT_TRUE(told.front().endsWith(copy)) << told.front().toStdString();
    }
}

TEST_F(FileSettingsStoreTest, WhatCantBeSavedIsKeptUntilTheProgramEnds)
{
    WriteFile("{\"k\": {}}");
    using std::filesystem::perms;
    const perms writers = perms::owner_write | perms::group_write | perms::others_write;
    const auto folder = folder_ / "config/velmora";
    std::filesystem::permissions(folder_.Path(), perms::all);
    std::filesystem::permissions(folder, perms::all & ~writers);
    const test::Unprivileged unprivileged;
    QStringList told;
    FileSettingsStore store(Path(), [&told](const QString& message) { told += message; });

    Write(store, kKey, u"LastDir"_s, u"x"_s);
    Write(store, u"k"_s, u"Other"_s, u"y"_s);

    EXPECT_EQ(Read(store, kKey, u"LastDir"_s), u"x"_s + QChar(u'\0'));
    EXPECT_EQ(Read(store, u"k"_s, u"Other"_s), u"y"_s + QChar(u'\0'));
    EXPECT_EQ(FileText(), "{\"k\": {}}");
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told.front().contains(u"enregistrés"_s)) << told.front().toStdString();
    std::error_code notOurs; // then root takes it away
    std::filesystem::permissions(folder, perms::owner_all, notOurs);
}

TEST_F(FileSettingsStoreTest, AFileThatMayNotBeReadLeavesTheDefaults)
{
    WriteFile("{\"k\": {}}");
    std::filesystem::permissions(folder_.Path(), std::filesystem::perms::all);
    std::filesystem::permissions(
        folder_ / "config/velmora/settings.json", std::filesystem::perms::none);
    const test::Unprivileged unprivileged;
    QStringList told;
    FileSettingsStore store(Path(), [&told](const QString& message) { told += message; });
    KeyHandle key {};
    EXPECT_EQ(store.OpenKey(u"k"_s, key), result::kNotFound);
    Write(store, kKey, u"LastDir"_s, u"x"_s);
    EXPECT_EQ(Read(store, kKey, u"LastDir"_s), u"x"_s + QChar(u'\0'));
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told.front().endsWith(Path())) << told.front().toStdString();
}

TEST_F(FileSettingsStoreTest, WhatIsNoFileOfSettingsIsNeitherWaitedForNorRead)
{
    const auto file = folder_ / "config/velmora/settings.json";
    const auto expectDefaults = [this] {
        QStringList told;
        FileSettingsStore store(Path(), [&told](const QString& message) { told += message; });
        KeyHandle key {};
        EXPECT_EQ(store.OpenKey(u"k"_s, key), result::kNotFound);
        ASSERT_EQ(told.size(), 1);
        EXPECT_TRUE(told.front().endsWith(Path())) << told.front().toStdString();
    };
    WriteFile("{\"k\": {}}");
    std::filesystem::resize_file(file, std::uintmax_t {1} << 40U);
    expectDefaults();
    std::filesystem::remove(file);
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    expectDefaults();
    EXPECT_TRUE(std::filesystem::is_fifo(file));
}

TEST_F(FileSettingsStoreTest, TwoProgramsLoseNothingOfEachOther)
{
    constexpr int kValues = 6;
    const auto writeAll = [this](const QString& prefix) {
        FileSettingsStore store(Path());
        for (int i = 0; i < kValues; ++i) {
            Write(store, kKey, prefix + QString::number(i), u"x"_s);
        }
    };
    std::thread other(writeAll, u"a"_s);
    writeAll(u"b"_s);
    other.join();
    FileSettingsStore store(Path());
    for (int i = 0; i < kValues; ++i) {
        EXPECT_EQ(Read(store, kKey, u"a"_s + QString::number(i)).size(), 2);
        EXPECT_EQ(Read(store, kKey, u"b"_s + QString::number(i)).size(), 2);
    }
}

TEST_F(FileSettingsStoreTest, NothingStaysBesideTheFile)
{
    FileSettingsStore store(Path());
    Write(store, kKey, u"LastDir"_s, u"x"_s);
    int files = 0;
    for ([[maybe_unused]] const auto& file :
        std::filesystem::directory_iterator(folder_ / "config/velmora")) {
        ++files;
    }
    EXPECT_EQ(files, 1);
}

TEST(SettingsPathTest, TheFileLiesInTheUsersConfiguration)
{
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", "/some/where");
    EXPECT_EQ(FileSettingsStore::PathOfUser(), u"/some/where/velmora/settings.json"_s);
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_TRUE(FileSettingsStore::PathOfUser().endsWith(u"/.config/velmora/settings.json"_s));
    if (!before.isEmpty()) {
        qputenv("XDG_CONFIG_HOME", before);
    }
}
