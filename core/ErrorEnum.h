// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <system_error>

namespace quorvane {

/// Makes an enumeration usable as a std::error_code. For an enumeration `FooError` (whose first value is 1,
/// because 0 means success) provide, in this namespace, `std::string errorText(FooError)` and
/// `const char *errorDomain(FooError)`, then name it with QUORVANE_ERROR_ENUM outside the namespace.
template<class Enum>
class ErrorEnumCategory final : public std::error_category
{
public:
    const char *name() const noexcept override { return errorDomain(Enum{}); }
    std::string message(int value) const override { return errorText(static_cast<Enum>(value)); }

    static const ErrorEnumCategory &instance()
    {
        static const ErrorEnumCategory category;
        return category;
    }
};

} // namespace quorvane

#define QUORVANE_ERROR_ENUM(Enum)                                                                            \
    template<>                                                                                               \
    struct std::is_error_code_enum<quorvane::Enum> : std::true_type                                          \
    {                                                                                                        \
    };                                                                                                       \
    namespace quorvane {                                                                                     \
    inline std::error_code make_error_code(Enum value)                                                       \
    {                                                                                                        \
        return {static_cast<int>(value), ErrorEnumCategory<Enum>::instance()};                               \
    }                                                                                                        \
    }
