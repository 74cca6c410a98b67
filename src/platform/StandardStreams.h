// SPDX-License-Identifier: MIT
#pragma once

namespace korvan {

// Makes it safe to print and to open files, however the process was started. Call this before
// anything opens a file.
//
// Opens /dev/null for each standard stream that is closed. Otherwise the next file would take the
// stream's number, and what is printed would go into that file.
//
// Ignores SIGPIPE, so that the process goes on when the reader of its output has gone; what it
// prints then is lost. The children of runChild and startDetached do not inherit that.
void secureStandardStreams();

} // namespace korvan
