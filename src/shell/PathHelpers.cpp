// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/PathHelpers.h"

#include "runtime/TextRules.h"
#include "text/PathText.h"

namespace velmora::shell {

namespace {

constexpr QChar kSeparator = u'\\';

} // namespace

QString AddBackslash(QString& path)
{
    path = runtime::RTrim(path);
    if (!path.endsWith(kSeparator)) {
        path += kSeparator;
    }
    return path;
}

QString LastFolderName(const QString& path)
{
    const QString open = NoTrailingBackslash(path);
    const QString name = open.sliced(open.lastIndexOf(kSeparator) + 1);
    return path.endsWith(kSeparator) ? name + kSeparator : name;
}

QString DefaultDiscNameOf(const QString& folder)
{
    QString name = text::ForTheEye(LastFolderName(folder).remove(kSeparator));
    for (QChar& character : name) {
        if (character.category() == QChar::Other_Control) {
            character = u'_';
        }
    }
    return name;
}

QString Fixp(const QString& path, qint16 mode)
{
    if (mode != 1) {
        return NoTrailingBackslash(path);
    }
    return path.endsWith(kSeparator) ? path : path + kSeparator;
}

QString getFileNameOutofFilePath(const QString& path, qint16 part)
{
    const qsizetype split = path.lastIndexOf(kSeparator) + 1;
    if (split == 0) {
        return {};
    }
    if (part == 0) {
        return path.first(split);
    }
    if (part == 1) {
        return path.sliced(split);
    }
    return {};
}

QString NoTrailingBackslash(const QString& path)
{
    return path.endsWith(kSeparator) ? path.chopped(1) : path;
}

QString ParentPath(const QString& path)
{
    const qsizetype split = path.lastIndexOf(kSeparator);
    return split < 0 ? QString() : path.first(split);
}

} // namespace velmora::shell
