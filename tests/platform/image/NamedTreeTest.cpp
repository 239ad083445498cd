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

} // namespace

class NamedTreeTest : public NamesBench {
protected:
    /// The names that the tree doesn't keep a second time.
    static std::size_t UnstoredOf(const NamedTree& named)
    {
        return static_cast<std::size_t>(
            std::ranges::count(named.entries, kSourceName, &NamedEntry::name));
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
    EXPECT_EQ(UnstoredOf(joliet), 4U);
    NamedTree udf;
    NameTree(*tree, FileSystem::Udf, UdfNames(), {}, udf);
    EXPECT_EQ(UnstoredOf(udf), 6U);
}

} // namespace velmora::test
