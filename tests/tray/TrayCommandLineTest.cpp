// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayCommandLine.h"

#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace velmora::tray {

using namespace Qt::StringLiterals;
using virtualdrive::DiscPreset;
using virtualdrive::FaultKind;

namespace {

/// The request that a command line makes; a test fails on one that makes none.
TrayRequest RequestOf(const std::vector<std::string>& arguments)
{
    const TrayCommand command = ParseTrayCommandLine(arguments);
    if (const auto* reply = std::get_if<TrayReply>(&command)) {
        ADD_FAILURE() << reply->text.toStdString();
        return {};
    }
    return std::get<TrayRequest>(command);
}

template <class Action> Action ActionOf(const std::vector<std::string>& arguments)
{
    const TrayRequest request = RequestOf(arguments);
    if (!std::holds_alternative<Action>(request.action)) {
        ADD_FAILURE() << "another action";
        return {};
    }
    return std::get<Action>(request.action);
}

TrayReply ReplyTo(const std::vector<std::string>& arguments)
{
    const TrayCommand command = ParseTrayCommandLine(arguments);
    if (!std::holds_alternative<TrayReply>(command)) {
        ADD_FAILURE() << "a request";
        return {};
    }
    return std::get<TrayReply>(command);
}

} // namespace

TEST(TrayCommandLineTest, HelpNamesEveryCommandAndEveryCommandHasItsOwn)
{
    const TrayReply help = ReplyTo({"--help"});
    EXPECT_EQ(help.code, TrayExit::Done);
    EXPECT_TRUE(help.text.contains(u"--recorder"));
    for (const char* word : {"create",
             "delete",
             "list",
             "insert",
             "remove",
             "eject",
             "close",
             "fault",
             "plug",
             "timing",
             "show"}) {
        EXPECT_TRUE(help.text.contains(u"\n  "_s + QString::fromLatin1(word) + u' ')) << word;
        const TrayReply own = ReplyTo({word, "--help"});
        EXPECT_EQ(own.code, TrayExit::Done);
        EXPECT_TRUE(
            own.text.contains(u"\nUtilisation : velmora-tray "_s + QString::fromLatin1(word)))
            << own.text.toStdString();
        EXPECT_TRUE(own.text.contains(u"\nCode de sortie :\n")) << word;
    }
}

TEST(TrayCommandLineTest, HelpNamesEveryFaultAndEveryDisc)
{
    const QString discs = ReplyTo({"insert", "-h"}).text;
    for (const virtualdrive::MediumFacts& medium : virtualdrive::AllMedia()) {
        EXPECT_TRUE(discs.contains(u"\n  "_s + medium.key.toString() + u' '));
    }
    const QString faults = ReplyTo({"fault", "-h"}).text;
    for (int kind = 0; kind <= static_cast<int>(FaultKind::EraseFails); ++kind) {
        const QString key = virtualdrive::KeyOf(static_cast<FaultKind>(kind));
        EXPECT_TRUE(faults.contains(u"\n  "_s + key + u' ')) << key.toStdString();
    }
}

TEST(TrayCommandLineTest, DeleteTakesANameAndAnAgreement)
{
    EXPECT_EQ(RequestOf({"delete", "Salon"}).recorder, u"Salon"_s);
    EXPECT_EQ(RequestOf({"delete", "-r", "Salon"}).recorder, u"Salon"_s);
    EXPECT_FALSE(ActionOf<Delete>({"delete", "Salon"}).isAgreed);
    EXPECT_TRUE(ActionOf<Delete>({"delete", "Salon", "--yes"}).isAgreed);
}

TEST(TrayCommandLineTest, NothingToDoIsAMistake)
{
    EXPECT_EQ(ReplyTo({}).code, TrayExit::WrongUsage);
    EXPECT_TRUE(ReplyTo({"--version"}).text.startsWith(u"velmora-tray "));
}

TEST(TrayCommandLineTest, TheRecorderIsNamedBeforeOrBehindTheCommand)
{
    EXPECT_EQ(RequestOf({"--recorder", "B", "eject"}).recorder, u"B"_s);
    EXPECT_EQ(RequestOf({"eject", "-r", "été"}).recorder, u"été"_s);
    EXPECT_TRUE(RequestOf({"eject"}).recorder.isEmpty());
}

TEST(TrayCommandLineTest, CreateTakesAName)
{
    EXPECT_TRUE(ActionOf<Create>({"create"}).name.isEmpty());
    EXPECT_EQ(ActionOf<Create>({"create", "Salon"}).name, u"Salon"_s);
    EXPECT_TRUE(ActionOf<Create>({"create", "--real-timing"}).realTiming);
}

