// Transcriptions in Kleio notation, read and written.
#pragma once

#include "study/transcripts/transcript.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace study {

// Reads a whole file. Nothing is dropped in silence: what an act has no place for is kept in its notes or in those of
// the person, and unknown groups are counted. Names and texts stay as they are.
//
// An error, so that nothing of the file may be written:
//   the bytes are no text (a NUL) · three quotes that never close · no act at all · a line of text before the
//   first group · a person, an attribute or a relation before the first act
// A warning, and taken as it stands:
//   no line "kleio$" · an act before any "fonte$" · an act without a date, or with one that no calendar has · the same
//   id twice · a relation or "mesmo_que" that leads to nobody · a person without a name · a group that hangs on a
//   person who isn't there · a second child or deceased in one act · a celebrant told twice · an attribute told twice
//   with different values · a number in the head that is no date · two fathers, two mothers or two spouses in one
//   place, or a spouse of the same sex · a quote that never closes · characters lost earlier (U+FFFD) · an unknown
//   group
Transcript readKleio(const QByteArray& bytes);

// The acts in the same notation, in UTF-8, lines ending with LF. Reading it again gives equal acts in the same order,
// whatever they hold; what the notation has no word for stands in elements of its own (papel, de, com, ordem, cerca,
// texto_data, numero, nome_padrao, tipo), which other readers pass over.
// Each book has what the sources tell of it, and those that no act is of stand at the end.
// Precondition: who hangs on a person stands behind that person, and relations are between people of the act.
QByteArray toKleio(const QList<Act>& acts, const QList<Source>& sources = {});

// An export takes the place of an earlier one and of nothing else. Throws jet::Error where the target is the BDP
// itself, by whatever name, or a file that isn't of this notation or can't be read.
void checkExportTarget(const QString& target, const QString& bdp);

} // namespace study
