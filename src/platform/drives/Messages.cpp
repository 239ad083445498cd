// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/Messages.h"

#include "drive/PublishedCodes.h"

#include <libburn/libburn.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <string>

namespace velmora::drives {

using namespace Qt::StringLiterals;

namespace {

struct MessageMeaning {
    quint32 message;
    qint32 code; ///< published
};

// The library's numbers of messages that are looked for by themselves.
constexpr quint32 kOpenFailed = 0x00020005;
constexpr quint32 kDriveLost = 0x000201a6;
// The transport failed; the cause may follow.
constexpr quint32 kTransportFailed = 0x000201a7;
// They are only consequences of other errors.
constexpr quint32 kRunFailed = 0x0002010b;
constexpr quint32 kCacheNotFlushed = 0x0002017f;
// A busy drive, polled every second, gives another answer.
constexpr quint32 kInterrupted = 0x000201a5;

// What the library's messages mean.
constexpr std::array kCodes {
    MessageMeaning {0x00020001, drive::hresult::kRecorderLocked}, // device in use elsewhere
    MessageMeaning {0x0002000a, drive::hresult::kDeviceGone},     // device isn't an optical drive
    MessageMeaning {0x0002000b, drive::hresult::kDeviceGone},     // no such device file
    MessageMeaning {0x0002010c, drive::hresult::kDeviceGone},     // command didn't reach the drive
    MessageMeaning {0x0002011e, drive::hresult::kMediaNotSupported}, // disc unsuitable for the job
    MessageMeaning {0x00020122, drive::hresult::kEraseRefused},      // FORMAT UNIT failed
    MessageMeaning {0x00020129, drive::hresult::kNotErasable},       // no formatting for this disc
    MessageMeaning {0x0002012b, drive::hresult::kInvalidMediaState}, // no write mode for the job
    MessageMeaning {0x0002012d, drive::hresult::kStreamTooLarge},    // address past the last sector
    MessageMeaning {0x00020130, drive::hresult::kNotErasable},       // disc can't be blanked now
    MessageMeaning {0x00020139, drive::hresult::kInvalidMediaState}, // job unsuitable for the disc
    MessageMeaning {0x0002013a, drive::hresult::kInvalidMediaState}, // disc can't be written now
    MessageMeaning {0x0002014f, drive::hresult::kCommandTimeout},    // long command didn't end
    MessageMeaning {0x00020168, drive::hresult::kMediaIncompatible}, // disc not formatted
    MessageMeaning {0x0002018a, drive::hresult::kCommandTimeout}, // repeated in vain for too long
    MessageMeaning {kDriveLost, drive::hresult::kDeviceGone},
    MessageMeaning {kTransportFailed, drive::hresult::kCommandTimeout}, // host adapter failed
    MessageMeaning {0x000201a8, drive::hresult::kCommandTimeout},       // its driver failed
};

Message::Weight WeightOf(const std::string& severity)
{
    for (const char* heavy : {"FAILURE", "FATAL", "ABORT"}) {
        if (severity == heavy) {
            return Message::Weight::Failure;
        }
    }
    return severity == "SORRY" || severity == "MISHAP" ? Message::Weight::Sorry
                                                       : Message::Weight::Remark;
}

std::optional<Message> Next()
{
    std::array<char, BURN_MSGS_MESSAGE_LEN> text {};
    std::array<char, 80> severity {};
    std::string all = "ALL";
    int number = 0;
    int systemError = 0;
    const int got
        = burn::burn_msgs_obtain(all.data(), &number, text.data(), &systemError, severity.data());
    if (got <= 0) {
        return {};
    }
    return Message {static_cast<quint32>(number),
        systemError,
        WeightOf(severity.data()),
        QString::fromLocal8Bit(text.data())};
}

bool OnlyFollows(const Message& message)
{
    return message.weight == Message::Weight::Remark || message.code == kRunFailed
        || message.code == kCacheNotFlushed || message.text.startsWith(u"CDB="_s)
        || message.text.startsWith(u"Command:"_s);
}

} // namespace

void Messages::Discard()
{
    while (Next()) { }
}

void Messages::Collect()
{
    while (const std::optional<Message> message = Next()) {
        messages_.push_back(*message);
    }
}

bool Messages::Failed() const
{
    return std::ranges::any_of(messages_,
        [](const Message& message) { return message.weight == Message::Weight::Failure; });
}

std::vector<Sense> Messages::Interruptions() const
{
    std::vector<Sense> told;
    for (const Message& message : messages_) {
        const std::optional<Sense> sense = SenseIn(message.text);
        if (message.code == kInterrupted && sense) {
            told.push_back(*sense);
        }
    }
    return told;
}

qint32 Messages::Cause(Task task) const
{
    const auto cause = std::ranges::find_if_not(messages_, OnlyFollows);
    if (cause == messages_.end()) {
        return drive::hresult::kFail;
    }
    const bool lost = std::ranges::find(messages_, kDriveLost, &Message::code) != messages_.end();
    return cause->code == kTransportFailed && lost ? drive::hresult::kDeviceGone
                                                   : CodeOf(*cause, task);
}

std::optional<Sense> Messages::SenseOfCause() const
{
    const auto cause = std::ranges::find_if_not(messages_, OnlyFollows);
    return cause == messages_.end() ? std::nullopt : SenseIn(cause->text);
}

qint32 CodeOf(const Message& message, Task task)
{
    if (const std::optional<Sense> sense = SenseIn(message.text)) {
        return CodeOf(*sense, task);
    }
    if (message.code == kOpenFailed && message.systemError == EACCES) {
        return drive::hresult::kAccessDenied;
    }
    const auto* found = std::ranges::find(kCodes, message.code, &MessageMeaning::message);
    return found != kCodes.end() ? found->code : drive::hresult::kFail;
}

} // namespace velmora::drives
