// SPDX-License-Identifier: MIT
#pragma once

namespace korvan {

// Makes it safe to print, and to open files, whatever the process was started with. To be called
// before anything opens a file.
//
// A standard stream that is closed becomes /dev/null: otherwise the next file that is opened takes
// its number, and what is printed goes into that file. And a reader of ours that goes away no
// longer ends the process; the line is lost. Children that runChild and startDetached start do not
// inherit this.
void secureStandardStreams();

} // namespace korvan
