// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/ImageFile.h"

#include "tests/platform/image/ChildProcess.h"
#include "tests/platform/image/ImageBench.h"

#include <sys/resource.h>

#include <algorithm>
#include <csignal>

namespace velmora::test {

using namespace image;

namespace {

template <class T> bool Failed(const Result<T>& result, ErrorKind kind, const std::string& path)
{
    return !result && result.Failure().kind == kind && result.Failure().path == path;
}

} // namespace

/// Images of many pieces.
class ImageFileTest : public ImageBench {
protected:
    ImageFileTest()
    {
        Choose(true, false, false);
        AddFile("LARGE", std::string(9'000'000, 'L'));
        AddFile("SMALL", "small");
    }

    std::vector<std::string> FilesInFolder() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder / "out")) {
            names.push_back(entry.path().filename());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    std::string Target() const { return (folder.MakeFolder("out") / "image.iso").native(); }
};

TEST_F(ImageFileTest, FileIsTheImage)
{
    const std::string path = Target();
    ASSERT_TRUE(WriteImageFile(Plan(), path));

    EXPECT_TRUE(ContentOf(path) == Bytes());
    EXPECT_EQ(FilesInFolder(), (std::vector<std::string> {"image.iso"}));
}

TEST_F(ImageFileTest, OldImageIsReplacedWhole)
{
    const std::string path = Target();
    std::ofstream(path) << std::string(20'000'000, 'o'); // longer than the new one
    ASSERT_TRUE(WriteImageFile(Plan(), path));

    EXPECT_TRUE(ContentOf(path) == Bytes());
}

TEST_F(ImageFileTest, OpenFileIsCutToTheImage)
{
    const std::string path = Target();
    std::ofstream(path) << std::string(20'000'000, 'o');
    const int file = ::open(path.c_str(), O_RDWR);
    ASSERT_TRUE(CopyTo(Plan(), file, {.threads = 4}));
    ::close(file);

    EXPECT_TRUE(ContentOf(path) == Bytes());
}

TEST_F(ImageFileTest, ProgressEndsWithAllBytes)
{
    std::uint64_t last = 0;
    bool fell = false;
    const CopyOptions how {.progress = [&](std::uint64_t done) {
        fell = fell || done < last;
        last = done;
        return true;
    }};

    ASSERT_TRUE(WriteImageFile(Plan(), Target(), how));

    EXPECT_EQ(last, Plan().Bytes());
    EXPECT_FALSE(fell);
}

TEST_F(ImageFileTest, PipeTakesTheImageByteForByte)
{
    const std::string path = Target();
    FILE* const pipe = ::popen(("cat >'" + path + "'").c_str(), "w");
    ASSERT_NE(pipe, nullptr);
    EXPECT_TRUE(StreamTo(Plan(), ::fileno(pipe)));
    ::pclose(pipe);

    EXPECT_TRUE(ContentOf(path) == Bytes());
}

TEST_F(ImageFileTest, StreamThatCannotBeWrittenOrIsStoppedIsTold)
{
    const int readOnly = ::open("/dev/null", O_RDONLY);
    EXPECT_TRUE(Failed(StreamTo(Plan(), readOnly), ErrorKind::OutputNotWritten, ""));
    EXPECT_TRUE(
        Failed(StreamTo(Plan(), readOnly, {.progress = [](std::uint64_t) { return false; }}),
            ErrorKind::Cancelled,
            ""));
    ::close(readOnly);
}

TEST_F(ImageFileTest, FilesOfOthersAreNotTouched)
{
    const std::string path = Target();
    std::ofstream(path + ".part") << "somebody's own";
    ASSERT_TRUE(WriteImageFile(Plan(), path));

    EXPECT_EQ(ContentOf(path + ".part"), "somebody's own");
    EXPECT_EQ(FilesInFolder(), (std::vector<std::string> {"image.iso", "image.iso.part"}));
}

TEST_F(ImageFileTest, NameOf255BytesIsWritten)
{
    const std::string path = (folder.MakeFolder("out") / std::string(255, 'n')).native();
    ASSERT_TRUE(WriteImageFile(Plan(), path));
    ASSERT_TRUE(WriteImageFile(Plan(), path)) << "in place of the first";

    EXPECT_TRUE(ContentOf(path) == Bytes());
    EXPECT_EQ(FilesInFolder(), (std::vector<std::string> {std::string(255, 'n')}));
}

