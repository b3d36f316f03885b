// Finding an entry of a list by what it says, at a cost that doesn't grow with the entries.
#pragma once

#include <QHash>
#include <QObject>
#include <QString>

class ComboBox;

// Belongs to its list, and follows whatever becomes of the entries; those that were added since the last look are read
// then, each once.
class EntryIndex : public QObject
{
public:
    // What an entry is found by; the same text always gives the same.
    using Key = QString (*)(const QString& text);

    // That of a list, made at the first call. Precondition: each call for one list names the same key.
    static EntryIndex& of(ComboBox& list, Key key);

    // The first entry with that key; -1 if there is none.
    int first(const QString& key);

private:
    EntryIndex(ComboBox& list, Key key);
    void forget();

    ComboBox& list_;
    Key key_;
    QHash<QString, int> firsts_;
    int read_ = 0; // entries from the beginning on
};
