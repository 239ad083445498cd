// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/RemarksAhead.h"

#include "writing/RunReport.h"

#include <new>
#include <optional>
#include <utility>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

/// An image that can't be laid out has no remarks: the burn says why.
writing::RunReport ReportAhead(const RemarksQuestion& question,
    const imapi::IImageForecast& forecast,
    const std::stop_token& stop)
{
    std::optional<imapi::ImageRemarks> told;
    try {
        told = forecast.Forecast(question.draft, kMostRemarksAhead + 1, stop);
    } catch (const std::bad_alloc&) {
        return {};
    }
    writing::RunReport report;
    if (told) {
        report.leftOut = std::move(told->leftOut);
        report.changedNames = std::move(told->changedNames);
        report.partlyHeld = std::move(told->partlyHeld);
        report.nameHazards = std::move(told->nameHazards);
        report.linksLeadingOut = std::move(told->linksLeadingOut);
    }
    return report;
}

void CutShort(std::vector<Remark>& remarks)
{
    if (remarks.size() > kMostRemarksAhead) {
        remarks.resize(kMostRemarksAhead);
        remarks.push_back({.path = u"…"_s,
            .words = u"Il y en a d'autres : cette liste s'arrête à 10\u202F000 remarques."_s});
    }
}

} // namespace

std::vector<Remark> RemarksAhead(const RemarksQuestion& question,
    const imapi::IImageForecast& forecast,
    const std::stop_token& stop)
{
    writing::RunReport report = ReportAhead(question, forecast, stop);
    report.hiddenEntries = question.hiddenEntries;
    std::vector<Remark> remarks = RemarksOf(report);
    CutShort(remarks);
    return remarks;
}

} // namespace velmora::wizard
