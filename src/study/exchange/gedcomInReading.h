// A record while it is read: what was made use of, and what is left of it for the notes.
#pragma once

#include "study/exchange/gedcomInIndex.h"
#include "study/exchange/gedcomInTables.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace study::exchange {

class Reading
{
public:
    // `notesRead`: the names of the shared notes that were read, of all records.
    Reading(const GedcomIndex& index, QSet<QString>& notesRead) : index_(index), notesRead_(notesRead) {}

    // The first structure of that tag that nothing was made of yet, which something is made of now; null for none.
    // Those below it stay.
    const GedcomNode* take(const GedcomNode& of, const char* tag);
    QString takeText(const GedcomNode& of, const char* tag); // "" for none
    void take(const GedcomNode& node) { taken_ << &node; }
    bool isTaken(const GedcomNode& node) const { return taken_.contains(&node); }
    void takeWhole(const GedcomNode& node); // with all that stands below it
    // All notes of it, inline and shared ones, each behind the other.
    QString takeNotes(const GedcomNode& of);

    // What is left below the node, each with its path: "BIRT.AGNC", and how it is shown.
    using Tell = std::function<void(const GedcomNode&, const QString& path, const QString& value)>;
    void tellLeft(const GedcomNode& below, const QString& path, const Tell& tell) const;
    // The value for a reader: whom a pointer means.
    QString shownValue(const GedcomNode& node) const;

private:
    const GedcomIndex& index_;
    QSet<QString>& notesRead_;
    QSet<const GedcomNode*> taken_ = {};
};

// Lines "Texto: valor" at the beginning of a text. `areContinued`: lines without a label go on with the value above;
// otherwise the rest begins at the first of them.
struct Labelled
{
    QHash<QString, QString> values = {};
    QStringList rest = {};

    QString value(const char* label) const { return values.value(QString::fromUtf8(label)); }
    QString takeValue(const char* label) { return values.take(QString::fromUtf8(label)); }
};
Labelled labelled(const QString& text, const std::vector<LabelColumn>& labels, bool areContinued = false);

} // namespace study::exchange
