// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "digest/Sha256.h"

#include <openssl/evp.h>

#include <new>

namespace velmora::digest {

namespace {

/// The library fails only when memory runs out.
void Require(int isDone)
{
    if (isDone != 1) {
        throw std::bad_alloc();
    }
}

} // namespace

void Sha256::FreeContext::operator()(evp_md_ctx_st* context) const { EVP_MD_CTX_free(context); }

Sha256::Sha256()
    : context_(EVP_MD_CTX_new())
{
    Require(context_ ? EVP_DigestInit_ex(context_.get(), EVP_sha256(), nullptr) : 0);
}

void Sha256::Add(std::span<const std::byte> bytes)
{
    Require(EVP_DigestUpdate(context_.get(), bytes.data(), bytes.size()));
}

Sha256Value Sha256::Finish()
{
    Sha256Value value {};
    Require(EVP_DigestFinal_ex(
        context_.get(), reinterpret_cast<unsigned char*>(value.data()), nullptr));
    Require(EVP_DigestInit_ex(context_.get(), nullptr, nullptr));
    return value;
}

} // namespace velmora::digest
