// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscFormat2Erase.h"
#include "mastering/base/MasteringContext.h"

#include <memory>

namespace velmora::mastering {

/// The MsftDiscFormat2Erase over a drive.
class DiscFormatErase final : public imapi::IDiscFormat2Erase {
public:
    explicit DiscFormatErase(std::shared_ptr<MasteringContext> context);

    void SetRecorder(const imapi::RecorderRef& recorder) override;
    imapi::RecorderRef Recorder() const override { return recorder_; }
    void SetClientName(const QString& name) override;
    QString ClientName() const override { return clientName_; }
    void SetFullErase(bool full) override;
    bool FullErase() const override { return isFull_; }
    bool IsCurrentMediaSupported(const imapi::RecorderRef& recorder) override;
    void RequireSupportedMedia(const imapi::RecorderRef& recorder) override;
    void EraseMedia() override;
    void CancelErase() override { isCancelled_ = true; }
    bool HasBegun() const override { return hasBegun_; }
    void OnUpdate(imapi::DiscFormat2EraseUpdate handler) override;

private:
    void RequireIdle() const;
    drive::DiscInfo LookOnceReady(drive::BoundDrive& drive);
    bool Tell(qint32 elapsed, qint32 estimated);

    std::shared_ptr<MasteringContext> context_;
    imapi::RecorderRef recorder_;
    QString clientName_;
    bool isFull_ = false;
    bool isErasing_ = false;
    bool hasBegun_ = false;
    bool isCancelled_ = false;
    imapi::DiscFormat2EraseUpdate handler_;
};

} // namespace velmora::mastering
