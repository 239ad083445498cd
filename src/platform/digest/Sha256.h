// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>

struct evp_md_ctx_st;

namespace velmora::digest {

using Sha256Value = std::array<std::byte, 32>;

/// The SHA-256 (FIPS 180-4) of a stream of bytes.
class Sha256 {
public:
    /// Errors: std::bad_alloc.
    Sha256();

    void Add(std::span<const std::byte> bytes);

    /// The sum of everything added; further bytes start a new one.
    Sha256Value Finish();

private:
    struct FreeContext {
        void operator()(evp_md_ctx_st* context) const;
    };

    std::unique_ptr<evp_md_ctx_st, FreeContext> context_;
};

} // namespace velmora::digest
