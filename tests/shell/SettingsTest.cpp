// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Settings.h"

#include "store/FileSettingsStore.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeSettingsStore.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;
using shell::GetSetting;
using shell::SaveSetting;

TEST(SettingsTest, WhatIsMissingGivesTheDefault)
{
    test::FakeSettingsStore store;
    EXPECT_EQ(GetSetting(store, u"Velmora"_s, u"Drive"_s, u"Default"_s, u"none"_s), u"none"_s);
    store.keys[u"Settings\\Velmora\\Drive"_s];
    EXPECT_EQ(GetSetting(store, u"Velmora"_s, u"Drive"_s, u"Default"_s, u"none"_s), u"none"_s);
    EXPECT_TRUE(store.open.empty());
}

TEST(SettingsTest, ASavedTextComesBackWhole)
{
    test::FakeSettingsStore store;
    for (const QString& text : {u"ASUS:BW-16D1HT (/dev/sr0)"_s, u" blanks "_s, QString()}) {
        SaveSetting(store, u"Velmora"_s, u"Drive"_s, u"Default"_s, text);
        EXPECT_EQ(GetSetting(store, u"Velmora"_s, u"Drive"_s, u"Default"_s, u"none"_s), text);
    }
    EXPECT_TRUE(store.open.empty());
}

TEST(SettingsTest, WhatCantBeReadGivesTheDefault)
{
    test::FakeSettingsStore store;
    SaveSetting(store, u"Velmora"_s, u"Option"_s, u"TempDir"_s, u"\\big\\"_s);
    for (const QString& call : {u"OpenKey"_s, u"QueryValue"_s, u"ReadValue"_s}) {
        store.failures = {{call, store::result::kAccessDenied}};
        EXPECT_EQ(
            GetSetting(store, u"Velmora"_s, u"Option"_s, u"TempDir"_s, u"\\tmp\\"_s), u"\\tmp\\"_s);
    }
    EXPECT_TRUE(store.open.empty());
}

TEST(SettingsTest, ANumberIsNoSetting)
{
    test::FakeSettingsStore store;
    store.keys[u"Settings\\Velmora\\Option"_s][u"TempDir"_s] = {store::ValueType::Number, u"7"_s};
    EXPECT_EQ(GetSetting(store, u"Velmora"_s, u"Option"_s, u"TempDir"_s, u"x"_s), u"x"_s);
}

TEST(SettingsTest, AStoreThatCantBeWrittenRaisesFive)
{
    for (const QString& call : {u"CreateKey"_s, u"SetValue"_s}) {
        test::FakeSettingsStore store;
        store.failures = {{call, store::result::kAccessDenied}};
        EXPECT_EQ(test::ErrorNumberOf(
                      [&] { SaveSetting(store, u"Velmora"_s, u"Drive"_s, u"Default"_s, u"x"_s); }),
            5);
        EXPECT_TRUE(store.open.empty());
    }
}

TEST(SettingsTest, APersonMayWriteASettingIntoTheFile)
{
    const test::TemporaryFolder folder;
    std::ofstream(folder / "settings.json")
        << R"({"Settings\\Velmora\\Option": {"TempDir": "/mnt/big"}})";
    store::FileSettingsStore store(QString::fromStdString(folder / "settings.json"));
    EXPECT_EQ(GetSetting(store, u"Velmora"_s, u"Option"_s, u"TempDir"_s, u"x"_s), u"/mnt/big"_s);
}
