// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/DetectMedia.h"

#include "recorder/MediaNames.h"
#include "recorder/RecorderErrorText.h"
#include "runtime/ResumeNext.h"
#include "runtime/RuntimeError.h"

namespace velmora::recorder {

using namespace Qt::StringLiterals;
using runtime::PendingError;
using runtime::ResumeNext;
using shell::MousePointer;

namespace {

constexpr int kTries = 6;
constexpr qint16 kNoRetry = 6;
constexpr double kPauseSeconds = 5;

enum class Prompted : bool { GoOn, Cancelled };

/// Where the answers go.
struct Answers {
    std::vector<SpeedEntry>& SpeedList;
    double* FreeBytes;
    bool& FileSystemImported;
    bool& MediaBlank;
};

/// One call of DetectMedia. Members named Run... and Read... raise the error that no retry mends.
class Detection {
public:
    explicit Detection(const DetectionDoors& doors)
        : doors_(doors)
    {
    }

    QString Detect(const QString& UniqueId, bool PromptForMedia, Answers answers, bool RetryRead);

private:
    template <class Statement> void Run(const Statement& statement);
    template <class Question> bool AskSixTimes(const Question& question);
    imapi::IDiscFormat2Data& MediaFormat() const { return *doors_.state.MediaFormat; }

    void OpenRecorder(const QString& UniqueId);
    Prompted AskForMedia();
    QString Examine(Answers& answers, bool RetryRead);
    void ReadMedia();
    void ReadSpeeds(std::vector<SpeedEntry>& SpeedList);
    void ReadSpeedSettings();
    void ReadRoom(Answers& answers);
    void ImportSession(
        imapi::IFileSystemImage& image, PendingError& pending, bool& FileSystemImported);

