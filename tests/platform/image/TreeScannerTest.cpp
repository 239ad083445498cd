// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/TreeScanner.h"

#include "tests/platform/image/ImageBench.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>

namespace velmora::test {

using namespace image;

/// A folder "top" to be scanned.
class TreeScannerTest : public ImageBench {
protected:
    TreeScannerTest() { top = folder.MakeFolder("top"); }

    void Link(const std::string& target, const std::string& name) const
    {
        ASSERT_EQ(::symlink(target.c_str(), (folder / name).c_str()), 0) << name;
    }

    Result<ScanReport> ScanInto(
        const std::string& path, IncludeBase includeBase, const ScanOptions& how = {}) const
    {
        return ScanFolder(*tree, SourceTree::kRoot, path, includeBase, how);
    }

    /// All paths of the image, directories with a trailing slash.
    std::set<std::string> Paths() const
    {
        std::set<std::string> paths;
        const std::function<void(NodeId)> visit = [&](NodeId directory) {
            for (NodeId id = (*tree)[directory].firstChild; id != kNoNode;
                 id = (*tree)[id].nextSibling) {
                paths.insert(tree->ImagePath(id) + ((*tree)[id].IsDirectory() ? "/" : ""));
                visit(id);
            }
        };
        visit(SourceTree::kRoot);
        return paths;
    }

    /// "kind path" of what was skipped, the path within the folder.
    std::vector<std::pair<ErrorKind, std::string>> LeftOut(const ScanReport& report) const
    {
        std::vector<std::pair<ErrorKind, std::string>> all;
        for (const Error& error : report.leftOut) {
            all.emplace_back(error.kind,
                error.path.substr(std::min(error.path.size(), top.native().size() + 1)));
        }
        return all;
    }

