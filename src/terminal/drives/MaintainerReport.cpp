// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/drives/MaintainerReport.h"

#include "terminal/drives/DriveReport.h"

#include <QJsonDocument>
#include <QSysInfo>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

QJsonObject DriveObject(const ReportedDrive& drive)
{
    QJsonObject object = drive.look
        ? MediaObject(drive.number, drive.recorder, *drive.look)
        : QJsonObject {{u"recorder"_s, RecorderObject(drive.number, drive.recorder)}};
    QJsonObject recorder = object[u"recorder"_s].toObject();
    recorder.remove(u"id"_s); // a virtual recorder's is the name that its owner chose
    recorder.remove(u"path"_s);
    if (drive.recorder.failure) {
        recorder[u"error"_s] = drive.recorder.failure->Number();
    }
    object[u"recorder"_s] = recorder;
    if (drive.failure) {
        object[u"error"_s] = drive.failure->Number(); // its text may name a mount point
    }
    return object;
}

} // namespace

std::string MaintainerReport(const ReportedDrive& drive,
    const std::optional<records::BurnRecord>& lastBurn,
    const std::optional<records::WriteFailure>& lastFailure)
{
    QJsonObject object = DriveObject(drive);
    object[u"velmora"_s] = QStringLiteral(VELMORA_VERSION);
    object[u"system"_s] = QSysInfo::prettyProductName();
    object[u"kernel"_s] = QSysInfo::kernelVersion();
    object[u"qt"_s] = QString::fromLatin1(qVersion());
    if (lastBurn) {
        object[u"lastBurn"_s] = QJsonObject {
            {u"date"_s, lastBurn->date.toString(Qt::ISODate)},
            {u"disc"_s, lastBurn->disc},
            {u"sectors"_s, lastBurn->sectors},
        };
    }
    if (lastFailure) {
        object[u"lastFailure"_s] = ObjectOf(*lastFailure);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Indented).trimmed().toStdString();
}

} // namespace velmora::terminal
