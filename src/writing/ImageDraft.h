// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IImageForecast.h"
#include "text/Paths.h"
#include "writing/BurnOptions.h"

#include <QList>

#include <optional>

namespace velmora::compilation {
class CompilationList;
class ListRow;
} // namespace velmora::compilation
namespace velmora::shell {
struct ProgramState;
}

namespace velmora::writing {

/// The rows that a run can count.
inline constexpr qsizetype kMostRows = 32'767;

/// What a row adds to an image; none for a row that adds nothing.
std::optional<imapi::ImageEntry> EntryOf(const compilation::ListRow& row);

drive::FsiFileSystems FileSystemsOf(FileSystemOption option);

/// The image that a run would make now. A detected disc gets the file systems of its family; a list
/// that a run can't count gives no entries.
imapi::ImageDraft DraftOf(const BurnOptions& options,
    const shell::ProgramState& state,
    const compilation::CompilationList& ListFile);

/// What stands hidden in the folder that the list was made from, as far as no row comes from it:
/// such an entry can have been added by its name.
QList<text::ProgramPath> HiddenEntriesLeftOut(
    const shell::ProgramState& state, const compilation::CompilationList& list);

} // namespace velmora::writing
