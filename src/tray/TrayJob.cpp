// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayJob.h"

#include "runtime/RuntimeError.h"
#include "tray/TrayTexts.h"

namespace velmora::tray {

using namespace Qt::StringLiterals;
using virtualdrive::Recorders;

namespace {

/// The default recorder when none is named.
QString TheOnlyOne(const Recorders& recorders)
{
    const QStringList names = recorders.Names();
    if (names.isEmpty()) {
        throw runtime::RuntimeError(runtime::error::kPathNotFound,
            u"Il n'y a pas de graveur virtuel : créez-en un par « velmora-tray create »."_s);
    }
    if (names.size() > 1) {
        throw runtime::RuntimeError(runtime::error::kInvalidCall,
            u"Il y a plusieurs graveurs virtuels (%1) : ajoutez --recorder NOM."_s.arg(
                names.join(u", "_s)));
    }
    return names.first();
}

class TrayJob {
public:
    TrayJob(const TrayRequest& request,
        const Recorders& recorders,
        const runtime::Clock& clock,
        const AskPerson& ask)
        : request_(request)
        , recorders_(recorders)
        , clock_(clock)
        , ask_(ask)
    {
    }

    QString Run()
    {
        return std::visit([this](const auto& action) { return Do(action); }, request_.action);
    }

private:
    QString Name() const
    {
        return request_.recorder.isEmpty() ? TheOnlyOne(recorders_) : request_.recorder;
    }

    /// The message after a change.
    QString Now(const QString& name) const
    {
        return ShortText(recorders_.Folder(name), recorders_.Show(name));
    }

    QString Do(const Create& create) const
    {
        const QString name = create.name.isEmpty() ? FreeName(recorders_) : create.name;
        virtualdrive::Description description = virtualdrive::NewDescription();
        description.drive.realTiming = create.realTiming;
        recorders_.Create(name, description);
        return Now(name);
    }

    QString Do(const Delete& wish) const
    {
        const QString& name = request_.recorder;
        if (!wish.isAgreed && !ask_(QuestionOfDelete(recorders_, name))) {
            throw runtime::RuntimeError(
                runtime::error::kInvalidCall, u"Rien n'a été supprimé, faute d'accord."_s);
        }
        recorders_.Delete(name);
        return name + u" : supprimé"_s;
    }

    QString Do(const List&) const
    {
        QStringList lines;
        for (const QString& name : recorders_.Names()) {
            try {
                lines.append(Now(name));
            } catch (const runtime::RuntimeError& failure) {
                lines.append(name + u" : "_s + failure.Description());
            }
        }
        return lines.isEmpty() ? u"Aucun graveur virtuel."_s : lines.join(u'\n');
    }

    QString Do(const Insert& insert) const
    {
        const QString name = Name();
        recorders_.Insert(name, insert.order, clock_);
        return Now(name);
    }

    QString Do(const TakeOut&) const
    {
        const QString name = Name();
        recorders_.TakeOut(name);
        return Now(name);
    }

    QString Do(const Eject&) const
    {
        const QString name = Name();
        recorders_.Eject(name);
        return Now(name);
    }

    QString Do(const Close&) const
    {
        const QString name = Name();
        recorders_.Close(name, clock_);
        return Now(name);
    }

    QString Do(const PlanFault& plan) const
    {
        const QString name = Name();
        recorders_.Plan(name, plan.fault);
        return u"%1 : panne prévue, %2"_s.arg(name, FaultText(plan.fault));
    }

    QString Do(const Plug& plug) const
    {
        const QString name = Name();
        recorders_.SetPlugged(name, plug.isPlugged);
        return Now(name);
    }

    QString Do(const ClearFaults&) const
    {
        const QString name = Name();
        recorders_.ClearFaults(name);
        return name + u" : aucune panne prévue"_s;
    }

    QString Do(const Timing& timing) const
    {
        const QString name = Name();
        recorders_.SetRealTiming(name, timing.isReal);
        return name + (timing.isReal ? u" : durées réelles"_s : u" : aucune attente"_s);
    }

    QString Do(const Show&) const
    {
        const QString name = Name();
        return LongText(recorders_.Folder(name), recorders_.Show(name));
    }

    const TrayRequest& request_;
    const Recorders& recorders_;
    const runtime::Clock& clock_;
    const AskPerson& ask_;
};

} // namespace

TrayReply RunTrayJob(const TrayRequest& request,
    const Recorders& recorders,
    const runtime::Clock& clock,
    const AskPerson& ask)
{
    try {
        return {TrayExit::Done, TrayJob(request, recorders, clock, ask).Run()};
    } catch (const runtime::RuntimeError& failure) {
        return {TrayExit::Failed, u"Erreur : "_s + failure.Description()};
    }
}

} // namespace velmora::tray
