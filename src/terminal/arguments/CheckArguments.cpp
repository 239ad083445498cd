// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/CheckArguments.h"

#include "terminal/arguments/Words.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace velmora::terminal {

namespace {

/// A whole number above 0; 0 for any other word.
int CountingNumber(std::string_view value)
{
    int number = 0;
    const char* end = value.data() + value.size();
    const auto [stopped, failure] = std::from_chars(value.data(), end, number);
    return failure == std::errc {} && stopped == end && number > 0 ? number : 0;
}

bool IsAllDigits(std::string_view value)
{
    return !value.empty()
        && std::ranges::all_of(value, [](char sign) { return sign >= '0' && sign <= '9'; });
}

constexpr std::string_view kRecordNumber = "un numéro de la liste de « velmora-cli burns »";

} // namespace

std::variant<BurnsRequest, Reply> BurnsCommand(const CheckArguments& typed)
{
    constexpr std::string_view kCommand = "burns";
    if (!typed.forget && typed.record) {
        return WrongUsage("un numéro va avec --forget.", kCommand);
    }
    if (!typed.forget) {
        return typed.all ? std::variant<BurnsRequest, Reply>(
                   WrongUsage("--all va avec --forget : écrivez --forget --all.", kCommand))
                         : BurnsRequest {};
    }
    if (typed.all == typed.record.has_value()) {
        return WrongUsage("--forget demande un numéro, ou --all.", kCommand);
    }
    BurnsRequest request {.forgetsAll = typed.all};
    if (typed.record) {
        request.forgotten = CountingNumber(*typed.record);
        if (request.forgotten == 0) {
            return NotAmong(kCommand, "--forget", *typed.record, kRecordNumber);
        }
    }
    return request;
}

std::variant<CheckRequest, Reply> CheckCommand(const CheckArguments& typed)
{
    constexpr std::string_view kCommand = "check";
    if (typed.folder && typed.record) {
        return WrongUsage("--with et --record ne vont pas ensemble : choisissez.", kCommand);
    }
    CheckRequest request {.folder = text::NativePath(typed.folder.value_or("")),
        .report = text::NativePath(typed.report.value_or(""))};
    if (typed.record) {
        request.record = CountingNumber(*typed.record);
        if (request.record == 0) {
            return NotAmong(kCommand, "--record", *typed.record, kRecordNumber);
        }
    }
    const std::string what = typed.what.value_or("");
    if (!IsAllDigits(what)) {
        request.image = text::NativePath(what);
        return request;
    }
    request.recorder = static_cast<std::uint32_t>(CountingNumber(what));
    if (request.recorder == 0) {
        return WrongUsage(
            "un graveur se nomme par son numéro dans la liste, à partir de 1.", kCommand);
    }
    return request;
}

} // namespace velmora::terminal
