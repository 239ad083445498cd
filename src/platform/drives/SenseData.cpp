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

constexpr int kAny = -1;

struct Rule {
    Sense sense; // any of its numbers may be kAny
    qint32 code;
};

// The first rule that fits counts.
constexpr std::array kRules {
    Rule {{sense_key::kNotReady, 0x3A, kAny}, drive::hresult::kNoMedia},
    Rule {{sense_key::kNotReady, 0x04, 0x04}, drive::hresult::kFormatInProgress},
    Rule {{sense_key::kNotReady, 0x04, 0x07}, drive::hresult::kMediaBusy},
    Rule {{sense_key::kNotReady, 0x04, 0x08}, drive::hresult::kMediaBusy},
    Rule {{sense_key::kNotReady, 0x04, kAny}, drive::hresult::kBecomingReady},
    Rule {{sense_key::kNotReady, 0x00, 0x00}, drive::hresult::kBecomingReady},
    Rule {{kAny, 0x30, kAny}, drive::hresult::kMediaIncompatible},
    Rule {{kAny, 0x57, 0x00}, drive::hresult::kMediaIncompatible},
    Rule {{kAny, 0x31, kAny}, drive::hresult::kMediaIncompatible},
    Rule {{sense_key::kDataProtect, 0x27, kAny}, drive::hresult::kWriteProtected},
    Rule {{sense_key::kDataProtect, 0x00, 0x00}, drive::hresult::kWriteProtected},
    Rule {{sense_key::kMediumError, 0x0C, 0x09}, drive::hresult::kLossOfStreaming},
    Rule {{sense_key::kIllegalRequest, 0x53, 0x02}, drive::hresult::kRecorderLocked},
    Rule {{sense_key::kIllegalRequest, 0x63, 0x00}, drive::hresult::kStreamTooLarge},
    Rule {{sense_key::kIllegalRequest, 0x21, 0x00}, drive::hresult::kStreamTooLarge},
    Rule {{sense_key::kIllegalRequest, 0x21, 0x02}, drive::hresult::kWriteError},
    Rule {{sense_key::kIllegalRequest, 0x26, kAny}, drive::hresult::kInvalidModeParameters},
    Rule {{kAny, 0x73, kAny}, drive::hresult::kWriteError},
    Rule {{sense_key::kMediumError, kAny, kAny}, drive::hresult::kWriteError},
    Rule {{sense_key::kHardwareError, kAny, kAny}, drive::hresult::kWriteError},
};

bool Fits(const Sense& pattern, const Sense& sense)
{
    const auto fits = [](int wanted, int given) { return wanted == kAny || wanted == given; };
    return fits(pattern.key, sense.key) && fits(pattern.code, sense.code)
        && fits(pattern.qualifier, sense.qualifier);
}

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
    return sense.key == sense_key::kMediumError ? drive::hresult::kImportReadFailure
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
    const int current = at(0) & 0x7E; // of this command, or of an earlier one
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
    if (sense.key != sense_key::kHardwareError || code != drive::hresult::kInvalidResponse) {
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
