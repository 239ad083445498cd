// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/Messages.h"

#include "drives/DriveErrors.h"

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
    quint32 code;
};

// What the library's own numbers come to.
constexpr std::array kCodes {
    MessageMeaning {0x00020001, code::kLocked},
    MessageMeaning {0x0002000a, code::kDeviceGone},
    MessageMeaning {0x0002000b, code::kDeviceGone},
    MessageMeaning {0x0002010c, code::kDeviceGone},
    MessageMeaning {0x0002011e, code::kMediaNotSupported},
    MessageMeaning {0x00020122, code::kEraseRefused},
    MessageMeaning {0x00020129, code::kNotErasable},
    MessageMeaning {0x0002012b, code::kInvalidMediaState},
    MessageMeaning {0x0002012d, code::kStreamTooLarge},
    MessageMeaning {0x00020130, code::kNotErasable},
    MessageMeaning {0x00020139, code::kInvalidMediaState},
    MessageMeaning {0x0002013a, code::kInvalidMediaState},
    MessageMeaning {0x0002014f, code::kTimeout},
    MessageMeaning {0x00020168, code::kMediaIncompatible},
    MessageMeaning {0x0002018a, code::kTimeout},
    MessageMeaning {0x000201a6, code::kDeviceGone},
    MessageMeaning {0x000201a7, code::kTimeout},
    MessageMeaning {0x000201a8, code::kTimeout},
};

// They only follow from something else.
constexpr quint32 kRunFailed = 0x0002010b;
constexpr quint32 kCommandDump = 0x0002017f;
// The transport went wrong; what it went wrong with may come behind.
constexpr quint32 kTransportFailed = 0x000201a7;
constexpr quint32 kDriveLost = 0x000201a6;
constexpr quint32 kOpenFailed = 0x00020005;

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

quint32 Messages::Cause(Task task) const
{
    const auto cause = std::ranges::find_if_not(messages_, OnlyFollows);
    if (cause == messages_.end()) {
        return code::kFail;
    }
    const bool lost = std::ranges::find(messages_, kDriveLost, &Message::code) != messages_.end();
    return cause->code == kTransportFailed && lost ? code::kDeviceGone : CodeOf(*cause, task);
}

quint32 CodeOf(const Message& message, Task task)
{
    if (const std::optional<Sense> sense = SenseIn(message.text)) {
        const quint32 found = CodeOf(*sense);
        const bool ofDisc = found == code::kNoMedia || found == code::kWriteProtected
            || found == code::kMediaIncompatible;
        return task == Task::Erase && !ofDisc ? code::kEraseRefused : found;
    }
    if (message.code == kOpenFailed && message.systemError == EACCES) {
        return code::kAccessDenied;
    }
    const auto* found = std::ranges::find(kCodes, message.code, &MessageMeaning::message);
    return found != kCodes.end() ? found->code : code::kFail;
}

} // namespace velmora::drives
