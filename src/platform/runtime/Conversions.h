// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

namespace velmora::runtime {

/// To a 16-bit integer: to nearest, halves to even. Error 6 outside -32768..32767 after rounding.
qint16 ToInt16(double value);

/// To a 32-bit integer: to nearest, halves to even. Error 6 when 32 bits don't hold the result.
qint32 ToInt32(double value);

/// Product of two 32-bit numbers. Error 6 when 32 bits don't hold it: it never wraps.
qint32 MultiplyInt32(qint32 left, qint32 right);

/// Floating-point division. Error 6 for 0 by 0, error 11 for any other number by 0.
double Divide(double dividend, double divisor);

/// The whole number at or below the value: -8.4 gives -9.
double Int(double value);

/// The value without its fraction: -8.4 gives -8.
double Fix(double value);

/// The number that a text begins with, 0 when it begins with none. Blanks, tabs and line feeds are
/// ignored everywhere, "." is the only decimal point, "&H" and "&O" announce hexadecimal and octal
/// digits (up to 16 bits read as a 16-bit number, with its sign), "e" and "d" an exponent. Error 6
/// for a number that is too large.
double Val(QStringView text);

/// A number as text with a place for its sign: a blank or "-". "." is the decimal point, and there
/// are up to 15 significant digits.
QString Str(double value);

/// A file's length as the signed 32-bit number that the classic call gives: 2 GiB and more wraps.
qint32 WrappedFileLength(qint64 bytes);

/// A 64-bit count from its two halves, each taken as unsigned. No caller: the system gives its
/// counts whole.
double LargeIntToDouble(qint32 low, qint32 high);

} // namespace velmora::runtime
