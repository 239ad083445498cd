// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayRules.h"

#include "runtime/RuntimeError.h"
#include "tray/TrayTexts.h"

#include <utility>

namespace velmora::tray {

using namespace Qt::StringLiterals;

TrayRules::TrayRules(virtualdrive::Recorders recorders, const runtime::Clock& clock)
    : recorders_(std::move(recorders))
    , clock_(clock)
{
}

TrayView TrayRules::Look()
{
    TrayView view;
    view.names = recorders_.Names();
    if (!view.names.contains(name_)) {
        name_ = view.names.value(0);
    }
    view.name = name_;
    view.hasRecorder = !name_.isEmpty();
    view.trayButton = u"&Ouvrir le tiroir"_s;
    view.disc = u"Aucun graveur virtuel"_s;
    view.space = u"Créez-en un par « Nouveau »."_s;
    if (view.hasRecorder) {
        try {
            ShowDrive(view);
        } catch (const runtime::RuntimeError& failure) {
            view.disc = u"Graveur illisible"_s;
            view.space = failure.Description();
        }
    }
    view.notice = notice_;
    return view;
}

void TrayRules::ShowDrive(TrayView& view) const
{
    const virtualdrive::Description now = recorders_.Show(name_);
    view.drive = now.drive.vendor + u' ' + now.drive.product;
    view.isUnplugged = now.drive.unplugged;
    view.hasRealTiming = now.drive.realTiming;
    view.faults = FaultsText(now.faults);
    view.isOpen = now.trayOpen;
    view.trayButton = now.trayOpen ? u"&Fermer le tiroir"_s : u"&Ouvrir le tiroir"_s;
    view.hasDisc = now.disc.has_value();
    view.disc = now.trayOpen ? u"Tiroir ouvert, vide"_s : u"Pas de disque"_s;
    view.space = u"Choisissez un disque à insérer."_s;
    if (now.disc) {
        const SeenDisc seen = SeeDisc(recorders_.Folder(name_), now);
        view.disc = TypeText(seen) + u", "_s + StateText(seen);
        view.space = SpaceText(seen);
        view.usedShare = UsedShare(seen);
    }
}

void TrayRules::Try(const std::function<void()>& wish)
{
    notice_.clear();
    try {
        wish();
    } catch (const runtime::RuntimeError& failure) {
        notice_ = failure.Description();
    }
}

void TrayRules::Create()
{
    Try([this] {
        const QString name = FreeName(recorders_);
        recorders_.Create(name);
        name_ = name;
    });
}

void TrayRules::OpenOrClose()
{
    Try([this] {
        if (recorders_.Show(name_).trayOpen) {
            recorders_.Close(name_, clock_);
        } else {
            recorders_.Eject(name_);
        }
    });
}

void TrayRules::Insert(const virtualdrive::DiscOrder& order, const std::function<void()>& meanwhile)
{
    Try([&] { recorders_.Insert(name_, order, clock_, meanwhile); });
}

void TrayRules::TakeOut()
{
    Try([this] { recorders_.TakeOut(name_); });
}

void TrayRules::Delete(const std::function<bool(const QString& question)>& ask)
{
    Try([&] {
        if (ask(QuestionOfDelete(recorders_, name_))) {
            recorders_.Delete(name_);
        }
    });
}

void TrayRules::Plan(const virtualdrive::Fault& fault)
{
    Try([&] { recorders_.Plan(name_, fault); });
}

void TrayRules::ClearFaults()
{
    Try([this] { recorders_.ClearFaults(name_); });
}

void TrayRules::SetPlugged(bool isPlugged)
{
    Try([&] { recorders_.SetPlugged(name_, isPlugged); });
}

void TrayRules::SetRealTiming(bool isReal)
{
    Try([&] { recorders_.SetRealTiming(name_, isReal); });
}

} // namespace velmora::tray
