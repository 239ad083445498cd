// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "companion/CompanionWindow.h"

#include "desktop/AccessibleWidgets.h"
#include "runtime/ResumeNext.h"
#include "ui_CompanionWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QScreen>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <utility>

namespace velmora::companion {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWrongUse = 2;
constexpr int kScreenMargin = 48;
// Longer than the program waits for the window to come up.
constexpr std::chrono::seconds kJoinLimit {10};

int TellWrongUse()
{
    std::fputs("Ce programme est lancé par Velmora pendant une gravure.\n", stderr);
    return kWrongUse;
}

} // namespace

CompanionWindow::CompanionWindow(std::function<void()> onEnd)
    : QWidget(nullptr, Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowStaysOnTopHint)
    , ui_(std::make_unique<Ui::CompanionWindow>())
    , companion_({.onChange = [this] { Refresh(); },
          .onEnd = std::move(onEnd),
          .onProgress = [this](const Progress& progress) { ShowProgress(progress); }})
{
    ui_->setupUi(this);
    setAttribute(Qt::WA_ShowWithoutActivating); // somebody may be typing elsewhere
    connect(ui_->stopButton, &QPushButton::clicked, this, [this] { companion_.Press(); });
    // The window comes up while its user may be typing: a blank must not ruin a disc, so the button
    // has the focus only once it is asked for.
    setFocus();
    Refresh();
    MoveToCorner();
}

CompanionWindow::~CompanionWindow() = default;

void CompanionWindow::closeEvent(QCloseEvent* event) { event->ignore(); }

void CompanionWindow::MoveToCorner()
{
    adjustSize();
    const QRect room = screen()->availableGeometry();
    // On the left, as the window that writes has its own stop button on the right.
    move(room.left() + kScreenMargin, room.bottom() - height() - kScreenMargin);
}

void CompanionWindow::Refresh()
{
    const bool isAsked = companion_.IsStopAsked();
    ui_->stateLabel->setText(
        isAsked ? u"Arrêt demandé, veuillez patienter…"_s : u"La gravure est en cours."_s);
    ui_->stopButton->setEnabled(!isAsked);
}

void CompanionWindow::ShowProgress(const Progress& progress)
{
    constexpr int kWhole = 100;
    ui_->progressLabel->setText(progress.words);
    ui_->progressBar->setRange(0, progress.percent ? kWhole : 0); // without a range it moves
    ui_->progressBar->setValue(progress.percent.value_or(0));
}

int RunCompanion(int argc, char** argv)
{
    const QApplication application(argc, argv);
    desktop::ServeScreenReaders();
    QApplication::setDesktopFileName(u"org.velmora.Velmora"_s);
    QApplication::setApplicationName(u"velmora"_s); // a window of the same entry
    QApplication::setWindowIcon(QIcon::fromTheme(u"org.velmora.Velmora"_s));
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2) {
        return TellWrongUse();
    }
    // Not quit(): that asks the window first, which would stay.
    CompanionWindow window([] { QApplication::exit(); });
    window.show();
    if (runtime::ResumeNext([&] { window.Button().Offer(arguments.at(1)); }) != 0) {
        return TellWrongUse();
    }
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &window, [&] { window.Button().EndUnlessJoined(); });
    limit.start(kJoinLimit);
    return QApplication::exec();
}

} // namespace velmora::companion
