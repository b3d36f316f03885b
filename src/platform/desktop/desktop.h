// What the program hands to the desktop, and where its own files are.
#pragma once

#include <QString>

#include <functional>

namespace Desktop {

// Results of opening, as the desktops number them; above 32 is success.
inline constexpr int failure = 0; // for a reason that isn't told
inline constexpr int fileNotFound = 2;
inline constexpr int outOfMemory = 8;
inline constexpr int noProgram = 31;
inline constexpr int success = 33;

// Opens a document in the program registered for its type. A relative path starts at the working folder; a folder is no
// document, and counts as not found. Waits briefly for what the desktop says; a desktop that takes longer is left to
// it, which counts as success.
int openDocument(const QString& path);

// Hands a URL to the desktop, its text unchanged, and doesn't wait.
int openUrl(const QString& url);

// What is called instead of the desktop; for the tests. Gets the path or URL as it was given. Null: the desktop again.
void setOpener(std::function<int(const QString&)> opener);

// The program's folder: where the data files, the manuals and the sheet's template are. No slash at the end.
QString programFolder();
void setProgramFolder(const QString& folder); // for the tests

} // namespace Desktop
