// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/Mastering.h"
#include "runtime/RuntimeError.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace velmora::terminal {

/// A recorder of the machine, or why it can't be queried.
struct SurveyedRecorder {
    QString id;
    QString vendor;
    QString product;
    QString revision;
    QString path;      ///< shown to the user
    QStringList discs; ///< names of the kinds that it records; empty for a drive that only reads
    std::optional<runtime::RuntimeError> failure;
};

/// Asks every recorder what it is.
/// Errors: those of the list itself; a recorder's own failure is kept with it.
std::vector<SurveyedRecorder> SurveyRecorders(imapi::Mastering& mastering);

/// Vendor and product for display, the id for a recorder that didn't answer.
QString RecorderName(const SurveyedRecorder& recorder);

} // namespace velmora::terminal
