// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/HeadBand.h"

#include "ui_HeadBand.h"
#include "wizard/controls/Colours.h"
#include "wizard/pages/Clicks.h"
#include "wizard/pages/Fonts.h"

#include <QSignalBlocker>

#include <array>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

HeadBand::HeadBand(QWidget* parent)
    : QWidget(parent)
    , ui_(std::make_unique<Ui::HeadBand>())
{
    ui_->setupUi(this);
    MakeDark();
    MakeHeadline(*ui_->wordmark);
    ui_->Image1->SetDrawing(u"logo"_s);
    ui_->PreviousButton->SetDrawing(u"back"_s);
    ui_->NextButton->SetDrawing(u"forward"_s);
    OfferTab(Tab::DataDisc, u"Disque de données"_s);
    OfferTab(Tab::Options, u"Options..."_s);
    ui_->CorvaneTab1->setFocus(); // at first: the first page's button is the way out
    ShowWayOut(true);
}

HeadBand::~HeadBand() = default;

void HeadBand::MakeDark()
{
    QPalette band = palette();
    band.setColor(QPalette::Window, colour::kBand);
    band.setColor(QPalette::WindowText, colour::kBandText);
    const std::array<QWidget*, 3> dark {this, ui_->wordmark, ui_->lblGraveur};
    for (QWidget* widget : dark) {
        widget->setPalette(band);
    }
}

void HeadBand::Serve(const Wishes& wishes)
{
    OnClick(ui_->CorvaneButton1, wishes.leave);
    OnClick(ui_->NextButton, wishes.next);
    OnClick(ui_->PreviousButton, wishes.previous);
    connect(ui_->Image1, &QAbstractButton::pressed, this, [this, about = wishes.about] {
        ui_->Image1->setDown(false); // the release goes to the new window
        about();
    });
    ServeTabs(wishes.selectTab);
}

void HeadBand::OfferTab(Tab tab, const QString& caption)
{
    const int index = ui_->CorvaneTab1->addTab(caption);
    ui_->CorvaneTab1->setTabData(index, static_cast<int>(tab));
}

Tab HeadBand::TabAt(int index) const
{
    return static_cast<Tab>(ui_->CorvaneTab1->tabData(index).toInt());
}

void HeadBand::ServeTabs(const std::function<void(Tab tab)>& selectTab)
{
    connect(ui_->CorvaneTab1, &QTabBar::currentChanged, this, [this, selectTab](int index) {
        selectTab(TabAt(index));
    });
    connect(ui_->CorvaneTab1, &QTabBar::tabBarClicked, this, [this, selectTab](int index) {
        if (index == ui_->CorvaneTab1->currentIndex()) {
            selectTab(TabAt(index)); // a click changes no tab here
        }
    });
}

void HeadBand::ShowTab(Tab tab)
{
    const QSignalBlocker quiet(ui_->CorvaneTab1);
    for (int index = 0; index < ui_->CorvaneTab1->count(); ++index) {
        if (TabAt(index) == tab) {
            ui_->CorvaneTab1->setCurrentIndex(index);
        }
    }
}

void HeadBand::ShowRecorder(const QString& caption) { ui_->lblGraveur->setText(caption); }

void HeadBand::ShowWayOut(bool isWayOut)
{
    ui_->CorvaneButton1->SetDrawing(isWayOut ? u"leave"_s : u"back"_s);
    const QString name = isWayOut ? u"Quitter"_s : u"Retour au choix du disque"_s;
    ui_->CorvaneButton1->setAccessibleName(name);
    ui_->CorvaneButton1->setToolTip(name);
}

} // namespace velmora::wizard
