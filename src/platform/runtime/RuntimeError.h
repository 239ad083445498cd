// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace velmora::runtime {

/// The classic error numbers that the program raises or compares with.
namespace error {
inline constexpr qint32 kInvalidCall = 5;
inline constexpr qint32 kOverflow = 6;
inline constexpr qint32 kOutOfMemory = 7;
inline constexpr qint32 kSubscriptOutOfRange = 9;
inline constexpr qint32 kDivisionByZero = 11;
inline constexpr qint32 kFileNotFound = 53;
inline constexpr qint32 kPermissionDenied = 70;
inline constexpr qint32 kPathAccess = 75;
inline constexpr qint32 kPathNotFound = 76;
inline constexpr qint32 kObjectNotSet = 91;
inline constexpr qint32 kNoLinkPartner = 282;
inline constexpr qint32 kLinkRefused = 285;
inline constexpr qint32 kLinkTimeout = 286;
inline constexpr qint32 kNoLinkChannel = 293;
inline constexpr qint32 kNotImplemented = 445;
inline constexpr qint32 kMemberNotFound = 461;
inline constexpr qint32 kIndexOutOfRange = 35600;
inline constexpr qint32 kKeyNotFound = 35601;
inline constexpr qint32 kKeyNotUnique = 35602;
} // namespace error

/// The French description of an error number; a general one if the number has none.
QString DescriptionOf(qint32 number);

/// The program's one exception: a numbered error with the description that the user reads.
class RuntimeError : public std::exception {
public:
    /// An error with the description that belongs to its number.
    explicit RuntimeError(qint32 number);
    RuntimeError(qint32 number, QString description, QString source = {});

    qint32 Number() const { return number_; }
    const QString& Source() const { return source_; }
    const QString& Description() const { return description_; }

    /// Number and description in UTF-8, for a debugger or a test's report.
    const char* what() const noexcept override { return what_.constData(); }

private:
    qint32 number_;
    QString source_;
    QString description_;
    QByteArray what_;
};

} // namespace velmora::runtime
