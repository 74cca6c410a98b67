// SPDX-License-Identifier: MIT
//
// The rules of text for any bytes, with ICU's own answers beside ours.
#include "Fuzz.h"

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/unorm.h>
#include <unicode/utf8.h>

namespace korvan::fuzz {

namespace {

icu::UnicodeString unicode(std::string_view text) {
    return icu::UnicodeString::fromUTF8(mended(text));
}

bool isSpace(UChar32 character) { return character >= 0 && u_isUWhiteSpace(character); }

UChar32 firstOf(std::string_view text) {
    std::size_t at = 0;
    UChar32 character = 0;
    U8_NEXT(text.data(), at, text.size(), character);
    return character;
}

UChar32 lastOf(std::string_view text) {
    auto at = static_cast<std::int32_t>(text.size());
    UChar32 character = 0;
    U8_PREV(text.data(), 0, at, character);
    return character;
}

void requireOnlySpaces(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        UChar32 character = 0;
        U8_NEXT(text.data(), at, text.size(), character);
        require(isSpace(character), "only white space is trimmed");
    }
}

void trim(std::string_view text) {
    const std::string_view middle = trimmed(text);
    const auto before = static_cast<std::size_t>(middle.data() - text.data());
    require(before + middle.size() <= text.size(), "the result points into the text");
    requireOnlySpaces(text.substr(0, before));
    requireOnlySpaces(text.substr(before + middle.size()));
    require(isBlank(text) == middle.empty(), "blank is what trimming leaves nothing of");
    if (middle.empty()) return;
    require(!isSpace(firstOf(middle)) && !isSpace(lastOf(middle)), "all white space is trimmed");
}

void mendText(std::string_view text) {
    const std::string valid = mended(text);
    require(isValidUtf8(valid), "mended text is UTF-8");
    if (isValidUtf8(text)) require(valid == text, "valid text stays");
}

void compare(std::string_view left, std::string_view right) {
    const bool areEqual = canonicallyEqual(left, right);
    require(areEqual == canonicallyEqual(right, left), "equality is symmetric");
    require(areEqual == (canonicalForm(left) == canonicalForm(right)), "equal by one form");
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString first = unicode(left);
    const icu::UnicodeString second = unicode(right);
    const std::int32_t order = unorm_compare(first.getBuffer(), first.length(), second.getBuffer(),
                                             second.length(), 0, &status);
    require(U_SUCCESS(status) && areEqual == (order == 0), "equal where ICU says so");
    require(canonicalForm(canonicalForm(left)) == canonicalForm(left), "a form is its own form");
    std::string composed;
    icu::Normalizer2::getNFCInstance(status)->normalize(first, status).toUTF8String(composed);
    require(canonicallyEqual(left, composed), "composing makes no difference");
}

void search(std::string_view query, std::string_view text) {
    TextSearch wanted(query);
    require(wanted.isEmpty() == isBlank(query), "a blank query is empty");
    require(wanted.isFoundIn(query), "a text is found in itself");
    require(wanted.isFoundIn(mended(text) + mended(query) + mended(text)), "and inside of others");
    require(wanted.isFoundIn(text) == wanted.isFoundIn(mended(text)), "mending changes nothing");
    std::string lower;
    unicode(text).toLower(icu::Locale::getRoot()).toUTF8String(lower);
    require(wanted.isFoundIn(text) == wanted.isFoundIn(lower), "letter case changes nothing");
}

} // namespace

} // namespace korvan::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) {
    using namespace korvan::fuzz;
    Source source(bytes, length);
    const std::string first = source.text();
    const std::string second = source.rest();
    trim(first);
    trim(second);
    mendText(first);
    compare(first, second);
    search(first, second);
    search(second, first);
    return 0;
}
