// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace korvan {

// The sizes of text, relative to the application's font.
enum class TextStyle { title2, headline, body, callout, subheadline, caption, caption2 };

enum class FontDesign { standard, monospaced };

// The application's font in this style. title2 and headline are bold. A monospaced font is scaled
// so that it looks as large as the standard one beside it.
[[nodiscard]] QFont fontFor(TextStyle style, FontDesign design = FontDesign::standard);

} // namespace korvan
