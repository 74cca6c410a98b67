// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <sqlite3.h>
#include <string_view>

namespace korvan {

// One SQL statement, from its preparation to its end. The first failure is kept in code(), and
// everything after it does nothing.
class Statement final {
public:
    Statement(sqlite3* connection, const char* text)
        : m_code(sqlite3_prepare_v2(connection, text, -1, &m_statement, nullptr)) {}
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() { sqlite3_finalize(m_statement); }

    // What is bound must outlive the statement.
    Statement& bindText(int place, std::string_view text) {
        if (m_code == SQLITE_OK)
            m_code = sqlite3_bind_text64(m_statement, place, text.data(), text.size(),
                                         SQLITE_STATIC, SQLITE_UTF8);
        return *this;
    }
    Statement& bindData(int place, std::string_view data) {
        const char* bytes = data.empty() ? "" : data.data(); // a null pointer would bind NULL
        if (m_code == SQLITE_OK)
            m_code = sqlite3_bind_blob64(m_statement, place, bytes, data.size(), SQLITE_STATIC);
        return *this;
    }

    // Moves to the next row; false when there is none, or after a failure.
    [[nodiscard]] bool step() {
        if (m_code != SQLITE_OK) return false;
        const int code = sqlite3_step(m_statement);
        if (code != SQLITE_DONE && code != SQLITE_ROW) m_code = code;
        return code == SQLITE_ROW;
    }

    // SQLITE_OK unless something failed.
    [[nodiscard]] int code() const { return m_code; }

    // Goes through all rows; the same as code() afterwards.
    [[nodiscard]] int run() {
        while (step()) {
        }
        return m_code;
    }

    [[nodiscard]] std::int64_t number(int column) const {
        return sqlite3_column_int64(m_statement, column);
    }

private:
    sqlite3_stmt* m_statement = nullptr;
    int m_code;
};

} // namespace korvan
