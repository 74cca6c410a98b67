// SPDX-License-Identifier: MIT
#include "model/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

namespace korvan {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

std::uint8_t byteAt(std::string_view text, std::size_t at) {
    return static_cast<std::uint8_t>(text[at]);
}

bool isAscii(std::string_view text) {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    std::size_t at = 0;
    for (; at + sizeof highBits <= text.size(); at += sizeof highBits) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + at, sizeof word);
        if ((word & highBits) != 0) return false;
    }
    return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(),
                       [](char character) { return static_cast<std::uint8_t>(character) < 0x80; });
}

bool isContinuation(std::string_view text, std::size_t at) {
    return at < text.size() && (byteAt(text, at) & 0xC0) == 0x80;
}

// The length of the valid character that begins at `at`, or 0. Overlong forms, surrogates and
// values above U+10FFFF are not valid; their first two bytes tell.
std::size_t characterLength(std::string_view text, std::size_t at) {
    const std::uint8_t lead = byteAt(text, at);
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    for (std::size_t i = 1; i < length; ++i)
        if (!isContinuation(text, at + i)) return 0;
    const std::uint8_t second = byteAt(text, at + 1);
    if (lead == 0xE0 && second < 0xA0) return 0;
    if (lead == 0xED && second >= 0xA0) return 0;
    if (lead == 0xF0 && second < 0x90) return 0;
    if (lead == 0xF4 && second >= 0x90) return 0;
    return length;
}

// The characters outside ASCII that trimming removes, as UTF-8.
constexpr std::array<std::string_view, 19> kWideSpaces = {
    "\u0085", "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003",
    "\u2004", "\u2005", "\u2006", "\u2007", "\u2008", "\u2009", "\u200A",
    "\u2028", "\u2029", "\u202F", "\u205F", "\u3000",
};

bool isAsciiSpace(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

std::size_t spaceAtStart(std::string_view text) {
    if (isAsciiSpace(text.front())) return 1;
    if (static_cast<std::uint8_t>(text.front()) < 0x80) return 0;
    for (const std::string_view space : kWideSpaces)
        if (text.starts_with(space)) return space.size();
    return 0;
}

std::size_t spaceAtEnd(std::string_view text) {
    if (isAsciiSpace(text.back())) return 1;
    if (static_cast<std::uint8_t>(text.back()) < 0x80) return 0;
    for (const std::string_view space : kWideSpaces)
        if (text.ends_with(space)) return space.size();
    return 0;
}

icu::UnicodeString toUnicode(std::string_view text) {
    std::string valid;
    appendValidUtf8(valid, text);
    return icu::UnicodeString::fromUTF8(valid);
}

char lowerAscii(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character | 0x20) : character;
}

// Writes `text` to `out` in lower case if it holds only ASCII and letters from U+00C0 to U+00FF,
// for which that is quick. Returns false for any other text; `out` is useless then.
bool lowerPlain(std::string& out, std::string_view text) {
    constexpr char lead = '\xC3';
    out.resize(text.size());
    bool isAfterLead = false;
    bool isPlain = true;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char character = text[i];
        const auto byte = static_cast<std::uint8_t>(character);
        if (isAfterLead) {
            // The capitals À to Þ are 32 below their small letters. U+00D7 between them is ×.
            const bool isCapital = byte <= 0x9E && byte != 0x97;
            out[i] = isCapital ? static_cast<char>(byte | 0x20) : character;
            isPlain = isPlain && (byte & 0xC0) == 0x80;
            isAfterLead = false;
        } else {
            out[i] = lowerAscii(character);
            isAfterLead = character == lead;
            isPlain = isPlain && (byte < 0x80 || isAfterLead);
        }
    }
    return isPlain && !isAfterLead;
}

// Writes `text` to `out` in the form that is searched: full lower case, with the final sigma
// written as the usual one. A query may end inside of a word, where the text does not have the
// final form.
void writeSearchForm(std::string& out, std::string_view text) {
    if (lowerPlain(out, text)) return;
    constexpr char16_t finalSigma = u'\u03C2';
    constexpr char16_t sigma = u'\u03C3';
    icu::UnicodeString lower = toUnicode(text).toLower(icu::Locale::getRoot());
    for (std::int32_t i = 0; i < lower.length(); ++i)
        if (lower[i] == finalSigma) lower.setCharAt(i, sigma);
    out.clear();
    lower.toUTF8String(out);
}

} // namespace

std::string_view trimmed(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = spaceAtStart(text);
        if (length == 0) break;
        text.remove_prefix(length);
    }
    while (!text.empty()) {
        const std::size_t length = spaceAtEnd(text);
        if (length == 0) break;
        text.remove_suffix(length);
    }
    return text;
}

bool isBlank(std::string_view text) { return trimmed(text).empty(); }

void appendValidUtf8(std::string& out, std::string_view text) {
    std::size_t start = 0;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t length = characterLength(text, at);
        if (length != 0) {
            at += length;
            continue;
        }
        out.append(text, start, at - start).append(kReplacement);
        start = ++at;
    }
    out.append(text, start, at - start);
}

bool canonicallyEqual(std::string_view left, std::string_view right) {
    if (left == right) return true;
    if (isAscii(left) && isAscii(right)) return false;
    return canonicalForm(left) == canonicalForm(right);
}

std::string canonicalForm(std::string_view text) {
    if (isAscii(text)) return std::string(text);
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* decomposer = icu::Normalizer2::getNFDInstance(status);
    std::string form;
    if (U_FAILURE(status)) {
        appendValidUtf8(form, text); // out of memory: only texts equal byte by byte are equal then
        return form;
    }
    const icu::UnicodeString decomposed = decomposer->normalize(toUnicode(text), status);
    decomposed.toUTF8String(form);
    return form;
}

TextSearch::TextSearch(std::string_view query) { writeSearchForm(m_query, trimmed(query)); }

bool TextSearch::isFoundIn(std::string_view text) {
    if (m_query.empty()) return true;
    writeSearchForm(m_form, text);
    return m_form.find(m_query) != std::string::npos;
}

} // namespace korvan
