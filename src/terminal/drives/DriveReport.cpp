// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/drives/DriveReport.h"

#include "drive/SectorSize.h"
#include "terminal/console/FrenchText.h"
#include "terminal/console/TextTable.h"
#include "terminal/drives/DriveWords.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

std::string Shown(const QString& text) { return HarmlessText(text.toStdString()); }

QString Json(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string Printed(const QJsonDocument& document)
{
    return document.toJson(QJsonDocument::Indented).trimmed().toStdString();
}

std::string DiscsText(const SurveyedRecorder& recorder)
{
    if (recorder.failure) {
        return "indisponible";
    }
    return recorder.discs.isEmpty() ? "lecture seule" : Shown(recorder.discs.join(u", "_s));
}

std::string StateText(const MediaLook& look)
{
    if (!look.isRecordable) {
        return "lecture seule dans ce lecteur";
    }
    std::string text;
    for (const StateWord& word : StateWordsOf(look.status)) {
        text += (text.empty() ? "" : ", ") + std::string(word.words);
    }
    if ((look.status & imapi::media_state::kOverwriteOnly) != 0) {
        text += look.isBlank ? ", vide" : ", contient des données";
    }
    return text;
}

std::string SectorsText(qint64 sectors)
{
    const auto count = static_cast<std::uint64_t>(sectors);
    return SizeText(count * drive::kSectorBytes) + " (" + CountText(count, "secteur", "secteurs")
        + ")";
}

std::string SpeedsText(const MediaLook& look)
{
    std::string text;
    for (const quint32 speed : look.speeds) {
        text += (text.empty() ? "" : ", ") + MultipleText(MultipleOf(speed, look.type));
    }
    return text.empty() ? "aucune" : text;
}

std::string SessionsText(const MediaLook& look)
{
    std::string text = std::to_string(look.sessions.size());
    for (const drive::SessionFacts& session : look.sessions) {
        text += text.find(':') == std::string::npos ? " : " : " ; ";
        text += SectorsText(session.sectors) + " au secteur "
            + NumberText(static_cast<std::uint64_t>(session.firstSector));
    }
    return text;
}

} // namespace

QJsonObject RecorderObject(std::size_t number, const SurveyedRecorder& recorder)
{
    QJsonObject object {
        {u"number"_s, static_cast<qint64>(number)},
        {u"id"_s, recorder.id},
        {u"available"_s, !recorder.failure},
    };
    if (recorder.failure) {
        object[u"error"_s] = QJsonObject {{u"number"_s, recorder.failure->Number()},
            {u"text"_s, recorder.failure->Description()}};
        return object;
    }
    object[u"vendor"_s] = recorder.vendor;
    object[u"product"_s] = recorder.product;
    object[u"revision"_s] = recorder.revision;
    object[u"path"_s] = recorder.path;
    object[u"discs"_s] = QJsonArray::fromStringList(recorder.discs);
    return object;
}

std::vector<std::string> RecorderTable(const std::vector<SurveyedRecorder>& recorders)
{
    std::vector<std::vector<std::string>> rows {{"N°", "Graveur", "Chemin", "Disques"}};
    for (std::size_t i = 0; i < recorders.size(); ++i) {
        const SurveyedRecorder& recorder = recorders[i];
        rows.push_back({std::to_string(i + 1),
            Shown(RecorderName(recorder)),
            Shown(recorder.path),
            DiscsText(recorder)});
    }
    return TableLines(rows);
}

std::string RecorderJson(const std::vector<SurveyedRecorder>& recorders)
{
    QJsonArray array;
    for (std::size_t i = 0; i < recorders.size(); ++i) {
        array.append(RecorderObject(i + 1, recorders[i]));
    }
    return Printed(QJsonDocument(array));
}

std::vector<std::string> MediaTable(
    std::uint32_t number, const SurveyedRecorder& recorder, const MediaLook& look)
{
    const std::string name = std::to_string(number) + ", "
        + Shown(RecorderName(recorder) + u" ("_s + recorder.path) + ")";
    std::vector<std::vector<std::string>> rows {{"Graveur", name}};
    if (!look.hasDisc) {
        rows.push_back({"Disque", "aucun"});
        return TableLines(rows);
    }
    rows.push_back({"Disque", MediaWords(look.type)});
    rows.push_back({"État", StateText(look)});
    if (look.totalSectors > 0) { // nothing is known about a disc that the drive doesn't know
        rows.push_back({"Capacité", SectorsText(look.totalSectors)});
    }
    if (look.isRecordable) {
        rows.push_back({"Libre", SectorsText(look.freeSectors)});
        rows.push_back({"Vitesses", SpeedsText(look)});
    }
    rows.push_back({"Sessions", SessionsText(look)});
    return TableLines(rows);
}

QJsonObject MediaObject(
    std::uint32_t number, const SurveyedRecorder& recorder, const MediaLook& look)
{
    QJsonObject object {{u"recorder"_s, RecorderObject(number, recorder)}};
    if (!look.hasDisc) {
        object[u"type"_s] = QJsonValue::Null;
        return object;
    }
    QJsonArray states;
    for (const StateWord& word : StateWordsOf(look.status)) {
        states.append(Json(word.key));
    }
    QJsonArray speeds;
    for (const quint32 speed : look.speeds) {
        speeds.append(QJsonObject {{u"sectorsPerSecond"_s, static_cast<qint64>(speed)},
            {u"multiple"_s, MultipleOf(speed, look.type)}});
    }
    QJsonArray sessions;
    for (const drive::SessionFacts& session : look.sessions) {
        sessions.append(
            QJsonObject {{u"firstSector"_s, session.firstSector}, {u"sectors"_s, session.sectors}});
    }
    object[u"type"_s] = Json(MediaWords(look.type));
    object[u"typeNumber"_s] = static_cast<qint32>(look.type);
    object[u"state"_s] = states;
    object[u"recordable"_s] = look.isRecordable;
    object[u"blank"_s] = look.isBlank;
    object[u"capacityBytes"_s] = look.totalSectors * drive::kSectorBytes;
    object[u"freeBytes"_s] = look.freeSectors * drive::kSectorBytes;
    object[u"speeds"_s] = speeds;
    object[u"sessions"_s] = sessions;
    return object;
}

std::string MediaJson(std::uint32_t number, const SurveyedRecorder& recorder, const MediaLook& look)
{
    return Printed(QJsonDocument(MediaObject(number, recorder, look)));
}

} // namespace velmora::terminal
