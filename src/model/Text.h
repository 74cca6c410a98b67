// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

// The rules by which text is trimmed, compared and searched. All text is UTF-8; a byte that is no
// part of valid UTF-8 is taken for U+FFFD, so that every function here has an answer for any bytes.
namespace korvan {

// `text` without the white space and line breaks at both ends: all space separators (category Zs),
// U+0009 to U+000D, U+0085, U+2028 and U+2029. The result points into `text`.
[[nodiscard]] std::string_view trimmed(std::string_view text);

// Whether nothing is left of `text` once it is trimmed.
[[nodiscard]] bool isBlank(std::string_view text);

// Appends `text` to `out`, each byte that is no part of valid UTF-8 replaced by U+FFFD.
void appendValidUtf8(std::string& out, std::string_view text);

// Whether both are the same text, however their accented characters are composed.
[[nodiscard]] bool canonicallyEqual(std::string_view left, std::string_view right);

// A form that is the same for all texts that are canonically equal, and for no others.
[[nodiscard]] std::string canonicalForm(std::string_view text);

// A text prepared once, and then looked for in many others without regard to letter case.
class TextSearch final {
public:
    // Trims `query`. A query of which nothing is left is found everywhere.
    explicit TextSearch(std::string_view query);

    [[nodiscard]] bool isEmpty() const { return m_query.empty(); }

    // Whether `text` contains the query, both in full Unicode lower case. A capital sigma at the
    // end of a word and inside of one count as the same letter.
    [[nodiscard]] bool isFoundIn(std::string_view text);

private:
    std::string m_query;
    std::string m_form; // of the text looked at last; its memory serves the next one
};

} // namespace korvan
