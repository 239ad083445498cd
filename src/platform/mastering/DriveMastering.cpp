// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/DriveMastering.h"

#include "mastering/disc/DiscFormatData.h"
#include "mastering/disc/DiscFormatErase.h"
#include "mastering/disc/DiscMaster.h"
#include "mastering/disc/DiscRecorder.h"
#include "mastering/image/FileSystemImage.h"
#include "mastering/isofile/FileStream.h"
#include "mastering/isofile/IsoImageManager.h"

#include <utility>

namespace velmora::mastering {

namespace {

class DriveMastering final : public imapi::Mastering {
public:
    DriveMastering(DriveSources sources, runtime::Clock& clock, WriteCare care)
        : side_(std::make_shared<DriveSide>(std::move(sources), clock, std::move(care)))
    {
    }

    imapi::DiscMasterRef CreateDiscMaster() override
    {
        return std::make_shared<DiscMaster>(*side_);
    }
    imapi::RecorderRef CreateDiscRecorder() override
    {
        return std::make_shared<DiscRecorder>(side_);
    }
    imapi::DiscFormat2DataRef CreateDiscFormat2Data() override
    {
        return std::make_shared<DiscFormatData>(side_);
    }
    imapi::DiscFormat2EraseRef CreateDiscFormat2Erase() override
    {
        return std::make_shared<DiscFormatErase>(side_);
    }
    imapi::FileSystemImageRef CreateFileSystemImage() override
    {
        return std::make_shared<FileSystemImage>(
            side_->clock, side_->lastQueriedDisc, side_->care.imageTimes);
    }
    imapi::IsoImageManagerRef CreateIsoImageManager() override
    {
        return std::make_shared<IsoImageManager>();
    }
    imapi::StreamRef CreateStreamOnFile(
        const text::ProgramPath& path, imapi::FileStreamMode mode) override
    {
        return SHCreateStreamOnFile(path, mode);
    }

private:
    std::shared_ptr<DriveSide> side_;
};

} // namespace

std::unique_ptr<imapi::Mastering> MasteringOf(
    DriveSources sources, runtime::Clock& clock, WriteCare care)
{
    return std::make_unique<DriveMastering>(std::move(sources), clock, std::move(care));
}

} // namespace velmora::mastering
