// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/mmc/StateFile.h"

#include <array>
#include <fstream>
#include <ios>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace velmora::mmc {

// As three hexadecimal numbers.
static std::istream& operator>>(std::istream& in, Sense& sense)
{
    std::array<int, 3> numbers {};
    in >> std::hex >> numbers[0] >> numbers[1] >> numbers[2] >> std::dec;
    sense = {static_cast<std::uint8_t>(numbers[0]),
        static_cast<std::uint8_t>(numbers[1]),
        static_cast<std::uint8_t>(numbers[2])};
    return in;
}

static std::ostream& operator<<(std::ostream& out, const Sense& sense)
{
    return out << std::hex << int {sense.key} << ' ' << int {sense.code} << ' '
               << int {sense.qualifier} << std::dec;
}

namespace {

template <class Value> struct Field {
    std::string_view word;
    Value Faults::*place;
};

constexpr std::array kAddresses {
    Field<std::int64_t> {"write-fails-at", &Faults::writeFailsAt},
    Field<std::int64_t> {"read-fails-at", &Faults::readFailsAt},
    Field<std::int64_t> {"slow-reads-at", &Faults::slowReadsAt},
    Field<std::int64_t> {"alters-at", &Faults::altersAt},
    Field<std::int64_t> {"swallows-at", &Faults::swallowsAt},
    Field<std::int64_t> {"swaps-at-read", &Faults::swapsAtRead},
    Field<std::int64_t> {"unplugs-at-read", &Faults::unplugsAtRead},
    Field<std::int64_t> {"tray-opens-at", &Faults::trayOpensAt},
    Field<std::int64_t> {"unplugs-at", &Faults::unplugsAt},
    Field<std::int64_t> {"times-out-at", &Faults::timesOutAt},
    Field<std::int64_t> {"hangs-at", &Faults::hangsAt},
    Field<std::int64_t> {"hangs-at-read", &Faults::hangsAtRead},
    Field<std::int64_t> {"busy-at", &Faults::busyAt},
};
constexpr std::array kCounts {
    Field<int> {"hang-milliseconds", &Faults::hangMilliseconds},
    Field<int> {"busy-writes", &Faults::busyWrites},
    Field<int> {"transport-failures", &Faults::transportFailures},
    Field<int> {"transport-holds", &Faults::transportHolds},
    Field<int> {"transport-status", &Faults::transportStatus},
    Field<int> {"ready-after", &Faults::readyAfter},
    Field<int> {"start-polls", &Faults::startPolls},
    Field<int> {"stop-polls", &Faults::stopPolls},
    Field<int> {"attentions", &Faults::attentions},
    Field<int> {"sync-polls", &Faults::syncPolls},
    Field<int> {"busy-closes", &Faults::busyCloses},
    Field<int> {"close-polls", &Faults::closePolls},
    Field<int> {"erase-polls", &Faults::erasePolls},
    Field<int> {"unplugs-after-erase-polls", &Faults::unplugsAfterErasePolls},
    Field<int> {"refuses", &Faults::refuses},
    Field<int> {"keeps-tray-shut", &Faults::keepsTrayShut},
};
constexpr std::array kSwitches {
    Field<bool> {"erase-tells-progress", &Faults::eraseTellsProgress},
    Field<bool> {"erase-fails", &Faults::eraseFails},
    Field<bool> {"broken-down", &Faults::brokenDown},
    Field<bool> {"write-protected", &Faults::writeProtected},
    Field<bool> {"refusals-fill-reply", &Faults::refusalsFillReply},
    Field<bool> {"unplugged", &Faults::unplugged},
    Field<bool> {"denied", &Faults::denied},
    Field<bool> {"mounted", &Faults::mounted},
    Field<bool> {"tray-stuck", &Faults::trayStuck},
    Field<bool> {"eject-refused", &Faults::ejectRefused},
};

constexpr std::array kSenses {
    Field<Sense> {"write-sense", &Faults::writeSense},
    Field<Sense> {"refused-sense", &Faults::refusedSense},
    Field<Sense> {"tray-shut-sense", &Faults::trayShutSense},
};
constexpr std::array kForms {
    std::pair {SenseForm::Fixed, std::string_view("fixed")},
    std::pair {SenseForm::Short, std::string_view("short")},
    std::pair {SenseForm::Descriptor, std::string_view("descriptor")},
    std::pair {SenseForm::Deferred, std::string_view("deferred")},
};

template <class Fields>
bool ReadField(
    const Fields& fields, std::string_view word, std::istringstream& values, Faults& faults)
{
    for (const auto& field : fields) {
        if (field.word == word) {
            values >> faults.*field.place;
            return true;
        }
    }
    return false;
}

template <class Fields>
void WriteFields(const Fields& fields, const Faults& faults, std::ostream& out)
{
    for (const auto& field : fields) {
        if (faults.*field.place != Faults {}.*field.place) {
            out << "fault " << field.word << ' ' << faults.*field.place << '\n';
        }
    }
}

bool ReadForm(std::istringstream& values, SenseForm& form)
{
    std::string word;
    values >> word;
    for (const auto& [known, name] : kForms) {
        if (name == word) {
            form = known;
            return true;
        }
    }
    return false;
}

bool ReadFault(std::istringstream& values, Faults& faults)
{
    std::string word;
    values >> word;
    return ReadField(kAddresses, word, values, faults) || ReadField(kCounts, word, values, faults)
        || ReadField(kSwitches, word, values, faults) || ReadField(kSenses, word, values, faults)
        || (word == "sense-form" && ReadForm(values, faults.senseForm));
}

bool ReadLine(std::string_view word, std::istringstream& values, DriveState& state)
{
    Disc& disc = state.disc;
    if (word == "tray-open") {
        values >> state.trayOpen;
    } else if (word == "profile") {
        std::uint16_t profile = 0;
        values >> std::hex >> profile;
        disc = NewDisc(profile); // what the next lines don't set is as on a new one
    } else if (word == "capacity") {
        values >> disc.capacity;
    } else if (word == "finalized") {
        values >> disc.finalized;
    } else if (word == "formatted") {
        values >> disc.formatted >> disc.formattedSize >> disc.growing;
    } else if (word == "sequential-only") {
        values >> disc.sequentialOnly;
    } else if (word == "pseudo-overwrite") {
        values >> disc.pseudoOverwrite;
    } else if (word == "closed-sessions") {
        values >> disc.closedSessions;
    } else if (word == "track") {
        Track track;
        values >> track.session >> track.start >> track.size >> track.written >> track.closed
            >> track.reserved >> track.damaged;
        disc.tracks.push_back(track);
    } else {
        return word == "fault" && ReadFault(values, state.faults);
    }
    return true;
}

void WriteDisc(const Disc& disc, std::ostream& out)
{
    out << "profile " << std::hex << disc.profile << std::dec << '\n'
        << "capacity " << disc.capacity << '\n'
        << "finalized " << disc.finalized << '\n'
        << "formatted " << disc.formatted << ' ' << disc.formattedSize << ' ' << disc.growing
        << '\n'
        << "sequential-only " << disc.sequentialOnly << '\n'
        << "pseudo-overwrite " << disc.pseudoOverwrite << '\n'
        << "closed-sessions " << disc.closedSessions << '\n';
    for (const Track& track : disc.tracks) {
        out << "track " << track.session << ' ' << track.start << ' ' << track.size << ' '
            << track.written << ' ' << track.closed << ' ' << track.reserved << ' ' << track.damaged
            << '\n';
    }
}

} // namespace

DriveState LoadState(const std::filesystem::path& file)
{
    DriveState state;
    std::ifstream in(file);
    std::string line;
    while (std::getline(in, line)) {
        std::istringstream values(line);
        std::string word;
        if (!(values >> word) || word.front() == '#') {
            continue;
        }
        if (!ReadLine(word, values, state) || values.fail()) {
            throw std::runtime_error(file.string() + ": " + line);
        }
    }
    return state;
}

void SaveState(const std::filesystem::path& file, const DriveState& state)
{
    std::filesystem::path fresh = file;
    fresh += ".new";
    {
        std::ofstream out(fresh);
        out << "tray-open " << state.trayOpen << '\n';
        WriteDisc(state.disc, out);
        WriteFields(kAddresses, state.faults, out);
        WriteFields(kCounts, state.faults, out);
        WriteFields(kSwitches, state.faults, out);
        WriteFields(kSenses, state.faults, out);
        for (const auto& [form, name] : kForms) {
            if (form == state.faults.senseForm && form != SenseForm::Fixed) {
                out << "fault sense-form " << name << '\n';
            }
        }
    }
    std::filesystem::rename(fresh, file);
}

} // namespace velmora::mmc
