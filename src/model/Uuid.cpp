// SPDX-License-Identifier: MIT
#include "model/Uuid.h"

#include <cstdlib>
#include <unistd.h>

namespace korvan {

namespace {

constexpr bool hyphenFollows(std::size_t byte) {
    return byte == 3 || byte == 5 || byte == 7 || byte == 9;
}

constexpr int kNoDigit = -1;

constexpr int digitValue(char character) {
    if (character >= '0' && character <= '9') return character - '0';
    if (character >= 'A' && character <= 'F') return character - 'A' + 10;
    if (character >= 'a' && character <= 'f') return character - 'a' + 10;
    return kNoDigit;
}

constexpr auto kDigitValues = [] {
    std::array<std::int8_t, 256> values{};
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<std::int8_t>(digitValue(static_cast<char>(i)));
    return values;
}();

int valueOf(char character) { return kDigitValues[static_cast<unsigned char>(character)]; }

} // namespace

Uuid Uuid::random() {
    Uuid uuid;
    // Fails only on a kernel without the call. Going on with ids that may repeat would be worse.
    if (getentropy(uuid.m_bytes.data(), uuid.m_bytes.size()) != 0) std::abort();
    uuid.m_bytes[6] = static_cast<std::uint8_t>((uuid.m_bytes[6] & 0x0F) | 0x40);
    uuid.m_bytes[8] = static_cast<std::uint8_t>((uuid.m_bytes[8] & 0x3F) | 0x80);
    return uuid;
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
    if (text.size() != kTextLength) return std::nullopt;
    Uuid uuid;
    const char* at = text.data();
    for (std::size_t i = 0; i < uuid.m_bytes.size(); ++i) {
        const int high = valueOf(at[0]);
        const int low = valueOf(at[1]);
        if ((high | low) < 0) return std::nullopt;
        uuid.m_bytes[i] = static_cast<std::uint8_t>(high << 4 | low);
        at += 2;
        if (hyphenFollows(i) && *at++ != '-') return std::nullopt;
    }
    return uuid;
}

std::string Uuid::text() const {
    std::string text(kTextLength, '\0');
    writeText(text.data());
    return text;
}

void Uuid::writeText(char* out) const {
    constexpr std::string_view digits = "0123456789ABCDEF";
    for (std::size_t i = 0; i < m_bytes.size(); ++i) {
        *out++ = digits[m_bytes[i] >> 4];
        *out++ = digits[m_bytes[i] & 0x0F];
        if (hyphenFollows(i)) *out++ = '-';
    }
}

} // namespace korvan
