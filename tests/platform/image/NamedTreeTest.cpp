// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/IsoNames.h"
#include "image/names/JolietNames.h"
#include "image/names/UdfNames.h"
#include "tests/platform/image/NamesBench.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace velmora::test {

using namespace image;

namespace {

const std::vector<std::string> kNames {"plain.txt",
    "CAPITALS.TXT",
    "NODOT",
    "END.",
    "question?",
    "question*",
    "\xC3\xA9t\xC3\xA9",
    "raw\xE9"};
const std::vector<std::string> kWideNames {
    "été", "日本", "Ωmega é", "😀", "a", "ÿ", std::string(60, 'x') + "é"};

/// Names with every byte that a name can have, within and at the end, and of every length.
std::vector<std::string> NamesOfAllKinds()
{
    std::vector<std::string> names;
    for (int byte = 1; byte < 256; ++byte) {
        const std::string one(1, static_cast<char>(byte));
        names.insert(names.end(), {one, "a" + one, "a" + one + "z"});
    }
    for (std::size_t length = 1; length < 256; ++length) {
        names.emplace_back(length, 'n');
    }
    return names;
}

/// Expects what the rules call their own forms to be so. @return how many they call so
std::size_t ExpectOwnForms(const NameRules& rules)
{
    std::size_t count = 0;
    for (const std::string& name : NamesOfAllKinds()) {
        if (rules.IsOwnForm(name)) {
            const std::string form = rules.Form(name, NameOf::File);
            EXPECT_EQ(RecordedName(name, rules.Coding()).Bytes(), form) << name;
            EXPECT_EQ(rules.Key(form), form) << name;
            EXPECT_TRUE(rules.IsKept(form, name)) << name;
            ++count;
        }
    }
    return count;
}

} // namespace

class NamedTreeTest : public NamesBench {
protected:
    /// The names that the tree doesn't keep a second time.
    static std::size_t UnstoredOf(const NamedTree& named)
    {
        return static_cast<std::size_t>(
            std::ranges::count_if(named.entries, &NamedEntry::HasSourceName));
    }

    void ExpectForms(const NameRules& rules) const
    {
        NamedTree named;
        NameTree(*tree, FileSystem::Udf, rules, {}, named);
        ASSERT_EQ(named.entries.size(), kNames.size());
        for (const NamedEntry& entry : named.entries) {
            const std::string form = named.FormOf(entry).Bytes();
            EXPECT_EQ(form.size(), named.FormOf(entry).Size());
            const std::string nearest = rules.Form(tree->Name(entry.node), NameOf::File);
            const std::string second = rules.Numbered(tree->Name(entry.node), NameOf::File, 1);
            EXPECT_TRUE(form == nearest || form == second) << tree->Name(entry.node);
        }
    }
};

TEST_F(NamedTreeTest, EveryFormIsAsTheRulesMakeIt)
{
    AddFiles(kNames);
    ExpectForms(IsoNames(IsoNames::Length::ThirtyOne));
    ExpectForms(JolietNames(JolietNames::kUsualLength));
    ExpectForms(UdfNames());
}

TEST_F(NamedTreeTest, ANameThatIsKeptIsNotStoredTwice)
{
    AddFiles(kNames);
    NamedTree joliet;
    NameTree(*tree, FileSystem::Joliet, JolietNames(JolietNames::kUsualLength), {}, joliet);
    EXPECT_EQ(UnstoredOf(joliet), 5U); // all but those of '?', '*' and a stray byte
    NamedTree udf;
    NameTree(*tree, FileSystem::Udf, UdfNames(), {}, udf);
    EXPECT_EQ(UnstoredOf(udf), 7U); // all but that of the stray byte
}

TEST_F(NamedTreeTest, NamesOfAllCharactersAreMadeAnewFromTheSource)
{
    AddFiles(kWideNames);
    const JolietNames joliet(JolietNames::kUsualLength);
    const UdfNames udf;
    for (const NameRules* rules : std::initializer_list<const NameRules*> {&joliet, &udf}) {
        NamedTree named;
        NameTree(*tree, FileSystem::Udf, *rules, {}, named);
        EXPECT_EQ(UnstoredOf(named), kWideNames.size());
        for (const NamedEntry& entry : named.entries) {
            const std::string form = rules->Form(tree->Name(entry.node), NameOf::File);
            const RecordedName name = named.FormOf(entry);
            std::string appended = "before";
            name.AppendTo(appended);
            EXPECT_EQ(appended, "before" + form);
            EXPECT_EQ(name.Bytes(), form);
            EXPECT_EQ(name.Size(), form.size());
            EXPECT_TRUE(name == form);
            EXPECT_FALSE(name == form + "x");
        }
    }
}

TEST_F(NamedTreeTest, WhatIsSaidToBeItsOwnFormIs)
{
    // Of 127 ASCII characters Joliet has 90, of which two may not be last.
    EXPECT_EQ(ExpectOwnForms(JolietNames(JolietNames::kUsualLength)), 88U + 88U + 90U + 103U);
    EXPECT_EQ(ExpectOwnForms(JolietNames(JolietNames::kPaperLength)), 88U + 88U + 90U + 64U);
    EXPECT_EQ(ExpectOwnForms(UdfNames()), 3 * 127U + 254U);
    EXPECT_EQ(ExpectOwnForms(IsoNames(IsoNames::Length::ThirtyOne)), 0U); // ";1" is no name's
}

TEST_F(NamedTreeTest, OrdinaryNamesAreRecordedInTheirOrder)
{
    const std::vector<std::string> sorted {"B", "a", "a.b", "a0", "aa", "b c"};
    for (const std::vector<std::string>& names :
        {sorted, std::vector<std::string>(sorted.rbegin(), sorted.rend())}) {
        tree = std::make_shared<SourceTree>();
        AddFiles(names);
        NamedTree joliet;
        NameTree(*tree, FileSystem::Joliet, JolietNames(JolietNames::kUsualLength), {}, joliet);
        std::vector<std::string> recorded;
        for (const NamedEntry& entry : joliet.entries) {
            recorded.emplace_back(tree->Name(entry.node));
        }
        EXPECT_EQ(recorded, sorted);
        EXPECT_EQ(UnstoredOf(joliet), sorted.size());
    }
}

} // namespace velmora::test
