// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/DetectMedia.h"

#include "drive/PublishedCodes.h"
#include "drive/SectorSize.h"
#include "recorder/MediaNames.h"
#include "recorder/RecorderErrorText.h"
#include "recorder/TrayClosing.h"
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

bool IsInUse(const runtime::RuntimeError& failure)
{
    return failure.Number() == drive::hresult::kRecorderLocked;
}

enum class Prompted : bool { GoOn, Cancelled };

/// One call of DetectMedia. Members named Run... and Read... raise the error that remains after the
/// retries.
class Detection {
public:
    Detection(const DetectionContext& context, const DetectionRequest& request)
        : context_(context)
        , request_(request)
    {
    }

    DetectedMedia Detect();

private:
    template <class Statement> void Run(const Statement& statement);
    template <class Question> bool AskSixTimes(const Question& question);
    imapi::IDiscFormat2Data& MediaFormat() const { return *context_.state.MediaFormat; }

    void OpenRecorder();
    void EjectMedia(PendingError& pending);
    Prompted AskForMedia();
    void Examine();
    void ReadMedia();
    void ReadSpeeds();
    void ReadSpeedSettings();
    void ReadRoom();
    void ImportSession(imapi::IFileSystemImage& image, PendingError& pending);
    void End(DetectionEnd end, const QString& text);

    const DetectionContext& context_;
    const DetectionRequest& request_;
    DetectedMedia found_;
    imapi::RecorderRef recorder_;
    QString name_;
    qint16 retryCount_ = 0; // RetryCount: an error at 6 is final
};

DetectedMedia Detection::Detect()
{
    try {
        OpenRecorder();
        if (request_.PromptForMedia && AskForMedia() == Prompted::Cancelled) {
            return found_;
        }
        retryCount_ = 0;
        context_.pointer.SetMousePointer(MousePointer::Hourglass);
        context_.pump.Pump();
        Examine();
    } catch (const runtime::RuntimeError& failure) {
        double number = failure.Number();
        found_.failure = failure;
        End(DetectionEnd::NoUsableDisc,
            u"Le graveur est vide ou le média n'est pas supporté : erreur "_s
                + RecorderErrorText(number));
    }
    context_.pointer.SetMousePointer(MousePointer::Arrow);
    return found_;
}

void Detection::End(DetectionEnd end, const QString& text)
{
    found_.end = end;
    found_.text = text;
}

/// Runs a statement again, five seconds after each failure, as long as retries are left. A program
/// that has the drive writes for minutes, so that failure is reported at once.
template <class Statement> void Detection::Run(const Statement& statement)
{
    for (;;) {
        try {
            statement();
            return;
        } catch (const runtime::RuntimeError& failure) {
            if (retryCount_ >= kNoRetry || IsInUse(failure)) {
                throw;
            }
        }
        context_.clock.Pause(kPauseSeconds);
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
        context_.clock.Pause(kPauseSeconds);
    }
    return false;
}

void Detection::OpenRecorder()
{
    imapi::DiscFormat2DataRef& mediaFormat = context_.state.MediaFormat;
    Run([&] { recorder_ = context_.mastering.CreateDiscRecorder(); });
    Run([&] { recorder_->InitializeDiscRecorder(request_.UniqueId); });
    Run([&] { mediaFormat = context_.mastering.CreateDiscFormat2Data(); });
    Run([&] { mediaFormat->SetRecorder(recorder_); });
}

/// No prompt for a disc that can't be inserted: a drive in use stays shut.
void Detection::EjectMedia(PendingError& pending)
{
    try {
        MediaFormat().Recorder()->EjectMedia();
    } catch (const runtime::RuntimeError& failure) {
        if (IsInUse(failure)) {
            throw;
        }
        pending.Keep(failure);
    }
}

Prompted Detection::AskForMedia()
{
    using namespace shell::message_style;
    PendingError pending;
    imapi::IDiscFormat2Data& mediaFormat = MediaFormat();
    EjectMedia(pending);
    const shell::MessageAnswer answer
        = context_.messages.MsgBox(u"Merci de mettre un CD dans le lecteur puis cliquer sur Ok"_s,
            kOkCancel + kInformation,
            u"Velmora"_s);
    if (answer == shell::MessageAnswer::Cancel) {
        return Prompted::Cancelled;
    }
    CloseTrayAfterEjection(pending, [&] { mediaFormat.Recorder()->CloseTray(); });
    return Prompted::GoOn;
}

