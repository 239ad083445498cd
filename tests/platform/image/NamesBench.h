// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/names/NamedTree.h"
#include "tests/platform/image/ImageBench.h"

#include <map>
#include <string>
#include <vector>

namespace velmora::test {

inline std::string Repeated(std::size_t count, char c) { return std::string(count, c); }

using Names = std::map<std::string, std::string>;

/// One directory of names, and how a file system records them.
class NamesBench : public ImageBench {
protected:
    void AddFiles(const std::vector<std::string>& names) const
    {
        const std::string file = Write("any", "");
        for (const std::string& name : names) {
            EXPECT_TRUE(tree->AddFile(name, file)) << name;
        }
    }

    /// The name that a reader shows for each name of the source.
    Names NamesUnder(const image::NameRules& rules) const
    {
        image::NamedTree named;
        image::NameTree(*tree, image::FileSystem::Udf, rules, {}, named);
        Names names;
        for (const image::NamedEntry& entry : named.entries) {
            names[std::string(tree->Name(entry.node))]
                = rules.Readable(named.FormOf(entry).Bytes());
        }
        return names;
    }
};

} // namespace velmora::test
