// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IFileSystemImage.h"
#include "mastering/base/MasteringContext.h"
#include "mastering/image/ImageState.h"

#include <memory>
#include <optional>
#include <stop_token>

namespace velmora::mastering {

class ImageResult;

/// The MsftFileSystemImage over the image writer: nothing is copied or staged, the result reads the
/// files of the machine when it is read itself.
class FileSystemImage final : public imapi::IFileSystemImage {
public:
    /// @param clock            must outlive the image, its items and its result
    /// @param lastQueriedDisc  what a data writer of this process last saw in a drive, if anything
    explicit FileSystemImage(const runtime::Clock& clock,
        std::optional<DiscFacts> lastQueriedDisc = std::nullopt,
        const ImageTimes& times = {});

    void ChooseImageDefaults(const imapi::RecorderRef& recorder) override;
    void ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE type) override;
    void SetFileSystemsToCreate(drive::FsiFileSystems fileSystems) override;
    void SetISO9660InterchangeLevel(qint32 level) override;
    void SetUseRestrictedCharacterSet(bool restricted) override;
    void SetStrictFileSystemCompliance(bool strict) override;
    void SetWorkingDirectory(const text::ProgramPath& path) override;
    void SetVolumeName(const QString& name) override;
    QString VolumeNameISO9660() const override;
    qint32 FreeMediaBlocks() const override;
    void SetMultisessionInterfaces(const QList<imapi::MultisessionRef>& interfaces) override;
    void ImportFileSystem() override;
    void FollowLinks(const text::ProgramPath& sourceFolder) override;
    void RecordSums() override;
    void KeepAttributes(const text::ProgramPath& sourceFolder) override;
    imapi::DirectoryItemRef Root() override;
    imapi::ImageResultRef CreateResultImage() override;
    void OnUpdate(imapi::FileSystemImageUpdate handler) override;

    /// For a result that won't be written: it may have any size, and once a stop is requested,
    /// additions and layout end, with C0AA0002 or with something left out.
    void MeasureOnly(std::stop_token stop);
    /// CreateResultImage with more details of the result.
    std::shared_ptr<ImageResult> MakeResult();

private:
    image::ImageOptions& ChangeableOptions();
    void TakeDefaults(drive::IMAPI_MEDIA_PHYSICAL_TYPE type,
        std::optional<qint64> freeSectors,
        qint32 unknownDisc);
    void TakeRoom(qint64 sectors);
    void TakeStrictness();

    std::shared_ptr<ImageState> state_;
    std::optional<DiscFacts> lastQueriedDisc_;
    imapi::MultisessionRef multisession_; // empty until it is set
    qint32 interchangeLevel_ = 2;
    bool isStrict_ = false;
};

} // namespace velmora::mastering
