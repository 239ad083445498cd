// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/isofile/IsoImageManager.h"

#include "tests/platform/mastering/ErrorNumbers.h"
#include "tests/platform/mastering/ImageBench.h"

#include <QtEndian>

#include <array>

namespace velmora::test {

using drive::FsiFileSystems;

/// An image file to check.
class IsoImageManagerTest : public ImageBench {
protected:
    static constexpr std::size_t kSector = 2048;

    qint32 Judge(const std::filesystem::path& file)
    {
        const imapi::StreamRef stream = Open(file);
        return ErrorNumberOf([&] {
            mastering::IsoImageManager manager;
            manager.SetStream(stream);
            manager.Validate();
        });
    }
    qint32 Judge(const std::string& bytes) { return Judge(Write("disc.iso", bytes)); }

    /// The bytes of an image of one file.
    std::string ImageOf(FsiFileSystems fileSystems)
    {
        Write("tree/large.bin", std::string(300'000, 'L'));
        image = std::make_shared<mastering::FileSystemImage>(clock);
        image->SetFileSystemsToCreate(fileSystems);
        AddTree("tree");
        return BytesOf(*image->CreateResultImage());
    }

    template <class Number> static void Put(std::string& bytes, std::size_t at, Number number)
    {
        qToLittleEndian(number, bytes.data() + at);
    }

    /// A disk of 64 sectors with one partition in its last 32; counted in 512 bytes.
    static std::string Disk()
    {
        std::string bytes(64 * 512, '\0');
        bytes[446 + 4] = '\x83';
        Put<quint32>(bytes, 446 + 8, 32);
        Put<quint32>(bytes, 446 + 12, 32);
        Put<quint16>(bytes, 510, 0xAA55);
        return bytes;
    }
};

TEST_F(IsoImageManagerTest, AWholeImageOfEachFileSystemIsGood)
{
    for (const FsiFileSystems fileSystems :
        {FsiFileSystems::Iso9660, FsiFileSystems::Iso9660AndJoliet, FsiFileSystems::Udf}) {
        const std::string bytes = ImageOf(fileSystems);
        EXPECT_EQ(Judge(bytes), 0);
        EXPECT_EQ(Judge(bytes + std::string(150 * kSector, '\0')), 0); // padded by another program
    }
}

TEST_F(IsoImageManagerTest, AnImageThatLacksItsEndIsIncomplete)
{
    for (const FsiFileSystems fileSystems :
        {FsiFileSystems::Iso9660, FsiFileSystems::Iso9660AndJoliet, FsiFileSystems::Udf}) {
        const std::string bytes = ImageOf(fileSystems);
        for (const std::size_t sectors : {bytes.size() / kSector - 1, std::size_t {290}}) {
            EXPECT_EQ(Judge(bytes.substr(0, sectors * kSector)), kEndOfFile) << sectors;
        }
    }
    const std::string udf = ImageOf(FsiFileSystems::Udf);
    EXPECT_EQ(Judge(udf.substr(0, 100 * kSector)), kEndOfFile); // before the anchor
}

TEST_F(IsoImageManagerTest, ItIsSaidByNameHowMuchIsMissing)
{
    const std::string bytes = ImageOf(FsiFileSystems::Iso9660);
    const std::filesystem::path file = Write("disc.iso", bytes.substr(0, 200 * kSector));
    mastering::IsoImageManager manager;
    manager.SetStream(Open(file));
    try {
        manager.Validate();
        FAIL() << "an incomplete image was taken";
    } catch (const runtime::RuntimeError& failure) {
        EXPECT_EQ(failure.Description(),
            u"« %1 » est une image incomplète : il lui faut au moins %2 secteurs, et le fichier "
            u"n'en a que "
            "200. Reprenez-la à sa source."_s.arg(QString::fromStdString(file.native()))
                .arg(bytes.size() / kSector));
    }
}

TEST_F(IsoImageManagerTest, BytesThatAreNoImageAreNotTakenForOne)
{
    EXPECT_EQ(Judge(std::string(1 << 20, '\0')), kNoFileSystem);
    EXPECT_EQ(Judge(std::string(1 << 20, 'x')), kNoFileSystem);
    EXPECT_EQ(Judge(std::string(kSector, '\0')), kNoFileSystem);
    std::string volume(1 << 20, 'x'); // ends in the signature as a disk's first sector does
    Put<quint16>(volume, 510, 0xAA55);
    EXPECT_EQ(Judge(volume), kNoFileSystem);
}

TEST_F(IsoImageManagerTest, ADiskReachesAsFarAsItsPartitions)
{
    std::string disk = Disk();
    EXPECT_EQ(Judge(disk), 0);
    EXPECT_EQ(Judge(disk.substr(0, 15 * kSector)), kEndOfFile);
    disk[446 + 4] = '\xEE'; // whose size is invalid
    Put<quint32>(disk, 446 + 12, 0xFFFFFFFF);
    EXPECT_EQ(Judge(disk), 0);
}

TEST_F(IsoImageManagerTest, ADiskReachesAsFarAsTheCopyOfItsTable)
{
    std::string disk = Disk();
    disk.replace(512, 8, "EFI PART");
    Put<quint64>(disk, 512 + 24, 1);
    Put<quint64>(disk, 512 + 32, 63);
    Put<quint64>(disk, 512 + 48, 30);
    EXPECT_EQ(Judge(disk), 0);
    Put<quint64>(disk, 512 + 32, 64);
    EXPECT_EQ(Judge(disk), kEndOfFile);
    Put<quint64>(disk, 512 + 32, ~quint64 {0});
    EXPECT_EQ(Judge(disk), kEndOfFile);
}

TEST_F(IsoImageManagerTest, AVolumeOfSmallerBlocksIsMeasuredInThem)
{
    std::string bytes = ImageOf(FsiFileSystems::Iso9660);
    const auto sectors = static_cast<quint32>(bytes.size() / kSector);
    Put<quint32>(bytes, 16 * kSector + 80, sectors * 4);
    EXPECT_EQ(Judge(bytes), kEndOfFile);
    Put<quint16>(bytes, 16 * kSector + 128, 512);
    EXPECT_EQ(Judge(bytes), 0);
}

TEST_F(IsoImageManagerTest, AVolumeThatIsStillRecordedHasNoEnd)
{
    std::string bytes = ImageOf(FsiFileSystems::Udf);
    bytes.resize(bytes.size() - kSector); // the last anchor
    EXPECT_EQ(Judge(bytes), kEndOfFile);
    const auto descriptor = bytes.find("*OSTA UDF Compliant");
    ASSERT_NE(descriptor, std::string::npos);
    bytes.replace(descriptor, 22, "*UDF Virtual Partition");
    EXPECT_EQ(Judge(bytes), 0);
}

TEST_F(IsoImageManagerTest, AnImageThatSomebodyWritesIsNotTaken)
{
    const std::filesystem::path file = Write("disc.iso", ImageOf(FsiFileSystems::Iso9660));
    {
        const std::ofstream writer(file, std::ios::binary | std::ios::app);
        mastering::IsoImageManager manager;
        EXPECT_EQ(ErrorNumberOf([&] { manager.SetStream(Open(file)); }), kShareViolation);
        EXPECT_EQ(ErrorNumberOf([&] { manager.Validate(); }), kPointer);
    }
    EXPECT_EQ(Judge(file), 0);
}

TEST_F(IsoImageManagerTest, WithoutAnImageThereIsNothingToJudge)
{
    mastering::IsoImageManager manager;
    EXPECT_EQ(ErrorNumberOf([&] { manager.SetStream({}); }), kPointer);
    EXPECT_EQ(ErrorNumberOf([&] { manager.Validate(); }), kPointer);
}

} // namespace velmora::test
