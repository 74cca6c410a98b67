// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

// The rules by which text is trimmed, compared and searched. All text is UTF-8. A byte that is not
// part of valid UTF-8 counts as U+FFFD, so every function here accepts any bytes.
namespace korvan {

// `text` without the white space and line breaks at both ends: all space separators (category Zs),
// U+0009 to U+000D, U+0085, U+2028 and U+2029. The result points into `text`.
[[nodiscard]] std::string_view trimmed(std::string_view text);

// Whether nothing is left of `text` when it is trimmed.
[[nodiscard]] bool isBlank(std::string_view text);

// Appends `text` to `out`. Each byte that is not part of valid UTF-8 becomes U+FFFD.
void appendValidUtf8(std::string& out, std::string_view text);

// Whether both are the same text, however their accented characters are composed.
[[nodiscard]] bool canonicallyEqual(std::string_view left, std::string_view right);

// A form that two texts share exactly when they are canonically equal.
[[nodiscard]] std::string canonicalForm(std::string_view text);

// Looks for one text in many others, without regard to letter case.
class TextSearch final {
public:
    // Trims `query`. An empty query is found everywhere.
    explicit TextSearch(std::string_view query);

    [[nodiscard]] bool isEmpty() const { return m_query.empty(); }

    // Whether `text` contains the query. Both are compared in full Unicode lower case, except that
    // the two lower-case forms of the letter sigma count as the same.
    [[nodiscard]] bool isFoundIn(std::string_view text);

private:
    std::string m_query;
    std::string m_form; // of the last text; a member so that its memory is reused
};

} // namespace korvan
