// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscFormat2Data.h"
#include "mastering/base/MasteringContext.h"
#include "runtime/RuntimeError.h"

#include <optional>

namespace velmora::mastering {

class WrittenTrack;

/// The MsftDiscFormat2Data over a drive.
class DiscFormatData final : public imapi::IDiscFormat2Data {
public:
    explicit DiscFormatData(std::shared_ptr<MasteringContext> context);

    void SetRecorder(const imapi::RecorderRef& recorder) override;
    imapi::RecorderRef Recorder() const override { return recorder_; }
    void SetClientName(const QString& name) override;
    QString ClientName() const override { return clientName_; }
    bool IsRecorderSupported(const imapi::RecorderRef& recorder) const override;
    bool IsCurrentMediaSupported(const imapi::RecorderRef& recorder) override;
    qint32 CurrentMediaStatus() override;
    drive::IMAPI_MEDIA_PHYSICAL_TYPE CurrentPhysicalMediaType() override;
    bool MediaHeuristicallyBlank() override;
    qint64 FreeSectorsOnMedia() override;
    qint64 TotalSectorsOnMedia() override;
    QList<quint32> SupportedWriteSpeeds() override;
    qint32 CurrentWriteSpeed() override;
    qint32 RequestedWriteSpeed() override;
    bool CurrentRotationTypeIsPureCAV() override;
    qint32 SetWriteSpeed(qint32 speed, bool rotationTypeIsPureCAV) override;
    void SetForceMediaToBeClosed(bool closed) override;
    bool ForceMediaToBeClosed() const override { return closesMedia_; }
    void SetForceOverwrite(bool overwrite) override;
    bool ForceOverwrite() const override { return overwrites_; }
    QList<imapi::MultisessionRef> MultisessionInterfaces() override;
    void Write(const imapi::StreamRef& data) override;
    const imapi::DiscComparison& Comparison() const override { return comparison_; }
    const QStringList& Remarks() const override { return remarks_; }
    void CancelWrite() override;
    void OnUpdate(imapi::DiscFormat2DataUpdate handler) override;
    void OnWait(std::function<void()> handler) override;

private:
    void RequireIdle() const;
    imapi::IDiscRecorder2& IdleRecorder() const;
    const drive::DiscInfo& Keep(const drive::DiscInfo& disc);
    const drive::DiscInfo& Look();
    const drive::DiscInfo& LookAtMedia();
    void CheckStream(const imapi::IStream* data) const;
    drive::WriteOrder OrderFor(const drive::DiscInfo& disc, const imapi::StreamRef& data) const;
    void WriteAndCompare(drive::WriteOrder order, imapi::IStream& data);
    bool IsCancelledInWrite() const;
    void Remember(WrittenTrack& track, const imapi::IStream& data);
    void RememberFailure(const runtime::RuntimeError& failure, qint64 sectors);
    void Compare(WrittenTrack& track, imapi::IStream& data);
    bool Report(const drive::WriteProgress& progress);
    bool Tell(const drive::WriteProgress& progress, bool isNews);
    bool ReportReading(const WrittenTrack& track, qint64 behindLast);

    std::shared_ptr<MasteringContext> context_;
    imapi::RecorderRef recorder_;
    QString clientName_;
    qint32 requestedSpeed_ = imapi::kFastestWriteSpeed; // sectors per second
    bool closesMedia_ = false;
    bool overwrites_ = false;
    bool isWriting_ = false;
    bool isInUpdate_ = false;
    double begun_ = 0;                              // the present write, by the clock
    std::optional<drive::WriteAction> lastAction_;  // of the present write
    std::optional<drive::WriteAction> cancelledAt_; // the action that was told with the cancel
    double lastTold_ = 0;                           // progress of the comparison, by the clock
    imapi::DiscComparison comparison_;
    QStringList remarks_;
    imapi::DiscFormat2DataUpdate handler_;
    std::function<void()> waitHandler_;
};

} // namespace velmora::mastering
