// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/ListPage.h"

#include "compilation/CapacityAccount.h"
#include "ui_ListPage.h"
#include "wizard/pages/Clicks.h"

#include <algorithm>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

ListPage::ListPage(QWidget* parent)
    : QWidget(parent)
    , ui_(std::make_unique<Ui::ListPage>())
{
    ui_->setupUi(this);
    ui_->Corvane7CalcProgressBar1->Setlimit(compilation::CapacityAccount::kBarLimit);
}

ListPage::~ListPage() = default;

void ListPage::Serve(const Wishes& wishes)
{
    OnClick(ui_->CorvaneButton3, wishes.addFolder);
    OnClick(ui_->CorvaneButton4, wishes.addFiles);
    OnClick(ui_->CorvaneButton5,
        [this, remove = wishes.remove] { remove(ui_->ListFile->SelectedItem()); });
    OnClick(ui_->CorvaneButton7, wishes.makeDirectory);
    OnClick(ui_->CorvaneButton8, wishes.browse);
    OnClick(ui_->CorvFermer, wishes.close);
}

void ListPage::SetUpList(compilation::CompilationList& list,
    const desktop::ImageList& images,
    compilation::ListDrop& drop)
{
    ui_->ListFile->SetUp(list, images, drop);
}

QString ListPage::DiscName() const { return ui_->DiscName->text(); }

void ListPage::SetDiscName(const QString& name) { ui_->DiscName->setText(name); }

void ListPage::FocusDiscName() { ui_->DiscName->setFocus(); }

void ListPage::FocusClose() { ui_->CorvFermer->setFocus(); }

void ListPage::ShowCapacity(const compilation::CapacityAccount& capacity)
{
    ui_->Corvane7CalcProgressBar1->setValue(capacity.BarValue());
    ui_->Label10->setText(capacity.Label10());
    ui_->Label11->setText(capacity.Label11());
    const QString used = capacity.Label11() + u" utilisés sur "_s + capacity.Label10();
    ui_->Corvane7CalcProgressBar1->setToolTip(used);
    ui_->Corvane7CalcProgressBar1->setAccessibleDescription(used);
    PlaceCapacity();
}

void ListPage::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    PlaceCapacity();
}

/// The disc's capacity is shown below its mark on the bar.
void ListPage::PlaceCapacity()
{
    const CapacityBar& bar = *ui_->Corvane7CalcProgressBar1;
    const int behindMark = bar.width() - bar.MarkPosition();
    const int half = ui_->Label10->sizeHint().width() / 2;
    ui_->sizeRow->setContentsMargins(0, 0, std::max(0, behindMark - half), 0);
}

} // namespace velmora::wizard
