// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wizard/WizardFixture.h"
#include "wizard/controls/DiscView.h"
#include "wizard/controls/LogBox.h"
#include "wizard/controls/SpeedCurve.h"
#include "wizard/pages/BurnPage.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFontMetrics>
#include <QMenu>

#include <algorithm>
#include <sstream>

namespace velmora::test {

/// What the burn page shows of a run besides the status line and the log.
class OutcomeWayTest : public WizardFixture {
protected:
    void GoToBurn() { WizardFixture::GoToBurn("CorvaneButton2_1"); }
    void Burn()
    {
        GoToBurn();
        Click("BurnButton_0");
    }
    void PlanFault(virtualdrive::FaultKind kind, qint64 sector)
    {
        recorders.Plan(u"graveur"_s, {.kind = kind, .sector = sector, .lasting = true});
    }
    /// Its words are all there, without scrolling.
    void ExpectReadAtOnce(const char* label) const
    {
        QCoreApplication::processEvents(); // the words tell how high they are...
        QCoreApplication::processEvents(); // ...and the page makes room for them
        const auto& words = Find<QLabel>(label);
        ASSERT_TRUE(words.isVisible());
        EXPECT_EQ(words.visibleRegion().boundingRect(), words.rect());
        EXPECT_GE(words.height(), words.heightForWidth(words.width()));
    }
    const wizard::DiscContents& Disc() const
    {
        return Find<wizard::DiscView>("discView").Contents();
    }
    QAction& LogAction(const QMenu& menu, const QString& words) const
    {
        for (QAction* action : menu.actions()) {
            if (action->text().remove(u'&').startsWith(words)) return *action;
        }
        throw std::runtime_error("no such action");
    }
};

TEST_F(OutcomeWayTest, APercentIsNotShownBeforeAnythingIsWritten)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn();
    std::set<QString> phases;
    pump.onPump = [&] {
        if (IsOnScreen("percentLabel")) {
            phases.insert(TextOf("Label14").section(u"\r"_s, 0, 0));
        }
    };
    Click("BurnButton_0");
    EXPECT_EQ(
        phases, (std::set<QString> {u"Gravure en cours..."_s, u"Vérification des données..."_s}));
    EXPECT_FALSE(IsOnScreen("percentLabel")) << "nor after the end";
}

TEST_F(OutcomeWayTest, AGoodEndIsUnmistakable)
{
    OpenWith(u"dvd+r"_s);
    Burn();
    EXPECT_TRUE(IsOnScreen("outcomePicture"));
    EXPECT_EQ(TextOf("outcomeTitle"), u"Disque gravé"_s);
    EXPECT_FALSE(IsOnScreen("outcomeAdvice"));
    EXPECT_GT(Find<QLabel>("outcomeTitle").font().pointSizeF(),
        Find<QLabel>("Label14").font().pointSizeF());
    EXPECT_GT(Disc().writtenSectors, 0);
    EXPECT_EQ(Disc().writtenSectors, Disc().plannedSectors);
    EXPECT_EQ(Disc().comparedSectors, Disc().plannedSectors);
    EXPECT_EQ(TextOf("discFact"), u"DVD+R"_s);
}

TEST_F(OutcomeWayTest, AFailureStandsBesideTheLineThatTheRunLeft)
{
    OpenWith(u"dvd+r"_s);
    PlanFault(virtualdrive::FaultKind::MediumError, 200);
    Burn();
    EXPECT_TRUE(TextOf("Label14").startsWith(u"Gravure en cours..."_s)) << "as it stood";
    EXPECT_EQ(TextOf("outcomeTitle"), u"La gravure a échoué"_s);
    EXPECT_TRUE(TextOf("outcomeAdvice").contains(u"Prenez un autre disque"_s))
        << TextOf("outcomeAdvice").toStdString();
    EXPECT_FALSE(IsOnScreen("percentLabel"));
    EXPECT_LT(Disc().writtenSectors, Disc().plannedSectors);
    ExpectReadAtOnce("outcomeAdvice");
}

