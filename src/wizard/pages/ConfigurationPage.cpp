// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/ConfigurationPage.h"

#include "desktop/WholeQuotes.h"
#include "text/PathText.h"
#include "ui_ConfigurationPage.h"
#include "wizard/controls/MouseCapture.h"
#include "wizard/pages/Clicks.h"
#include "wizard/pages/Fonts.h"
#include "wizard/pages/OutcomeLook.h"

#include <QScrollBar>

#include <utility>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

ConfigurationPage::ConfigurationPage(QWidget* parent)
    : QWidget(parent)
    , ui_(std::make_unique<Ui::ConfigurationPage>())
{
    ui_->setupUi(this);
    ui_->TempSearch->setIcon(QIcon(u":/wizard/folder.svg"_s));
    MakeTitle(*ui_->lblErase);
    MakeOutcome(*ui_->eraseTitle);
    // The label appears and disappears; what is above it keeps its place.
    QSizePolicy policy = ui_->lblErase->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    ui_->lblErase->setSizePolicy(policy);
    // What appears at the end of an erase has its place only after the layout.
    connect(ui_->pageScroll->verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] {
        RevealErase();
    });
    ShowEraseStatus(false);
    ShowOfferedImage({});
}

ConfigurationPage::~ConfigurationPage() = default;

void ConfigurationPage::Serve(const Wishes& wishes)
{
    OnClick(ui_->BurnISO, wishes.burnImage);
    OnClick(ui_->EraseDiscbutton, wishes.erase);
    OnClick(ui_->TempSearch, wishes.chooseTemporaryDirectory);
    OnClick(ui_->GraveurPossibilities, wishes.describeRecorder);
}

void ConfigurationPage::SetCompares(bool compares) { ui_->compareImage->setChecked(compares); }

void ConfigurationPage::OnCompares(std::function<void(bool compares)> listener)
{
    connect(ui_->compareImage, &QCheckBox::toggled, this, std::move(listener));
}

text::ProgramPath ConfigurationPage::TemporaryDirectory() const
{
    const QLineEdit& box = *ui_->RepTempTxt;
    return box.isModified() ? text::FromTypedPath(box.text()) : temporaryDirectory_;
}

void ConfigurationPage::SetTemporaryDirectory(const text::ProgramPath& path)
{
    temporaryDirectory_ = path;
    ui_->RepTempTxt->setText(text::MachinePathForTheEye(path)); // no longer counts as typed
}

void ConfigurationPage::SetEraseStatus(const QString& caption) { ui_->lblErase->setText(caption); }

void ConfigurationPage::ShowEraseStatus(bool isVisible)
{
    ui_->lblErase->setVisible(isVisible);
    ShowEraseOutcome({}, {});
}

void ConfigurationPage::ShowEraseOutcome(const RunNotice& notice, const QString& cause)
{
    ShowOutcome(notice, *ui_->erasePicture, *ui_->eraseTitle);
    // It reports a success even then.
    ui_->lblErase->setEnabled(
        notice.outcome != Outcome::Failed && notice.outcome != Outcome::Stopped);
    ui_->eraseCause->setText(desktop::WithWholeQuotes(cause));
    ui_->eraseCause->setVisible(!cause.isEmpty());
    RevealErase();
}

void ConfigurationPage::RevealErase()
{
    if (ui_->lblErase->isVisible()) {
        ui_->pageScroll->ensureWidgetVisible(ui_->eraseArea, 0, 0);
    }
}

void ConfigurationPage::ShowOfferedImage(const text::ProgramPath& image)
{
    ui_->offeredImage->setText(u"Image choisie :\n"_s + text::MachinePathForTheEye(image));
    ui_->offeredImage->setVisible(!image.IsEmpty());
}

void ConfigurationPage::HoldMouse(MouseCapture& mouse) const
{
    mouse.SetCapture(*ui_->EraseDiscbutton);
}

} // namespace velmora::wizard
