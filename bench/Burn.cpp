// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later

// bench-burn RECORDERS IMAGE [paced|remembered|compared] - burns an image to a blank BD-R in a
// virtual recorder, which it makes in the folder RECORDERS, and writes the path of the disc's
// sectors to the standard output. Remembered: with the digests that a record of the burn and a
// comparison need. Paced: the same at 16x, 72 MB a second, as with a drive, but without the times
// that a drive needs before and after the data. Compared: the disc is read back, too; a line before
// the path tells the processor time that this took, in seconds.
#include "mastering/DriveMastering.h"
#include "runtime/RuntimeError.h"
#include "text/PathText.h"
#include "virtual/VirtualDriveSource.h"

#include <cstdio>
#include <ctime>
#include <memory>
#include <optional>
#include <string_view>

using namespace velmora;
using namespace Qt::StringLiterals;

namespace {

const QString kName = u"bench"_s;

class NoWindow final : public runtime::EventPump {
public:
    void Pump() override { }
};

virtualdrive::Recorders BlankDisc(const char* folder, bool isPaced, const runtime::Clock& clock)
{
    virtualdrive::Recorders recorders(folder);
    virtualdrive::Description description = virtualdrive::NewDescription();
    description.drive.realTiming = isPaced;
    description.drive.delays = {.tray = 0,
        .ready = 0,
        .format = 0,
        .prepare = 0,
        .calibrate = 0,
        .finish = 0,
        .quickErase = 0};
    recorders.Create(kName, description);
    recorders.Insert(kName, {.medium = virtualdrive::FindMedium(u"bd-r")}, clock);
    return recorders;
}

/// The processor time that this process has used, in seconds.
double ProcessorSeconds()
{
    timespec used {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) / 1e9;
}

/// The record is made, but stored nowhere.
std::optional<QString> KeptNowhere(const records::BurnRecord&) { return std::nullopt; }

enum class Way { Plain, Paced, Remembered, Compared };

void Burn(const char* folder, const char* image, Way way)
{
    NoWindow pump;
    runtime::SystemClock clock(pump);
    const virtualdrive::Recorders recorders = BlankDisc(folder, way == Way::Paced, clock);
    const std::unique_ptr<imapi::Mastering> mastering = mastering::MasteringOf(
        {std::make_shared<virtualdrive::VirtualDriveSource>(recorders, clock, pump)},
        clock,
        {.comparesAfterWrite = [way] { return way == Way::Compared; },
            .keepRecord = way == Way::Plain ? mastering::RecordKeeper() : KeptNowhere});
    const imapi::RecorderRef recorder = mastering->CreateDiscRecorder();
    recorder->InitializeDiscRecorder(mastering->CreateDiscMaster()->Item(0));
    const imapi::DiscFormat2DataRef writer = mastering->CreateDiscFormat2Data();
    writer->SetRecorder(recorder);
    writer->SetClientName(u"bench"_s);
    std::optional<double> comparisonBegun;
    writer->OnUpdate([&comparisonBegun](const imapi::IDiscFormat2DataEventArgs& now) {
        if (!comparisonBegun && now.CurrentAction == drive::WriteAction::Verifying) {
            comparisonBegun = ProcessorSeconds();
        }
    });
    writer->Write(mastering->CreateStreamOnFile(
        text::ToProgramPath(text::NativePath(image)), imapi::FileStreamMode::Read));
    if (comparisonBegun) {
        std::printf("%.6f\n", ProcessorSeconds() - *comparisonBegun);
    }
    const QString sectors = recorders.Show(kName).disc->sectorFile;
    std::puts(recorders.Folder(kName).SectorPath(sectors).c_str());
}

Way WayOf(std::string_view word)
{
    if (word == "paced") {
        return Way::Paced;
    }
    if (word == "remembered") {
        return Way::Remembered;
    }
    return word == "compared" ? Way::Compared : Way::Plain;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view word = argc == 4 ? argv[3] : "";
    const Way way = WayOf(word);
    if (argc != 3 && way == Way::Plain) {
        std::fputs("usage: bench-burn RECORDERS IMAGE [paced|remembered|compared]\n", stderr);
        return 2;
    }
    try {
        Burn(argv[1], argv[2], way);
    } catch (const runtime::RuntimeError& failure) {
        std::fprintf(stderr, "%s\n", failure.Description().toUtf8().constData());
        return 1;
    }
    return 0;
}
