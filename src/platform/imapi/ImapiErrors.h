// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Error.h"
#include "RuntimeError.h"

#include <QtGlobal>

namespace velmora::imapi {

/// A published error code as the signed number that the user sees.
constexpr qint32 Hresult(quint32 code) { return static_cast<qint32>(code); }

/// Codes that the mastering interfaces raise themselves.
namespace hresult {
inline constexpr qint32 kPointer = Hresult(0x80004003);
inline constexpr qint32 kStreamAccessDenied = Hresult(0x80030005);
inline constexpr qint32 kStreamInvalidPointer = Hresult(0x80030009);
inline constexpr qint32 kStreamWriteFault = Hresult(0x8003001D);
inline constexpr qint32 kStreamReadFault = Hresult(0x8003001E);
inline constexpr qint32 kStreamMediumFull = Hresult(0x80030070);
inline constexpr qint32 kMediaIncompatible = Hresult(0xC0AA0203);
inline constexpr qint32 kInvalidParam = Hresult(0xC0AAB101);
inline constexpr qint32 kReadOnly = Hresult(0xC0AAB102);
inline constexpr qint32 kInvalidVolumeName = Hresult(0xC0AAB104);
inline constexpr qint32 kInvalidPath = Hresult(0xC0AAB110);
inline constexpr qint32 kInvalidWorkingDirectory = Hresult(0xC0AAB140);
} // namespace hresult

/// The classic number for an item that is not of the kind it is taken for.
inline constexpr qint32 kTypeMismatch = 13;

/// The error of a published code, with its French description.
runtime::RuntimeError PublishedError(qint32 code);

/// Raises a failure of the image writer under its published number, with its French description.
[[noreturn]] void Raise(const image::Error& failure);

} // namespace velmora::imapi
