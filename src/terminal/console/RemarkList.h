// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/FrenchText.h"
#include "terminal/console/TerminalScreen.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora::terminal {

/// What a job's result shows of remarks: their number, or each of them.
enum class Detail : std::uint8_t { Counts, Lists };

/// What was made from the folder.
enum class Product : std::uint8_t { Image, Disc };

/// Shows the remarks on an image or a disc, grouped by kind, in the order that the caller chooses.
class RemarkList {
public:
    RemarkList(TerminalScreen& screen, Product product, Detail detail)
        : screen_(screen)
        , product_(product)
        , detail_(detail)
    {
    }

    /// Shows how many remarks of a kind there are, if any, and at Detail::Lists each of them;
    /// reports all of them as events.
    /// @param remarkOf  makes a JobRemark of an item
    template <class Items, class RemarkOf>
    void Show(RemarkKind kind, const Items& items, const RemarkOf& remarkOf)
    {
        ShowCount(kind, items.size());
        for (const auto& item : items) {
            ShowOne(remarkOf(item));
        }
    }

    /// Says how to list the remarks, if they were only counted.
    void End();

private:
    void ShowCount(RemarkKind kind, std::size_t count);
    void ShowOne(const JobRemark& remark);

    TerminalScreen& screen_;
    Product product_;
    Detail detail_;
    bool hasRemarks_ = false;
};

// Remarks with their words. Paths are native.

JobRemark ChangedNameRemark(
    std::string_view fileSystem, std::string_view path, std::string_view recorded);
JobRemark LinkRemark(std::string_view path, std::string_view target);
JobRemark ChangedSourceRemark(std::string_view path);
/// @param sentence  what to say about the entry
JobRemark EntryRemark(RemarkKind kind, std::string_view path, std::string_view sentence);

} // namespace velmora::terminal
