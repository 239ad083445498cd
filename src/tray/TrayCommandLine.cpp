// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayCommandLine.h"

#include "tray/TrayHelp.h"

#include <QFile>

#include <algorithm>
#include <filesystem>
#include <utility>

#include <CLI/CLI.hpp>

namespace velmora::tray {

using namespace Qt::StringLiterals;
using virtualdrive::DiscOrder;
using virtualdrive::DiscPreset;
using virtualdrive::FaultKind;

namespace {

/// The command line as it was typed.
struct Typed {
    std::string recorder;
    std::string word; // the one word that some commands take
    std::string image;
    std::string state;
    std::string readyAfter;
    std::string sector;
    bool writeProtected = false;
    bool upsideDown = false;
    bool lasting = false;
    bool realTiming = false;
    bool isAgreed = false;
};

TrayReply Mistake(const QString& text)
{
    return {TrayExit::WrongUsage,
        u"Erreur : "_s + text + u"\nL'aide s'obtient par « velmora-tray --help »."_s};
}

QString Text(const std::string& typed) { return QFile::decodeName(typed.c_str()); }

/// The number that was typed; none for what isn't one.
std::optional<qint32> NumberOf(const std::string& typed)
{
    bool isNumber = false;
    const qint32 number = Text(typed).toInt(&isNumber);
    if (!isNumber || number < 0) {
        return std::nullopt;
    }
    return number;
}

std::optional<DiscPreset> PresetOf(const std::string& typed)
{
    if (typed == "vierge") {
        return DiscPreset::Blank;
    }
    if (typed == "ouvert") {
        return DiscPreset::Appendable;
    }
    if (typed == "ferme" || typed == "fermé") {
        return DiscPreset::Closed;
    }
    if (typed == "plein") {
        return DiscPreset::Full;
    }
    return std::nullopt;
}

/// The disc that "insert" names: a type, or the path of an image.
std::optional<TrayReply> NameDisc(const Typed& typed, DiscOrder& order)
{
    if (typed.word.empty()) {
        return Mistake(u"il manque le type de disque ou l'image à insérer."_s);
    }
    order.medium = virtualdrive::FindMedium(Text(typed.word));
    order.image = typed.image;
    if (order.medium != nullptr) {
        return std::nullopt;
    }
    std::error_code ignored;
    if (!std::filesystem::exists(typed.word, ignored)) {
        return Mistake(u"« %1 » n'est ni un type de disque ni une image."_s.arg(Text(typed.word)));
    }
    if (!typed.image.empty()) {
        return Mistake(u"donnez une seule image."_s);
    }
    order.image = typed.word;
    return std::nullopt;
}

TrayCommand InsertCommand(const Typed& typed)
{
    DiscOrder order;
    if (const auto mistake = NameDisc(typed, order)) {
        return *mistake;
    }
    order.preset = order.image.empty() ? DiscPreset::Blank : DiscPreset::Closed;
    order.writeProtected = typed.writeProtected;
    order.upsideDown = typed.upsideDown;
    if (!typed.state.empty()) {
        const auto preset = PresetOf(typed.state);
        if (!preset || order.medium == nullptr) {
            return Mistake(
                u"--state attend vierge, ouvert, ferme ou plein, et un type de disque."_s);
        }
        order.preset = *preset;
    }
    if (order.preset == DiscPreset::Blank && !order.image.empty()) {
        return Mistake(u"un disque vierge ne peut pas porter une image."_s);
    }
    if (!typed.readyAfter.empty()) {
        const auto seconds = NumberOf(typed.readyAfter);
        if (!seconds || *seconds > 3600) {
            return Mistake(u"--ready-after attend un nombre de secondes, de 0 à 3600."_s);
        }
        order.secondsToReady = *seconds;
    }
    return TrayRequest {Text(typed.recorder), Insert {order}};
}

TrayCommand FaultCommand(const Typed& typed)
{
    const QString recorder = Text(typed.recorder);
    if (typed.word == "clear") {
        return TrayRequest {recorder, ClearFaults {}};
    }
    const auto kind = virtualdrive::FindFaultKind(Text(typed.word));
    if (!kind) {
        return Mistake(typed.word.empty()
                ? u"il manque la panne."_s
                : u"« %1 » n'est pas une panne connue."_s.arg(Text(typed.word)));
    }
    if (*kind == FaultKind::Unplugged && typed.sector.empty()) {
        return TrayRequest {recorder, Plug {false}};
    }
    if (!typed.sector.empty() && !virtualdrive::HasSector(*kind)) {
        return Mistake(u"la panne « %1 » n'attend pas de secteur."_s.arg(Text(typed.word)));
    }
    const auto sector = typed.sector.empty() ? 0 : NumberOf(typed.sector);
    if (!sector) {
        return Mistake(u"--at attend le numéro d'un secteur."_s);
    }
    return TrayRequest {
        recorder, PlanFault {{.kind = *kind, .sector = *sector, .lasting = typed.lasting}}};
}

TrayCommand TimingCommand(const Typed& typed)
{
    if (typed.word != "real" && typed.word != "none") {
        return Mistake(u"timing attend real ou none."_s);
    }
    return TrayRequest {Text(typed.recorder), Timing {typed.word == "real"}};
}

TrayCommand CreateCommand(const Typed& typed)
{
    return TrayRequest {{}, Create {Text(typed.word), typed.realTiming}};
}

TrayCommand DeleteCommand(const Typed& typed)
{
    if (typed.word.empty() == typed.recorder.empty()) {
        return Mistake(u"donnez le nom du graveur à supprimer, et un seul."_s);
    }
    const std::string& name = typed.word.empty() ? typed.recorder : typed.word;
    return TrayRequest {Text(name), Delete {typed.isAgreed}};
}

template <class Action> TrayCommand Plain(const Typed& typed)
{
    return TrayRequest {Text(typed.recorder), Action {}};
}

struct CommandEntry {
    const char* name;
    TrayCommand (*make)(const Typed&);
    void (*declare)(CLI::App&, Typed&);
};

void DeclareNothing(CLI::App&, Typed&) { }
void DeclareWord(CLI::App& command, Typed& typed) { command.add_option("word", typed.word); }

void DeclareCreate(CLI::App& command, Typed& typed)
{
    DeclareWord(command, typed);
    command.add_flag("--real-timing", typed.realTiming);
}

void DeclareDelete(CLI::App& command, Typed& typed)
{
    DeclareWord(command, typed);
    command.add_flag("--yes", typed.isAgreed);
}

void DeclareInsert(CLI::App& command, Typed& typed)
{
    DeclareWord(command, typed);
    command.add_option("--with", typed.image);
    command.add_option("--state", typed.state);
    command.add_option("--ready-after", typed.readyAfter);
    command.add_flag("--write-protected", typed.writeProtected);
    command.add_flag("--upside-down", typed.upsideDown);
}

void DeclareFault(CLI::App& command, Typed& typed)
{
    DeclareWord(command, typed);
    command.add_option("--at", typed.sector);
    command.add_flag("--lasting", typed.lasting);
}

constexpr std::array kCommands {
    CommandEntry {"create", CreateCommand, DeclareCreate},
    CommandEntry {"delete", DeleteCommand, DeclareDelete},
    CommandEntry {"list", Plain<List>, DeclareNothing},
    CommandEntry {"insert", InsertCommand, DeclareInsert},
    CommandEntry {"remove", Plain<TakeOut>, DeclareNothing},
    CommandEntry {"eject", Plain<Eject>, DeclareNothing},
    CommandEntry {"close", Plain<Close>, DeclareNothing},
    CommandEntry {"fault", FaultCommand, DeclareFault},
    CommandEntry {"plug", Plain<Plug>, DeclareNothing},
    CommandEntry {"timing", TimingCommand, DeclareWord},
    CommandEntry {"show", Plain<Show>, DeclareNothing},
};

TrayReply Unexpected(const CLI::App& app)
{
    const std::string first = app.remaining(true).front();
    if (first.size() > 1 && first.front() == '-') {
        return Mistake(u"l'option « %1 » est inconnue."_s.arg(Text(first)));
    }
    return Mistake(u"« %1 » est de trop, ou une commande inconnue."_s.arg(Text(first)));
}

/// A mistake found by the parser; its text begins with the option's name.
TrayReply Misread(const CLI::ParseError& error)
{
    const std::string text = error.what();
    return Mistake(u"l'option « %1 » attend une valeur, et une seule."_s.arg(
        Text(text.substr(0, text.find(':')))));
}

void Prepare(CLI::App& app, Typed& typed)
{
    app.allow_extras();
    app.set_help_flag("-h,--help");
    app.add_option("-r,--recorder", typed.recorder);
}

/// The command that was typed; empty for none.
QString ChosenCommand(const CLI::App& app)
{
    const auto* chosen = std::ranges::find_if(kCommands,
        [&app](const CommandEntry& entry) { return bool(*app.get_subcommand(entry.name)); });
    return chosen == kCommands.end() ? QString() : QString::fromLatin1(chosen->name);
}

} // namespace

TrayCommand ParseTrayCommandLine(std::vector<std::string> arguments)
{
    CLI::App app;
    Typed typed;
    Prepare(app, typed);
    const auto* version = app.add_flag("--version");
    for (const CommandEntry& entry : kCommands) {
        CLI::App* command = app.add_subcommand(entry.name);
        Prepare(*command, typed);
        entry.declare(*command, typed);
    }
    app.require_subcommand(0, 1);
    try {
        std::reverse(arguments.begin(), arguments.end()); // as the parser takes a vector
        app.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        return TrayReply {TrayExit::Done, HelpText(ChosenCommand(app))};
    } catch (const CLI::ParseError& error) {
        return Misread(error);
    }
    if (app.remaining_size(true) > 0) {
        return Unexpected(app);
    }
    if (*version) {
        return TrayReply {TrayExit::Done, u"velmora-tray "_s + QStringLiteral(VELMORA_VERSION)};
    }
    for (const CommandEntry& entry : kCommands) {
        if (app.got_subcommand(entry.name)) {
            return entry.make(typed);
        }
    }
    return TrayReply {TrayExit::WrongUsage, HelpText()};
}

} // namespace velmora::tray