TEST_F(OutcomeWayTest, AStopWhileTheSessionEndsLeavesAWholeDisc)
{
    OpenWith(u"dvd+r"_s);
    recorders.Folder(u"graveur"_s).Change([](virtualdrive::Description& recorder) {
        recorder.drive.realTiming = true;
        recorder.drive.delays = {.finish = 60};
    });
    GoToBurn();
    pump.onPump = [this] { companion.isStopAsked = Log().contains(u"Ecriture des pistes"_s); };
    Click("BurnButton_0");
    EXPECT_EQ(TextOf("Label14"), u"Annulation de la gravure par l'utilisateur"_s) << "as it stood";
    EXPECT_EQ(TextOf("outcomeTitle"), u"Disque gravé, vérification arrêtée"_s);
    EXPECT_EQ(TextOf("outcomeAdvice"),
        u"Le disque est gravé en entier, mais n'a pas été comparé jusqu'au bout. "
        "Ouvrez le tiroir par le bouton du graveur."_s);
    ExpectReadAtOnce("outcomeTitle");
    ExpectReadAtOnce("Label14");
    ExpectReadAtOnce("outcomeAdvice");
}

TEST_F(OutcomeWayTest, AHurtDiscShowsItsPlaces)
{
    OpenWith(u"dvd+r"_s);
    PlanFault(virtualdrive::FaultKind::ReadError, 100);
    Burn();
    EXPECT_EQ(TextOf("outcomeTitle"), u"Le disque gravé est abîmé"_s);
    ASSERT_FALSE(Disc().hurtPlaces.empty());
    EXPECT_EQ(Disc().hurtPlaces.front().firstSector, 100);
}

TEST_F(OutcomeWayTest, AStopAndARefusalAreToldApart)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn();
    When(u"Progression"_s, [this] { companion.isStopAsked = true; });
    Click("BurnButton_0");
    EXPECT_EQ(TextOf("outcomeTitle"), u"Gravure arrêtée"_s);
    boxes.answers = {u"OK"_s, u"Non"_s}; // to the disc that was begun
    Click("BurnButton_0");
    EXPECT_EQ(TextOf("outcomeTitle"), u"Rien n'a été gravé"_s) << Log().toStdString();
    EXPECT_FALSE(TextOf("outcomeAdvice").isEmpty());
    EXPECT_EQ(Disc().writtenSectors, 0);
}

TEST_F(OutcomeWayTest, TheEndOfOneBurnIsGoneWhenTheNextBegins)
{
    OpenWith(u"dvd+r"_s);
    Burn();
    Insert(u"graveur"_s, u"dvd+r"_s);
    bool wasShown = false;
    When(u"Progression"_s, [&] { wasShown = IsOnScreen("outcomeTitle"); });
    Click("BurnButton_0");
    EXPECT_FALSE(wasShown);
    EXPECT_TRUE(IsOnScreen("outcomeTitle"));
}

TEST_F(OutcomeWayTest, AStepWithoutAnEndHasABarWithoutAnEnd)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn();
    std::set<QString> steps;
    pump.onPump = [&] {
        if (IsOnScreen("stepBar")) {
            steps.insert(TextOf("stepLabel"));
        }
    };
    Click("BurnButton_0");
    EXPECT_EQ(steps,
        (std::set<QString> {u"Préparation du graveur"_s,
            u"Réglage de la puissance du laser"_s,
            u"Finalisation du disque"_s}));
    EXPECT_FALSE(IsOnScreen("stepBar"));
    EXPECT_EQ(TextOf("stepLabel"), QString());
}

TEST_F(OutcomeWayTest, TheCurveShowsTheSpeedOfTheComparisonToo)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn();
    const auto& curve = Find<wizard::SpeedCurve>("speedCurve");
    writing::RunFigures figures {
        .phase = writing::RunPhase::Writing, .sectors = 1000, .writtenSectors = 1000};
    figures.phaseSeconds = 10;
    window->Burn().ShowFigures(figures);
    EXPECT_TRUE(curve.accessibleName().startsWith(u"Vitesse : "_s));
    EXPECT_EQ(curve.Read().Highest(), 0) << "nothing is read before the comparison";
    figures.phase = writing::RunPhase::Comparing;
    figures.comparedSectors = 500;
    figures.phaseSeconds = 2;
    window->Burn().ShowFigures(figures);
    EXPECT_EQ(curve.Written().Highest(), 100);
    EXPECT_EQ(curve.Read().Highest(), 250);
    EXPECT_TRUE(curve.accessibleName().startsWith(u"Vitesse de lecture : "_s));
    window->Burn().ShowFigures({.phase = writing::RunPhase::Working});
    EXPECT_EQ(curve.Written().Highest() + curve.Read().Highest(), 0) << "the next run";
}

