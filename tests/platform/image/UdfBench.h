// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/platform/image/ImageBench.h"

namespace velmora::test {

/// 2026-03-09 07:05:04.123456 UTC (ECMA-167 1/7.3): local time with an offset of 0 minutes, year,
/// month, day, hour, minute, second, 12 hundredths, 34 hundreds of microseconds, 56 microseconds.
inline const std::string kUdfMoment = "00 10 EA 07 03 09 07 05 04 0C 22 38";

/// The CRC of UDF 6.5, bit by bit as the polynomial X^16 + X^12 + X^5 + 1 says it.
inline std::uint16_t BitwiseCrc(std::string_view bytes)
{
    unsigned crc = 0;
    for (const char byte : bytes)
        for (int bit = 7; bit >= 0; --bit) {
            const unsigned in = static_cast<unsigned char>(byte) >> bit & 1U;
            const unsigned out = crc >> 15U & 1U;
            crc = (crc << 1U & 0xFFFFU) ^ (in != out ? 0x1021U : 0U);
        }
    return static_cast<std::uint16_t>(crc);
}

/// Checks what a tag says about itself and its descriptor (ECMA-167 3/7.2).
inline testing::AssertionResult IsSealed(std::string_view descriptor)
{
    unsigned sum = 0;
    for (std::size_t i = 0; i < 16; ++i)
        sum += i == 4 ? 0U : static_cast<unsigned char>(descriptor[i]);
    if (NumberAt(descriptor, 4, 1) != sum % 256) return testing::AssertionFailure() << "checksum";
    const std::uint64_t length = NumberAt(descriptor, 10, 2);
    if (length == 0 || NumberAt(descriptor, 8, 2) != BitwiseCrc(descriptor.substr(16, length)))
        return testing::AssertionFailure() << "CRC of " << length << " bytes";
    return testing::AssertionSuccess();
}

/// What identifies a descriptor: "identifier version serial length location" as they are recorded.
inline std::string TagOf(std::string_view descriptor)
{
    return Hex(descriptor.substr(0, 4)) + " | " + Hex(descriptor.substr(6, 2)) + " | "
        + Hex(descriptor.substr(10, 2)) + " | " + Hex(descriptor.substr(12, 4));
}

/// A text followed by zeros.
inline std::string Zeroed(std::string_view text, std::size_t length)
{
    std::string field(text);
    field.resize(length);
    return field;
}

/// An entity identifier (ECMA-167 1/7.4): flags, identifier, suffix.
inline std::string Entity(std::string_view identifier, std::string_view suffix)
{
    return Zeroed(Zeroed(std::string(1, '\0').append(identifier), 24).append(suffix), 32);
}

inline const std::string kImplementation = Entity("*Velmora", "\x04\x05"); // UNIX, Linux

/// A character set (ECMA-167 1/7.2.1, UDF 2.1.2).
inline const std::string kCharacterSet
    = Zeroed(std::string(1, '\0') + "OSTA Compressed Unicode", 64);

/// A d-string of single bytes (UDF 2.1.3): compression ID, text, zeros, length in the last byte.
inline std::string DStringOf(std::string_view text, std::size_t length)
{
    std::string field = Zeroed("\x08" + std::string(text), length);
    field.back() = static_cast<char>(text.size() + 1);
    return field;
}

/// A directory with one file and a file beside it, only in UDF.
class UdfBench : public ImageBench {
protected:
    explicit UdfBench(image::UdfRevision revision)
    {
        options.udfRevision = revision;
        Choose(false, false, true);
        AddDirectory("ALPHA");
        AddFile("ALPHA/INNER.TXT", "inner");
        AddFile("READ.ME", std::string(2049, 'r'));
    }
};

/// UDF 1.02. Sectors: anchor 256, then the partition: file set 257, its terminator 258, entries of
/// the root, ALPHA, READ.ME and INNER.TXT, directories from 263 on, data from 265 to 267, end 447.
class Udf102Test : public UdfBench {
protected:
    Udf102Test()
        : UdfBench(image::UdfRevision::Udf102)
    {
    }
};

/// UDF 2.50. Sectors: the partition begins at 288 with the metadata file's entry, its blocks at
/// 320: file set, terminator, four entries, two directories; data from 352 to 354, the mirror's
/// entry 355, reserve sequence 527, end 543.
class Udf250Test : public UdfBench {
protected:
    Udf250Test()
        : UdfBench(image::UdfRevision::Udf250)
    {
    }
};

} // namespace velmora::test
