// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imapi/FileSystemImage.h"

#include "imapi/FsiDirectoryItem.h"
#include "imapi/ImageResult.h"
#include "imapi/ImapiErrors.h"
#include "imapi/MediaDefaults.h"
#include "imapi/MediaProfiles.h"
#include "imapi/RecordedFileSystem.h"
#include "runtime/Formats.h"
#include "text/PathText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <limits>

namespace velmora::imapi {

namespace {

constexpr qint32 kBlocksUntilChosen = 332'800; // a CD of 74 minutes
constexpr qint64 kMostBlocks = std::numeric_limits<qint32>::max();

void TakeFileSystems(image::ImageOptions& options, FsiFileSystems set)
{
    options.fileSystems.iso9660 = Holds(set, FsiFileSystems::Iso9660);
    options.fileSystems.joliet = Holds(set, FsiFileSystems::Joliet);
    options.fileSystems.udf = Holds(set, FsiFileSystems::Udf);
}

/// The number that refuses a further recording on a disc; 0 for none.
qint32 RefusalOfMultisession(const IMultisession& disc)
{
    if (disc.State() == DiscState::None) {
        return hresult::kNoMultisession;
    }
    if (!IsRecordable(disc.PhysicalMediaType()) || disc.State() == DiscState::Unsupported) {
        return hresult::kImportMediaNotAllowed;
    }
    if (disc.State() == DiscState::Closed) {
        return hresult::kNoMultisession;
    }
    return disc.State() == DiscState::Blank ? hresult::kImportSeekFailure : hresult::kOk;
}

bool IsWritableDirectory(const std::string& path)
{
    struct stat status { };
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)
        && ::faccessat(AT_FDCWD, path.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

} // namespace

FileSystemImage::FileSystemImage(
    const runtime::Clock& clock, std::optional<DiscFacts> lastQueriedDisc)
    : state_(std::make_shared<ImageState>(clock))
    , lastQueriedDisc_(lastQueriedDisc)
{
    image::ImageOptions& options = ChangeableOptions();
    TakeFileSystems(options, FsiFileSystems::Iso9660AndJoliet);
    options.volumeName = runtime::DateStamp(clock.Now()).toStdString();
    options.maxSectors = kBlocksUntilChosen;
}

image::ImageOptions& FileSystemImage::ChangeableOptions()
{
    state_->RequireChangeable();
    return state_->contents.Options();
}

void FileSystemImage::ChooseImageDefaults(const RecorderRef& recorder)
{
    if (!recorder) {
        throw PublishedError(hresult::kPointer);
    }
    const DiscFacts disc = recorder->DiscInDrive();
    TakeDefaults(disc.type, disc.freeSectors, hresult::kMediaIncompatible);
}

void FileSystemImage::ChooseImageDefaultsForMediaType(IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    std::optional<qint64> freeSectors;
    if (lastQueriedDisc_ && lastQueriedDisc_->type == type) {
        freeSectors = lastQueriedDisc_->freeSectors;
    }
    TakeDefaults(type, freeSectors, hresult::kInvalidParam);
}

void FileSystemImage::TakeDefaults(
    IMAPI_MEDIA_PHYSICAL_TYPE type, std::optional<qint64> freeSectors, qint32 unknownDisc)
{
    image::ImageOptions& options = ChangeableOptions();
    const std::optional<MediaDefaults> defaults = DefaultsFor(type);
    if (!defaults) {
        throw PublishedError(unknownDisc);
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

void FileSystemImage::SetFileSystemsToCreate(FsiFileSystems fileSystems)
{
    image::ImageOptions& options = ChangeableOptions();
    const bool isKnown = Holds(FsiFileSystems::All, fileSystems);
    const bool isJolietAlone = Holds(fileSystems, FsiFileSystems::Joliet)
        && !Holds(fileSystems, FsiFileSystems::Iso9660);
    if (!isKnown || isJolietAlone || fileSystems == FsiFileSystems::None) {
        throw PublishedError(hresult::kInvalidParam);
    }
    TakeFileSystems(options, fileSystems);
}

void FileSystemImage::SetISO9660InterchangeLevel(qint32 level)
{
    state_->RequireChangeable();
    if (level != 1 && level != 2) {
        throw PublishedError(hresult::kInvalidParam);
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
        throw PublishedError(hresult::kInvalidParam);
    }
    isStrict_ = strict;
    TakeStrictness();
}

/// The level that holds most goes with all but strict compliance: a large file there takes several
/// extents.
void FileSystemImage::TakeStrictness()
{
    using image::IsoLevel;
    image::ImageOptions& options = ChangeableOptions();
    const IsoLevel strictLevel = interchangeLevel_ == 1 ? IsoLevel::Level1 : IsoLevel::Level2;
    options.isoLevel = isStrict_ ? strictLevel : IsoLevel::Level3;
    options.strict = isStrict_;
}

void FileSystemImage::SetWorkingDirectory(const QString& path)
{
    state_->RequireChangeable();
    if (!IsWritableDirectory(text::ToNativePath(path))) {
        throw PublishedError(hresult::kInvalidWorkingDirectory);
    }
}

void FileSystemImage::SetVolumeName(const QString& name)
{
    image::ImageOptions& options = ChangeableOptions();
    const std::string volumeName = name.toStdString();
    if (!image::IsVolumeName(volumeName)) {
        throw PublishedError(hresult::kInvalidVolumeName);
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

void FileSystemImage::SetMultisessionInterfaces(const QList<MultisessionRef>& interfaces)
{
    state_->RequireChangeable();
    if (interfaces.isEmpty() || !interfaces.front()) {
        throw PublishedError(hresult::kBadMultisession);
    }
    if (const qint32 refusal = RefusalOfMultisession(*interfaces.front())) {
        throw PublishedError(refusal);
    }
    multisession_ = interfaces.front();
}

void FileSystemImage::ImportFileSystem()
{
    state_->RequireChangeable();
    if (!multisession_) {
        throw PublishedError(hresult::kMultisessionNotSet);
    }
    if (multisession_->IsBlank()) {
        throw PublishedError(hresult::kEmptyDisc);
    }
    const std::optional<qint64> end = FindRecordedFileSystem(*multisession_);
    if (!end) {
        throw PublishedError(hresult::kNoKnownFileSystem);
    }
    const bool isOverwritable = multisession_->State() == DiscState::Overwritable;
    TakeRoom(isOverwritable ? multisession_->TotalSectorsOnMedia() - *end
                            : multisession_->FreeSectorsOnMedia());
}

DirectoryItemRef FileSystemImage::Root()
{
    return std::make_shared<FsiDirectoryItem>(state_, std::string());
}

ImageResultRef FileSystemImage::CreateResultImage()
{
    const image::ImagePlan plan = state_->contents.Plan();
    if (plan.Sectors() > kMostBlocks) {
        Raise({image::ErrorKind::ImageTooLarge});
    }
    state_->isReadOnly = true;
    return std::make_shared<ImageResult>(plan);
}

void FileSystemImage::OnUpdate(FileSystemImageUpdate handler)
{
    state_->events.SetHandler(std::move(handler));
}

} // namespace velmora::imapi
