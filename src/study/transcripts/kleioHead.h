// The group that opens an act: its date, folio, place and priests.
#pragma once

#include "study/transcripts/kleioText.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace study::kleio {

struct Head
{
    Act act; // without people
    QList<Told> celebrants;
    QStringList warnings; // what of it stands where nobody expects it, in Portuguese
};

// The kind of act that a group opens; nothing for any other group.
std::optional<ActKind> kindOf(const QString& group);

// Precondition: kindOf() its name.
Head readHead(const Group& group);

// A date in one element: 17020214, noughts for what isn't told; 1702-02-14; or what a person types.
PartialDate readDate(const QString& text);

// Adds a line to notes.
void addNote(QString& notes, const QString& line);
// The same for an element that has no place of its own; the text alone of "obs".
void addElement(QString& notes, const Element& element);

} // namespace study::kleio