    const DetectionDoors& doors_;
    imapi::RecorderRef recorder_;
    drive::IMAPI_MEDIA_PHYSICAL_TYPE type_ = drive::IMAPI_MEDIA_PHYSICAL_TYPE::Unknown;
    QString name_;
    qint16 retryCount_ = 0; // RetryCount: an error at 6 is final
};

QString Detection::Detect(
    const QString& UniqueId, bool PromptForMedia, Answers answers, bool RetryRead)
{
    QString result;
    try {
        OpenRecorder(UniqueId);
        if (PromptForMedia && AskForMedia() == Prompted::Cancelled) {
            return {};
        }
        retryCount_ = 0;
        doors_.pointer.SetMousePointer(MousePointer::Hourglass);
        doors_.pump.Pump();
        result = Examine(answers, RetryRead);
    } catch (const runtime::RuntimeError& failure) {
        double number = failure.Number();
        result = u"Le graveur est vide ou le média n'est pas supporté : erreur "_s
            + RecorderErrorText(number);
    }
    doors_.pointer.SetMousePointer(MousePointer::Arrow);
    return result;
}

/// Runs a statement again, five seconds after each failure, as long as retries are left.
template <class Statement> void Detection::Run(const Statement& statement)
{
    for (;;) {
        try {
            statement();
            return;
        } catch (const runtime::RuntimeError&) {
            if (retryCount_ >= kNoRetry) {
                throw;
            }
        }
        doors_.clock.Pause(kPauseSeconds);
        ++retryCount_;
    }
}

template <class Question> bool Detection::AskSixTimes(const Question& question)
{
    for (int i = 0; i < kTries; ++i) {
        bool isYes = false;
        Run([&] { isYes = question(); });
        if (isYes) {
            return true;
        }
        doors_.clock.Pause(kPauseSeconds);
    }
    return false;
}

void Detection::OpenRecorder(const QString& UniqueId)
{
    imapi::DiscFormat2DataRef& mediaFormat = doors_.state.MediaFormat;
    Run([&] { recorder_ = doors_.mastering.CreateDiscRecorder(); });
    Run([&] { recorder_->InitializeDiscRecorder(UniqueId); });
    Run([&] { mediaFormat = doors_.mastering.CreateDiscFormat2Data(); });
    Run([&] { mediaFormat->SetRecorder(recorder_); });
}

Prompted Detection::AskForMedia()
{
    using namespace shell::message_style;
    PendingError pending;
    imapi::IDiscFormat2Data& mediaFormat = MediaFormat();
    ResumeNext(pending, [&] { mediaFormat.Recorder()->EjectMedia(); });
    const shell::MessageAnswer answer
        = doors_.messages.MsgBox(u"Merci de mettre un CD dans le lecteur puis cliquer sur Ok"_s,
            kOkCancel + kInformation,
            u"Velmora"_s);
    if (answer == shell::MessageAnswer::Cancel) {
        return Prompted::Cancelled;
    }
    // The failure of the ejection still counts here, and closes the tray twice.
    const qint32 number = ResumeNext(pending, [&] { mediaFormat.Recorder()->CloseTray(); });
    if (number != 0) {
        ResumeNext(pending, [&] { mediaFormat.Recorder()->CloseTray(); });
    }
    return Prompted::GoOn;
}

QString Detection::Examine(Answers& answers, bool RetryRead)
{
    imapi::IDiscFormat2Data& mediaFormat = MediaFormat();
    const qint16 countOfReads = RetryRead ? qint16 {0} : kNoRetry;
    if (!AskSixTimes([&] { return mediaFormat.IsRecorderSupported(recorder_); })) {
        return u"Ce graveur n'est pas supporté"_s;
    }
    if (!AskSixTimes([&] { return mediaFormat.IsCurrentMediaSupported(recorder_); })) {
        return u"Le graveur est vide ou le média ne peut être gravé"_s;
    }
    ReadMedia();
    ReadSpeeds(answers.SpeedList);
    retryCount_ = countOfReads;
    ReadSpeedSettings();
    retryCount_ = countOfReads;
    doors_.pump.Pump();
    if (type_ != drive::IMAPI_MEDIA_PHYSICAL_TYPE::Unknown && answers.FreeBytes) {
        ReadRoom(answers);
    }
    return name_;
}

/// What is read and dropped here counts by its failure alone.
void Detection::ReadMedia()
{
    imapi::IDiscFormat2Data& mediaFormat = MediaFormat();
    Run([&] { mediaFormat.ClientName(); });
    Run([&] { mediaFormat.CurrentMediaStatus(); });
    doors_.pump.Pump();
    Run([&] { type_ = mediaFormat.CurrentPhysicalMediaType(); });
}

void Detection::ReadSpeeds(std::vector<SpeedEntry>& SpeedList)
{
    QList<quint32> speeds;
    Run([&] { speeds = MediaFormat().SupportedWriteSpeeds(); });
    Run([&] {
        if (speeds.isEmpty()) { // an array needs an element
            throw runtime::RuntimeError(runtime::error::kSubscriptOutOfRange);
        }
        SpeedList.assign(static_cast<std::size_t>(speeds.size()), {});
    });
    name_ = MediaTypeName(static_cast<qint32>(type_));
    for (const quint32 speed : speeds) {
        Run([&] { SpeedToMultiple(speed, name_); });
    }
    doors_.pump.Pump();
    if (speeds.size() < 2) {
        return; // a single speed offers no choice
    }
    for (std::size_t i = 0; i < SpeedList.size(); ++i) {
        const quint32 speed = speeds[static_cast<qsizetype>(i)];
        SpeedList[i].Speed = speed;
        Run([&] { SpeedList[i].Multiple = SpeedToMultiple(speed, name_); });
    }
}

void Detection::ReadSpeedSettings()
{
    imapi::IDiscFormat2Data& mediaFormat = MediaFormat();
    Run([&] { mediaFormat.CurrentWriteSpeed(); });
    Run([&] { mediaFormat.RequestedWriteSpeed(); });
    Run([&] { mediaFormat.RequestedWriteSpeed(); });
    Run([&] { mediaFormat.CurrentRotationTypeIsPureCAV(); });
    Run([&] { mediaFormat.CurrentWriteSpeed(); });
}

void Detection::ReadRoom(Answers& answers)
{
    constexpr double kBlockSize = 2048;
    imapi::FileSystemImageRef image;
    Run([&] { image = doors_.mastering.CreateFileSystemImage(); });
    Run([&] { image->ChooseImageDefaultsForMediaType(type_); });
    PendingError pending;
    bool blank = false; // so counts a disc that can't be asked
    ResumeNext(pending, [&] { blank = MediaFormat().MediaHeuristicallyBlank(); });
    answers.MediaBlank = blank;
    if (!blank) {
        ImportSession(*image, pending, answers.FileSystemImported);
    }
    doors_.pump.Pump();
    Run([&] { *answers.FreeBytes = image->FreeMediaBlocks() * kBlockSize; });
}

void Detection::ImportSession(
    imapi::IFileSystemImage& image, PendingError& pending, bool& FileSystemImported)
{
    doors_.pump.Pump();
    const qint32 number = ResumeNext(
        pending, [&] { image.SetMultisessionInterfaces(MediaFormat().MultisessionInterfaces()); });
    if (number != 0) {
        FileSystemImported = false;
        return;
    }
    Run([&] { image.ImportFileSystem(); });
    FileSystemImported = true;
}

} // namespace

QString DetectMedia(const DetectionDoors& doors,
    const QString& UniqueId,
    std::vector<SpeedEntry>& SpeedList,
    bool PromptForMedia,
    double* FreeBytes,
    bool& FileSystemImported,
    bool& MediaBlank,
    bool RetryRead)
{
    if (UniqueId.contains(kUnusableMark)) {
        return u"Ce lecteur est indisponible ou n'est pas un graveur."_s;
    }
    Detection detection(doors);
    return detection.Detect(UniqueId,
        PromptForMedia,
        {SpeedList, FreeBytes, FileSystemImported, MediaBlank},
        RetryRead);
}

} // namespace velmora::recorder
