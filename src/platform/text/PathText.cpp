// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/PathText.h"

#include <algorithm>
#include <utility>

namespace velmora::text {

namespace {

constexpr char16_t kByteBase = 0xDC00; // a travelling byte is this plus the byte
constexpr char16_t kFirstByteUnit = 0xDC80;
constexpr char16_t kLastByteUnit = 0xDCFF;

/// What may stand at the head of a sequence: how long the sequence is, and between what its second
/// byte lies (Unicode 15, table 3-7). Length 0: no sequence begins so.
struct SequenceRule {
    std::size_t length = 0;
    unsigned secondFrom = 0x80;
    unsigned secondTo = 0xBF;
};

SequenceRule RuleFor(unsigned head)
{
    if (head < 0x80) {
        return {1};
    }
    if (head < 0xC2) {
        return {};
    }
    if (head < 0xE0) {
        return {2};
    }
    if (head == 0xE0) {
        return {3, 0xA0, 0xBF};
    }
    if (head == 0xED) {
        return {3, 0x80, 0x9F};
    }
    if (head < 0xF0) {
        return {3};
    }
    if (head == 0xF0) {
        return {4, 0x90, 0xBF};
    }
    if (head < 0xF4) {
        return {4};
    }
    if (head == 0xF4) {
        return {4, 0x80, 0x8F};
    }
    return {};
}

unsigned ByteAt(std::string_view bytes, std::size_t at)
{
    return static_cast<unsigned char>(bytes[at]);
}

/// Length of the well-formed sequence that the bytes begin with, 0 when they begin with none.
std::size_t SequenceLength(std::string_view bytes)
{
    const SequenceRule rule = RuleFor(ByteAt(bytes, 0));
    if (rule.length > bytes.size()) {
        return 0;
    }
    for (std::size_t i = 1; i < rule.length; ++i) {
        const unsigned from = i == 1 ? rule.secondFrom : 0x80;
        const unsigned to = i == 1 ? rule.secondTo : 0xBF;
        if (ByteAt(bytes, i) < from || ByteAt(bytes, i) > to) {
            return 0;
        }
    }
    return rule.length;
}

char32_t CodePointOf(std::string_view sequence)
{
    if (sequence.size() == 1) {
        return ByteAt(sequence, 0);
    }
    char32_t value = ByteAt(sequence, 0) & (0x7Fu >> sequence.size());
    for (std::size_t i = 1; i < sequence.size(); ++i) {
        value = (value << 6) | (ByteAt(sequence, i) & 0x3F);
    }
    return value;
}

void AppendCodePoint(QString& text, char32_t value)
{
    if (QChar::requiresSurrogates(value)) {
        text += QChar(QChar::highSurrogate(value));
        text += QChar(QChar::lowSurrogate(value));
    } else {
        text += QChar(static_cast<char16_t>(value));
    }
}

void AppendUtf8(std::string& bytes, char32_t value)
{
    const auto append = [&bytes](char32_t bits) { bytes += static_cast<char>(bits); };
    if (value < 0x80) {
        append(value);
        return;
    }
    if (value < 0x800) {
        append(0xC0 | (value >> 6));
    } else if (value < 0x10000) {
        append(0xE0 | (value >> 12));
        append(0x80 | ((value >> 6) & 0x3F));
    } else {
        append(0xF0 | (value >> 18));
        append(0x80 | ((value >> 12) & 0x3F));
        append(0x80 | ((value >> 6) & 0x3F));
    }
    append(0x80 | (value & 0x3F));
}

bool IsPairAt(const QString& text, qsizetype at)
{
    return text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
}

bool IsTravellingByte(QChar unit)
{
    return unit.unicode() >= kFirstByteUnit && unit.unicode() <= kLastByteUnit;
}

} // namespace

QString ToProgramPath(std::string_view nativePath)
{
    QString text;
    text.reserve(static_cast<qsizetype>(nativePath.size()));
    while (!nativePath.empty()) {
        const std::size_t length = SequenceLength(nativePath);
        if (length == 0) {
            text += QChar(static_cast<char16_t>(kByteBase + ByteAt(nativePath, 0)));
        } else {
            AppendCodePoint(text, CodePointOf(nativePath.substr(0, length)));
        }
        nativePath.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return ExchangeSlashes(std::move(text));
}

std::string ToNativePath(const QString& programPath)
{
    const QString text = ExchangeSlashes(programPath);
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (IsPairAt(text, i)) {
            AppendUtf8(bytes, QChar::surrogateToUcs4(text[i], text[i + 1]));
            ++i;
        } else if (IsTravellingByte(text[i])) {
            bytes += static_cast<char>(text[i].unicode() - kByteBase);
        } else {
            AppendUtf8(bytes, text[i].unicode());
        }
    }
    return bytes;
}

QString ExchangeSlashes(QString text)
{
    for (QChar& unit : text) {
        if (unit == u'/') {
            unit = u'\\';
        } else if (unit == u'\\') {
            unit = u'/';
        }
    }
    return text;
}

QString ForTheEye(QString text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (IsPairAt(text, i)) {
            ++i;
        } else if (text[i].isSurrogate()) {
            text[i] = QChar(QChar::ReplacementCharacter);
        }
    }
    return text;
}

QString MachinePathForTheEye(const QString& programPath)
{
    return ForTheEye(ExchangeSlashes(programPath));
}

} // namespace velmora::text
