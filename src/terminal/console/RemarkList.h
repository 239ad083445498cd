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

/// What an image or a disc has otherwise than its folder, and what may surprise its readers.
enum class Remark : std::uint8_t {
    ChangedName,
    NameHazard, ///< kept, but some readers lose it
    LinkLeadingOut,
    ChangedSource, ///< a file that changed while it was read
    Missing,       ///< nowhere in the image
    PartlyMissing, ///< missing in one of its file systems
};

/// What was made of the folder.
enum class Product : std::uint8_t { Image, Disc };

/// Shows the remarks on an image or a disc: those of one sort after the other, in the order that
/// the caller chooses.
class RemarkList {
public:
    RemarkList(TerminalScreen& screen, Product product, Detail detail)
        : screen_(screen)
        , product_(product)
        , detail_(detail)
    {
    }

    /// Shows how many remarks there are of a sort, if any, and at Detail::Lists each of them.
    /// @param lineOf  makes a line of a remark
    template <class Remarks, class LineOf>
    void Show(Remark sort, const Remarks& remarks, const LineOf& lineOf)
    {
        ShowCount(sort, remarks.size());
        if (detail_ == Detail::Lists) {
            for (const auto& remark : remarks) {
                screen_.Result("  " + lineOf(remark));
            }
        }
    }

    /// Says how the remarks are listed, where they were only counted.
    void End();

private:
    void ShowCount(Remark sort, std::size_t count);

    TerminalScreen& screen_;
    Product product_;
    Detail detail_;
    bool hasRemarks_ = false;
};

/// The lines of remarks. Their paths are native, and shown harmlessly.
std::string ChangedNameLine(
    std::string_view fileSystem, std::string_view path, std::string_view recorded);
std::string LinkLine(std::string_view path, std::string_view text);
/// @param sentence  what is to be said of the entry
std::string EntryLine(std::string_view path, std::string_view sentence);

} // namespace velmora::terminal
