// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "companion/CompanionWindow.h"

#include "companion/PlaceBeside.h"
#include "companion/protocol/CompanionArguments.h"
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
#include <optional>
#include <utility>

namespace velmora::companion {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWrongUse = 2;
constexpr QSize kFrame {8, 32}; // the frame that a window manager adds
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
    // The window comes up while the user may be typing: a blank must not ruin a disc, so the button
    // gets the focus only on request.
    setFocus();
    Refresh();
    StandBeside(screen()->availableGeometry());
}

CompanionWindow::~CompanionWindow() = default;

void CompanionWindow::closeEvent(QCloseEvent* event) { event->ignore(); }

void CompanionWindow::StandBeside(const QRect& window)
{
    adjustSize();
    const QScreen* itsScreen = QGuiApplication::screenAt(window.center());
    const QScreen& there = itsScreen != nullptr ? *itsScreen : *screen();
    move(PlaceBeside(window, size() + kFrame, there.availableGeometry()));
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
    QApplication::setApplicationName(u"velmora"_s); // the same desktop entry
    QApplication::setWindowIcon(QIcon::fromTheme(u"org.velmora.Velmora"_s));
    const auto arguments = FromCommandLine(QApplication::arguments().sliced(1));
    if (!arguments) {
        return TellWrongUse();
    }
    // Not quit(): that asks the window first, which would refuse.
    CompanionWindow window([] { QApplication::exit(); });
    if (arguments->window) {
        window.StandBeside(*arguments->window);
    }
    window.show();
    if (runtime::ResumeNext([&] { window.Button().Offer(arguments->meetingFolder); }) != 0) {
        return TellWrongUse();
    }
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &window, [&] { window.Button().EndUnlessJoined(); });
    limit.start(kJoinLimit);
    return QApplication::exec();
}

} // namespace velmora::companion
