// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/DataObject.h"

#include "tests/support/ErrorNumberOf.h"
#include "tests/support/PathLiterals.h"

#include <QMimeData>
#include <QUrl>

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;
using compilation::DataObject;
using test::ErrorNumberOf;

namespace {

DataObject Of(const QByteArray& addresses)
{
    QMimeData data;
    data.setData(u"text/uri-list"_s, addresses);
    return DataObject(data);
}

} // namespace

TEST(DataObjectTest, FilesCountFromOneAndAreProgramPaths)
{
    const DataObject data = Of("file:///home/u/a\\b\r\nfile:///c%20d/\r\n");
    EXPECT_TRUE(data.GetFormat(15));
    EXPECT_FALSE(data.GetFormat(1));
    ASSERT_EQ(data.FilesCount(), 2);
    EXPECT_EQ(data.Files(1), u"\\home\\u\\a/b"_path);
    EXPECT_EQ(data.Files(2), u"\\c d\\"_path);
}

TEST(DataObjectTest, AnAddressOfElsewhereAndAPlaceOutsideAreError461)
{
    const DataObject data = Of("http://example.org/a");
    EXPECT_TRUE(data.GetFormat(15));
    ASSERT_EQ(data.FilesCount(), 1);
    for (const qsizetype place : {0, 1, 2}) {
        EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(data.Files(place)); }), 461) << place;
    }
}

TEST(DataObjectTest, ADragWithoutAddressesOffersNoFiles)
{
    EXPECT_FALSE(DataObject(QMimeData()).GetFormat(15));
    EXPECT_FALSE(Of("# nothing\r\n").GetFormat(15));
}

TEST(DataObjectTest, AddressesThatQtMadeAreReadAsWell)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(u"/home/é #1"_s), QUrl::fromEncoded("file:///caf%E9")});
    const DataObject files(data);
    ASSERT_EQ(files.FilesCount(), 2);
    EXPECT_EQ(files.Files(1), u"\\home\\é #1"_path);
    EXPECT_EQ(files.Files(2), text::ProgramPath(u"\\caf"_s + QChar(0xDCE9)));
}
