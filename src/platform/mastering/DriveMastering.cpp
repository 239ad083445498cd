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
        : context_(std::make_shared<MasteringContext>(std::move(sources), clock, std::move(care)))
    {
    }

    imapi::DiscMasterRef CreateDiscMaster() override
    {
        return std::make_shared<DiscMaster>(*context_);
    }
    imapi::RecorderRef CreateDiscRecorder() override
    {
        return std::make_shared<DiscRecorder>(context_);
    }
    imapi::DiscFormat2DataRef CreateDiscFormat2Data() override
    {
        return std::make_shared<DiscFormatData>(context_);
    }
    imapi::DiscFormat2EraseRef CreateDiscFormat2Erase() override
    {
        return std::make_shared<DiscFormatErase>(context_);
    }
    imapi::FileSystemImageRef CreateFileSystemImage() override
    {
        return std::make_shared<FileSystemImage>(
            context_->clock, context_->lastQueriedDisc, context_->care.imageTimes);
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
    std::shared_ptr<MasteringContext> context_;
};

} // namespace

std::unique_ptr<imapi::Mastering> MasteringOf(
    DriveSources sources, runtime::Clock& clock, WriteCare care)
{
    return std::make_unique<DriveMastering>(std::move(sources), clock, std::move(care));
}

} // namespace velmora::mastering
