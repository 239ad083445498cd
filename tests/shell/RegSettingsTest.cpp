// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/modCorvaneRegSettings.h"

#include "runtime/RuntimeError.h"
#include "store/FileSettingsStore.h"
#include "tests/support/FakeSettingsStore.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>

using namespace velmora;
using namespace Qt::StringLiterals;
using shell::GetRegString;
using shell::SaveRegString;

namespace {

const QString kPath = u"SOFTWARE\\Velmora\\Settings\\Data"_s;

constexpr auto kNoAppName = static_cast<qint32>(0x800403E8);
constexpr auto kNoSection = static_cast<qint32>(0x800403E9);
constexpr auto kNoKey = static_cast<qint32>(0x800403EA);

class RegSettingsTest : public testing::Test {
protected:
    void Save(const QString& text)
    {
        SaveRegString(store_, u"Velmora"_s, u"Data"_s, u"LastDir"_s, text);
    }
    QString Get(const QString& otherwise = u"default"_s)
    {
        return GetRegString(store_, u"Velmora"_s, u"Data"_s, u"LastDir"_s, otherwise);
    }
    static void ExpectError(
        const std::function<void()>& act, qint32 number, const QString& description)
    {
        try {
            act();
            ADD_FAILURE() << "no error; expected " << number;
        } catch (const runtime::RuntimeError& failure) {
            EXPECT_EQ(failure.Number(), number);
            EXPECT_EQ(failure.Description(), description);
        }
    }

    test::FakeSettingsStore store_;
};

} // namespace

TEST_F(RegSettingsTest, AValueLiesUnderItsKey)
{
    Save(u"C:\\Data"_s);
    EXPECT_EQ(store_.keys[kPath][u"LastDir"_s].text, u"C:\\Data"_s);
    EXPECT_EQ(store_.Calls(),
        QStringList({u"CreateKey "_s + kPath, u"SetValue LastDir"_s, u"CloseKey"_s}));
    EXPECT_EQ(Get(), u"C:\\Data"_s);
    EXPECT_EQ(store_.Calls(),
        QStringList({u"OpenKey "_s + kPath,
            u"QueryValue LastDir"_s,
            u"ReadValue LastDir"_s,
            u"CloseKey"_s}));
}

TEST_F(RegSettingsTest, TheFirstRunReadsTheDefaultAndMakesNothing)
{
    EXPECT_EQ(Get(), u"default"_s);
    EXPECT_TRUE(store_.keys.isEmpty());
    EXPECT_EQ(store_.Calls(), QStringList({u"OpenKey "_s + kPath}));
}

TEST_F(RegSettingsTest, AKeyWithoutTheValueReadsTheDefaultAndStaysOpen)
{
    store_.keys[kPath];
    EXPECT_EQ(Get(), u"default"_s);
    EXPECT_EQ(store_.Calls(), QStringList({u"OpenKey "_s + kPath, u"QueryValue LastDir"_s}));
    EXPECT_EQ(store_.open.size(), 1U);
}

TEST_F(RegSettingsTest, AValueThatCantBeReadGivesTheDefault)
{
    Save(u"x"_s);
    store_.failures[u"ReadValue"_s] = store::result::kMoreData;
    EXPECT_EQ(Get(), u"default"_s);
    EXPECT_TRUE(store_.open.empty());
}

TEST_F(RegSettingsTest, AnEmptyTextIsNotTheDefault)
{
    Save(QString());
    EXPECT_EQ(Get(), QString());
    store_.countsTerminator = false;
    EXPECT_EQ(Get(), QString());
    EXPECT_TRUE(store_.open.empty());
}

TEST_F(RegSettingsTest, AStoreThatReportsTheExactSizeLosesTheLastCharacter)
{
    store_.countsTerminator = false;
    Save(u"C:\\Data"_s);
    EXPECT_EQ(Get(), u"C:\\Dat"_s);
}

