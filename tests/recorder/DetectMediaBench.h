// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recorder/DetectMedia.h"

#include "tests/recorder/ScriptedMastering.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora::test {

using namespace Qt::StringLiterals;
using recorder::SpeedEntry;

inline constexpr qint32 kNotReady = -1062600187;

/// What a detection begins with when no disc is asked for.
inline const std::string kOpening = "new MsftDiscRecorder2\n"
                                    "InitializeDiscRecorder sr0\n"
                                    "new MsftDiscFormat2Data\n"
                                    "Recorder =\n";

inline const std::string kBusy = "pointer 11\nDoEvents\n";

/// What is read of any disc that is supported.
inline const std::string kReading = "IsRecorderSupported\n"
                                    "IsCurrentMediaSupported\n"
                                    "ClientName\n"
                                    "CurrentMediaStatus\n"
                                    "DoEvents\n"
                                    "CurrentPhysicalMediaType\n"
                                    "SupportedWriteSpeeds\n"
                                    "DoEvents\n"
                                    "CurrentWriteSpeed\n"
                                    "RequestedWriteSpeed\n"
                                    "RequestedWriteSpeed\n"
                                    "CurrentRotationTypeIsPureCAV\n"
                                    "CurrentWriteSpeed\n"
                                    "DoEvents\n";

inline const std::string kPrompt
    = "MsgBox Velmora, 65: Merci de mettre un CD dans le lecteur puis cliquer sur Ok\n";

class DetectMediaBench : public testing::Test {
protected:
    QString Detect(const QString& id = u"sr0"_s) { return Detect(id, true); }
    QString DetectWithoutRoom() { return Detect(u"sr0"_s, false); }

    Script script;
    ScriptedDoors doors {script};
    ScriptedMastering mastering {script};
    recorder::RecorderState state;
    std::vector<SpeedEntry> speeds;
    double freeBytes = -7;
    bool imported = false;
    bool blank = false;
    drive::IMAPI_MEDIA_PHYSICAL_TYPE type = drive::IMAPI_MEDIA_PHYSICAL_TYPE::Unknown;
    bool prompts = false;
    bool retries = true;
    recorder::DetectionEnd end = recorder::DetectionEnd::NoText;

private:
    QString Detect(const QString& id, bool wantsRoom)
    {
        const recorder::DetectionContext all {state, mastering, doors, doors, doors, doors};
        const recorder::DetectedMedia media = recorder::DetectMedia(all,
            {.UniqueId = id,
                .PromptForMedia = prompts,
                .FreeBytes = wantsRoom,
                .RetryRead = retries});
        speeds = media.SpeedList.value_or(speeds);
        freeBytes = media.FreeBytes.value_or(freeBytes);
        imported = media.FileSystemImported.value_or(imported);
        blank = media.MediaBlank.value_or(blank);
        end = media.end;
        type = media.type;
        return media.text;
    }
};

inline QString TextOfNumber(qint32 positive)
{
    return u"Le graveur est vide ou le média n'est pas supporté : erreur "
           u"Une erreur s'est produite: erreur  %1"_s.arg(positive);
}

} // namespace velmora::test
