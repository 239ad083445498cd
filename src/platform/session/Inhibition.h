// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QString>
#include <QVariantList>

namespace velmora::session {

/// A desktop service that inhibits something on request, and how to call it.
struct HoldingService {
    QString service;
    QString path;
    QString interface;
    QString hold;    ///< its method that returns a number
    QString release; ///< its method that takes that number
};

/// One request to such a service, withdrawn by the destructor.
class Inhibition {
public:
    Inhibition(const QDBusConnection& bus, HoldingService service, const QVariantList& arguments);
    ~Inhibition();
    Inhibition(const Inhibition&) = delete;
    Inhibition& operator=(const Inhibition&) = delete;
    Inhibition(Inhibition&&) = delete;
    Inhibition& operator=(Inhibition&&) = delete;

private:
    QDBusConnection bus_;
    HoldingService service_;
    QDBusPendingCall answer_;
};

} // namespace velmora::session
