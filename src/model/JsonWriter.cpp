// SPDX-License-Identifier: MIT
#include "model/JsonWriter.h"

#include "model/Text.h"

#include <charconv>
#include <cstring>
#include <limits>

namespace korvan {

namespace {

// How a byte is written inside a JSON string.
enum Treatment : char {
    asItIs = 0,
    asCode = 'u', // \u and four digits
    asText = '8', // part of a character outside ASCII, which must be checked
    // Any other value: a backslash and then the value itself.
};

constexpr auto kTreatments = [] {
    std::array<char, 256> treatments{};
    for (std::size_t byte = 0; byte < 0x20; ++byte)
        treatments[byte] = asCode;
    for (std::size_t byte = 0x80; byte < treatments.size(); ++byte)
        treatments[byte] = asText;
    treatments['"'] = '"';
    treatments['\\'] = '\\';
    treatments['/'] = '/';
    treatments['\b'] = 'b';
    treatments['\f'] = 'f';
    treatments['\n'] = 'n';
    treatments['\r'] = 'r';
    treatments['\t'] = 't';
    return treatments;
}();

char treatmentOf(char byte) { return kTreatments[static_cast<unsigned char>(byte)]; }

constexpr std::uint64_t repeated(std::uint8_t byte) { return 0x0101010101010101U * byte; }

// Whether some byte of `word` is `byte`.
constexpr bool contains(std::uint64_t word, std::uint8_t byte) {
    const std::uint64_t difference = word ^ repeated(byte);
    return ((difference - repeated(0x01)) & ~difference & repeated(0x80)) != 0;
}

// Whether all eight bytes of `word` may stand in a JSON string as they are.
constexpr bool isPlain(std::uint64_t word) {
    const bool isPrintableAscii = ((word | (word - repeated(0x20))) & repeated(0x80)) == 0;
    return isPrintableAscii && !contains(word, '"') && !contains(word, '\\') &&
           !contains(word, '/');
}

// The first byte from `at` on that cannot be copied as it is, or `end`.
const char* skipPlain(const char* at, const char* end) {
    while (static_cast<std::size_t>(end - at) >= sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, at, sizeof word);
        if (!isPlain(word)) break;
        at += sizeof word;
    }
    while (at != end && treatmentOf(*at) == asItIs)
        ++at;
    return at;
}

void appendEscape(std::string& out, char byte, char treatment) {
    out += '\\';
    out += treatment;
    if (treatment != asCode) return;
    constexpr std::string_view digits = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(byte);
    out += "00";
    out += digits[code >> 4];
    out += digits[code & 0x0F];
}

void appendEscaped(std::string& out, const char* at, const char* end) {
    while (true) {
        const char* stop = skipPlain(at, end);
        out.append(at, stop);
        at = stop;
        if (at == end) return;
        const char treatment = treatmentOf(*at);
        if (treatment == asText) {
            while (stop != end && treatmentOf(*stop) == asText)
                ++stop;
            appendValidUtf8(out, std::string_view(at, stop));
            at = stop;
        } else {
            appendEscape(out, *at++, treatment);
        }
    }
}

} // namespace

void JsonWriter::key(std::string_view key) {
    separate();
    m_text += '"';
    m_text += key;
    m_text += m_form == JsonForm::prettySorted ? "\" : " : "\":";
}

void JsonWriter::value(std::string_view text) {
    m_text += '"';
    appendEscaped(m_text, text.data(), text.data() + text.size());
    m_text += '"';
}

void JsonWriter::value(std::int64_t number) {
    std::array<char, std::numeric_limits<std::int64_t>::digits10 + 2> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    m_text.append(digits.data(), end);
}

void JsonWriter::value(const Uuid& uuid) {
    std::array<char, Uuid::kTextLength + 2> quoted{};
    quoted.front() = quoted.back() = '"';
    uuid.writeText(quoted.data() + 1);
    m_text.append(quoted.data(), quoted.size());
}

void JsonWriter::open(char bracket) {
    m_text += bracket;
    ++m_depth;
    m_isFirst = true;
}

void JsonWriter::close(char bracket) {
    --m_depth;
    if (!m_isFirst) breakLine();
    m_isFirst = false;
    m_text += bracket;
}

void JsonWriter::separate() {
    if (!m_isFirst) m_text += ',';
    m_isFirst = false;
    breakLine();
}

void JsonWriter::breakLine() {
    if (m_form == JsonForm::compact) return;
    m_text += '\n';
    m_text.append(2 * m_depth, ' ');
}

} // namespace korvan