void Detection::Examine()
{
    imapi::IDiscFormat2Data& mediaFormat = MediaFormat();
    const qint16 countOfReads = request_.RetryRead ? qint16 {0} : kNoRetry;
    if (!AskSixTimes([&] { return mediaFormat.IsRecorderSupported(recorder_); })) {
        End(DetectionEnd::Named, u"Ce graveur n'est pas supporté"_s);
        return;
    }
    if (!AskSixTimes([&] { return mediaFormat.IsCurrentMediaSupported(recorder_); })) {
        End(DetectionEnd::NoUsableDisc, u"Le graveur est vide ou le média ne peut être gravé"_s);
        return;
    }
    ReadMedia();
    ReadSpeeds();
    retryCount_ = countOfReads;
    ReadSpeedSettings();
    retryCount_ = countOfReads;
    context_.pump.Pump();
    if (found_.type != drive::IMAPI_MEDIA_PHYSICAL_TYPE::Unknown && request_.FreeBytes) {
        ReadRoom();
    }
    End(name_.isEmpty() ? DetectionEnd::NoText : DetectionEnd::Named, name_);
}

/// The values read here are dropped: only a failure matters.
void Detection::ReadMedia()
{
    imapi::IDiscFormat2Data& mediaFormat = MediaFormat();
    Run([&] { mediaFormat.ClientName(); });
    Run([&] { mediaFormat.CurrentMediaStatus(); });
    context_.pump.Pump();
    Run([&] { found_.type = mediaFormat.CurrentPhysicalMediaType(); });
}

void Detection::ReadSpeeds()
{
    QList<quint32> speeds;
    Run([&] { speeds = MediaFormat().SupportedWriteSpeeds(); });
    Run([&] {
        if (speeds.isEmpty()) { // an array needs an element
            throw runtime::RuntimeError(runtime::error::kSubscriptOutOfRange);
        }
        found_.SpeedList.emplace(static_cast<std::size_t>(speeds.size()));
    });
    name_ = MediaTypeName(found_.type);
    for (const quint32 speed : speeds) {
        Run([&] { SpeedToMultiple(speed, name_); });
    }
    context_.pump.Pump();
    if (speeds.size() < 2) {
        return; // a single speed offers no choice
    }
    for (qsizetype i = 0; i < speeds.size(); ++i) {
        SpeedEntry& entry = (*found_.SpeedList)[static_cast<std::size_t>(i)];
        entry.Speed = speeds[i];
        Run([&] { entry.Multiple = SpeedToMultiple(speeds[i], name_); });
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

void Detection::ReadRoom()
{
    imapi::FileSystemImageRef image;
    Run([&] { image = context_.mastering.CreateFileSystemImage(); });
    Run([&] { image->ChooseImageDefaultsForMediaType(found_.type); });
    PendingError pending;
    bool blank = false; // as for a disc that can't be queried
    ResumeNext(pending, [&] { blank = MediaFormat().MediaHeuristicallyBlank(); });
    found_.MediaBlank = blank;
    if (!blank) {
        ImportSession(*image, pending);
    }
    context_.pump.Pump();
    Run([&] {
        found_.FreeBytes = static_cast<double>(image->FreeMediaBlocks() * drive::kSectorBytes);
    });
}

void Detection::ImportSession(imapi::IFileSystemImage& image, PendingError& pending)
{
    context_.pump.Pump();
    const qint32 number = ResumeNext(
        pending, [&] { image.SetMultisessionInterfaces(MediaFormat().MultisessionInterfaces()); });
    if (number != 0) {
        found_.FileSystemImported = false;
        return;
    }
    Run([&] { image.ImportFileSystem(); });
    found_.FileSystemImported = true;
}

} // namespace

QString WhyNoDisc(const DetectedMedia& disc, const QString& otherwise)
{
    return disc.failure && IsInUse(*disc.failure) ? disc.failure->Description() : otherwise;
}

DetectedMedia DetectMedia(const DetectionContext& context, const DetectionRequest& request)
{
    if (request.UniqueId.contains(kUnusableMark)) {
        return {.end = DetectionEnd::Named,
            .text = u"Ce lecteur est indisponible ou n'est pas un graveur."_s};
    }
    return Detection(context, request).Detect();
}

} // namespace velmora::recorder
