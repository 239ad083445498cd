// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/drives/RecorderSurvey.h"

#include "drive/DiscKinds.h"
#include "terminal/drives/DriveWords.h"

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

/// The kinds of optical disc that a drive of these profiles records, each once.
QStringList DiscsOf(const QList<qint32>& profiles)
{
    QStringList discs;
    for (const qint32 profile : profiles) {
        if (drive::CanRecord({profile})) {
            discs += QString::fromStdString(MediaWords(drive::MediaTypeOfProfile(profile)));
        }
    }
    discs.removeDuplicates();
    return discs;
}

SurveyedRecorder Ask(imapi::Mastering& mastering, const QString& id)
{
    SurveyedRecorder found;
    found.id = id;
    try {
        const imapi::RecorderRef recorder = mastering.CreateDiscRecorder();
        recorder->InitializeDiscRecorder(id);
        found.vendor = recorder->VendorId();
        found.product = recorder->ProductId();
        found.revision = recorder->ProductRevision();
        for (const QString& path : recorder->VolumePathNames()) {
            found.path = path;
        }
        found.discs = DiscsOf(recorder->SupportedProfiles());
    } catch (const runtime::RuntimeError& failure) {
        found.failure = failure;
    }
    return found;
}

} // namespace

std::vector<SurveyedRecorder> SurveyRecorders(imapi::Mastering& mastering)
{
    const imapi::DiscMasterRef master = mastering.CreateDiscMaster();
    const qint32 count = master->Count();
    std::vector<SurveyedRecorder> recorders;
    recorders.reserve(static_cast<std::size_t>(count));
    for (qint32 i = 0; i < count; ++i) {
        recorders.push_back(Ask(mastering, master->Item(i)));
    }
    return recorders;
}

QString RecorderName(const SurveyedRecorder& recorder)
{
    const QString name = (recorder.vendor + u' ' + recorder.product).simplified();
    return name.isEmpty() ? recorder.id : name;
}

} // namespace velmora::terminal
