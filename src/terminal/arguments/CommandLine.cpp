// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/CommandLine.h"

#include "terminal/arguments/CheckArguments.h"
#include "terminal/arguments/DiscArguments.h"
#include "terminal/arguments/HelpText.h"
#include "terminal/arguments/ImageArguments.h"
#include "terminal/console/FrenchText.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include <CLI/CLI.hpp>

namespace velmora::terminal {

namespace {

void DeclareCommand(CLI::App& command)
{
    command.allow_extras();
    command.set_help_flag("-h,--help");
}

Reply Unexpected(const CLI::App& app)
{
    const std::string first = app.remaining(true).front();
    if (first.size() > 1 && first.front() == '-') {
        return WrongUsage("l'option " + Quoted(first) + " est inconnue.");
    }
    return WrongUsage(Quoted(first) + " est de trop, ou une commande inconnue.");
}

/// A mistake found by the parser; its text begins with the option's name.
Reply Misread(const CLI::ParseError& error)
{
    const std::string text = error.what();
    return WrongUsage(
        "l'option " + Quoted(text.substr(0, text.find(':'))) + " attend une valeur, et une seule.");
}

/// One of the few answers of a command as one of all commands.
template <class Narrow> Command Widened(Narrow&& reply)
{
    return std::visit([](auto&& given) -> Command { return std::forward<decltype(given)>(given); },
        std::forward<Narrow>(reply));
}

/// The parser with its commands, and what was typed.
class Grammar {
public:
    Grammar(const char* sourceDateEpoch, image::TimeStamp now)
    {
        content_.sourceDateEpoch = sourceDateEpoch;
        DeclareCommand(app_);
        version_ = app_.add_flag("--version");
        DeclareImage(Add("image", ImageHelp, [this, now] {
            return Widened(ImageCommand(content_, image_, now));
        }));
        DeclareBurn(
            Add("burn", BurnHelp, [this] { return Widened(BurnCommand(content_, disc_)); }));
        DeclareIsoBurn(
            Add("burn-iso", IsoBurnHelp, [this] { return Widened(IsoBurnCommand(disc_)); }));
        DeclareErase(Add("erase", EraseHelp, [this] { return Widened(EraseCommand(disc_)); }));
        Add("recorders", RecordersHelp, [this] {
            return Widened(DriveCommand(DriveQuestion::Recorders, disc_));
        }).add_flag("--json", disc_.json);
        DeclareMedia(Add("media", MediaHelp, [this] {
            return Widened(DriveCommand(DriveQuestion::Media, disc_));
        }));
        Add("report", ReportHelp, [this] {
            return Widened(DriveCommand(DriveQuestion::Report, disc_));
        }).add_option("--recorder", disc_.recorder);
        DeclareCheck(Add("check", CheckHelp, [this] { return Widened(CheckCommand(check_)); }));
        DeclareBurns(Add("burns", BurnsHelp, [this] { return Widened(BurnsCommand(check_)); }));
    }

    /// Reads what was typed. Errors: those of the parser.
    void Read(std::vector<std::string> arguments)
    {
        std::ranges::reverse(arguments); // as the parser takes a vector
        app_.parse(std::move(arguments));
    }

    std::string_view Help() const
    {
        const Entry* entry = Chosen();
        return entry != nullptr ? entry->help() : GeneralHelp();
    }

    Command Understand() const
    {
        if (app_.remaining_size(true) > 0) {
            return Unexpected(app_);
        }
        if (*version_) {
            return Reply {ExitCode::Done, "velmora-cli " VELMORA_VERSION};
        }
        const Entry* entry = Chosen();
        if (entry == nullptr) {
            return Reply {ExitCode::WrongUsage, std::string(GeneralHelp())};
        }
        Command command = entry->understand();
        const auto mistake = MistakeOfTelling(entry->parser->get_name());
        const bool isUnderstood = !std::holds_alternative<Reply>(command);
        return isUnderstood && mistake ? Command(*mistake) : std::move(command);
    }

private:
    /// What is wrong with the output form that was chosen for the command.
    std::optional<Reply> MistakeOfTelling(const std::string& command) const
    {
        const bool asks = command == "burn" || command == "burn-iso" || command == "erase";
        if (quiet_ && disc_.json) {
            return WrongUsage("--quiet et --json ne vont pas ensemble : choisissez.", command);
        }
        if (disc_.json && asks && !disc_.yes) {
            return WrongUsage(
                "avec --json aucune question ne peut être posée : ajoutez --yes.", command);
        }
        if (disc_.json && image_.output == "-") {
            return WrongUsage("avec --json la sortie standard n'est pas libre pour une image : "
                              "donnez un fichier à -o.",
                command);
        }
        return std::nullopt;
    }

