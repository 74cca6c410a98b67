// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <expected>
#include <string>
#include <utility>

namespace korvan {

// Why an action on the outside world failed, in a form that can be shown to the user.
struct Error {
    std::string domain;               // the component that failed, such as "Import"
    std::int64_t code = 0;            // what failed, in the numbering of the domain
    std::string localizedDescription; // German, without a final line break

    friend bool operator==(const Error&, const Error&) = default;
};

// A value, or the reason why there is none. Failures leave a folder as such values, never as
// exceptions.
template <class Value = void>
using Result = std::expected<Value, Error>;

[[nodiscard]] inline std::unexpected<Error> failure(std::string domain, std::int64_t code,
                                                    std::string description) {
    return std::unexpected(Error{std::move(domain), code, std::move(description)});
}

} // namespace korvan
