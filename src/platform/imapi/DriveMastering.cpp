// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imapi/DriveMastering.h"

#include "imapi/DiscFormatData.h"
#include "imapi/DiscFormatErase.h"
#include "imapi/DiscMaster.h"
#include "imapi/DiscRecorder.h"
#include "imapi/FileStream.h"
#include "imapi/FileSystemImage.h"

#include <utility>

namespace velmora::imapi {

namespace {

class DriveMastering final : public Mastering {
public:
    DriveMastering(DriveSources sources, const runtime::Clock& clock)
        : side_(std::make_shared<DriveSide>(std::move(sources), clock))
    {
    }

    DiscMasterRef CreateDiscMaster() override
    {
        return std::make_shared<DiscMaster>(side_->sources);
    }
    RecorderRef CreateDiscRecorder() override { return std::make_shared<DiscRecorder>(side_); }
    DiscFormat2DataRef CreateDiscFormat2Data() override
    {
        return std::make_shared<DiscFormatData>(side_);
    }
    DiscFormat2EraseRef CreateDiscFormat2Erase() override
    {
        return std::make_shared<DiscFormatErase>();
    }
    FileSystemImageRef CreateFileSystemImage() override
    {
        // Told once: a disc of the same kind may well be another one by the next image.
        return std::make_shared<FileSystemImage>(
            side_->clock, std::exchange(side_->lastQueriedDisc, std::nullopt));
    }
    StreamRef CreateStreamOnFile(const QString& path, FileStreamMode mode) override
    {
        return SHCreateStreamOnFile(path, mode);
    }

private:
    std::shared_ptr<DriveSide> side_;
};

} // namespace

std::unique_ptr<Mastering> MasteringOf(DriveSources sources, const runtime::Clock& clock)
{
    return std::make_unique<DriveMastering>(std::move(sources), clock);
}

} // namespace velmora::imapi
