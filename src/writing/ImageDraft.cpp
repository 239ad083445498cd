// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/ImageDraft.h"

#include "compilation/CompilationList.h"
#include "runtime/TextRules.h"
#include "shell/PathHelpers.h"
#include "shell/ProgramState.h"

#include <utility>

namespace velmora::writing {

namespace {

using compilation::EntryKind;
using drive::FsiFileSystems;
using drive::IMAPI_MEDIA_PHYSICAL_TYPE;
using imapi::ImageEntry;
using shell::DiscTypeChoice;

constexpr QChar kSeparator = u'\\';

/// The directory of the machine that a row represents. The machine's root is just its separator.
text::ProgramPath SourceDirectory(const text::ProgramPath& origin)
{
    return origin.Text() == kSeparator
        ? origin
        : text::ProgramPath(shell::NoTrailingBackslash(origin.Text()));
}

/// The directory of the image that a directory goes under; empty for the root.
text::DiscPath DirectoryAbove(const text::DiscPath& directory)
{
    return text::DiscPath(shell::NoTrailingBackslash(shell::ParentPath(directory.Text())));
}

/// ISO 9660 as the only file system is strict on a CD of mode 1.
bool IsStrict(const BurnOptions& options, DiscTypeChoice medium)
{
    return options.FileSystem() == FileSystemOption::Iso9660 && medium == DiscTypeChoice::CdR
        && options.Mode() == DataMode::Mode1;
}

/// Some disc of the family: all of them get the same file systems.
IMAPI_MEDIA_PHYSICAL_TYPE MediumOf(shell::DiscFormat detected)
{
    switch (detected) {
    case shell::DiscFormat::BluRay:
        return IMAPI_MEDIA_PHYSICAL_TYPE::BdR;
    case shell::DiscFormat::Dvd:
        return IMAPI_MEDIA_PHYSICAL_TYPE::DvdPlusR;
    case shell::DiscFormat::Cd:
        return IMAPI_MEDIA_PHYSICAL_TYPE::CdR;
    case shell::DiscFormat::InDrive:
        break;
    }
    return IMAPI_MEDIA_PHYSICAL_TYPE::Disk;
}

} // namespace

std::optional<ImageEntry> EntryOf(const compilation::ListRow& row)
{
    using Kind = ImageEntry::Kind;
    const text::DiscPath& path = row.Path();
    const text::ProgramPath& source = row.Origin();
    if (row.Kind() == EntryKind::File) {
        const bool isWhole = !path.IsEmpty() && !source.IsEmpty();
        return isWhole ? std::optional(ImageEntry {Kind::File, path, source}) : std::nullopt;
    }
    const text::DiscPath directory(shell::NoTrailingBackslash(path.Text()));
    if (row.Kind() != EntryKind::Directory) {
        return std::nullopt;
    }
    if (runtime::Trim(source.Text()).isEmpty()) {
        const bool isNamed = !directory.IsEmpty();
        return isNamed ? std::optional(ImageEntry {Kind::Directory, directory}) : std::nullopt;
    }
    return ImageEntry {
        .kind = Kind::Tree, .path = DirectoryAbove(directory), .source = SourceDirectory(source)};
}

FsiFileSystems FileSystemsOf(FileSystemOption option)
{
    switch (option) {
    case FileSystemOption::Joliet:
        return FsiFileSystems::Iso9660AndJoliet;
    case FileSystemOption::Iso9660:
        return FsiFileSystems::Iso9660;
    case FileSystemOption::Udf:
        break;
    }
    return FsiFileSystems::Udf;
}

imapi::ImageDraft DraftOf(const BurnOptions& options,
    const shell::ProgramState& state,
    const compilation::CompilationList& ListFile)
{
    imapi::ImageDraft draft {.medium = shell::TypeOf(state.MediaTypeChoice),
        .fileSystems = FileSystemsOf(options.FileSystem()),
        .isStrict = IsStrict(options, state.MediaTypeChoice),
        .volumeName = options.DiscName()};
    if (state.MediaTypeChoice == DiscTypeChoice::AsDetected) {
        draft.medium = MediumOf(state.DiscFormat);
        draft.fileSystems.reset();
        draft.isStrict = false;
    }
    const qsizetype rows = ListFile.Count() > kMostRows ? 0 : ListFile.Count();
    for (qsizetype row = 1; row <= rows; ++row) {
        if (std::optional<ImageEntry> entry = EntryOf(ListFile[row])) {
            draft.entries.push_back(std::move(*entry));
        }
    }
    return draft;
}

QList<text::ProgramPath> HiddenEntriesLeftOut(
    const shell::ProgramState& state, const compilation::CompilationList& list)
{
    QList<text::ProgramPath> entries = state.HiddenEntries;
    for (qsizetype row = 1; row <= list.Count() && !entries.isEmpty(); ++row) {
        entries.removeAll(text::ProgramPath(shell::NoTrailingBackslash(list[row].Origin().Text())));
    }
    return entries;
}

} // namespace velmora::writing
