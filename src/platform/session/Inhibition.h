// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QString>
#include <QVariantList>

namespace velmora::session {

/// A service of the desktop that holds something back on request, and how it wants to be asked.
struct HoldingService {
    QString service;
    QString path;
    QString interface;
    QString hold;    ///< its method that answers with a number
    QString release; ///< its method that takes that number
};

/// One request to such a service, withdrawn at its end.
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
