// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace korvan {

// The identity of a record: 128 bits whose text form is 36 characters, upper case, 8-4-4-4-12.
class Uuid final {
public:
    static constexpr std::size_t kTextLength = 36;

    // The UUID whose bits are all zero. It names no record.
    constexpr Uuid() = default;

    // A fresh random UUID (version 4), from the system's random number generator.
    static Uuid random();

    // Reads the text form in either letter case; nothing when `text` is anything else.
    static std::optional<Uuid> parse(std::string_view text);

    [[nodiscard]] std::string text() const;

    // Writes the text form to `out`, which has room for kTextLength characters.
    void writeText(char* out) const;

    friend bool operator==(const Uuid&, const Uuid&) = default;
    friend auto operator<=>(const Uuid&, const Uuid&) = default;

private:
    friend struct std::hash<Uuid>;

    std::array<std::uint8_t, 16> m_bytes{};
};

} // namespace korvan

template <>
struct std::hash<korvan::Uuid> {
    std::size_t operator()(const korvan::Uuid& uuid) const noexcept {
        const std::string_view bytes(reinterpret_cast<const char*>(uuid.m_bytes.data()),
                                     uuid.m_bytes.size());
        return std::hash<std::string_view>{}(bytes);
    }
};
