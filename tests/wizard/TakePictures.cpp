// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/FindChild.h"
#include "tests/support/ModalWindow.h"
#include "tests/wizard/WizardBench.h"
#include "tray/TrayWindow.h"

#include <QApplication>
#include <QComboBox>
#include <QCommandLineParser>
#include <QDir>
#include <QLabel>
#include <QProgressBar>
#include <QStyleFactory>
#include <QTabBar>
#include <QTimer>

#include <cstdio>

// Takes the pictures of the documentation: goes through the real window with a virtual recorder,
// and keeps every page and state as a file.

namespace {

using namespace velmora;
using namespace Qt::StringLiterals;

QPalette DarkPalette()
{
    QPalette dark(QColor(0x3a, 0x3a, 0x3e), QColor(0x2b, 0x2b, 0x2e));
    dark.setColor(QPalette::WindowText, QColor(0xe6, 0xe6, 0xe6));
    dark.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x20));
    dark.setColor(QPalette::AlternateBase, QColor(0x26, 0x26, 0x29));
    dark.setColor(QPalette::Text, QColor(0xe6, 0xe6, 0xe6));
    dark.setColor(QPalette::ButtonText, QColor(0xe6, 0xe6, 0xe6));
    dark.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3a, 0x3e));
    dark.setColor(QPalette::ToolTipText, QColor(0xe6, 0xe6, 0xe6));
    dark.setColor(QPalette::Highlight, QColor(0x40, 0x60, 0xc0));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::PlaceholderText, QColor(0x90, 0x90, 0x90));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    }
    return dark;
}

