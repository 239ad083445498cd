// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

namespace velmora::image {

/// How the characters of a name are recorded on the disc.
enum class NameCoding : std::uint8_t {
    Bytes,      ///< one byte each
    Units,      ///< UTF-16, high byte first
    Compressed, ///< one byte each after the compression ID 8, or two after 16 (UDF 2.1.1)
};

/// Which characters a name may have.
enum class NameCharacters : std::uint8_t { Ascii, All };

/// A name as it is recorded on the disc: a view into another text, which outlives it. A text with
/// non-ASCII characters is valid UTF-8.
class RecordedName {
public:
    explicit RecordedName(std::string_view text,
        NameCoding coding = NameCoding::Bytes,
        NameCharacters characters = NameCharacters::Ascii)
        : text_(text)
        , coding_(coding)
        , isWide_(characters == NameCharacters::All && coding != NameCoding::Bytes)
    {
    }

    /// Bytes on the disc.
    std::size_t Size() const
    {
        if (isWide_) {
            return ConvertedSize();
        }
        const std::size_t size = text_.size();
        return coding_ == NameCoding::Units     ? size * 2
            : coding_ == NameCoding::Compressed ? size + 1
                                                : size;
    }

    void AppendTo(std::string& bytes) const
    {
        if (isWide_) {
            bytes += Converted();
            return;
        }
        if (coding_ == NameCoding::Units) {
            AppendUnits(bytes);
            return;
        }
        if (coding_ == NameCoding::Compressed) {
            bytes += kCompressionId;
        }
        bytes += text_;
    }

    std::string Bytes() const
    {
        if (isWide_) {
            return Converted();
        }
        std::string bytes;
        bytes.reserve(Size());
        AppendTo(bytes);
        return bytes;
    }

    /// The text that the name is made from: with the coding Bytes, the name itself.
    std::string_view Text() const { return text_; }

    bool operator==(std::string_view bytes) const
    {
        if (isWide_) {
            return Converted() == bytes;
        }
        if (bytes.size() != Size()) {
            return false;
        }
        if (coding_ == NameCoding::Units) {
            return EqualsUnits(bytes);
        }
        const bool isCompressed = coding_ == NameCoding::Compressed;
        return bytes.substr(isCompressed ? 1 : 0) == text_
            && (!isCompressed || bytes.front() == kCompressionId);
    }

private:
    static constexpr char kCompressionId = 8;

    /// The bytes of a name with non-ASCII characters.
    std::string Converted() const;
    /// Their count; needed more often than the bytes.
    std::size_t ConvertedSize() const;

    void AppendUnits(std::string& bytes) const
    {
        const std::size_t before = bytes.size();
        bytes.resize(before + Size());
        char* units = bytes.data() + before;
        for (std::size_t i = 0; i < text_.size(); ++i) {
            units[2 * i] = '\0';
            units[2 * i + 1] = text_[i];
        }
    }

    bool EqualsUnits(std::string_view bytes) const
    {
        unsigned different = 0; // without a branch for each character
        for (std::size_t i = 0; i < text_.size(); ++i) {
            different |= static_cast<unsigned char>(bytes[2 * i]);
            different |= static_cast<unsigned char>(bytes[2 * i + 1] ^ text_[i]);
        }
        return different == 0;
    }

    std::string_view text_;
    NameCoding coding_;
    bool isWide_;
};

} // namespace velmora::image
