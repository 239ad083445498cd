// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/DiscRecorder.h"
#include "imapi/IDiscFormat2Erase.h"

namespace velmora::imapi {

/// The MsftDiscFormat2Erase over a drive.
class DiscFormatErase final : public IDiscFormat2Erase {
public:
    void SetRecorder(const RecorderRef& recorder) override;
    RecorderRef Recorder() const override { return recorder_; }
    void SetClientName(const QString& name) override;
    QString ClientName() const override { return clientName_; }
    void SetFullErase(bool full) override;
    bool FullErase() const override { return isFull_; }
    bool IsCurrentMediaSupported(const RecorderRef& recorder) override;
    void EraseMedia() override;
    void OnUpdate(DiscFormat2EraseUpdate handler) override;

private:
    void RequireIdle() const;

    RecorderRef recorder_;
    QString clientName_;
    bool isFull_ = false;
    bool isErasing_ = false;
    DiscFormat2EraseUpdate handler_;
};

} // namespace velmora::imapi
