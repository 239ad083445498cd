// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/image/FileSystemImage.h"

#include "drive/DiscKinds.h"
#include "drive/PublishedCodes.h"
#include "image/names/VolumeNames.h"
#include "mastering/base/DiscState.h"
#include "mastering/base/ImageErrors.h"
#include "mastering/image/FsiDirectoryItem.h"
#include "mastering/image/ImageResult.h"
#include "mastering/image/MediaDefaults.h"
#include "mastering/image/RecordedFileSystem.h"
#include "runtime/Formats.h"
#include "text/PathText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <limits>

namespace velmora::mastering {

namespace {

constexpr qint32 kBlocksUntilChosen = 332'800; // a CD of 74 minutes
constexpr qint64 kMostBlocks = std::numeric_limits<qint32>::max();

void TakeFileSystems(image::ImageOptions& options, drive::FsiFileSystems set)
{
    options.fileSystems.iso9660 = drive::Holds(set, drive::FsiFileSystems::Iso9660);
    options.fileSystems.joliet = drive::Holds(set, drive::FsiFileSystems::Joliet);
    options.fileSystems.udf = drive::Holds(set, drive::FsiFileSystems::Udf);
}

/// The error number that refuses a further recording on a disc; 0 for none.
qint32 RefusalOfMultisession(const imapi::IMultisession& disc)
{
    if (disc.State() == drive::DiscState::None) {
        return drive::hresult::kNoMultisession;
    }
    if (!drive::IsRecordable(disc.PhysicalMediaType())
        || disc.State() == drive::DiscState::Unsupported) {
        return drive::hresult::kImportMediaNotAllowed;
    }
    if (disc.State() == drive::DiscState::Closed) {
        return drive::hresult::kNoMultisession;
    }
    return disc.State() == drive::DiscState::Blank ? drive::hresult::kImportSeekFailure
                                                   : drive::hresult::kOk;
}

bool IsWritableDirectory(const std::string& path)
{
    struct stat status { };
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)
        && ::faccessat(AT_FDCWD, path.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

} // namespace

FileSystemImage::FileSystemImage(
    const runtime::Clock& clock, std::optional<DiscFacts> lastQueriedDisc, const ImageTimes& times)
    : state_(std::make_shared<ImageState>(clock, times))
    , lastQueriedDisc_(lastQueriedDisc)
{
    image::ImageOptions& options = ChangeableOptions();
    TakeFileSystems(options, drive::FsiFileSystems::Iso9660AndJoliet);
    options.volumeName = runtime::DateStamp(clock.Now()).toStdString();
    options.maxSectors = kBlocksUntilChosen;
}

image::ImageOptions& FileSystemImage::ChangeableOptions()
{
    state_->RequireChangeable();
    return state_->contents.Options();
}

void FileSystemImage::ChooseImageDefaults(const imapi::RecorderRef& recorder)
{
    if (!recorder) {
        throw drive::PublishedError(drive::hresult::kPointer);
    }
    const drive::DiscInfo& disc = recorder->Drive().LookAnew();
    if (disc.state == drive::DiscState::None) {
        throw drive::PublishedError(drive::hresult::kNoMedia);
    }
    TakeDefaults(MediaTypeOf(disc), RoomOn(disc), drive::hresult::kMediaIncompatible);
}

void FileSystemImage::ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    std::optional<qint64> freeSectors;
    if (lastQueriedDisc_ && lastQueriedDisc_->type == type) {
        freeSectors = lastQueriedDisc_->freeSectors;
    }
    TakeDefaults(type, freeSectors, drive::hresult::kInvalidParam);
}

void FileSystemImage::TakeDefaults(
    drive::IMAPI_MEDIA_PHYSICAL_TYPE type, std::optional<qint64> freeSectors, qint32 unknownDisc)
{
    image::ImageOptions& options = ChangeableOptions();
    const std::optional<MediaDefaults> defaults = DefaultsFor(type);
    if (!defaults) {
        throw drive::PublishedError(unknownDisc);
    }
    TakeFileSystems(options, defaults->fileSystems);
    options.udfRevision = defaults->udfRevision;
    TakeRoom(freeSectors.value_or(defaults->nominalBlocks));
}

void FileSystemImage::TakeRoom(qint64 sectors)
{
    const qint64 blocks = std::clamp<qint64>(sectors, 0, kMostBlocks);
    ChangeableOptions().maxSectors = static_cast<quint64>(blocks);
}

void FileSystemImage::SetFileSystemsToCreate(drive::FsiFileSystems fileSystems)
{
    image::ImageOptions& options = ChangeableOptions();
    const bool isKnown = drive::Holds(drive::FsiFileSystems::All, fileSystems);
    const bool isJolietAlone = drive::Holds(fileSystems, drive::FsiFileSystems::Joliet)
        && !drive::Holds(fileSystems, drive::FsiFileSystems::Iso9660);
    if (!isKnown || isJolietAlone || fileSystems == drive::FsiFileSystems::None) {
        throw drive::PublishedError(drive::hresult::kInvalidParam);
    }
    TakeFileSystems(options, fileSystems);
}

void FileSystemImage::SetISO9660InterchangeLevel(qint32 level)
{
    state_->RequireChangeable();
    if (level != 1 && level != 2) {
        throw drive::PublishedError(drive::hresult::kInvalidParam);
    }
    interchangeLevel_ = level;
    TakeStrictness();
}

void FileSystemImage::SetUseRestrictedCharacterSet(bool)
{
    // Every name of ISO 9660 is made of its d-characters anyway.
    state_->RequireChangeable();
}

void FileSystemImage::SetStrictFileSystemCompliance(bool strict)
{
    state_->RequireChangeable();
    if (strict && !state_->contents.IsEmpty()) {
        throw drive::PublishedError(drive::hresult::kInvalidParam);
    }
    isStrict_ = strict;
    TakeStrictness();
}

/// The highest level is used except under strict compliance: there a large file takes several
/// extents.
void FileSystemImage::TakeStrictness()
{
    using image::IsoLevel;
    image::ImageOptions& options = ChangeableOptions();
    const IsoLevel strictLevel = interchangeLevel_ == 1 ? IsoLevel::Level1 : IsoLevel::Level2;
    options.isoLevel = isStrict_ ? strictLevel : IsoLevel::Level3;
    options.strict = isStrict_;
}

void FileSystemImage::SetWorkingDirectory(const text::ProgramPath& path)
{
    state_->RequireChangeable();
    if (!IsWritableDirectory(text::ToNativePath(path).Bytes())) {
        throw drive::PublishedError(drive::hresult::kInvalidWorkingDirectory);
    }
}

void FileSystemImage::SetVolumeName(const QString& name)
{
    image::ImageOptions& options = ChangeableOptions();
    const std::string volumeName = name.toStdString();
    if (!image::IsVolumeName(volumeName)) {
        throw drive::PublishedError(drive::hresult::kInvalidVolumeName);
    }
    options.volumeName = volumeName;
}

QString FileSystemImage::VolumeNameISO9660() const
{
    return QString::fromStdString(image::VolumeNameIso9660(state_->contents.Options().volumeName));
}

qint32 FileSystemImage::FreeMediaBlocks() const
{
    return static_cast<qint32>(state_->contents.Options().maxSectors);
}

void FileSystemImage::SetMultisessionInterfaces(const QList<imapi::MultisessionRef>& interfaces)
{
    state_->RequireChangeable();
    if (interfaces.isEmpty() || !interfaces.front()) {
        throw drive::PublishedError(drive::hresult::kBadMultisession);
    }
    if (const qint32 refusal = RefusalOfMultisession(*interfaces.front())) {
        throw drive::PublishedError(refusal);
    }
    multisession_ = interfaces.front();
}

void FileSystemImage::ImportFileSystem()
{
    state_->RequireChangeable();
    if (!multisession_) {
        throw drive::PublishedError(drive::hresult::kMultisessionNotSet);
    }
    if (multisession_->IsBlank()) {
        throw drive::PublishedError(drive::hresult::kEmptyDisc);
    }
    const std::optional<qint64> end = FindRecordedFileSystem(*multisession_);
    if (!end) {
        throw drive::PublishedError(drive::hresult::kNoKnownFileSystem);
    }
    const bool isOverwritable = multisession_->State() == drive::DiscState::Overwritable;
    TakeRoom(isOverwritable ? multisession_->TotalSectorsOnMedia() - *end
                            : multisession_->FreeSectorsOnMedia());
}

void FileSystemImage::FollowLinks(const text::ProgramPath& sourceFolder)
{
    state_->RequireChangeable();
    state_->contents.FollowLinks(text::ToNativePath(sourceFolder).Bytes());
}

void FileSystemImage::RecordSums()
{
    state_->RequireChangeable();
    state_->contents.RecordSums();
}

void FileSystemImage::KeepAttributes(const text::ProgramPath& sourceFolder)
{
    state_->RequireChangeable();
    state_->contents.KeepAttributes(text::ToNativePath(sourceFolder).Bytes());
}

imapi::DirectoryItemRef FileSystemImage::Root()
{
    return std::make_shared<FsiDirectoryItem>(state_, std::string());
}

void FileSystemImage::MeasureOnly(std::stop_token stop)
{
    image::ImageOptions& options = ChangeableOptions();
    options.maxSectors = 0;
    options.stop = std::move(stop);
}

imapi::ImageResultRef FileSystemImage::CreateResultImage() { return MakeResult(); }

std::shared_ptr<ImageResult> FileSystemImage::MakeResult()
{
    const image::ImagePlan plan = state_->contents.Plan();
    if (plan.Sectors() > kMostBlocks) {
        Raise({image::ErrorKind::ImageTooLarge});
    }
    state_->isReadOnly = true;
    return std::make_shared<ImageResult>(
        plan, state_->contents.LinksLeftOut(), state_->contents.KeepsOtherSums());
}

void FileSystemImage::OnUpdate(imapi::FileSystemImageUpdate handler)
{
    state_->events.SetHandler(std::move(handler));
}

} // namespace velmora::mastering
