// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/StreamSource.h"

#include "drive/SectorSize.h"

#include <libburn/libburn.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace velmora::drives {

namespace {

constexpr qint64 kReadAhead = 64; // sectors

StreamSource& Self(burn::burn_source* source) { return *static_cast<StreamSource*>(source->data); }

} // namespace

StreamSource::StreamSource(const drive::WriteOrder& order, burn::burn_drive* drive)
    : order_(order)
    , drive_(drive)
{
}

int StreamSource::ReadCallback(burn::burn_source* source, unsigned char* buffer, int size)
{
    return Self(source).Read(buffer, size);
}

burn::burn_source* StreamSource::Make()
{
    // The library frees it by free().
    auto* source = static_cast<burn::burn_source*>(std::calloc(1, sizeof(burn::burn_source)));
    if (source == nullptr) {
        throw std::bad_alloc();
    }
    source->refcount = 1;
    source->version = 1;
    source->data = this;
    source->read_xt = ReadCallback;
    source->get_size = [](burn::burn_source* self) -> off_t {
        return Self(self).order_.sectors * drive::kSectorBytes;
    };
    source->set_size = [](burn::burn_source*, off_t) { return 1; };
    source->free_data = [](burn::burn_source*) {};
    source->cancel = [](burn::burn_source*) { return 1; };
    return source;
}

std::exception_ptr StreamSource::Failure() const
{
    return failed_ ? failure_ : std::exception_ptr {};
}

int StreamSource::Read(unsigned char* buffer, int size)
{
    if (failed_) {
        return -1;
    }
    try {
        if (taken_ == store_.size()) {
            Refill();
        }
    } catch (...) {
        failure_ = std::current_exception();
        failed_ = true;
        burn::burn_drive_cancel(drive_);
        return -1;
    }
    const std::size_t count = std::min(static_cast<std::size_t>(size), store_.size() - taken_);
    std::memcpy(buffer, store_.data() + taken_, count);
    taken_ += count;
    delivered_ += static_cast<qint64>(count) / drive::kSectorBytes;
    return static_cast<int>(count);
}

void StreamSource::Refill()
{
    const qint64 sectors = std::min(kReadAhead, order_.sectors - read_);
    store_.resize(static_cast<std::size_t>(sectors * drive::kSectorBytes));
    taken_ = 0;
    if (sectors > 0) {
        asked_ = true;
        order_.source(store_);
        asked_ = false;
        read_ += sectors;
    }
}

} // namespace velmora::drives
