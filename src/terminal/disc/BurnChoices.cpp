// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/BurnChoices.h"

#include "compilation/DiscCapacities.h"
#include "drive/SectorSize.h"
#include "runtime/Conversions.h"
#include "writing/UsualSpeeds.h"

#include <QStringList>

#include <algorithm>
#include <optional>
#include <utility>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

shell::DiscFormat FormatOf(const Medium* medium)
{
    if (medium == nullptr) {
        return shell::DiscFormat::InDrive;
    }
    switch (medium->kind) {
    case MediumKind::BluRay:
    case MediumKind::BluRayDualLayer:
        return shell::DiscFormat::BluRay;
    case MediumKind::Dvd:
    case MediumKind::DvdDualLayer:
        return shell::DiscFormat::Dvd;
    case MediumKind::Cd:
        return shell::DiscFormat::Cd;
    }
    return shell::DiscFormat::InDrive;
}

writing::FileSystemOption FileSystemOf(const ContentRequest& content)
{
    using writing::FileSystemOption;
    if (!content.fileSystems) {
        return content.medium != nullptr && IsBluRay(*content.medium) ? FileSystemOption::Udf
                                                                      : FileSystemOption::Joliet;
    }
    if (content.fileSystems->udf) {
        return FileSystemOption::Udf;
    }
    return content.fileSystems->joliet ? FileSystemOption::Joliet : FileSystemOption::Iso9660;
}

/// The data mode represents the level of ISO 9660: mode 1 goes with the strict names of level 1,
/// mode 2 with those of level 2.
writing::DataMode DataModeOf(const ContentRequest& content)
{
    return content.level == image::IsoLevel::Level1 ? writing::DataMode::Mode1
                                                    : writing::DataMode::Mode2Xa;
}

/// A speed that isn't among the usual ones takes its place between them.
writing::SpeedSelection SpeedOf(const BurnRequest& request)
{
    QStringList items = writing::UsualSpeeds(FormatOf(request.content.medium));
    qsizetype place = 0;
    if (request.speed) {
        const double wanted = *request.speed;
        const auto isSlowerOrSame
            = [wanted](const QString& item) { return runtime::Val(item) <= wanted; };
        const auto found = std::find_if(items.begin() + 1, items.end(), isSlowerOrSame);
        place = found - items.begin();
        const QString text = QString::number(*request.speed) + u'x';
        if (found == items.end() || *found != text) {
            items.insert(place, text);
        }
    }
    return {.text = items[place],
        .listIndex = static_cast<qint16>(place),
        .listCount = static_cast<qint16>(items.size())};
}

struct DiscTerm {
    shell::DiscTypeChoice type = shell::DiscTypeChoice::AsDetected;
    std::optional<double> capacity {}; ///< bytes
};

DiscTerm TermOf(const Medium& medium)
{
    using compilation::CapacityOf;
    using compilation::DiscSize;
    using shell::DiscTypeChoice;
    switch (medium.kind) {
    case MediumKind::BluRay: // one type names them all, so that either disc will do
    case MediumKind::BluRayDualLayer:
        return {DiscTypeChoice::BdR, CapacityOf(DiscSize::BdTwoLayers)};
    case MediumKind::Dvd:
        return {DiscTypeChoice::DvdPlusR, CapacityOf(DiscSize::DvdOneLayer)};
    case MediumKind::DvdDualLayer:
        return {DiscTypeChoice::DvdPlusRDualLayer, CapacityOf(DiscSize::DvdTwoLayers)};
    case MediumKind::Cd:
        return {DiscTypeChoice::CdR, static_cast<double>(medium.sectors) * drive::kSectorBytes};
    }
    return {};
}

} // namespace

BurnChoices::BurnChoices(const BurnRequest& request,
    QString discName,
    text::ProgramPath temporaryDirectory,
    const shell::ProgramState& state)
    : discName_(std::move(discName))
    , temporaryDirectory_(std::move(temporaryDirectory))
    , state_(state)
    , mode_(DataModeOf(request.content))
    , fileSystem_(FileSystemOf(request.content))
    , speed_(SpeedOf(request))
    , session_(request.closesDisc ? writing::SessionOption::CloseDisc
                                  : writing::SessionOption::StartMultisession)
    , followsLinks_(request.content.links == LinkChoice::Follow)
    , recordsSums_(request.content.recordsSums)
    , keepsAttributes_(request.content.rights == image::Rights::OfSource)
{
}

void ApplyMedium(const Medium* medium, shell::ProgramState& state)
{
    const DiscTerm term = medium != nullptr ? TermOf(*medium) : DiscTerm {};
    state.MediaTypeChoice = term.type;
    // What a run without a type requests: any disc that can be burned.
    state.DiscFormat = shell::DiscFormat::BluRay;
    if (term.capacity) {
        state.MediaCapacity = *term.capacity;
    }
}

} // namespace velmora::terminal