TEST_F(ImageFileTest, TwoAtOnceLeaveOneWhole)
{
    const std::string path = Target();
    const ImagePlan first = Plan();
    bool isInner = false;
    const auto outer = WriteImageFile(first, path, {.progress = [&](std::uint64_t) {
        if (!std::exchange(isInner, true)) {
            EXPECT_TRUE(WriteImageFile(first, path)); // begun later, done before
        }
        return true;
    }});

    EXPECT_TRUE(outer);
    EXPECT_TRUE(ContentOf(path) == Bytes());
    EXPECT_EQ(FilesInFolder(), (std::vector<std::string> {"image.iso"}));
}

TEST_F(ImageFileTest, NothingHasANameUntilItIsWhole)
{
    const std::string path = Target();
    std::vector<std::string> seen {"not looked yet"};
    std::string told = "not told";
    const CopyOptions how {.progress =
                               [&](std::uint64_t) {
                                   seen = FilesInFolder();
                                   return true;
                               },
        .partialFile = [&](const std::string& name) { told = name; }};
    ASSERT_TRUE(WriteImageFile(Plan(), path, how));

    if (told.empty()) { // a process that is killed leaves nothing
        EXPECT_EQ(seen, std::vector<std::string> {});
    } else { // a file system that must have one
        EXPECT_EQ(seen, std::vector<std::string> {std::filesystem::path(told).filename()});
    }
}

TEST_F(ImageFileTest, CancelLeavesNothingAndKeepsTheOldFile)
{
    const std::string path = Target();
    std::ofstream(path) << "old";

    const auto written
        = WriteImageFile(Plan(), path, {.progress = [](std::uint64_t) { return false; }});

    EXPECT_TRUE(Failed(written, ErrorKind::Cancelled, path));
    EXPECT_EQ(ContentOf(path), "old");
    EXPECT_EQ(FilesInFolder(), (std::vector<std::string> {"image.iso"}));
}

TEST_F(ImageFileTest, ChangedSourceLeavesNothingAndKeepsTheOldFile)
{
    const std::string path = Target();
    std::ofstream(path) << "old";
    const ImagePlan plan = Plan();
    for (const char* name : {"LARGE", "SMALL"}) { // one that may be shared, one that never is
        const std::string source = (folder / "source" / name).native();
        std::filesystem::rename(source, source + "-away");
        for (const unsigned threads : {1U, 4U}) {
            EXPECT_TRUE(Failed(
                WriteImageFile(plan, path, {.threads = threads}), ErrorKind::NotFound, source));
        }
        std::filesystem::rename(source + "-away", source);
    }

    EXPECT_EQ(ContentOf(path), "old");
    EXPECT_EQ(FilesInFolder(), (std::vector<std::string> {"image.iso"}));
    EXPECT_TRUE(WriteImageFile(plan, path));
}

TEST_F(ImageFileTest, SourcesThatGrewOrWereRewrittenAreNamedByEachWayOfWriting)
{
    const ImagePlan plan = Plan();
    std::set<std::string> sources;
    for (const char* name : {"LARGE", "SMALL"}) {
        sources.insert((folder / "source" / name).native());
        Rewrite(*sources.rbegin(), std::string(9'000'001, 'n'));
    }
    for (const unsigned threads : {1U, 4U}) {
        const auto written = WriteImageFile(plan, Target(), {.threads = threads});
        ASSERT_TRUE(written);
        EXPECT_EQ(written->changedFiles, sources);
    }
    std::FILE* pipe = ::popen("cat > /dev/null", "w");
    const auto streamed = StreamTo(plan, ::fileno(pipe));
    ::pclose(pipe);
    ASSERT_TRUE(streamed);
    EXPECT_EQ(streamed->changedFiles, sources);
}

TEST_F(ImageFileTest, TargetThatCannotBeCreatedIsTold)
{
    const std::string path = (folder / "missing/image.iso").native();
    const auto written = WriteImageFile(Plan(), path);

    ASSERT_TRUE(Failed(written, ErrorKind::OutputNotCreated, path));
    EXPECT_EQ(written.Failure().systemError, ENOENT);
}

