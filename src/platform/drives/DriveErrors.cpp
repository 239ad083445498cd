// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/DriveErrors.h"

#include "drive/PublishedCodes.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace velmora::drives {

using namespace Qt::StringLiterals;

namespace {

struct Rule {
    Sense sense; // -1 = any
    quint32 code;
};

// The first rule that fits counts.
constexpr std::array kRules {
    Rule {{2, 0x3A, -1}, code::kNoMedia},
    Rule {{2, 0x04, 0x04}, code::kFormatInProgress},
    Rule {{2, 0x04, 0x07}, code::kDriveBusy},
    Rule {{2, 0x04, 0x08}, code::kDriveBusy},
    Rule {{2, 0x04, -1}, code::kBecomingReady},
    Rule {{-1, 0x30, -1}, code::kMediaIncompatible},
    Rule {{-1, 0x57, 0x00}, code::kMediaIncompatible},
    Rule {{-1, 0x31, -1}, code::kMediaIncompatible},
    Rule {{7, 0x27, -1}, code::kWriteProtected},
    Rule {{3, 0x0C, 0x09}, code::kLossOfStreaming},
    Rule {{5, 0x53, 0x02}, code::kLocked},
    Rule {{5, 0x63, 0x00}, code::kStreamTooLarge},
    Rule {{5, 0x21, 0x00}, code::kStreamTooLarge},
    Rule {{5, 0x21, 0x02}, code::kWriteError},
    Rule {{5, 0x26, -1}, code::kInvalidModeParameters},
    Rule {{-1, 0x73, -1}, code::kWriteError},
    Rule {{3, -1, -1}, code::kWriteError},
    Rule {{4, -1, -1}, code::kWriteError},
};

bool Fits(const Sense& pattern, const Sense& sense)
{
    const auto fits = [](int wanted, int given) { return wanted == -1 || wanted == given; };
    return fits(pattern.key, sense.key) && fits(pattern.code, sense.code)
        && fits(pattern.qualifier, sense.qualifier);
}

} // namespace

runtime::RuntimeError DriveError(quint32 code)
{
    return drive::PublishedError(static_cast<qint32>(code));
}

runtime::RuntimeError DriveError(quint32 code, const QString& description)
{
    return {runtime::MapHresult(static_cast<qint32>(code)), description};
}

quint32 CodeOf(const Sense& sense)
{
    const auto* found = std::ranges::find_if(
        kRules, [&sense](const Rule& rule) { return Fits(rule.sense, sense); });
    return found != kRules.end() ? found->code : code::kInvalidResponse;
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
