// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/FrmMain.h"

#include "ui_FrmMain.h"
#include "wizard/controls/Mnemonics.h"
#include "wizard/controls/WindowStyle.h"
#include "wizard/pages/BurnPage.h"
#include "wizard/pages/ConfigurationPage.h"
#include "wizard/pages/FormatPage.h"
#include "wizard/pages/ListPage.h"
#include "wizard/pages/OptionsPage.h"
#include "wizard/pages/SilentFormatPage.h"
#include "wizard/pages/WaitPanel.h"

#include <QCloseEvent>
#include <QPushButton>
#include <QScreen>

#include <array>
#include <utility>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

constexpr qreal kUsualDotsPerInch = 96;
constexpr QSize kLeastSize {640, 440};
constexpr QSize kFrame {0, 40}; // the frame that a window manager adds, and more

/// The buttons' minimum sizes in the forms are for normal fonts; larger ones need more.
void KeepCaptionsWhole(const QWidget& part)
{
    for (QPushButton* button : part.findChildren<QPushButton*>()) {
        if (!button->minimumSize().isNull()) {
            button->setMinimumSize(button->minimumSize().expandedTo(button->minimumSizeHint()));
        }
    }
}

} // namespace

FrmMain::FrmMain()
    : ui_(std::make_unique<Ui::FrmMain>())
    , formats_(new FormatPage(this))
    , audio_(new SilentFormatPage(RootPage::Audio,
          u"CorvaneButtonAudio"_s,
          {u"Disque DVD audio"_s, u"Disque CD audio"_s, u"Détecter le disque"_s},
          this))
    , video_(new SilentFormatPage(RootPage::Video,
          u"CorvaneButtonVideo"_s,
          {u"Disque DVD vidéo"_s, u"Disque DVD DL vidéo"_s, u"Détecter le disque"_s},
          this))
    , configuration_(new ConfigurationPage(this))
    , options_(new OptionsPage(this))
    , list_(new ListPage(this))
    , burn_(new BurnPage(this))
{
    ui_->setupUi(this);
    setStyleSheet(WindowStyle());
    setWindowIcon(QIcon::fromTheme(u"org.velmora.Velmora"_s, QIcon(u":/wizard/logo.svg"_s)));
    const std::array<QWidget*, 7> pages {
        formats_, audio_, video_, configuration_, options_, list_, burn_};
    for (QWidget* page : pages) {
        ui_->pages->Add(*page);
    }
    wait_ = new WaitPanel(ui_->pages);
    detectionWait_ = new WaitPanel(ui_->pages);
    detectionWait_->setObjectName(u"DetectionWait"_s);
    RunCorvane7BarWait1(false);
    // The bar appears and disappears above the pages, which keep their place.
    QSizePolicy policy = ui_->Corvane7BarWait1->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    ui_->Corvane7BarWait1->setSizePolicy(policy);
    burn_->OnCompares([this](bool compares) { configuration_->SetCompares(compares); });
    configuration_->OnCompares([this](bool compares) { burn_->SetCompares(compares); });
    activation_.setSingleShot(true);
    connect(&activation_, &QTimer::timeout, this, [this] { std::exchange(begin_, {})(); });
    GiveMnemonics(pages);
    KeepCaptionsWhole(*this);
    FitToScreen();
}

FrmMain::~FrmMain() = default;

/// The band is above every page.
void FrmMain::GiveMnemonics(std::span<QWidget* const> pages) const
{
    Mnemonics ofBand;
    ofBand.GiveTo(Band());
    for (QWidget* page : pages) {
        Mnemonics ofBoth = ofBand;
        ofBoth.GiveTo(*page);
    }
}

void FrmMain::FitToScreen()
{
    const qreal scale = screen()->logicalDotsPerInchY() / kUsualDotsPerInch;
    const QSize room = screen()->availableSize() - kFrame;
    // Set, so that what appears on a page doesn't push the window off the screen.
    setMinimumSize((QSizeF(kLeastSize) * scale).toSize().boundedTo(room));
    resize((QSizeF(size()) * scale).toSize().boundedTo(room));
}

void FrmMain::Serve(Wishes wishes)
{
    begin_ = std::move(wishes.begin);
    mayClose_ = std::move(wishes.mayClose);
    connect(ui_->pages, &QStackedWidget::currentChanged, this, std::move(wishes.pageChanged));
}

bool FrmMain::ComparesDiscs() const { return burn_->Compares(); }

HeadBand& FrmMain::Band() const { return *ui_->headBand; }

QWidget& FrmMain::RootContainer1(RootPage page) const
{
    const std::array<QWidget*, 4> pages {formats_, audio_, video_, configuration_};
    return *pages.at(static_cast<std::size_t>(page));
}

QWidget& FrmMain::BurnDataContainer1(shell::WizardPage page) const
{
    const std::array<QWidget*, 3> pages {options_, list_, burn_};
    return *pages.at(static_cast<std::size_t>(page));
}

void FrmMain::PlaceRootPage(RootPage page, bool isOnScreen)
{
    ui_->pages->Place(RootContainer1(page), isOnScreen);
}

void FrmMain::PlaceBurnPage(shell::WizardPage page, bool isOnScreen)
{
    ui_->pages->Place(BurnDataContainer1(page), isOnScreen);
}

void FrmMain::ShowCorvane7BarWait1(bool isVisible) { ui_->Corvane7BarWait1->setVisible(isVisible); }

void FrmMain::RunCorvane7BarWait1(bool isRunning)
{
    ui_->Corvane7BarWait1->setRange(0, isRunning ? 0 : 1); // without a range it moves
}

void FrmMain::ShowCloseNotice(bool isVisible) { ui_->closeNotice->setVisible(isVisible); }

void FrmMain::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (begin_) {
        // After pending paint events, so that the window is visible first.
        activation_.start(0);
    }
}

void FrmMain::closeEvent(QCloseEvent* event) { event->setAccepted(!mayClose_ || mayClose_()); }

} // namespace velmora::wizard
