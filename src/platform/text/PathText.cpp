// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/PathText.h"

#include "unicode/Unicode.h"

#include <QFile>

#include <utility>

namespace velmora::text {

namespace {

constexpr char16_t kByteBase = 0xDC00; // an escaped byte is this plus the byte
constexpr char16_t kFirstByteUnit = 0xDC80;
constexpr char16_t kLastByteUnit = 0xDCFF;
constexpr char16_t kLastBlankUnit = kByteBase + u' ';

void AppendCodePoint(QString& text, char32_t value)
{
    if (QChar::requiresSurrogates(value)) {
        text += QChar(QChar::highSurrogate(value));
        text += QChar(QChar::lowSurrogate(value));
    } else {
        text += QChar(static_cast<char16_t>(value));
    }
}

bool IsPairAt(const QString& text, qsizetype at)
{
    return text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
}

bool IsTravellingByte(QChar unit)
{
    return unit == kLastBlankUnit
        || (unit.unicode() >= kFirstByteUnit && unit.unicode() <= kLastByteUnit);
}

/// Escapes the blanks at the end of each name.
void SaveLastBlanks(QString& programPath)
{
    bool isAtEnd = true;
    for (qsizetype i = programPath.size() - 1; i >= 0; --i) {
        const bool isBlank = programPath[i] == u' ';
        if (isBlank && isAtEnd) {
            programPath[i] = QChar(kLastBlankUnit);
        }
        isAtEnd = programPath[i] == u'\\' || (isAtEnd && isBlank);
    }
}

} // namespace

QString ToText(std::string_view bytes)
{
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (std::size_t at = 0; at < bytes.size();) {
        const char byte = bytes[at];
        const char32_t codePoint = unicode::NextCodePoint(bytes, at);
        if (codePoint == unicode::kUndecodable) {
            text += QChar(static_cast<char16_t>(kByteBase + static_cast<unsigned char>(byte)));
        } else {
            AppendCodePoint(text, codePoint);
        }
    }
    return text;
}

QString ToProgramPath(std::string_view nativePath)
{
    QString path = ExchangeSlashes(ToText(nativePath));
    SaveLastBlanks(path);
    return path;
}

ProgramPath ToProgramPath(const NativePath& path)
{
    return ProgramPath(ToProgramPath(std::string_view(path.Bytes())));
}

std::string ToNativePath(const QString& programPath)
{
    const QString text = ExchangeSlashes(programPath);
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (IsPairAt(text, i)) {
            unicode::AppendUtf8(bytes, QChar::surrogateToUcs4(text[i], text[i + 1]));
            ++i;
        } else if (IsTravellingByte(text[i])) {
            bytes += static_cast<char>(text[i].unicode() - kByteBase);
        } else {
            unicode::AppendUtf8(bytes, text[i].unicode());
        }
    }
    return bytes;
}

NativePath ToNativePath(const ProgramPath& path) { return NativePath(ToNativePath(path.Text())); }

ProgramPath FromTypedPath(const QString& typed)
{
    return ToProgramPath(ToNativePath(ProgramPath(ExchangeSlashes(typed))));
}

DiscPath ToDiscPath(std::string_view imagePath) { return DiscPath(ToProgramPath(imagePath)); }

std::string ToImagePath(const DiscPath& path) { return ToNativePath(path.Text()); }

QString ToQtPath(const NativePath& path) { return QFile::decodeName(path.CStr()); }

QString ToQtPath(const ProgramPath& path) { return ToQtPath(ToNativePath(path)); }

ProgramPath FromQtPath(const QString& path)
{
    return ToProgramPath(NativePath(QFile::encodeName(path).toStdString()));
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
        } else if (text[i] == kLastBlankUnit) {
            text[i] = u' ';
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

QString MachinePathForTheEye(const ProgramPath& path) { return MachinePathForTheEye(path.Text()); }

} // namespace velmora::text
