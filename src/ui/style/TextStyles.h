// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace korvan {

// The sizes of text, scaled from the desktop's own font.
enum class TextStyle { title2, headline, body, callout, subheadline, caption, caption2 };

enum class FontDesign { standard, monospaced };

// title2 and headline are bold; ask the result for any other weight.
[[nodiscard]] QFont fontFor(TextStyle style, FontDesign design = FontDesign::standard);

} // namespace korvan
