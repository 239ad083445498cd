// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The words that a program that writes and its stop companion exchange over their links.
namespace velmora::companion::words {

/// The service that the companion offers: its application and topic, joined by a bar.
inline QString Service() { return QStringLiteral("StopButton|Undo"); }

/// The item of the service, whose text is the state of the link: empty, or one of the words below.
inline QString Item() { return QStringLiteral("Commande"); }

/// From the companion: its button was pressed. The empty text takes it back.
inline QString Stop() { return QStringLiteral("Undo"); }

/// To the companion: the write is over.
inline QString Quit() { return QStringLiteral("Quit"); }

/// The service for the progress of the write, and its item: see ProgressText.h.
inline QString ProgressService() { return QStringLiteral("StopButton|Progress"); }
inline QString ProgressItem() { return QStringLiteral("Avancement"); }

} // namespace velmora::companion::words
