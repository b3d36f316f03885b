// The manual as the program reads it: the index that the build writes beside its pages.
#pragma once

#include <QList>
#include <QString>
#include <QUrl>

namespace help {

enum class Kind
{
    Chapter,
    Window,
    Command,
    Message,
    Section
};

struct Entry
{
    QString id; // of a window the name of its form, of a command that of its item
    QString title;
    Kind kind = Kind::Section;
    QString file;   // in the folder of the manual
    QString anchor; // in the file
    int page = 0;   // of the PDF; 0 where it isn't known
    QString words;  // folded, title and text
};

class Manual
{
public:
    // Reads the index of the folder. There is no manual where that is missing or can't be read.
    explicit Manual(const QString& folder);

    bool isThere() const { return !entries_.isEmpty(); }
    QString folder() const { return folder_; }
    const QList<Entry>& entries() const { return entries_; } // in the order of the manual

    const Entry* find(const QString& id) const;
    // Of the page at a URL, by its anchor, or else the first of its file. Null for a page that isn't of the manual.
    const Entry* at(const QUrl& page) const;
    QUrl url(const Entry& entry) const;

    // What explains a message, by its words; null where nothing does.
    const Entry* explaining(const QString& message) const;

    // The entries in which each of the words begins a word: first the message whose text is sought, then those with all
    // words in their title, then the others, each in the order of the manual.
    QList<const Entry*> search(const QString& sought) const;

private:
    QString folder_;
    QList<Entry> entries_;
};

} // namespace help
