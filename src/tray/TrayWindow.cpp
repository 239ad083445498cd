// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayWindow.h"

#include "desktop/AccessibleWidgets.h"
#include "desktop/FrenchTexts.h"
#include "desktop/MessageBox.h"
#include "desktop/WholeQuotes.h"
#include "runtime/EventPump.h"
#include "tray/SampleDisc.h"
#include "ui_TrayWindow.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QSignalBlocker>

#include <initializer_list>
#include <utility>

namespace velmora::tray {

using namespace Qt::StringLiterals;

namespace {

bool Agrees(const QString& question)
{
    const desktop::BoxLook look {
        .buttons = desktop::BoxButtons::YesNo, .icon = desktop::BoxIcon::Question};
    return desktop::ShowMessageBox(question, look, u"Graveur virtuel - Velmora"_s)
        == desktop::BoxAnswer::Yes;
}

} // namespace

TrayWindow::TrayWindow(virtualdrive::Recorders recorders, const runtime::Clock& clock)
    : ui_(std::make_unique<Ui::TrayWindow>())
    , rules_(std::move(recorders), clock)
{
    ui_->setupUi(this);
    Connect();
    Refresh();
}

TrayWindow::~TrayWindow() = default;

void TrayWindow::Connect()
{
    const auto then = [this](auto wish) {
        return [this, wish] {
            wish();
            Refresh();
        };
    };
    connect(ui_->newButton, &QPushButton::clicked, this, then([this] { rules_.Create(); }));
    connect(ui_->trayButton, &QPushButton::clicked, this, then([this] { rules_.OpenOrClose(); }));
    connect(ui_->takeOutButton, &QPushButton::clicked, this, then([this] { rules_.TakeOut(); }));
    connect(ui_->insertButton, &QPushButton::clicked, this, then([this] { InsertDisc(); }));
    connect(ui_->faultButton, &QPushButton::clicked, this, then([this] { PlanFault(); }));
    connect(ui_->clearButton, &QPushButton::clicked, this, then([this] { rules_.ClearFaults(); }));
    connect(
        ui_->deleteButton, &QPushButton::clicked, this, then([this] { rules_.Delete(Agrees); }));
    connect(ui_->timingBox, &QCheckBox::clicked, this, [this](bool isReal) {
        rules_.SetRealTiming(isReal);
        Refresh();
    });
    connect(ui_->unpluggedBox, &QCheckBox::clicked, this, [this](bool isUnplugged) {
        rules_.SetPlugged(!isUnplugged);
        Refresh();
    });
    connect(ui_->recorderBox, &QComboBox::textActivated, this, [this](const QString& name) {
        rules_.Choose(name);
        Refresh();
    });
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { Refresh(); });
}

void TrayWindow::InsertDisc()
{
    if (discDialog_.exec() == QDialog::Accepted) {
        setEnabled(false);
        rules_.Insert(discDialog_.Order(), [] { QApplication::processEvents(); });
        setEnabled(true);
    }
}

void TrayWindow::PlanFault()
{
    if (faultDialog_.exec() == QDialog::Accepted) {
        rules_.Plan(faultDialog_.Fault());
    }
}

void TrayWindow::Refresh()
{
    const TrayView view = rules_.Look();
    WatchFolders(view);
    const QSignalBlocker quiet(ui_->recorderBox);
    ui_->recorderBox->clear();
    ui_->recorderBox->addItems(view.names);
    ui_->recorderBox->setCurrentText(view.name);
    ui_->driveView->Show({.hasDrive = view.hasRecorder && !view.isUnplugged,
        .isOpen = view.isOpen,
        .hasDisc = view.hasDisc,
        .usedShare = view.usedShare});
    ui_->driveView->setAccessibleDescription(view.disc + u". "_s + view.space);
    ui_->discLabel->setText(desktop::WithWholeQuotes(view.disc));
    ui_->spaceLabel->setText(desktop::WithWholeQuotes(view.space));
    ui_->faultsLabel->setText(desktop::WithWholeQuotes(view.faults));
    ui_->noticeLabel->setText(desktop::WithWholeQuotes(view.notice));
    ui_->timingBox->setChecked(view.hasRealTiming);
    ui_->unpluggedBox->setChecked(view.isUnplugged);
    ui_->trayButton->setText(view.trayButton);
    Allow(view);
}

void TrayWindow::Allow(const TrayView& view)
{
    for (QWidget* control : std::initializer_list<QWidget*> {ui_->recorderBox,
             ui_->deleteButton,
             ui_->timingBox,
             ui_->unpluggedBox,
             ui_->faultButton,
             ui_->insertButton,
             ui_->trayButton}) {
        control->setEnabled(view.hasRecorder);
    }
    ui_->clearButton->setEnabled(!view.faults.isEmpty() || view.isUnplugged);
    ui_->takeOutButton->setEnabled(view.hasDisc);
}

void TrayWindow::WatchFolders(const TrayView& view)
{
    const QString root = QFile::decodeName(rules_.Recorders().Root().c_str());
    QDir().mkpath(root);
    QStringList wanted {root};
    if (view.hasRecorder) {
        wanted.append(root + u'/' + view.name);
    }
    const QStringList watched = watcher_.directories();
    for (const QString& folder : watched) {
        if (!wanted.contains(folder)) {
            watcher_.removePath(folder);
        }
    }
    for (const QString& folder : wanted) {
        if (!watched.contains(folder)) {
            watcher_.addPath(folder);
        }
    }
}

int RunTrayWindow(int argc, char** argv)
{
    QApplication application(argc, argv);
    desktop::UseFrenchTexts(application);
    desktop::ServeScreenReaders();
    QApplication::setDesktopFileName(u"org.velmora.Velmora"_s);
    QApplication::setWindowIcon(QIcon::fromTheme(u"org.velmora.Velmora"_s));
    runtime::SystemEventPump pump;
    const runtime::SystemClock clock(pump);
    TrayWindow window(virtualdrive::Recorders::OfUser(SampleImage), clock);
    window.show();
    return QApplication::exec();
}

} // namespace velmora::tray