TEST_F(RegSettingsTest, TheProgramsOwnStoreGivesTheTextBackWhole)
{
    const test::TemporaryFolder folder;
    store::FileSettingsStore store(QString::fromStdString(folder / "settings.json"));
    SaveRegString(store, u"Velmora"_s, u"Data"_s, u"LastDir"_s, u"\\home\\u\\Data"_s);
    EXPECT_EQ(
        GetRegString(store, u"Velmora"_s, u"Data"_s, u"LastDir"_s, u"d"_s), u"\\home\\u\\Data"_s);
}

TEST_F(RegSettingsTest, BlanksAroundTheNamesDontCountButThoseOfTheKeyDo)
{
    SaveRegString(store_, u" Velmora "_s, u" Data "_s, u" LastDir"_s, u"x"_s);
    EXPECT_EQ(store_.keys[kPath][u" LastDir"_s].text, u"x"_s);
    EXPECT_EQ(Get(), u"default"_s);
    EXPECT_EQ(GetRegString(store_, u"Velmora"_s, u"Data"_s, u" LastDir"_s, u"d"_s), u"x"_s);
}

TEST_F(RegSettingsTest, BlankNamesAreRefusedInTheirOrder)
{
    const QString blank = u"   "_s;
    const auto save = [this](const QString& app, const QString& section, const QString& key) {
        return [=, this] { SaveRegString(store_, app, section, key, u"x"_s); };
    };
    const auto get = [this](const QString& app, const QString& section, const QString& key) {
        return [=, this] { GetRegString(store_, app, section, key, u"x"_s); };
    };
    ExpectError(save(blank, blank, blank), kNoAppName, u"AppName doit être renseigné"_s);
    ExpectError(get(QString(), blank, blank), kNoAppName, u"AppName doit être renseigné"_s);
    ExpectError(save(u"a"_s, blank, blank), kNoSection, u"Section doit être renseigné"_s);
    ExpectError(get(u"a"_s, QString(), blank), kNoSection, u"Section doit être renseigné"_s);
    ExpectError(save(u"a"_s, u"s"_s, blank), kNoKey, u"Key doit être renseigné"_s);
    ExpectError(get(u"a"_s, u"s"_s, blank), kNoKey, u"Key  doit être renseigné"_s);
    EXPECT_EQ(store_.Calls(), QStringList());
}

TEST_F(RegSettingsTest, AStoreThatRefusesRaisesItsAnswer)
{
    constexpr qint32 kCorrupt = 1015;
    store_.failures = {{u"CreateKey"_s, store::result::kAccessDenied}, {u"OpenKey"_s, kCorrupt}};
    ExpectError([this] { Save(u"x"_s); },
        static_cast<qint32>(0x800407D5),
        u"Impossible d'ouvrir ou de créer la clef de registre"_s);
    ExpectError([this] { Get(); },
        static_cast<qint32>(0x80040BC7),
        u"Impossible d'ouvrir cette clef de registre"_s);
    store_.failures = {{u"SetValue"_s, store::result::kBadHandle}};
    ExpectError([this] { Save(u"x"_s); },
        static_cast<qint32>(0x800407D6),
        u"Impossible d'écrire la clef de registre"_s);
    EXPECT_TRUE(store_.open.empty());
}

TEST_F(RegSettingsTest, AValueThatIsNoTextRaisesItsType)
{
    const QString description
        = u"Les données de la clef de registre ne sont pas une chaine de caractères"_s;
    store_.keys[kPath][u"LastDir"_s] = {store::ValueType::Number, u"1"_s};
    ExpectError([this] { Get(); }, static_cast<qint32>(0x800407D4), description);
    store_.keys[kPath][u"LastDir"_s] = {store::ValueType::Binary, u"1"_s};
    ExpectError([this] { Get(); }, static_cast<qint32>(0x800407D3), description);
    EXPECT_TRUE(store_.open.empty());
}
