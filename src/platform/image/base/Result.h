// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/Error.h"

#include <cassert>
#include <utility>
#include <variant>

namespace velmora::image {

/// A value, or the Error that prevented it. It can't be ignored.
template <class T = std::monostate> class [[nodiscard]] Result {
public:
    Result() requires std::is_default_constructible_v<T> : state_(T {}) { }
    Result(T value) // NOLINT(google-explicit-constructor): `return value;` is the use
        : state_(std::in_place_index<0>, std::move(value))
    {
    }
    Result(Error error) // NOLINT(google-explicit-constructor): `return error;` is the use
        : state_(std::in_place_index<1>, std::move(error))
    {
    }

    explicit operator bool() const { return state_.index() == 0; }

    /// The value; only after checking that there is one.
    T& operator*()
    {
        assert(*this);
        return *std::get_if<0>(&state_);
    }
    const T& operator*() const
    {
        assert(*this);
        return *std::get_if<0>(&state_);
    }
    T* operator->() { return &**this; }
    const T* operator->() const { return &**this; }

    /// The failure; only after checking that there is no value.
    const Error& Failure() const
    {
        assert(!*this);
        return *std::get_if<1>(&state_);
    }

private:
    std::variant<T, Error> state_;
};

} // namespace velmora::image
