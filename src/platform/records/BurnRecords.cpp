// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/BurnRecords.h"

#include "unicode/ReplaceFile.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <utility>

namespace velmora::records {

using namespace Qt::StringLiterals;

namespace {

const QString kEnding = u".json"_s;

/// @return false with errno
bool MakeFolder(const QString& folder)
{
    constexpr mode_t kOfTheUser = 0700;
    const QByteArray path = QFile::encodeName(folder);
    if (::mkdir(path.constData(), kOfTheUser) == 0 || errno == EEXIST) {
        return true;
    }
    const QString parent = folder.section(u'/', 0, -2);
    return errno == ENOENT && !parent.isEmpty() && MakeFolder(parent)
        && (::mkdir(path.constData(), kOfTheUser) == 0 || errno == EEXIST);
}

QString WhyNot(const QString& folder)
{
    return u"La trace de cette gravure n'a pas pu être gardée dans « %1 » (%2)."_s.arg(
        folder, QString::fromLocal8Bit(std::strerror(errno)));
}

} // namespace

BurnRecords::BurnRecords(QString folder)
    : folder_(std::move(folder))
{
}

QString BurnRecords::FolderOfUser()
{
    const QString states = QFile::decodeName(qgetenv("XDG_STATE_HOME"));
    const QString base
        = QDir::isAbsolutePath(states) ? states : QDir::homePath() + u"/.local/state"_s;
    return QDir::cleanPath(base) + u"/velmora/burns"_s;
}

QString BurnRecords::PathOf(int number) const
{
    constexpr int kDigits = 4;
    return folder_ + u'/' + QString::number(number).rightJustified(kDigits, u'0') + kEnding;
}

std::optional<QString> BurnRecords::Keep(const BurnRecord& record) const
{
    std::string beside = QFile::encodeName(folder_ + u"/.record-XXXXXX"_s).toStdString();
    if (!MakeFolder(folder_) || !unicode::WriteAnew(beside, TextOf(record).toStdString())) {
        return WhyNot(folder_);
    }
    const QList<int> known = Numbers();
    int number = known.isEmpty() ? 1 : known.back() + 1;
    // Another burn that ends at the same time may take the number.
    while (::link(beside.c_str(), QFile::encodeName(PathOf(number)).constData()) != 0) {
        if (errno != EEXIST) {
            const QString why = WhyNot(folder_);
            ::unlink(beside.c_str());
            return why;
        }
        ++number;
    }
    ::unlink(beside.c_str());
    return std::nullopt;
}

QList<int> BurnRecords::Numbers() const
{
    QList<int> numbers;
    for (const QString& name : QDir(folder_).entryList({u'*' + kEnding}, QDir::Files)) {
        const int number = name.chopped(kEnding.size()).toInt();
        if (number > 0 && PathOf(number).endsWith(u'/' + name)) {
            numbers.push_back(number);
        }
    }
    std::ranges::sort(numbers);
    return numbers;
}

std::optional<BurnRecord> BurnRecords::Read(int number) const
{
    QFile file(PathOf(number));
    return file.open(QIODevice::ReadOnly) ? RecordFrom(file.readAll()) : std::nullopt;
}

bool BurnRecords::Forget(int number) const
{
    return ::unlink(QFile::encodeName(PathOf(number)).constData()) == 0;
}

QString BurnRecords::PathOfFailure() const { return folder_ + u"/last-failure"_s + kEnding; }

void BurnRecords::KeepFailure(const WriteFailure& failure) const
{
    std::string beside = QFile::encodeName(folder_ + u"/.failure-XXXXXX"_s).toStdString();
    const QByteArray text = QJsonDocument(ObjectOf(failure)).toJson(QJsonDocument::Compact) + '\n';
    if (MakeFolder(folder_) && unicode::WriteAnew(beside, text.toStdString())
        && ::rename(beside.c_str(), QFile::encodeName(PathOfFailure()).constData()) != 0) {
        ::unlink(beside.c_str());
    }
}

std::optional<WriteFailure> BurnRecords::LastFailure() const
{
    QFile file(PathOfFailure());
    return file.open(QIODevice::ReadOnly)
        ? FailureFrom(QJsonDocument::fromJson(file.readAll()).object())
        : std::nullopt;
}

} // namespace velmora::records
