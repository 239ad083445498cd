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
    Rule {{2, 0x00, 0x00}, drive::hresult::kBecomingReady},
    Rule {{-1, 0x30, -1}, drive::hresult::kMediaIncompatible},
    Rule {{-1, 0x57, 0x00}, drive::hresult::kMediaIncompatible},
    Rule {{-1, 0x31, -1}, drive::hresult::kMediaIncompatible},
    Rule {{7, 0x27, -1}, drive::hresult::kWriteProtected},
    Rule {{7, 0x00, 0x00}, drive::hresult::kWriteProtected},
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

constexpr int kMediumError = 3;
constexpr int kHardwareError = 4;

// In a write; the other tasks differ from it.
qint32 CodeOfWrite(const Sense& sense)
{
    const auto* found = std::ranges::find_if(
        kRules, [&sense](const Rule& rule) { return Fits(rule.sense, sense); });
    return found != kRules.end() ? found->code : drive::hresult::kInvalidResponse;
}

qint32 CodeOfLook(const Sense& sense)
{
    const qint32 code = CodeOfWrite(sense);
    if (code != drive::hresult::kWriteError && code != drive::hresult::kLossOfStreaming) {
        return code;
    }
    return sense.key == kMediumError ? drive::hresult::kImportReadFailure
                                     : drive::hresult::kInvalidResponse;
}

qint32 CodeOfErase(const Sense& sense)
{
    const qint32 code = CodeOfWrite(sense);
    const bool ofDisc = code == drive::hresult::kNoMedia || code == drive::hresult::kWriteProtected
        || code == drive::hresult::kMediaIncompatible;
    return ofDisc ? code : drive::hresult::kEraseRefused;
}

} // namespace

Sense SenseFrom(std::span<const std::uint8_t> bytes)
{
    const auto at
        = [bytes](std::size_t place) { return place < bytes.size() ? int {bytes[place]} : 0; };
    constexpr int kDescriptors = 0x72;
    const int current = at(0) & 0x7E; // of this command, or of one that it comes behind
    if (current == kDescriptors) {
        return {at(1) & 0x0F, at(2), at(3)};
    }
    return {at(2) & 0x0F, at(12), at(13)};
}

qint32 CodeOf(const Sense& sense, Task task)
{
    switch (task) {
    case Task::Look:
        return CodeOfLook(sense);
    case Task::Erase:
        return CodeOfErase(sense);
    default:
        return CodeOfWrite(sense);
    }
}

runtime::RuntimeError RefusedQuestion(const Sense& sense)
{
    const qint32 code = CodeOf(sense, Task::Look);
    if (sense.key != kHardwareError || code != drive::hresult::kInvalidResponse) {
        return drive::PublishedError(code);
    }
    return drive::PublishedError(code,
        u"Le graveur signale une panne (%1) : éteignez-le et rallumez-le, ou prenez-en un "
        "autre."_s.arg(TextOf(sense)));
}

QString TextOf(const Sense& sense)
{
    const auto hex
        = [](int number) { return QString::number(number, 16).rightJustified(2, u'0').toUpper(); };
    return hex(sense.key) + u'/' + hex(sense.code) + u'/' + hex(sense.qualifier);
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
