// What a stored path leads to, before it is handed to the desktop: a BDP may come from somebody else.
#pragma once

#include <QString>

namespace Desktop {

enum class Document
{
    Missing,  // no file, or none to open: a folder, a pipe
    Harmless, // a picture, a PDF, a text, an office document without macros
    Unknown,  // some other file
    Program,  // a program, a script, a shortcut, an installer, by its name or by what it begins with
    Elsewhere // no path of this machine, but a server or a URL; nothing was looked at there
};

// A link counts as what it points to, and as what its own name says.
Document documentAt(const QString& path);

} // namespace Desktop
