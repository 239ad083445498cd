// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/RecorderCharacteristics.h"

#include "recorder/RecorderState.h"
#include "runtime/RuntimeError.h"
#include "runtime/TextRules.h"

namespace velmora::recorder {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 4> kPrefixes {u"CD", u"DVD-", u"DVD+", u"BD"};

std::array<QString, 4> MediaByKind(const QString& mediaList)
{
    std::array<QString, 4> boxes;
    QStringList names = runtime::Split(mediaList, u';');
    if (!names.isEmpty()) {
        names.removeLast(); // what follows the last semicolon
    }
    for (const QString& name : names) {
        for (std::size_t n = 0; n < kPrefixes.size(); ++n) {
            if (name.startsWith(kPrefixes[n])) {
                boxes[n] += name + u"\r\n"_s;
            }
        }
    }
    return boxes;
}

} // namespace

RecorderCharacteristics DescribeRecorder(const RecorderState& state, qint16 Combo1ListIndex)
{
    const auto index = static_cast<std::size_t>(Combo1ListIndex); // -1 lies far outside
    if (index >= state.RecorderList.size()) {
        throw runtime::RuntimeError(runtime::error::kSubscriptOutOfRange);
    }
    const RecorderRecord& record = state.RecorderList[index];
    return {.Text1 = {record.RecorderVendor,
                record.RecorderProduct,
                record.RecorderRevision,
                record.RecorderPath,
                record.RecorderCanLoadMedia == u"True" ? u"Oui"_s : u"Non"_s},
        .Text2 = MediaByKind(record.RecorderMediaList)};
}

} // namespace velmora::recorder
