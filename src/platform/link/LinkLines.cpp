// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/LinkLines.h"

#include "runtime/RuntimeError.h"

#include <QStringDecoder>

#include <optional>

namespace velmora::link {

namespace {

/// The text of bytes that are all UTF-8.
std::optional<QString> TextOf(QByteArrayView line)
{
    using enum QStringConverter::Flag;
    QStringDecoder decoder(QStringDecoder::Utf8, Stateless | ConvertInitialBom);
    const QString text = decoder(line);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

} // namespace

QByteArray LineOf(const QString& text)
{
    const QByteArray line = text.toUtf8();
    if (line.size() > kLongestLine || line.contains('\n')) {
        throw runtime::RuntimeError(runtime::error::kInvalidCall);
    }
    return line + '\n';
}

QStringList LineReader::Take(const QByteArray& bytes)
{
    QStringList texts;
    if (isBroken_) {
        return texts;
    }
    waiting_ += bytes;
    qsizetype start = 0;
    for (qsizetype end = waiting_.indexOf('\n'); end >= 0; end = waiting_.indexOf('\n', start)) {
        const auto text = TextOf(QByteArrayView(waiting_).sliced(start, end - start));
        isBroken_ = !text || end - start > kLongestLine;
        if (isBroken_) {
            return texts;
        }
        texts.append(*text);
        start = end + 1;
    }
    waiting_.remove(0, start);
    isBroken_ = waiting_.size() > kLongestLine;
    return texts;
}

} // namespace velmora::link
