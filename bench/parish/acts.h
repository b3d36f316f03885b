// The registers of an invented parish, as somebody would have transcribed them: who is born, marries and dies in the
// population of parish.h, with what registers leave open, doubt and spell in their own way.
#pragma once

#include "random.h"
#include "study/acts/act.h"

#include <QByteArray>
#include <QList>

#include <cstdint>

namespace bench {

// So many acts in the order of their dates, in books of fifty years, numbered within each. The same numbers give the
// same acts. Children of a couple have the same parents by name, and nobody has a child after death.
QList<study::Act> parishActs(int count, std::uint32_t seed = 1);

// A file in Kleio notation, written as people write them: other names of the groups, capitals, careless indentation,
// lines that go on, CR LF. It means the same acts. Precondition: the file is one of study::toKleio(), of parishActs().
QByteArray clumsyKleio(const QByteArray& kleio, std::uint32_t seed = 1);

// The acts of one kind as a table, quoted where it must be: the first line holds the headers.
QByteArray actTable(const QList<study::Act>& acts, study::ActKind kind, char separator = ';');

} // namespace bench