/// One walk through the window.
class Photographer {
public:
    Photographer(QString folder, const std::filesystem::path& place)
        : folder_(std::move(folder))
        , bench_(place)
    {
        bench_.clock
            = std::make_unique<runtime::SystemClock>(bench_.pump); // a write takes its time
        bench_.folder.MakeFile("Vacances/été 2026/plage.jpg", 380'000'000);
        bench_.folder.MakeFile("Vacances/été 2026/coucher de soleil.jpg", 95'000'000);
        bench_.folder.MakeFile("Vacances/films/randonnée.mp4", 61'000'000);
        bench_.folder.MakeFile("Vacances/itinéraire.pdf", 2'400'000);
        bench_.folder.MakeFile("Vacances/lisez-moi.txt", 1'200);
        bench_.MakeRecorder(u"graveur-1"_s, u"cd-rw"_s);
        bench_.boxes.onBox = [this](QMessageBox& box) { KeepBox(box); };
    }

    void Walk()
    {
        bench_.Load(bench_.FolderPath("Vacances"));
        bench_.window->show();
        QCoreApplication::processEvents();
        Keep("1-formats");
        WalkOptions();
        WalkBurn();
        WalkConfiguration();
        WalkTooMuch();
        WalkGrey();
    }

private:
    void Keep(const char* name)
    {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::processEvents(); // a layout within a layout takes its turns
        }
        Save(*bench_.window, QString::fromLatin1(name));
    }
    /// The boxes come in this order.
    void KeepBox(QMessageBox& box)
    {
        const QStringList names {u"2-box-insert"_s,
            u"5-box-insert"_s,
            u"6-box-warning"_s,
            u"6-box-insert"_s,
            u"6-box-full-or-quick"_s};
        Save(box, names.value(boxes_++, u"box"_s));
    }
    /// Clicks what shows a small window, keeps it and closes it.
    void KeepWindow(const char* button, const QString& name)
    {
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, bench_.window.get(), [&] {
            if (QWidget* form = QApplication::activeModalWidget()) {
                timer.stop();
                Save(*form, name);
                form->close();
            }
        });
        timer.start();
        bench_.Click(button);
    }
    void Save(QWidget& widget, const QString& name) const
    {
        widget.grab().save(folder_ + u'/' + name + u".png"_s);
    }

    /// With another recorder, which only writes CDs.
    void WalkGrey()
    {
        virtualdrive::Description recorder = virtualdrive::NewDescription();
        constexpr qint32 kFirstDvd = 0x10; // the profiles of CDs lie below
        erase_if(recorder.drive.profiles, [](qint32 profile) { return profile >= kFirstDvd; });
        bench_.recorders.Create(u"graveur-2"_s, recorder);
        bench_.Load(bench_.FolderPath("Vacances"));
        bench_.window->show();
        bench_.Find<QComboBox>("Combo1").setCurrentIndex(1);
        Keep("1-formats-grey");
    }

    void WalkOptions()
    {
        for (const char* tile : {"CorvaneButton2_0", "CorvaneButton2_1", "CorvaneButton2_2"}) {
            bench_.Click(tile);
            Keep((std::string("2-options-") + tile[15]).c_str());
            bench_.Click("CorvaneButton1");
        }
        bench_.Click("CorvaneButton2_3");
        Keep("2-options-detected");
        bench_.Click("CorvFichiers");
        Keep("3-list");
        KeepWindow("CorvaneButton7", u"3-make-directory"_s);
        bench_.Click("CorvFermer");
    }

    void WalkBurn()
    {
        bench_.Click("CorvaneButton1");
        bench_.Click("CorvaneButton2_2");
        bench_.Click("CorvSuivant");
        Keep("4-burn");
        bench_.pump.onPump = [this] { WatchBurn(); };
        bench_.Click("BurnButton_0");
        bench_.pump.onPump = {};
        Keep("4-burn-done");
        WalkBadEnds();
        bench_.window->hide();
    }
    /// Burns again, on discs that can't be good.
    void WalkBadEnds()
    {
        const auto keepBox = std::exchange(bench_.boxes.onBox, {});
        KeepBurnWith(
            {.kind = virtualdrive::FaultKind::MediumError, .sector = 120'000}, "4-burn-failed");
        KeepBurnWith(
            {.kind = virtualdrive::FaultKind::ReadError, .sector = 60'000, .lasting = true},
            "4-burn-hurt");
        bench_.boxes.answers = {u"OK"_s, u"Non"_s};
        bench_.Click("BurnButton_0"); // onto the previous disc
        Keep("4-burn-refused");
        bench_.boxes.onBox = keepBox;
    }
    void KeepBurnWith(const virtualdrive::Fault& fault, const char* name)
    {
        bench_.Insert(u"graveur-1"_s, u"cd-rw"_s);
        bench_.recorders.Plan(u"graveur-1"_s, fault);
        bench_.Click("BurnButton_0");
        Keep(name);
    }
    void WatchBurn()
    {
        if (!isWaitKept_ && bench_.IsOnScreen("Frame3DWait")) {
            isWaitKept_ = true;
            Save(*bench_.window, u"5-wait"_s);
        }
        const QString phase = bench_.Find<QLabel>("Label14").text();
        if (!isWriteKept_ && phase.contains(u"Progression"_s)
            && bench_.Find<QProgressBar>("Corvane7ProgressBar1").value() >= 42) {
            isWriteKept_ = true;
            Save(*bench_.window, u"4-burn-running"_s);
        }
    }

    /// One file more than the disc holds.
    void WalkTooMuch()
    {
        bench_.folder.MakeFile("archives.zip", 400'000'000);
        bench_.Load(bench_.FolderPath("Vacances"));
        bench_.window->show();
        bench_.Click("CorvaneButton2_2");
        bench_.Click("CorvFichiers");
        bench_.chooser.files = {bench_.FolderPath("archives.zip")};
        bench_.Click("CorvaneButton4");
        Keep("3-list-too-much");
    }

    void WalkConfiguration()
    {
        bench_.Load(bench_.FolderPath("Vacances"));
        bench_.window->show();
        bench_.Find<QTabBar>("CorvaneTab1").setCurrentIndex(1);
        Keep("6-configuration");
        bench_.boxes.answers = {u"Oui"_s, u"OK"_s, u"Oui"_s};
        bench_.pump.onPump = [this] { WatchErase(); };
        bench_.Click("EraseDiscbutton");
        bench_.pump.onPump = {};
        Keep("6-erased");
        KeepFailedErase();
        KeepWindow("GraveurPossibilities", u"7-characteristics"_s);
        KeepWindow("TempSearch", u"7-temporary-directory"_s);
        KeepWindow("Image1", u"7-about"_s);
    }
    void KeepFailedErase()
    {
        const auto keepBox = std::exchange(bench_.boxes.onBox, {});
        bench_.recorders.Plan(u"graveur-1"_s, {.kind = virtualdrive::FaultKind::EraseFails});
        bench_.boxes.answers = {u"Oui"_s, u"OK"_s, u"Non"_s};
        bench_.Click("EraseDiscbutton");
        Keep("6-not-erased");
        bench_.boxes.onBox = keepBox;
    }
    void WatchErase()
    {
        if (bench_.Find<QLabel>("lblErase").text().startsWith(u"Temps"_s)) {
            Save(*bench_.window, u"6-erasing"_s);
        }
    }

    QString folder_;
    test::WizardBench bench_;
    int boxes_ = 0;
    bool isWaitKept_ = false;
    bool isWriteKept_ = false;
};

/// Clicks what shows a dialog of the virtual recorders, keeps it and cancels it.
void KeepTrayDialog(tray::TrayWindow& window, const char* button, const QString& file)
{
    const test::ModalWindow person([&file](QWidget& dialog) {
        dialog.grab().save(file);
        dialog.close();
    });
    test::FindChild<QAbstractButton>(window, button).click();
}

/// Keeps the window of the virtual recorders, open with a used disc in its tray, and its dialogs.
void KeepTray(const QString& folder, const std::filesystem::path& place)
{
    runtime::SystemEventPump pump;
    const runtime::SystemClock clock(pump);
    const virtualdrive::Recorders recorders((place / "tray").string(), test::SampleSectors);
    recorders.Create(u"Salon"_s);
    recorders.Insert(u"Salon"_s,
        {.medium = virtualdrive::FindMedium(u"dvd+rw"), .preset = virtualdrive::DiscPreset::Closed},
        clock);
    recorders.Eject(u"Salon"_s);
    tray::TrayWindow window(recorders, clock);
    window.show();
    QCoreApplication::processEvents();
    window.grab().save(folder + u"/tray.png"_s);
    KeepTrayDialog(window, "insertButton", folder + u"/tray-insert.png"_s);
    KeepTrayDialog(window, "faultButton", folder + u"/tray-fault.png"_s);
    KeepTrayDialog(window, "deleteButton", folder + u"/tray-delete.png"_s);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QCommandLineParser options;
    options.addOption({u"dark"_s, u"As on a dark desktop."_s});
    options.addPositionalArgument(u"folder"_s, u"Where the pictures go."_s);
    options.process(application);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    if (options.isSet(u"dark"_s)) {
        QApplication::setPalette(DarkPalette());
    }
    const QString folder = options.positionalArguments().value(0, u"."_s);
    QDir().mkpath(folder);
    const std::filesystem::path place = "/tmp/velmora";
    std::filesystem::remove_all(place);
    Photographer(folder, place).Walk();
    KeepTray(folder, place);
    std::filesystem::remove_all(place);
    return 0;
}
