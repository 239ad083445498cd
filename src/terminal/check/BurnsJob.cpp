// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/check/BurnsJob.h"

#include "drive/SectorSize.h"
#include "terminal/console/FrenchText.h"
#include "terminal/console/TextTable.h"

#include <algorithm>
#include <vector>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

std::vector<std::string> RowOf(int number, const records::BurnRecord& record)
{
    return {std::to_string(number),
        MomentText(record),
        HarmlessText(record.volume.toStdString()),
        HarmlessText(record.disc.toStdString()),
        SizeText(static_cast<std::uint64_t>(record.sectors * drive::kSectorBytes)),
        HarmlessText(record.recorder.toStdString())};
}

ExitCode List(const records::BurnRecords& records, TerminalScreen& screen)
{
    std::vector<std::vector<std::string>> rows {
        {"N°", "Date", "Nom", "Disque", "Taille", "Graveur"}};
    for (const int number : records.Numbers()) {
        if (const auto record = records.Read(number)) {
            rows.push_back(RowOf(number, *record));
        } else {
            rows.push_back({std::to_string(number), "(trace illisible)"});
        }
    }
    if (rows.size() == 1) {
        screen.Notice("Aucune gravure n'a laissé de trace.");
        return ExitCode::Done;
    }
    for (const std::string& line : TableLines(rows)) {
        screen.Result(line);
    }
    return ExitCode::Done;
}

} // namespace

std::string MomentText(const records::BurnRecord& record)
{
    return record.date.toLocalTime().toString(u"dd/MM/yyyy HH:mm"_s).toStdString();
}

ExitCode RunBurnsRequest(
    const BurnsRequest& request, const records::BurnRecords& records, TerminalScreen& screen)
{
    if (request.forgotten == 0 && !request.forgetsAll) {
        return List(records, screen);
    }
    const QList<int> numbers
        = request.forgetsAll ? records.Numbers() : QList<int> {request.forgotten};
    for (const int number : numbers) {
        if (!records.Forget(number)) {
            return Fail(screen,
                "la gravure n° " + std::to_string(number)
                    + " n'a pas pu être oubliée : « velmora-cli burns » montre celles qu'il y a.");
        }
    }
    screen.Result("Gravures oubliées : " + NumberText(static_cast<std::uint64_t>(numbers.size())));
    return ExitCode::Done;
}

} // namespace velmora::terminal