TEST_F(OutcomeWayTest, TheContentsAreToldInFilesFoldersAndBytes)
{
    folder.MakeFolder("Photos/vide");
    OpenWith(u"dvd+r"_s);
    GoToBurn();
    EXPECT_EQ(TextOf("filesFact"),
        u"3\u00A0fichiers, 2\u00A0dossiers, %1\u00A0octets"_s.arg(
            QLocale::system().toString(501'000)));
}

TEST_F(OutcomeWayTest, TheOptionsShowHowFullTheDiscWouldBe)
{
    OpenWith(u"dvd+r"_s);
    Click("CorvaneButton2_2");
    const auto& disc = Find<wizard::DiscView>("plannedDisc");
    EXPECT_EQ(disc.Contents().look, wizard::DiscLook::Cd);
    EXPECT_EQ(disc.Contents().plannedSectors, (300'000 + 200'000 + 1'000 + 2047) / 2048);
    EXPECT_TRUE(disc.accessibleName().contains(u"le projet en prend"_s));
    EXPECT_EQ(TextOf("plannedWords"), disc.accessibleName());
    const qint64 room = disc.Contents().roomSectors;
    Click("CDOptionButton1_2");
    EXPECT_GT(disc.Contents().roomSectors, room);
}

TEST_F(OutcomeWayTest, ABoxThatWaitsCallsWhoLooksElsewhere)
{
    QStringList called;
    attendance.call = [&called](const QString& title, const QString&) { called += title; };
    OpenWith({});
    GoToBurn();
    QTimer::singleShot(0, window.get(), [] {
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        QApplication::setActiveWindow(nullptr);
        QT_WARNING_POP
    });
    boxes.answers = {u"Annuler"_s};
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QApplication::setActiveWindow(nullptr);
    QT_WARNING_POP
    Find<QAbstractButton>("BurnButton_0").click();
    EXPECT_EQ(called.size(), 1) << called.join(u'|').toStdString();
    QApplication::restoreOverrideCursor();
}

TEST_F(OutcomeWayTest, ABoxBeforeWhoIsThereCallsNobody)
{
    QStringList called;
    attendance.call = [&called](const QString& title, const QString&) { called += title; };
    OpenWith({});
    GoToBurn();
    boxes.answers = {u"Annuler"_s};
    Click("BurnButton_0");
    EXPECT_EQ(called, QStringList());
    QApplication::restoreOverrideCursor();
}

TEST_F(OutcomeWayTest, HiddenEntriesAreRemarkedBeforeTheBurn)
{
    folder.MakeFile("Photos/.brouillon", 10);
    OpenWith(u"dvd+r"_s);
    GoToBurn();
    const auto& button = Find<QAbstractButton>("remarksButton");
    EXPECT_EQ(button.text(), u"&Remarques : 1"_s);
    EXPECT_TRUE(button.accessibleDescription().isEmpty()) << "nobody sees it in the folder";
    Click("BurnButton_0");
    EXPECT_EQ(button.text(), u"&Remarques : 1"_s) << "as was said before";
}

TEST_F(OutcomeWayTest, ALinkThatLeadsOutWarnsAndSaysHowToTakeIt)
{
    std::filesystem::create_symlink("/etc/passwd", folder / "Photos/2024/nom");
    OpenWith(u"dvd+r"_s);
    GoToBurn();
    auto& button = Find<QAbstractButton>("remarksButton");
    EXPECT_EQ(button.text(), u"&Remarques : 2"_s) << "it leads out, and Joliet has no links";
    Click("BurnButton_0");
    EXPECT_EQ(button.text(), u"&Remarques : 2"_s) << "as was said before";
    EXPECT_FALSE(button.accessibleDescription().isEmpty());
    QString text;
    chooser.files = {FolderPath("remarques.txt")};
    QTimer::singleShot(0, window.get(), [&] {
        QWidget* form = QApplication::activeModalWidget();
        text = form->findChild<QPlainTextEdit*>(u"remarksText"_s)->toPlainText();
        form->findChild<QAbstractButton*>(u"copyRemarks"_s)->click();
        form->findChild<QAbstractButton*>(u"saveRemarks"_s)->click();
        form->findChild<QAbstractButton*>(u"closeRemarks"_s)->click();
    });
    button.click();
    EXPECT_TRUE(text.contains(u"« /etc/passwd »"_s)) << text.toStdString();
    EXPECT_TRUE(text.contains(u"ajoutez-le à la liste"_s));
    EXPECT_EQ(QApplication::clipboard()->text(), text);
    EXPECT_TRUE(std::filesystem::exists(folder / "remarques.txt"));
}

TEST_F(OutcomeWayTest, RemarksAreWorkedOutBesideTheUsersWork)
{
    std::filesystem::create_symlink("/etc/passwd", folder / "Photos/2024/nom");
    sideWork.isHeld = true;
    OpenWith(u"dvd+r"_s);
    GoToBurn();
    const auto& button = Find<QAbstractButton>("remarksButton");
    EXPECT_EQ(button.text(), u"&Remarques…"_s);
    EXPECT_FALSE(button.isEnabled());
    EXPECT_EQ(button.accessibleDescription(), button.toolTip());
    EXPECT_FALSE(button.toolTip().isEmpty());
    sideWork.Finish();
    EXPECT_EQ(button.text(), u"&Remarques : 2"_s);
    EXPECT_TRUE(button.isEnabled());
    EXPECT_FALSE(button.accessibleDescription().isEmpty()) << "the link isn't what it leads to";
}

TEST_F(OutcomeWayTest, RemarksAreDroppedWhereNobodyWaitsForThem)
{
    sideWork.isHeld = true;
    OpenWith(u"dvd+r"_s);
    GoToBurn();
    EXPECT_TRUE(sideWork.IsBegun());
    Click("CorvaneButton1");
    EXPECT_FALSE(sideWork.IsBegun()) << "the page went";
    GoToBurn();
    EXPECT_TRUE(sideWork.IsBegun());
    Click("BurnButton_0");
    EXPECT_FALSE(sideWork.IsBegun()) << "the burn has its own";
    EXPECT_EQ(Find<QAbstractButton>("remarksButton").text(), u"&Remarques : 0"_s);
}

TEST_F(OutcomeWayTest, RemarksGoWithTheWindow)
{
    sideWork.isHeld = true;
    OpenWith(u"dvd+r"_s);
    GoToBurn();
    EXPECT_TRUE(sideWork.IsBegun());
    wizard.reset();
    EXPECT_FALSE(sideWork.IsBegun());
}

TEST_F(OutcomeWayTest, ARunThatLaysNoImageOutLeavesTheRemarksOfBefore)
{
    std::filesystem::create_symlink("/etc/passwd", folder / "Photos/2024/nom");
    OpenWith(u"dvd+r"_s);
    GoToBurn();
    Click("BurnButton_1"); // and no file is named
    EXPECT_EQ(Find<QAbstractButton>("remarksButton").text(), u"&Remarques : 2"_s);
}

TEST_F(OutcomeWayTest, WhereThereIsNoRoomForBothTheLogTakesIt)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn();
    EXPECT_TRUE(IsOnScreen("discPanel"));
    window->resize(640, 400);
    QCoreApplication::processEvents();
    EXPECT_FALSE(IsOnScreen("discPanel"));
    EXPECT_TRUE(IsOnScreen("LogTxtBox"));
    window->resize(900, 620);
    QCoreApplication::processEvents();
    EXPECT_TRUE(IsOnScreen("discPanel"));
}

TEST_F(OutcomeWayTest, TheLogCanBeCopiedAndSaved)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn();
    auto& box = Find<wizard::LogBox>("LogTxtBox");
    const QFontMetrics letters(box.font());
    EXPECT_EQ(letters.horizontalAdvance(u"iii"_s), letters.horizontalAdvance(u"WWW"_s));
    {
        const std::unique_ptr<QMenu> menu(box.CreateMenu());
        EXPECT_FALSE(LogAction(*menu, u"Copier tout le journal"_s).isEnabled());
        EXPECT_FALSE(LogAction(*menu, u"Enregistrer le journal"_s).isEnabled());
    }
    Click("BurnButton_0");
    const std::unique_ptr<QMenu> menu(box.CreateMenu());
    LogAction(*menu, u"Copier tout le journal"_s).trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), Log());
    const std::string log = Log().toStdString();
    box.clear(); // what is saved is the log, not what is left of its picture
    chooser.files = {FolderPath("journal.txt")};
    LogAction(*menu, u"Enregistrer le journal"_s).trigger();
    std::ifstream in(folder / "journal.txt");
    std::stringstream saved;
    saved << in.rdbuf();
    EXPECT_EQ(saved.str(), log + "\n");
}

} // namespace velmora::test
