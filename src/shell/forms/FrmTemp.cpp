// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/forms/FrmTemp.h"

#include "desktop/ImageList.h"
#include "desktop/ThemeIcon.h"
#include "text/PathText.h"
#include "ui_FrmTemp.h"

#include <QHeaderView>

#include <utility>

namespace velmora::shell {

using namespace Qt::StringLiterals;

namespace {

desktop::ImageList ImageListTemp()
{
    desktop::ImageList images;
    images.Add(u"WT"_s, desktop::ThemeIcon({u"folder-temp"_s, u"folder"_s}, QStyle::SP_DirIcon));
    images.Add(u"DT"_s, desktop::ThemeIcon({u"drive-harddisk"_s}, QStyle::SP_DriveHDIcon));
    return images;
}

} // namespace

FrmTemp::FrmTemp(TemporaryChoice choice, QWidget* parent)
    : QDialog(parent)
    , ui_(std::make_unique<Ui::FrmTemp>())
    , choice_(std::move(choice))
{
    ui_->setupUi(this);
    ui_->ListViewTemp->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ui_->ListViewTemp->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    ui_->ListViewTemp->headerItem()->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    connect(ui_->Command2, &QPushButton::clicked, this, &FrmTemp::Command2_Click);
    connect(ui_->Command1, &QPushButton::clicked, this, &FrmTemp::reject);
    connect(ui_->ListViewTemp, &QTreeWidget::itemDoubleClicked, this, &FrmTemp::Command2_Click);
    FillList();
}

FrmTemp::~FrmTemp() = default;

void FrmTemp::FillList()
{
    const desktop::ImageList images = ImageListTemp();
    rows_ = choice_.Rows();
    for (const TemporaryRow& row : rows_) {
        const QString shown
            = row.IsSystems() ? row.text : text::MachinePathForTheEye(text::ProgramPath(row.text));
        auto* item = new QTreeWidgetItem(ui_->ListViewTemp, {shown, row.space});
        item->setIcon(0, images.Picture(row.icon));
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
    ui_->ListViewTemp->setCurrentItem(ui_->ListViewTemp->topLevelItem(0));
}

void FrmTemp::Command2_Click()
{
    const int selected = ui_->ListViewTemp->currentIndex().row();
    directory_ = choice_.Take(rows_.at(static_cast<std::size_t>(selected)));
    accept();
}

} // namespace velmora::shell