    using Passed = std::vector<std::pair<ErrorKind, std::string>>;
    std::filesystem::path top;
};

TEST_F(TreeScannerTest, ContentsOfAFolderAreTakenWithItsHiddenEntries)
{
    Write("top/a", "12345");
    Write("top/.hidden/b", "123");
    folder.MakeFolder("top/empty");

    const ScanReport report = Scan(top);

    EXPECT_EQ(Paths(), (std::set<std::string> {"a", ".hidden/", ".hidden/b", "empty/"}));
    EXPECT_EQ(report.files, 2U);
    EXPECT_EQ(report.directories, 2U);
    EXPECT_EQ(report.bytes, 8U);
    EXPECT_TRUE(report.leftOut.empty());
}

TEST_F(TreeScannerTest, FolderItselfIsTakenByItsName)
{
    Write("top/a", "");

    ASSERT_TRUE(ScanInto(top.native() + "///", IncludeBase::Yes));

    EXPECT_EQ(Paths(), (std::set<std::string> {"top/", "top/a"}));
    EXPECT_EQ(tree->SourcePath(*tree->FindPath("top/a")), (top / "a").native());
}

TEST_F(TreeScannerTest, NodesHoldWhatTheFolderTells)
{
    Write("top/sub/file", "123");
    Dated(folder / "top/sub");
    Dated(folder / "top");

    Scan(top);

    const Node& file = (*tree)[*tree->FindPath("sub/file")];
    const Node& sub = (*tree)[*tree->FindPath("sub")];
    EXPECT_EQ(file.size, 3U);
    EXPECT_EQ(file.mode, 0644);
    EXPECT_EQ(file.modifiedSeconds, 1773039904);
    EXPECT_EQ(file.modifiedMicros, 123456U);
    EXPECT_EQ(sub.mode, 0700);
    EXPECT_EQ(sub.size, 0U);
    EXPECT_EQ(sub.modifiedSeconds, 1773039904);
    EXPECT_EQ((*tree)[SourceTree::kRoot].modifiedSeconds, 1773039904); // the whole image's root
}

TEST_F(TreeScannerTest, EntriesAreInTheOrderOfTheirBytes)
{
    for (const char* name : {"b", "B", "a", "é", "_"}) {
        Write(std::string("top/") + name, "");
    }

    Scan(top);

    std::vector<std::string_view> names;
    for (NodeId id = (*tree)[SourceTree::kRoot].firstChild; id != kNoNode;
         id = (*tree)[id].nextSibling) {
        names.push_back(tree->Name(id));
    }
    EXPECT_EQ(names, (std::vector<std::string_view> {"B", "_", "a", "b", "é"}));
}

TEST_F(TreeScannerTest, HardLinksMayShareTheirBytesAndCountTwice)
{
    Write("top/one", "123");
    ASSERT_EQ(::link((top / "one").c_str(), (top / "two").c_str()), 0);

    const ScanReport report = Scan(top);

    const Node& one = (*tree)[*tree->FindPath("one")];
    const Node& two = (*tree)[*tree->FindPath("two")];
    EXPECT_TRUE(one.mayBeShared);
    EXPECT_EQ(one.inode, two.inode);
    EXPECT_EQ(one.device, two.device);
    EXPECT_EQ(report.bytes, 6U);
}

TEST_F(TreeScannerTest, LinksAreTakenAsLinksWhereverTheyLead)
{
    Write("outside/x", "12");
    Write("top/file", "123");
    Link("file", "top/link");
    Link("../outside", "top/folder");
    Link("missing", "top/dangling");
    Link("loop", "top/loop");
    Link(".", "top/self");
    Link("/dev/null", "top/device");

    const ScanReport report = Scan(top);

    EXPECT_EQ(Paths(),
        (std::set<std::string> {"file", "link", "folder", "dangling", "loop", "self", "device"}));
    for (const auto& [name, text] : std::map<std::string, std::string> {{"link", "file"},
             {"folder", "../outside"},
             {"dangling", "missing"},
             {"loop", "loop"},
             {"self", "."},
             {"device", "/dev/null"}}) {
        const NodeId link = *tree->FindPath(name);
        EXPECT_EQ((*tree)[link].kind, NodeKind::Link) << name;
        EXPECT_EQ((*tree)[link].size, 0U) << name;
        EXPECT_EQ(tree->LinkText(link), text);
    }
    EXPECT_TRUE(report.leftOut.empty());
    EXPECT_EQ(report.links, 6U);
    EXPECT_EQ(report.files, 1U);
    EXPECT_EQ(report.bytes, 3U);
}

TEST_F(TreeScannerTest, LinkHasItsOwnTime)
{
    Link("file", "top/link");
    const timespec moment {kMoment.seconds, long {kMoment.microseconds} * 1000};
    const timespec times[2] {moment, moment};
    ASSERT_EQ(::utimensat(AT_FDCWD, (top / "link").c_str(), times, AT_SYMLINK_NOFOLLOW), 0);

    Scan(top);

    EXPECT_EQ((*tree)[*tree->FindPath("link")].modifiedSeconds, kMoment.seconds);
}

TEST_F(TreeScannerTest, LongestLinkAndOneOfAnyBytesAreTaken)
{
    Link(std::string(4095, 'x'), "top/long");
    Link("caf\xE9/\xFF", "top/bytes");

    Scan(top);

    EXPECT_EQ(tree->LinkText(*tree->FindPath("long")), std::string(4095, 'x'));
    EXPECT_EQ(tree->LinkText(*tree->FindPath("bytes")), "caf\xE9/\xFF");
}

TEST_F(TreeScannerTest, FolderThatIsNamedByALinkIsScanned)
{
    Write("real/x", "");
    Link("../real", "top/named");

    ASSERT_TRUE(ScanInto((top / "named").native(), IncludeBase::Yes));

    EXPECT_EQ(Paths(), (std::set<std::string> {"named/", "named/x"}));
}

TEST_F(TreeScannerTest, SpecialFilesArePassedOver)
{
    ASSERT_EQ(::mkfifo((top / "pipe").c_str(), 0644), 0);
    ASSERT_EQ(::mknod((top / "socket").c_str(), S_IFSOCK | 0644, 0), 0);
    Write("top/file", "");

    const ScanReport report = Scan(top);

    EXPECT_EQ(Paths(), (std::set<std::string> {"file"}));
    EXPECT_EQ(LeftOut(report),
        (Passed {{ErrorKind::SpecialFile, "pipe"}, {ErrorKind::SpecialFile, "socket"}}));
}

TEST_F(TreeScannerTest, NamesThatAreNotUtf8AreTakenAsTheyAre)
{
    Write("top/a\xFF/b\xE9", "");

    Scan(top);

    EXPECT_EQ(Paths(), (std::set<std::string> {"a\xFF/", "a\xFF/b\xE9"}));
}

TEST_F(TreeScannerTest, NameOf255BytesIsTaken)
{
    Write("top/" + std::string(255, 'n'), "");

    Scan(top);

    EXPECT_EQ(Paths(), (std::set<std::string> {std::string(255, 'n')}));
}

TEST_F(TreeScannerTest, ManyEntriesAreTakenByOneAndByFourThreads)
{
    for (int i = 0; i < 30; ++i) {
        for (int k = 0; k < 20; ++k) {
            Write("top/" + std::to_string(i) + "/" + std::to_string(k), "");
        }
    }
    std::set<std::string> before;
    for (const unsigned threads : {1U, 4U}) {
        tree = std::make_shared<SourceTree>(kMoment);
        const Result<ScanReport> report
            = ScanInto(top.native(), IncludeBase::No, {.threads = threads});
        ASSERT_TRUE(report);
        EXPECT_EQ(report->files, 600U);
        EXPECT_EQ(report->directories, 30U);
        EXPECT_EQ(Paths().size(), 630U);
        EXPECT_TRUE(before.empty() || before == Paths());
        before = Paths();
    }
}

TEST_F(TreeScannerTest, DeepTreeIsTaken)
{
    std::string path = "top";
    for (int i = 0; i < 300; ++i) {
        path += "/d";
    }
    Write(path + "/file", "");

    const ScanReport report = Scan(top);

    EXPECT_EQ(report.directories, 300U);
    EXPECT_EQ(report.files, 1U);
}

TEST_F(TreeScannerTest, FolderThatCannotBeScannedIsAnError)
{
    Write("top/file", "");
    struct Row {
        std::string path;
        ErrorKind kind;
    };
    for (const Row& row : {Row {(top / "missing").native(), ErrorKind::NotFound},
             Row {(top / "file").native(), ErrorKind::NotADirectory},
             Row {"", ErrorKind::NotFound}}) {
        const Result<ScanReport> report = ScanInto(row.path, IncludeBase::No);
        ASSERT_FALSE(report) << row.path;
        EXPECT_EQ(report.Failure().kind, row.kind) << row.path;
        EXPECT_EQ(report.Failure().path, row.path);
    }
    EXPECT_TRUE(Paths().empty());
}

TEST_F(TreeScannerTest, FolderWithoutANameCannotBeTakenByIt)
{
    for (const std::string& path : {top.native() + "/.", top.native() + "/..", std::string("/")}) {
        const Result<ScanReport> report = ScanInto(path, IncludeBase::Yes);
        ASSERT_FALSE(report) << path;
        EXPECT_EQ(report.Failure().kind, ErrorKind::InvalidPath) << path;
    }
}

TEST_F(TreeScannerTest, TargetThatIsAFileIsAnError)
{
    AddFile("file", "");

    const Result<ScanReport> report
        = ScanFolder(*tree, *tree->FindPath("file"), top.native(), IncludeBase::No);

    ASSERT_FALSE(report);
    EXPECT_EQ(report.Failure().kind, ErrorKind::NotADirectory);
    EXPECT_EQ(report.Failure().path, "file");
}

TEST_F(TreeScannerTest, ProgressTellsOfTheWholeScanAtItsEnd)
{
    Write("top/sub/a", "");
    Write("top/sub/b", "");
    ScanProgress last;

    const Result<ScanReport> report
        = ScanInto(top.native(), IncludeBase::No, {.progress = [&](const ScanProgress& progress) {
              last = progress;
              return true;
          }});

    ASSERT_TRUE(report);
    EXPECT_EQ(last.entries, 3U);
    EXPECT_EQ(last.currentPath, (top / "sub").native());
}

TEST_F(TreeScannerTest, CancelledScanLeavesTheTreeAsItWas)
{
    AddFile("file", "");
    Write("top/sub/a", "");

    const Result<ScanReport> report = ScanInto(
        top.native(), IncludeBase::Yes, {.progress = [](const ScanProgress&) { return false; }});

    ASSERT_FALSE(report);
    EXPECT_EQ(report.Failure().kind, ErrorKind::Cancelled);
    EXPECT_EQ(Paths(), (std::set<std::string> {"file"}));
}

TEST_F(TreeScannerTest, FilesOfUnknownSizeArePassedOverAndTold)
{
    if (!std::filesystem::exists("/proc/self/status")) {
        GTEST_SKIP() << "no /proc is mounted here";
    }
    const Result<NodeId> added = tree->AddFile("status", "/proc/self/status");
    ASSERT_FALSE(added);
    EXPECT_EQ(added.Failure().kind, ErrorKind::SizeUnknown);

    const ScanReport report = Scan("/proc/self/net");
    EXPECT_EQ(report.files, 0U);
    const auto isOfUnknownSize
        = [](const Error& error) { return error.kind == ErrorKind::SizeUnknown; };
    EXPECT_GT(std::ranges::count_if(report.leftOut, isOfUnknownSize), 0);
}

TEST_F(TreeScannerTest, EmptyFilesOfAFileSystemInMemoryAreTaken)
{
    const std::filesystem::path memory = "/dev/shm";
    std::error_code failure;
    if (!std::filesystem::exists(memory, failure)) {
        GTEST_SKIP() << "no file system in memory is mounted here";
    }
    const std::filesystem::path file = memory / ("velmora-empty-" + std::to_string(::getpid()));
    std::ofstream(file).flush();
    EXPECT_TRUE(tree->AddFile("EMPTY", file.native()));
    std::filesystem::remove(file);
}

} // namespace velmora::test
