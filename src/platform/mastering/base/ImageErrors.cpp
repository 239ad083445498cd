// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/base/ImageErrors.h"

#include "drive/PublishedCodes.h"
#include "runtime/RuntimeError.h"
#include "text/PathText.h"

#include <QString>

#include <algorithm>
#include <array>

namespace velmora::mastering {

using image::ErrorKind;
namespace hresult = drive::hresult;

namespace {

struct Code {
    ErrorKind kind;
    qint32 code;
};

constexpr std::array kCodes {
    Code {ErrorKind::NotFound, hresult::kFileNotFound},
    Code {ErrorKind::FileNotOpened, hresult::kStreamNotCreated},
    Code {ErrorKind::DanglingLink, hresult::kStreamNotCreated},
    Code {ErrorKind::LinkCycle, hresult::kDirectoryUnreadable},
    Code {ErrorKind::LinkToSystem, hresult::kStreamNotCreated},
    Code {ErrorKind::FolderTaken, hresult::kDirectoryUnreadable},
    Code {ErrorKind::SpecialFile, hresult::kStreamNotCreated},
    Code {ErrorKind::LinkNotHeld, hresult::kStreamNotCreated},
    Code {ErrorKind::FileUnreadable, hresult::kStreamUnreadable},
    Code {ErrorKind::FileChanged, hresult::kStreamInconsistent},
    Code {ErrorKind::FileReplaced, hresult::kStreamInconsistent},
    Code {ErrorKind::SizeUnknown, hresult::kStreamUnreadable},
    Code {ErrorKind::DirectoryUnreadable, hresult::kDirectoryUnreadable},
    Code {ErrorKind::InvalidPath, hresult::kInvalidPath},
    Code {ErrorKind::PathTooLong, hresult::kInvalidPath},
    Code {ErrorKind::LinkTooLong, hresult::kInvalidPath},
    Code {ErrorKind::NameTaken, hresult::kDuplicateName},
    Code {ErrorKind::NoUniqueName, hresult::kNoUniqueName},
    Code {ErrorKind::ItemNotFound, hresult::kItemNotFound},
    Code {ErrorKind::DirectoryNotFound, hresult::kDirectoryNotFound},
    Code {ErrorKind::NotADirectory, hresult::kNotADirectory},
    Code {ErrorKind::InvalidVolumeName, hresult::kInvalidVolumeName},
    Code {ErrorKind::TooDeep, hresult::kTooManyLevels},
    Code {ErrorKind::FileTooLarge, hresult::kDataTooBig},
    Code {ErrorKind::TooManyDirectories, hresult::kTooManyDirectories},
    Code {ErrorKind::ImageTooLarge, hresult::kImageSizeLimit},
    Code {ErrorKind::NoFileSystem, hresult::kNoFileSystem},
    Code {ErrorKind::OutputNotCreated, hresult::kFail},
    Code {ErrorKind::OutputNotWritten, hresult::kFail},
    Code {ErrorKind::DiskFull, hresult::kStreamMediumFull},
    Code {ErrorKind::Cancelled, hresult::kCancelled},
};
// every kind has its row
static_assert(kCodes.size() == static_cast<std::size_t>(ErrorKind::Cancelled) + 1);

} // namespace

qint32 PublishedCodeOf(ErrorKind kind)
{
    const auto* const found = std::find_if(
        kCodes.begin(), kCodes.end(), [kind](const Code& code) { return code.kind == kind; });
    return found->code;
}

QString ReasonOf(const image::Error& error)
{
    return QString::fromStdString(
        image::Describe({.kind = error.kind, .systemError = error.systemError}));
}

void Raise(const image::Error& failure)
{
    throw runtime::RuntimeError(drive::MapHresult(PublishedCodeOf(failure.kind)),
        QString::fromStdString(image::Describe(failure)));
}

void RaiseLeftOut(const image::Error& failure)
{
    throw imapi::EntriesLeftOut(drive::MapHresult(PublishedCodeOf(failure.kind)),
        QString::fromStdString(image::Describe(failure)),
        EntriesOf({failure}));
}

std::vector<imapi::LeftOutEntry> EntriesOf(const std::vector<image::Error>& leftOut)
{
    std::vector<imapi::LeftOutEntry> entries;
    entries.reserve(leftOut.size());
    for (const image::Error& error : leftOut) {
        entries.push_back({.path = text::ToProgramPath(error.path), .reason = ReasonOf(error)});
    }
    return entries;
}

} // namespace velmora::mastering
