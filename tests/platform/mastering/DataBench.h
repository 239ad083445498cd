// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/platform/mastering/RecorderBench.h"
#include "tests/support/UnaskedMastering.h"

#include <algorithm>
#include <vector>

namespace velmora::test {

/// A stream of numbered bytes that may end before its size says so.
class NumberedStream final : public UnaskedStream {
public:
    explicit NumberedStream(quint64 size)
        : size_(size)
        , end_(size)
    {
    }

    void EndAt(quint64 end) { end_ = end; }

    std::size_t Read(std::span<std::byte> out) override
    {
        const auto left = static_cast<std::size_t>(end_ > position_ ? end_ - position_ : 0);
        constexpr std::size_t kMost = 1000;
        static const std::vector<std::byte> numbers = Numbers(kMost + kPeriod);
        const std::size_t read = std::min({out.size(), left, kMost});
        std::copy_n(numbers.begin() + static_cast<qint64>(position_ % kPeriod), read, out.begin());
        position_ += read;
        return read;
    }
    void Seek(quint64 position) override { position_ = position; }
    /// Files of 10 sectors minus 100 bytes, one after another.
    std::vector<imapi::FilePart> FilesBetween(quint64 begin, quint64 end) const override
    {
        constexpr quint64 kFile = 10 * 2048;
        std::vector<imapi::FilePart> parts;
        for (quint64 file = begin / kFile; file * kFile < end; ++file) {
            const quint64 first = std::max(begin, file * kFile) - file * kFile;
            if (first < kFile - 100) {
                parts.push_back({text::DiscPath(QString::number(file)), first});
            }
        }
        return parts;
    }
    quint64 Size() const override { return size_; }

private:
    static constexpr std::size_t kPeriod = 251;

    static std::vector<std::byte> Numbers(std::size_t count)
    {
        std::vector<std::byte> numbers(count);
        for (std::size_t i = 0; i < count; ++i) {
            numbers[i] = static_cast<std::byte>(i % kPeriod);
        }
        return numbers;
    }

    quint64 size_;
    quint64 end_;
    quint64 position_ = 0;
};

/// A data writer with a recorder and a client name, over a drive with a blank CD-R.
class DataBench : public RecorderBench {
protected:
    DataBench()
    {
        drive->disc = DiscOf(9, drive::DiscState::Blank);
        writer->SetRecorder(recorder);
        writer->SetClientName(u"Tamsel"_s);
    }

    static imapi::StreamRef Sectors(quint64 count)
    {
        return std::make_shared<NumberedStream>(count * 2048);
    }
    qint32 NumberOfWrite(const imapi::StreamRef& stream)
    {
        return ErrorNumberOf([&] { writer->Write(stream); });
    }

    imapi::RecorderRef recorder = Bound();
    imapi::DiscFormat2DataRef writer = mastering->CreateDiscFormat2Data();
};

} // namespace velmora::test
