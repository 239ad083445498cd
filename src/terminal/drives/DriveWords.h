// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/MediaTypes.h"
#include "runtime/RuntimeError.h"

#include <string>
#include <string_view>
#include <vector>

namespace velmora::terminal {

/// The display name of a kind of disc, "DL" for double layer; "disque inconnu" for a number that
/// names none.
std::string MediaWords(drive::IMAPI_MEDIA_PHYSICAL_TYPE type);

/// A bit of a disc's state, for a person and for a program.
struct StateWord {
    qint32 bit; ///< of media_state
    std::string_view words;
    std::string_view key;
};

/// The bits that a state holds, those that matter most before the others.
std::vector<StateWord> StateWordsOf(qint32 mediaStatus);

/// A speed as a multiple of the disc's single speed, with one decimal if it isn't whole.
/// @param sectorsPerSecond  of 2048 bytes
double MultipleOf(quint32 sectorsPerSecond, drive::IMAPI_MEDIA_PHYSICAL_TYPE type);

/// "16x", "2,4x"
std::string MultipleText(double multiple);

/// Why a drive doesn't answer: the failure's description, with its number if that helps.
std::string DriveFailureText(const runtime::RuntimeError& failure);

/// The message that the machine has no recorder, and what to do: French, to follow "Erreur : ".
std::string NoRecorderText();

} // namespace velmora::terminal