TEST_F(ImageFileTest, TargetThatIsAFolderIsKept)
{
    const std::string path = (folder.MakeFolder("out/image.iso")).native();

    const auto written = WriteImageFile(Plan(), path);

    EXPECT_TRUE(Failed(written, ErrorKind::OutputNotWritten, path));
    EXPECT_TRUE(std::filesystem::is_directory(path));
    EXPECT_EQ(FilesInFolder(), (std::vector<std::string> {"image.iso"}));
}

TEST_F(ImageFileTest, OutputThatTakesNothingIsTold)
{
    const int file = ::open("/dev/full", O_RDWR);
    const auto written = CopyTo(Plan(), file);
    ::close(file);

    ASSERT_FALSE(written);
    EXPECT_EQ(written.Failure().kind, ErrorKind::OutputNotWritten);
}

TEST_F(ImageFileTest, LimitOfFileSizesIsTold)
{
    const ImagePlan plan = Plan();
    const std::string path = Target();
    const int outcome = InChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit {1'000'000, 1'000'000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) {
            return kNotPossible;
        }
        const auto written = WriteImageFile(plan, path);
        const bool told = Failed(written, ErrorKind::OutputNotWritten, path)
            && written.Failure().systemError == EFBIG;
        return told ? kAsExpected : kUnexpected;
    });

    EXPECT_EQ(outcome, kAsExpected);
    EXPECT_EQ(FilesInFolder(), std::vector<std::string> {});
}

TEST_F(ImageFileTest, DiskThatGetsFullMeanwhileIsTold)
{
    const int full = ::open("/dev/full", O_WRONLY);
    const auto streamed = StreamTo(Plan(), full);
    ::close(full);
    EXPECT_TRUE(Failed(streamed, ErrorKind::DiskFull, ""));
    EXPECT_EQ(streamed.Failure().systemError, ENOSPC);
    EXPECT_EQ(streamed.Failure().missingBytes, 0U);
}

TEST_F(ImageFileTest, DiskWithTooLittleRoomIsToldBeforeAnythingIsWritten)
{
    const ImagePlan plan = Plan();
    const std::string disk = folder.MakeFolder("disk").native();
    const int outcome = InChild([&] { // a file system of 2 MiB that only this process sees
        const bool mounted
            = HideMounts() && ::mount("none", disk.c_str(), "tmpfs", 0, "size=2m") == 0;
        if (!mounted) {
            return kNotPossible;
        }
        const auto written = WriteImageFile(plan, disk + "/image.iso");
        const std::uint64_t missing = Plan().Bytes() - 2 * 1024 * 1024;
        const bool told = Failed(written, ErrorKind::DiskFull, disk + "/image.iso")
            && written.Failure().missingBytes == missing && std::filesystem::is_empty(disk);
        return told ? kAsExpected : kUnexpected;
    });
    if (outcome == kNotPossible) {
        GTEST_SKIP() << "no file system can be mounted here";
    }
    EXPECT_EQ(outcome, kAsExpected);
}

TEST_F(ImageFileTest, ImagesAroundTheLengthOfAPieceAreWhole)
{
    const std::string path = Target();
    // Data from 22 on, 150 sectors after them, a multiple of 32: one piece of 512 KiB, then more.
    struct Row {
        std::size_t bytes;
        std::uint32_t sectors;
    };
    for (const Row& row :
        {Row {52 * kSector, 224}, Row {84 * kSector, 256}, Row {84 * kSector + 1, 288}}) {
        tree = std::make_shared<SourceTree>(kMoment);
        AddFile("ONE", std::string(row.bytes, '1'));
        ASSERT_EQ(Plan().Sectors(), row.sectors);
        for (const unsigned threads : {1U, 4U}) {
            ASSERT_TRUE(WriteImageFile(Plan(), path, {.threads = threads}));
            EXPECT_TRUE(ContentOf(path) == Bytes()) << row.sectors;
        }
    }
}

TEST_F(ImageFileTest, ImageMayBeMuchLargerThanItsBuffers)
{
    Choose(true, true, true);
    for (int i = 0; i < 20; ++i) { // around the ends of pieces
        AddFile(
            "P" + std::to_string(i), std::string(200'000U + static_cast<unsigned>(i) * 997, 'p'));
    }
    const std::string path = Target();
    const std::string whole = Bytes();
    for (const unsigned threads : {1U, 2U, 4U}) {
        ASSERT_TRUE(WriteImageFile(Plan(), path, {.threads = threads}));
        EXPECT_TRUE(ContentOf(path) == whole) << threads;
    }
}

} // namespace velmora::test