TEST(TrayCommandLineTest, InsertTakesATypeAndAState)
{
    EXPECT_EQ(ActionOf<Insert>({"insert", "dvd+r"}).order.preset, DiscPreset::Blank);
    const auto order = ActionOf<Insert>({"insert",
                                            "bd-r",
                                            "--state",
                                            "ouvert",
                                            "--write-protected",
                                            "--upside-down",
                                            "--ready-after",
                                            "7"})
                           .order;
    ASSERT_NE(order.medium, nullptr);
    EXPECT_EQ(order.medium->profile, 0x41);
    EXPECT_EQ(order.preset, DiscPreset::Appendable);
    EXPECT_TRUE(order.writeProtected && order.upsideDown);
    EXPECT_EQ(order.secondsToReady, 7);
    for (const char* state : {"ferme", "fermé"}) {
        EXPECT_EQ(ActionOf<Insert>({"insert", "cd-r", "--state", state}).order.preset,
            DiscPreset::Closed);
    }
    EXPECT_EQ(
        ActionOf<Insert>({"insert", "cd-r", "--state", "plein"}).order.preset, DiscPreset::Full);
}

TEST(TrayCommandLineTest, InsertTakesAnImage)
{
    const test::TemporaryFolder folder;
    const std::string image = folder.MakeFile("a.iso", 2048);
    const auto order = ActionOf<Insert>({"insert", image}).order;
    EXPECT_EQ(order.medium, nullptr);
    EXPECT_EQ(order.image, image);
    const auto closed = ActionOf<Insert>({"insert", "cd-r", "--with", image}).order;
    EXPECT_EQ(closed.medium->profile, 0x09);
    EXPECT_EQ(closed.image, image);
    EXPECT_EQ(closed.preset, DiscPreset::Closed);
}

TEST(TrayCommandLineTest, FaultTakesItsSector)
{
    const auto fault = ActionOf<PlanFault>({"fault", "medium", "--at", "100", "--lasting"}).fault;
    EXPECT_EQ(fault.kind, FaultKind::MediumError);
    EXPECT_EQ(fault.sector, 100);
    EXPECT_TRUE(fault.lasting);
    EXPECT_EQ(ActionOf<PlanFault>({"fault", "tray"}).fault.kind, FaultKind::TrayStuck);
    EXPECT_FALSE(ActionOf<Plug>({"fault", "unplugged"}).isPlugged); // at once
    EXPECT_EQ(ActionOf<PlanFault>({"fault", "unplugged", "--at", "9"}).fault.sector, 9);
    EXPECT_TRUE(ActionOf<Plug>({"plug"}).isPlugged);
    ActionOf<ClearFaults>({"fault", "clear"});
}

TEST(TrayCommandLineTest, TimingIsRealOrNone)
{
    EXPECT_TRUE(ActionOf<Timing>({"timing", "real"}).isReal);
    EXPECT_FALSE(ActionOf<Timing>({"timing", "none"}).isReal);
}

TEST(TrayCommandLineTest, MistakesAreNamed)
{
    const std::vector<std::pair<std::vector<std::string>, QStringView>> mistakes {
        {{"frob"}, u"« frob » est de trop, ou une commande inconnue."},
        {{"eject", "now"}, u"« now » est de trop"},
        {{"eject", "close"}, u"« close » est de trop"},
        {{"eject", "--fast"}, u"l'option « --fast » est inconnue."},
        {{"eject", "--recorder"}, u"l'option « --recorder » attend une valeur, et une seule."},
        {{"insert"}, u"il manque le type de disque"},
        {{"insert", "tape"}, u"« tape » n'est ni un type de disque ni une image."},
        {{"insert", "cd-r", "--state", "neuf"}, u"--state attend"},
        {{"insert", "cd-r", "--with", "x", "--state", "vierge"}, u"un disque vierge"},
        {{"insert", "cd-r", "--ready-after", "-1"}, u"--ready-after attend"},
        {{"insert", "cd-r", "--ready-after", "soon"}, u"--ready-after attend"},
        {{"fault"}, u"il manque la panne."},
        {{"fault", "rain"}, u"« rain » n'est pas une panne connue."},
        {{"fault", "tray", "--at", "1"}, u"n'attend pas de secteur"},
        {{"fault", "medium", "--at", "x"}, u"--at attend"},
        {{"fault", "medium", "--at", "-5"}, u"--at attend"},
        {{"timing"}, u"timing attend real ou none."},
        {{"delete"}, u"donnez le nom du graveur à supprimer, et un seul."},
        {{"delete", "A", "-r", "B"}, u"donnez le nom du graveur à supprimer, et un seul."},
    };
    for (const auto& [arguments, text] : mistakes) {
        const TrayReply reply = ReplyTo(arguments);
        EXPECT_EQ(reply.code, TrayExit::WrongUsage);
        EXPECT_TRUE(reply.text.startsWith(u"Erreur : ")) << reply.text.toStdString();
        EXPECT_TRUE(reply.text.contains(text)) << reply.text.toStdString();
    }
}

} // namespace velmora::tray
