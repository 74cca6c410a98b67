// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace korvan {

// The fields of the editors that a save can fail for.
enum class EditorField { name, host, user, port, title, commandTemplate };

// What a failed save tells the user.
class Validation {
public:
    std::optional<std::string> validationError; // of the last failed save; typing leaves it
    std::optional<EditorField> invalidField;    // what the message is about, until it is edited

    // The user has changed the content of `field`.
    void fieldEdited(EditorField field) {
        if (invalidField == field) invalidField.reset();
    }
};

} // namespace korvan
