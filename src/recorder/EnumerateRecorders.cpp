// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/EnumerateRecorders.h"

#include "recorder/ProfileNames.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"

namespace velmora::recorder {

using namespace Qt::StringLiterals;

namespace {

QString TextOf(bool value) { return value ? u"True"_s : u"False"_s; }

void ReadRecord(const imapi::IDiscRecorder2& recorder, RecorderRecord& record)
{
    record.RecorderId = recorder.ActiveDiscRecorder();
    record.RecorderVendor = recorder.VendorId();
    record.RecorderProduct = recorder.ProductId();
    record.RecorderRevision = recorder.ProductRevision();
    record.RecorderVolumeName = recorder.VolumeName();
    record.RecorderCanLoadMedia = TextOf(recorder.DeviceCanLoadMedia());
    record.RecorderLegacyNumber = QString::number(recorder.LegacyDeviceNumber());
    for (const QString& path : recorder.VolumePathNames()) {
        record.RecorderPath = path;
    }
    for (const qint32 profile : recorder.SupportedProfiles()) {
        record.RecorderMediaMask = ProfileToMask(record.RecorderMediaMask, profile);
        record.RecorderMediaList = ProfileToList(record.RecorderMediaList, profile);
    }
}

void MarkUnusable(RecorderRecord& record)
{
    record.RecorderId += kUnusableMark;
    record.RecorderCanLoadMedia = TextOf(false);
    record.RecorderProduct = u"- non disponible actuellement -"_s;
    record.RecorderVendor = u"Lecteur CD-Rom"_s;
}

void Enumerate(RecorderState& state, imapi::Mastering& mastering, qint32 index)
{
    RecorderRecord& record = state.RecorderList[static_cast<std::size_t>(index)];
    try {
        const QString id = state.DiscMaster->Item(index);
        state.CurrentRecorder = mastering.CreateDiscRecorder();
        state.CurrentRecorder->InitializeDiscRecorder(id);
        ReadRecord(*state.CurrentRecorder, record);
    } catch (const runtime::RuntimeError&) {
        MarkUnusable(record);
    }
    state.CurrentRecorder.reset();
}

} // namespace

qint16 EnumerateRecorders(RecorderState& state, imapi::Mastering& mastering)
{
    try {
        state.DiscMaster = mastering.CreateDiscMaster();
        const qint16 count = runtime::ToInt16(state.DiscMaster->Count());
        state.RecorderList.assign(static_cast<std::size_t>(count) + 1, {});
        for (qint32 i = 0; i < count; ++i) {
            Enumerate(state, mastering, i);
        }
        state.DiscMaster.reset();
        return count;
    } catch (const runtime::RuntimeError&) {
        return 0; // the start tells the user that there is none
    }
}

} // namespace velmora::recorder
