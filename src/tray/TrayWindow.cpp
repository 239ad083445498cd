// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayWindow.h"

#include "desktop/AccessibleWidgets.h"
#include "runtime/EventPump.h"
#include "tray/SampleDisc.h"
#include "ui_TrayWindow.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QIcon>
#include <QSignalBlocker>

#include <utility>

namespace velmora::tray {

using namespace Qt::StringLiterals;

TrayWindow::TrayWindow(virtualdrive::Recorders recorders, const runtime::Clock& clock)
    : ui_(std::make_unique<Ui::TrayWindow>())
    , rules_(std::move(recorders), clock)
{
    ui_->setupUi(this);
    for (const virtualdrive::MediumFacts& medium : virtualdrive::AllMedia()) {
        ui_->mediumBox->addItem(medium.name.toString(), medium.key.toString());
    }
    ui_->mediumBox->setCurrentIndex(ui_->mediumBox->findData(u"dvd+r"_s));
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
    connect(ui_->insertButton, &QPushButton::clicked, this, then([this] { InsertChosen(); }));
    connect(ui_->imageButton, &QPushButton::clicked, this, then([this] { InsertImage(); }));
    connect(ui_->recorderBox, &QComboBox::textActivated, this, [this](const QString& name) {
        rules_.Choose(name);
        Refresh();
    });
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { Refresh(); });
}

void TrayWindow::InsertChosen()
{
    const QString key = ui_->mediumBox->currentData().toString();
    rules_.Insert(*virtualdrive::FindMedium(key));
}

void TrayWindow::InsertImage()
{
    const QString path = QFileDialog::getOpenFileName(this,
        u"Insérer une image"_s,
        QDir::homePath(),
        u"Images de disque (*.iso *.img *.udf);;Tous les fichiers (*)"_s);
    if (!path.isEmpty()) {
        setEnabled(false);
        rules_.InsertImage(path, [] { QApplication::processEvents(); });
        setEnabled(true);
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
    ui_->recorderBox->setEnabled(view.hasRecorder);
    ui_->driveView->Show({.hasDrive = view.hasRecorder && !view.isUnplugged,
        .isOpen = view.isOpen,
        .hasDisc = view.hasDisc,
        .usedShare = view.usedShare});
    ui_->driveView->setAccessibleDescription(view.disc + u". "_s + view.space);
    ui_->discLabel->setText(view.disc);
    ui_->spaceLabel->setText(view.space);
    ui_->noticeLabel->setText(view.notice);
    ui_->trayButton->setText(view.trayButton);
    ui_->trayButton->setEnabled(view.hasRecorder);
    ui_->takeOutButton->setEnabled(view.hasDisc);
    ui_->insertButton->setEnabled(view.hasRecorder);
    ui_->imageButton->setEnabled(view.hasRecorder);
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
    const QApplication application(argc, argv);
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
