// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/ImagePlan.h"

#include "image/PlanDetails.h"
#include "image/names/VolumeNames.h"

namespace velmora::image {

UdfRevision RevisionOf(const ImageOptions& options)
{
    return options.fileSystems.iso9660 ? UdfRevision::Udf102 : options.udfRevision;
}

Result<ImagePlan> ImagePlan::Create(
    std::shared_ptr<const SourceTree> tree, const ImageOptions& options)
{
    const FileSystems& chosen = options.fileSystems;
    const bool isLegal = chosen.joliet ? chosen.iso9660 : chosen.iso9660 || chosen.udf;
    if (!isLegal) {
        return Error {ErrorKind::NoFileSystem};
    }
    if (!IsVolumeName(options.volumeName)) {
        return Error {ErrorKind::InvalidVolumeName, options.volumeName};
    }
    auto details = std::make_shared<PlanDetails>(std::move(tree), options);
    details->NameAll();
    const Result<> laid
        = options.stop.stop_requested() ? Error {ErrorKind::Cancelled} : details->Lay();
    if (!laid) {
        return laid.Failure();
    }
    return ImagePlan(std::move(details));
}

ImagePlan ImagePlan::WithoutDescriptors() const
{
    ImagePlan plan = *this;
    plan.hasDescriptors_ = false;
    return plan;
}

std::uint32_t ImagePlan::Sectors() const { return details_->Sectors(); }

const std::string& ImagePlan::VolumeName() const { return details_->Options().volumeName; }

std::uint32_t ImagePlan::Files() const { return details_->FileCount(); }

std::uint32_t ImagePlan::Directories() const { return details_->DirectoryCount(); }

std::uint32_t ImagePlan::Links() const { return details_->LinkCount(); }

std::vector<NameChange> ImagePlan::ChangedNames(std::size_t most) const
{
    return details_->ChangedNames(most);
}

const std::vector<OmittedEntry>& ImagePlan::LeftOut() const { return details_->LeftOut(); }

std::vector<Error> ImagePlan::Lost() const { return details_->Lost(); }

std::vector<OmittedEntry> ImagePlan::PartlyHeld() const { return details_->PartlyHeld(); }

std::vector<HazardousName> ImagePlan::NameHazards() const { return details_->NameHazards(); }

std::vector<OutwardLink> ImagePlan::LinksLeadingOut() const { return details_->LinksLeadingOut(); }

} // namespace velmora::image