    struct Entry {
        CLI::App* parser;
        std::string_view (*help)();
        std::function<Command()> understand;
    };

    CLI::App& Add(const char* word, std::string_view (*help)(), std::function<Command()> understand)
    {
        CLI::App& parser = *app_.add_subcommand(word);
        DeclareCommand(parser);
        entries_.push_back({&parser, help, std::move(understand)});
        return parser;
    }

    const Entry* Chosen() const
    {
        const auto chosen = std::ranges::find_if(
            entries_, [](const Entry& entry) { return bool(*entry.parser); });
        return chosen == entries_.end() ? nullptr : &*chosen;
    }

    /// What "image" and "burn" share.
    CLI::App& DeclareContent(CLI::App& command)
    {
        command.add_option("folder", content_.folder);
        command.add_option("-n,-N,--name", content_.name);
        command.add_option("--medium,--format", content_.medium);
        command.add_option("--fs", content_.fileSystems);
        command.add_option("--level", content_.level);
        command.add_option("--links", content_.links);
        command.add_flag("--sums", content_.sums);
        command.add_option("--attributes", content_.attributes);
        command.add_flag("--report", content_.report);
        return command;
    }

    /// What all commands share except those that only answer.
    CLI::App& DeclareJob(CLI::App& command)
    {
        command.add_flag("--json", disc_.json);
        command.add_flag("-q,--quiet", quiet_);
        return command;
    }

    void DeclareImage(CLI::App& command)
    {
        DeclareJob(DeclareContent(command));
        command.add_option("-o,--output", image_.output);
        command.add_flag("--replace", image_.replace);
    }

    /// What all commands that write share.
    CLI::App& DeclareTerms(CLI::App& command)
    {
        command.add_option("--recorder", disc_.recorder);
        command.add_option("--copies", disc_.copies);
        command.add_flag("--no-compare,--no-verify", disc_.noCompare);
        command.add_flag("--yes", disc_.yes);
        return DeclareJob(command);
    }

    void DeclareBurn(CLI::App& command)
    {
        DeclareTerms(DeclareContent(command));
        command.add_option("--speed", disc_.speed);
        command.add_flag("--close", disc_.close);
    }

    void DeclareIsoBurn(CLI::App& command)
    {
        DeclareTerms(command).add_option("file", disc_.image);
        command.add_flag("--raw", disc_.raw);
    }

    void DeclareErase(CLI::App& command)
    {
        DeclareJob(command).add_option("--recorder", disc_.recorder);
        command.add_flag("--full", disc_.full);
        command.add_flag("--yes", disc_.yes);
    }

    void DeclareMedia(CLI::App& command)
    {
        command.add_option("--recorder", disc_.recorder);
        command.add_flag("--json", disc_.json);
    }

    void DeclareCheck(CLI::App& command)
    {
        DeclareJob(command).add_option("what", check_.what);
        command.add_option("--with", check_.folder);
        command.add_option("--record", check_.record);
        command.add_option("--report", check_.report);
    }

    void DeclareBurns(CLI::App& command)
    {
        command.add_option("number", check_.record);
        command.add_flag("--forget", check_.forget);
        command.add_flag("--all", check_.all);
    }

    CLI::App app_;
    CLI::Option* version_ = nullptr;
    std::vector<Entry> entries_;
    ContentArguments content_;
    ImageArguments image_;
    DiscArguments disc_;
    CheckArguments check_;
    bool quiet_ = false;
};

} // namespace

Command ParseCommandLine(
    std::vector<std::string> arguments, const char* sourceDateEpoch, image::TimeStamp now)
{
    Grammar grammar(sourceDateEpoch, now);
    try {
        grammar.Read(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        return Reply {ExitCode::Done, std::string(grammar.Help())};
    } catch (const CLI::ParseError& error) {
        return Misread(error);
    }
    return grammar.Understand();
}

image::TimeStamp PresentTime()
{
    using namespace std::chrono;
    const auto now = duration_cast<microseconds>(system_clock::now().time_since_epoch());
    const auto whole = floor<seconds>(now);
    return {.seconds = whole.count(),
        .microseconds = static_cast<std::uint32_t>((now - whole).count())};
}

} // namespace velmora::terminal
