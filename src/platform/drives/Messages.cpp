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

// What the library's own numbers mean.
constexpr std::array kCodes {
    MessageMeaning {0x00020001, drive::hresult::kRecorderLocked},
    MessageMeaning {0x0002000a, drive::hresult::kDeviceGone},
    MessageMeaning {0x0002000b, drive::hresult::kDeviceGone},
    MessageMeaning {0x0002010c, drive::hresult::kDeviceGone},
    MessageMeaning {0x0002011e, drive::hresult::kMediaNotSupported},
    MessageMeaning {0x00020122, drive::hresult::kEraseRefused},
    MessageMeaning {0x00020129, drive::hresult::kNotErasable},
    MessageMeaning {0x0002012b, drive::hresult::kInvalidMediaState},
    MessageMeaning {0x0002012d, drive::hresult::kStreamTooLarge},
    MessageMeaning {0x00020130, drive::hresult::kNotErasable},
    MessageMeaning {0x00020139, drive::hresult::kInvalidMediaState},
    MessageMeaning {0x0002013a, drive::hresult::kInvalidMediaState},
    MessageMeaning {0x0002014f, drive::hresult::kCommandTimeout},
    MessageMeaning {0x00020168, drive::hresult::kMediaIncompatible},
    MessageMeaning {0x0002018a, drive::hresult::kCommandTimeout},
    MessageMeaning {0x000201a6, drive::hresult::kDeviceGone},
    MessageMeaning {0x000201a7, drive::hresult::kCommandTimeout},
    MessageMeaning {0x000201a8, drive::hresult::kCommandTimeout},
};

// They are only consequences of other errors.
constexpr quint32 kRunFailed = 0x0002010b;
constexpr quint32 kCommandDump = 0x0002017f;
// The transport failed; the cause may follow.
constexpr quint32 kTransportFailed = 0x000201a7;
constexpr quint32 kDriveLost = 0x000201a6;
constexpr quint32 kOpenFailed = 0x00020005;
// A busy drive, polled every second, gives another answer.
constexpr quint32 kInterrupted = 0x000201a5;

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
        || message.code == kCommandDump || message.text.startsWith(u"CDB="_s)
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
