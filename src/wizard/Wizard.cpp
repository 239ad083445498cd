// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/Wizard.h"

#include "dialogs/frmAbout.h"
#include "recorder/forms/FrmBurner.h"
#include "shell/forms/FrmTemp.h"
#include "ui_BurnPage.h"
#include "ui_ConfigurationPage.h"
#include "ui_FormatPage.h"
#include "ui_FrmMain.h"
#include "ui_ListPage.h"
#include "ui_OptionsPage.h"
#include "wizard/FrmMain.h"
#include "wizard/controls/FormatTile.h"
#include "wizard/pages/BurnPage.h"
#include "wizard/pages/ConfigurationPage.h"
#include "wizard/pages/FormatPage.h"
#include "wizard/pages/ListPage.h"
#include "wizard/pages/OptionsPage.h"
#include "wizard/rules/ChooseFolder.h"
#include "wizard/rules/ReportUnhandled.h"
#include "writing/BurnRun.h"
#include "writing/EraseRun.h"
#include "writing/IsoBurnRun.h"

#include <QApplication>

#include <utility>

namespace velmora::wizard {

Wizard::Wizard(FrmMain& window, const WizardDoors& doors)
    : window_(window)
    , doors_(doors)
    , capacity_(state_)
    , CommonDialog1_(doors.chooser)
    , RepTempTxt_(*window.Configuration().Controls().RepTempTxt)
    , burnScreen_(window, doors.pump, CommonDialog1_)
    , burnOptions_(window, RepTempTxt_)
    , eraseScreen_(window, doors.pump)
    , formatScreen_(window)
    , navigationView_(window)
    , startView_(
          window, RepTempTxt_, [this] { icons_.Create(); }, [this] { SetUpListFile(); })
    , compilation_(state_,
          ListFile_,
          capacity_,
          {.files = doors.files, .icons = icons_, .messages = burnScreen_, .pointer = burnScreen_})
    , editingDialogs_(window, CommonDialog1_, doors.chooser, ListFile_)
    , listEditing_(compilation_, ListFile_, editingDialogs_, burnScreen_)
    , listDrop_(compilation_, ListFile_, doors.files, burnScreen_)
    , navigation_(state_, navigationView_, burnScreen_)
    , formatChoice_({.state = state_,
          .recorders = recorders_,
          .mastering = doors.mastering,
          .clock = doors.clock,
          .capacity = capacity_,
          .screen = formatScreen_,
          .pages = navigationView_,
          .burnPage = burnScreen_,
          .navigation = navigation_})
    , discOptions_(state_, capacity_)
    , recorderChoice_(state_, recorders_, doors.settings, startView_, formatScreen_)
    , startUp_({.state = state_,
          .recorders = recorders_,
          .mastering = doors.mastering,
          .compilation = compilation_,
          .settings = doors.settings,
          .screen = startView_,
          .navigation = navigation_,
          .ChooseFolder = [this] { return ChooseFolder(doors_.chooser, doors_.settings); }})
    , reading_(burnScreen_, state_)
    , progress_(burnScreen_, state_, doors.companion)
{
    ConnectWindow();
    ConnectNavigation();
    ConnectFormats();
    ConnectList();
    ConnectConfiguration();
    ConnectRuns();
    ConnectSmallWindows();
}

bool Wizard::Form_Load(const shell::CommandString& command)
{
    bool isLoaded = false;
    RunHandler([&] { isLoaded = startUp_.Form_Load(command); });
    return isLoaded;
}

void Wizard::ConnectWindow()
{
    window_.OnActivate([this] { Form_Activate(); });
    window_.OnQueryUnload([this] { return Form_QueryUnload(); });
    capacity_.OnChange([this] { ShowCapacity(); });
    tasks_.OnEnd([this] {
        if (window_.IsCloseWanted()) {
            window_.close();
        }
    });
}

void Wizard::ConnectNavigation()
{
    const Ui::FrmMain& band = window_.Controls();
    connect(band.CorvaneTab1, &QTabBar::currentChanged, this, [this](int tab) {
        navigation_.Setselectedtab(static_cast<qint16>(tab + 1));
    });
    connect(band.CorvaneTab1, &QTabBar::tabBarClicked, this, [this](int tab) {
        if (tab + 1 == navigation_.selectedtab()) {
            navigation_.Setselectedtab(navigation_.selectedtab()); // a click changes no tab here
        }
    });
    OnClick(band.CorvaneButton1, [this] { navigation_.CorvaneButton1(); });
    OnClick(band.NextButton, [this] { navigation_.NextButton(); });
    OnClick(band.PreviousButton, [this] { navigation_.PreviousButton(); });
    OnClick(window_.Options().Controls().CorvSuivant, [this] { navigation_.CorvSuivant(); });
    OnClick(window_.Options().Controls().CorvFichiers, [this] { navigation_.CorvFichiers(); });
    OnClick(window_.List().Controls().CorvFermer, [this] { navigation_.CorvFermer(); });
}

void Wizard::ConnectFormats()
{
    connect(window_.Formats().Controls().Combo1,
        &QComboBox::currentIndexChanged,
        this,
        [this](int index) {
            if (index >= 0) {
                RunHandler([this] { recorderChoice_.Combo1(); });
            }
        });
    for (qint16 i = 0; i < 4; ++i) {
        OnTaskClick(
            &window_.Formats().CorvaneButton2(i), [this, i] { formatChoice_.CorvaneButton2(i); });
    }
    const auto connectOptions = [this](OptionArray array, void (DiscOptions::*click)(qint16)) {
        qint16 index = 0;
        for (QRadioButton* option : window_.Options().Options(array)) {
            OnClick(option, [this, click, index] { (discOptions_.*click)(index); });
            ++index;
        }
    };
    connectOptions(OptionArray::BDOptionButton1, &DiscOptions::BDOptionButton1);
    connectOptions(OptionArray::DVDOptionButton1, &DiscOptions::DVDOptionButton1);
    connectOptions(OptionArray::CDOptionButton1, &DiscOptions::CDOptionButton1);
}

void Wizard::ConnectList()
{
    const Ui::ListPage& page = window_.List().Controls();
    OnClick(page.CorvaneButton3, [this] { listEditing_.CorvaneButton3(); });
    OnClick(page.CorvaneButton4, [this] { listEditing_.CorvaneButton4(); });
    OnClick(page.CorvaneButton5, [this] {
        listEditing_.CorvaneButton5(window_.List().Controls().ListFile->SelectedItem());
    });
    OnClick(page.CorvaneButton6, [] {}); // there are no projects
    OnClick(page.CorvaneButton7, [this] { listEditing_.CorvaneButton7(); });
    OnClick(page.CorvaneButton8, [this] { listEditing_.CorvaneButton8(); });
}

void Wizard::ConnectConfiguration()
{
    const Ui::ConfigurationPage& page = window_.Configuration().Controls();
    OnRunClick(
        page.BurnISO,
        [this] { writing::IsoBurnRun(Context()).Run(); },
        [this] { return LastLogLine(); });
    OnRunClick(
        page.EraseDiscbutton,
        [this] { EraseDisc(); },
        [lblErase = page.lblErase] { return lblErase->text(); });
    OnClick(page.TempSearch, [this] { ShowFrmTemp(); });
    OnClick(page.GraveurPossibilities, [this] {
        recorder::FrmBurner(recorders_, burnOptions_.Combo1ListIndex(), &window_).exec();
    });
}

void Wizard::ConnectRuns()
{
    const Ui::BurnPage& page = window_.Burn().Controls();
    const auto result = [this] { return LastLogLine(); };
    OnRunClick(
        page.BurnButton_0, [this] { writing::BurnRun(Context()).Run(0); }, result);
    OnRunClick(
        page.BurnButton_1, [this] { writing::BurnRun(Context()).Run(1); }, result);
    OnClick(page.BurnButton_2, [this] { writing::RequestStop(burnScreen_, state_); });
    OnClick(page.Commandundo, [this] { doors_.companion.Commandundo(); });
    OnClick(page.Commandpoke, [this] { doors_.companion.Commandpoke(); });
}

void Wizard::ConnectSmallWindows()
{
    QAbstractButton* Image1 = window_.Controls().Image1;
    connect(Image1, &QAbstractButton::pressed, this, [this, Image1] {
        Image1->setDown(false); // the release goes to the window that comes up
        dialogs::frmAbout(burnScreen_, doors_.clock, &window_).exec();
    });
}

void Wizard::OnClick(QAbstractButton* button, Handler handler)
{
    connect(button, &QAbstractButton::clicked, this, [this, handler = std::move(handler)] {
        RunHandler(handler);
    });
}

void Wizard::OnTaskClick(QAbstractButton* button, Handler task)
{
    OnClick(button, [this, task = std::move(task)] { tasks_.Run(task); });
}

void Wizard::OnRunClick(QAbstractButton* button, Handler run, std::function<QString()> result)
{
    OnTaskClick(button, [this, run = std::move(run), result = std::move(result)] {
        const RunAttendance& desktop = doors_.attendance;
        const auto held = desktop.hold ? desktop.hold() : nullptr;
        run();
        if (desktop.tell && QApplication::activeWindow() == nullptr) {
            desktop.tell(result());
        }
    });
}

void Wizard::RunHandler(const Handler& handler)
{
    try {
        handler();
    } catch (const runtime::RuntimeError& failure) {
        ReportUnhandled(failure, burnScreen_);
        QApplication::exit(EXIT_FAILURE);
    }
    window_.ShowWayOut(navigation_.IsAtWayOut());
}

void Wizard::Form_Activate()
{
    if (!startUp_.Form_Activate()) {
        window_.close();
    }
}

bool Wizard::Form_QueryUnload() const
{
    // A disc that is being written would be lost: the window goes when the task is over.
    return !tasks_.IsRunning();
}

void Wizard::ShowCapacity()
{
    const Ui::ListPage& page = window_.List().Controls();
    page.Corvane7CalcProgressBar1->setValue(capacity_.BarValue());
    page.Label10->setText(capacity_.Label10());
    page.Label11->setText(capacity_.Label11());
}

void Wizard::SetUpListFile()
{
    window_.List().Controls().ListFile->SetUp(ListFile_, icons_.ImageList1(), listDrop_);
}

void Wizard::ShowFrmTemp()
{
    shell::FrmTemp form(shell::TemporaryChoice(), &window_);
    form.exec();
    if (!form.TempDirectory().isEmpty()) {
        RepTempTxt_.SetPath(form.TempDirectory());
    }
}

QString Wizard::LastLogLine() const
{
    const QString log = window_.Burn().Controls().LogTxtBox->toPlainText();
    return log.sliced(log.lastIndexOf(u'\n') + 1).trimmed();
}

void Wizard::EraseDisc()
{
    writing::EraseRun(eraseScreen_, recorders_, doors_.mastering, DataEraser_).Run();
}

writing::RunContext Wizard::Context()
{
    return {.screen = burnScreen_,
        .options = burnOptions_,
        .state = state_,
        .ListFile = ListFile_,
        .mastering = doors_.mastering,
        .clock = doors_.clock,
        .reading = reading_,
        .recorders = recorders_,
        .companion = doors_.companion,
        .progress = progress_};
}

} // namespace velmora::wizard
