// SPDX-License-Identifier: MIT
#pragma once

#include "state/Validation.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace korvan {

// What the editors of all records have in common: one opening works on its own copy of a record,
// checks it when the user saves, and hands it back. Closing the sheet is the caller's business.
template <class Record>
class RecordEditor : public Validation {
public:
    RecordEditor(RecordEditor&&) noexcept = default;
    RecordEditor(const RecordEditor&) = delete;
    RecordEditor& operator=(const RecordEditor&) = delete;
    RecordEditor& operator=(RecordEditor&&) = delete;
    virtual ~RecordEditor() = default;

    // Whether the record may be saved; sets or clears the message and its field.
    bool validate() {
        const std::optional<Problem> found = problem();
        validationError = found ? std::optional(found->message) : std::nullopt;
        invalidField = found ? std::optional(found->field) : std::nullopt;
        return !found;
    }

    // Hands the record, exactly as edited, to `onSave` if it passes the check. Only the first
    // time: a second Return before the sheet has gone must not add the record twice.
    void commit() {
        if (!validate()) return;
        if (const auto onSave = std::exchange(m_onSave, nullptr)) onSave(record());
    }

    // Hands nothing back.
    void cancel() { m_onCancel(); }

protected:
    struct Problem {
        EditorField field;
        std::string message; // in words for the user
    };

    RecordEditor(std::function<void()> onCancel, std::function<void(const Record&)> onSave)
        : m_onCancel(std::move(onCancel)), m_onSave(std::move(onSave)) {}

private:
    [[nodiscard]] virtual const Record& record() const = 0;

    // What keeps the record from being saved.
    [[nodiscard]] virtual std::optional<Problem> problem() const = 0;

    std::function<void()> m_onCancel;
    std::function<void(const Record&)> m_onSave;
};

} // namespace korvan
