// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/GrowingImage.h"

#include "image/ImageOutput.h"
#include "image/PlanDetails.h"
#include "unicode/WholeTransfers.h"

#include <algorithm>
#include <cerrno>
#include <span>

namespace velmora::image {

namespace {

bool WriteDescriptors(const PlanDetails& details, int file)
{
    return std::ranges::all_of(details.Descriptors(), [file](const FixedSectors& fixed) {
        return unicode::WriteWhole(file,
            std::as_bytes(std::span(fixed.bytes)),
            std::uint64_t {fixed.sector} * kSectorSize);
    });
}

} // namespace

Result<CopyReport> GrowTo(const ImagePlan& plan, int fileDescriptor, const CopyOptions& options)
{
    CopyOptions growing = options;
    growing.grows = true;
    Result<CopyReport> copied = CopyTo(plan.WithoutDescriptors(), fileDescriptor, growing);
    if (!copied) {
        return copied;
    }
    const bool isComplete = unicode::BringToDisk(fileDescriptor)
        && WriteDescriptors(plan.Details(), fileDescriptor) && unicode::BringToDisk(fileDescriptor);
    return isComplete ? std::move(copied) : OutputFailure(errno);
}

} // namespace velmora::image
