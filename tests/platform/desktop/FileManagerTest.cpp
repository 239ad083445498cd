// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FileManager.h"

#include "tests/support/ErrorNumberOf.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/WidgetApplication.h"

#include <QDesktopServices>
#include <QUrl>

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;

namespace {

/// Takes the place of the desktop's file manager.
class UrlKeeper final : public QObject {
    Q_OBJECT
public:
    UrlKeeper() { QDesktopServices::setUrlHandler(u"file"_s, this, "Open"); }
    ~UrlKeeper() override { QDesktopServices::unsetUrlHandler(u"file"_s); }

    QList<QUrl> opened;

public slots:
    void Open(const QUrl& url) { opened += url; }
};

} // namespace

TEST(FileManagerTest, ItOpensOnTheFolder)
{
    const UrlKeeper manager;
    desktop::OpenInFileManager(u"\\home\\a b#c"_path);
    ASSERT_EQ(manager.opened.size(), 1);
    EXPECT_EQ(manager.opened[0].toLocalFile(), u"/home/a b#c"_s);
}

TEST(FileManagerTest, ADesktopWithoutOneRaisesFiftyThree)
{
    if (QGuiApplication::platformName() != "offscreen"_L1) {
        GTEST_SKIP() << "this desktop may have a file manager";
    }
    EXPECT_EQ(test::ErrorNumberOf([] { desktop::OpenInFileManager(u"\\"_path); }), 53);
}

#include "FileManagerTest.moc"
