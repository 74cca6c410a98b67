// SPDX-License-Identifier: MIT
#pragma once

namespace korvan {

// Presents SnippetList and its rows to assistive tools as a list and its items: Qt knows this only
// of its own lists. Once, before the first list is shown; again does no harm.
void installSnippetListAccessibility();

} // namespace korvan
