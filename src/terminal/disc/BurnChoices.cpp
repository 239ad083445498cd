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

QStringList UsualSpeeds(DiscChoice disc)
{
    const QString fastest = u"Maximum"_s;
    switch (disc) {
    case DiscChoice::BluRay:
        return {fastest, u"4x"_s, u"2x"_s, u"1x"_s};
    case DiscChoice::Dvd:
    case DiscChoice::DvdDualLayer:
        return {fastest, u"16x"_s, u"8x"_s, u"4x"_s, u"2x"_s, u"1x"_s};
    case DiscChoice::Cd:
        return u"Maximum 48x 32x 24x 16x 8x 4x 2x 1x"_s.split(u' ');
    case DiscChoice::Detected:
        break;
    }
    return {fastest};
}

qint16 FileSystemPlace(const BurnRequest& request)
{
    const FileSystemChoice usual
        = request.disc == DiscChoice::BluRay ? FileSystemChoice::Udf : FileSystemChoice::Joliet;
    return static_cast<qint16>(request.fileSystem.value_or(usual));
}

struct DiscTerm {
    drive::IMAPI_MEDIA_PHYSICAL_TYPE type;
    std::optional<double> capacity; ///< of the largest disc of the kind
};

DiscTerm TermOf(DiscChoice choice)
{
    using drive::IMAPI_MEDIA_PHYSICAL_TYPE;
    constexpr qint16 kTwoLayers = 1;
    constexpr qint16 kNinetyMinutes = 2;
    switch (choice) {
    case DiscChoice::BluRay:
        return {IMAPI_MEDIA_PHYSICAL_TYPE::BdR, compilation::CapacityOfBdOption(kTwoLayers)};
    case DiscChoice::Dvd:
        return {IMAPI_MEDIA_PHYSICAL_TYPE::DvdPlusR, compilation::CapacityOfDvdOption(0)};
    case DiscChoice::DvdDualLayer:
        return {IMAPI_MEDIA_PHYSICAL_TYPE::DvdPlusRDualLayer,
            compilation::CapacityOfDvdOption(kTwoLayers)};
    case DiscChoice::Cd:
        return {IMAPI_MEDIA_PHYSICAL_TYPE::CdR, compilation::CapacityOfCdOption(kNinetyMinutes)};
    case DiscChoice::Detected:
        break;
    }
    return {IMAPI_MEDIA_PHYSICAL_TYPE::Unknown, std::nullopt};
}

} // namespace

BurnChoices::BurnChoices(const BurnRequest& request,
    QString discName,
    QString temporaryDirectory,
    const shell::ProgramState& state)
    : discName_(std::move(discName))
    , temporaryDirectory_(std::move(temporaryDirectory))
    , state_(state)
    , choices_ {Choice {{u"Mode 1"_s, u"Mode 2 / XA"_s}, 1},
          Choice {{u"ISO 9660"_s, u"Joliet"_s, u"UDF"_s}, FileSystemPlace(request)},
          SpeedChoice(request)}
    , closesDisc_(request.closesDisc)
{
}

/// A speed that isn't among the usual ones takes its place between them.
BurnChoices::Choice BurnChoices::SpeedChoice(const BurnRequest& request)
{
    Choice choice {UsualSpeeds(request.disc), 0};
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

void ApplyDiscChoice(DiscChoice choice, shell::ProgramState& state)
{
    const DiscTerm term = TermOf(choice);
    state.MediaTypeChoice = static_cast<qint16>(term.type);
    state.DiscFormat = 0; // what a run without a type asks for: any disc that can be burned
    if (term.capacity) {
        state.MediaCapacity = *term.capacity;
    }
}

} // namespace velmora::terminal
