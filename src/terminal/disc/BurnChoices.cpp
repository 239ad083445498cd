// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/BurnChoices.h"

#include "compilation/DiscCapacities.h"
#include "drive/MediaTypes.h"
#include "runtime/Conversions.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

constexpr qint16 kNoMultisession = 2;

QStringList UsualSpeeds(const Medium* medium)
{
    const QString fastest = u"Maximum"_s;
    if (medium == nullptr) {
        return {fastest};
    }
    switch (medium->kind) {
    case MediumKind::BluRay:
    case MediumKind::BluRayDualLayer:
        return {fastest, u"4x"_s, u"2x"_s, u"1x"_s};
    case MediumKind::Dvd:
    case MediumKind::DvdDualLayer:
        return {fastest, u"16x"_s, u"8x"_s, u"4x"_s, u"2x"_s, u"1x"_s};
    case MediumKind::Cd:
        return u"Maximum 48x 32x 24x 16x 8x 4x 2x 1x"_s.split(u' ');
    }
    return {fastest};
}

/// The place of the file systems in their box: ISO 9660, Joliet, UDF.
qint16 FileSystemPlace(const ContentRequest& content)
{
    if (!content.fileSystems) {
        return content.medium != nullptr && IsBluRay(*content.medium) ? 2 : 1;
    }
    return content.fileSystems->udf ? 2 : content.fileSystems->joliet ? 1 : 0;
}

/// The place of the data mode in its box: "Mode 1" goes with the strict names of level 1, "Mode 2 /
/// XA" with those of level 2.
qint16 DataModePlace(const ContentRequest& content)
{
    return content.level == image::IsoLevel::Level1 ? 0 : 1;
}

struct DiscTerm {
    drive::IMAPI_MEDIA_PHYSICAL_TYPE type = drive::IMAPI_MEDIA_PHYSICAL_TYPE::Unknown;
    std::optional<double> capacity {}; ///< of the largest disc of the kind
};

DiscTerm TermOf(const Medium& medium)
{
    using drive::IMAPI_MEDIA_PHYSICAL_TYPE;
    constexpr qint16 kTwoLayers = 1;
    constexpr qint16 kNinetyMinutes = 2;
    switch (medium.kind) {
    case MediumKind::BluRay: // one type names them all, so that either disc may be put in
    case MediumKind::BluRayDualLayer:
        return {IMAPI_MEDIA_PHYSICAL_TYPE::BdR, compilation::CapacityOfBdOption(kTwoLayers)};
    case MediumKind::Dvd:
        return {IMAPI_MEDIA_PHYSICAL_TYPE::DvdPlusR, compilation::CapacityOfDvdOption(0)};
    case MediumKind::DvdDualLayer:
        return {IMAPI_MEDIA_PHYSICAL_TYPE::DvdPlusRDualLayer,
            compilation::CapacityOfDvdOption(kTwoLayers)};
    case MediumKind::Cd:
        return {IMAPI_MEDIA_PHYSICAL_TYPE::CdR, compilation::CapacityOfCdOption(kNinetyMinutes)};
    }
    return {};
}

} // namespace

BurnChoices::BurnChoices(const BurnRequest& request,
    QString discName,
    QString temporaryDirectory,
    const shell::ProgramState& state)
    : discName_(std::move(discName))
    , temporaryDirectory_(std::move(temporaryDirectory))
    , state_(state)
    , choices_ {Choice {{u"Mode 1"_s, u"Mode 2 / XA"_s}, DataModePlace(request.content)},
          Choice {{u"ISO 9660"_s, u"Joliet"_s, u"UDF"_s}, FileSystemPlace(request.content)},
          SpeedChoice(request)}
    , closesDisc_(request.closesDisc)
{
}

/// A speed that isn't among the usual ones takes its place between them.
BurnChoices::Choice BurnChoices::SpeedChoice(const BurnRequest& request)
{
    Choice choice {UsualSpeeds(request.content.medium), 0};
    if (!request.speed) {
        return choice;
    }
    const double wanted = *request.speed;
    const auto isSlowerOrSame
        = [wanted](const QString& item) { return runtime::Val(item) <= wanted; };
    const auto place = std::find_if(choice.items.begin() + 1, choice.items.end(), isSlowerOrSame);
    choice.place = static_cast<qint16>(place - choice.items.begin());
    const QString text = QString::number(*request.speed) + u'x';
    if (place == choice.items.end() || *place != text) {
        choice.items.insert(choice.place, text);
    }
    return choice;
}

bool BurnChoices::MultiSession(qint16 index) const
{
    return index == (closesDisc_ ? kNoMultisession : 0);
}

void ApplyMedium(const Medium* medium, shell::ProgramState& state)
{
    const DiscTerm term = medium != nullptr ? TermOf(*medium) : DiscTerm {};
    state.MediaTypeChoice = static_cast<qint16>(term.type);
    state.DiscFormat = 0; // what a run without a type asks for: any disc that can be burned
    if (term.capacity) {
        state.MediaCapacity = *term.capacity;
    }
}

} // namespace velmora::terminal
