// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/FrenchText.h"
#include "terminal/console/TerminalScreen.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora::terminal {

/// What the result of a job tells of remarks: how many there are, or each of them.
enum class Detail : std::uint8_t { Counts, Lists };

/// What was made of the folder.
enum class Product : std::uint8_t { Image, Disc };

/// Shows the remarks on an image or a disc: those of one kind after the other, in the order that
/// the caller chooses.
class RemarkList {
public:
    RemarkList(TerminalScreen& screen, Product product, Detail detail)
        : screen_(screen)
        , product_(product)
        , detail_(detail)
    {
    }

    /// Shows how many remarks there are of a kind, if any, and at Detail::Lists each of them; tells
    /// all of them.
    /// @param remarkOf  makes a JobRemark of an item
    template <class Items, class RemarkOf>
    void Show(RemarkKind kind, const Items& items, const RemarkOf& remarkOf)
    {
        ShowCount(kind, items.size());
        for (const auto& item : items) {
            ShowOne(remarkOf(item));
        }
    }

    /// Says how the remarks are listed, where they were only counted.
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
/// @param sentence  what is to be said of the entry
JobRemark EntryRemark(RemarkKind kind, std::string_view path, std::string_view sentence);

} // namespace velmora::terminal
