// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/SenseData.h"

#include "drive/PublishedCodes.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace velmora::drives {

using namespace Qt::StringLiterals;

namespace {

struct Rule {
    Sense sense; // -1 = any
    qint32 code;
};

// The first rule that fits counts.
constexpr std::array kRules {
    Rule {{2, 0x3A, -1}, drive::hresult::kNoMedia},
    Rule {{2, 0x04, 0x04}, drive::hresult::kFormatInProgress},
    Rule {{2, 0x04, 0x07}, drive::hresult::kMediaBusy},
    Rule {{2, 0x04, 0x08}, drive::hresult::kMediaBusy},
    Rule {{2, 0x04, -1}, drive::hresult::kBecomingReady},
    Rule {{-1, 0x30, -1}, drive::hresult::kMediaIncompatible},
    Rule {{-1, 0x57, 0x00}, drive::hresult::kMediaIncompatible},
    Rule {{-1, 0x31, -1}, drive::hresult::kMediaIncompatible},
    Rule {{7, 0x27, -1}, drive::hresult::kWriteProtected},
    Rule {{3, 0x0C, 0x09}, drive::hresult::kLossOfStreaming},
    Rule {{5, 0x53, 0x02}, drive::hresult::kRecorderLocked},
    Rule {{5, 0x63, 0x00}, drive::hresult::kStreamTooLarge},
    Rule {{5, 0x21, 0x00}, drive::hresult::kStreamTooLarge},
    Rule {{5, 0x21, 0x02}, drive::hresult::kWriteError},
    Rule {{5, 0x26, -1}, drive::hresult::kInvalidModeParameters},
    Rule {{-1, 0x73, -1}, drive::hresult::kWriteError},
    Rule {{3, -1, -1}, drive::hresult::kWriteError},
    Rule {{4, -1, -1}, drive::hresult::kWriteError},
};

bool Fits(const Sense& pattern, const Sense& sense)
{
    const auto fits = [](int wanted, int given) { return wanted == -1 || wanted == given; };
    return fits(pattern.key, sense.key) && fits(pattern.code, sense.code)
        && fits(pattern.qualifier, sense.qualifier);
}

} // namespace

qint32 CodeOf(const Sense& sense)
{
    const auto* found = std::ranges::find_if(
        kRules, [&sense](const Rule& rule) { return Fits(rule.sense, sense); });
    return found != kRules.end() ? found->code : drive::hresult::kInvalidResponse;
}

std::optional<Sense> SenseIn(const QString& message)
{
    static const QRegularExpression kShort(u"\\[([0-9A-F]) ([0-9A-F]{2}) ([0-9A-F]{2})\\]"_s);
    static const QRegularExpression kLong(
        u"Key ([0-9A-F]).*ASC ([0-9A-F]{2}),? *ASCQ ([0-9A-F]{2})"_s);
    for (const QRegularExpression* form : {&kShort, &kLong}) {
        const QRegularExpressionMatch match = form->match(message);
        if (match.hasMatch()) {
            const auto number = [&match](int group) { return match.captured(group).toInt({}, 16); };
            return Sense {number(1), number(2), number(3)};
        }
    }
    return {};
}

} // namespace velmora::drives
