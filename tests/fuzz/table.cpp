#include "study/transcripts/table.h"

#include "fuzz/targets.h"

void Fuzz::table(const QByteArray& bytes)
{
    const study::CellTable cells = study::readSheet(bytes);
    require(cells.rows.size() == cells.lines.size(), "a row without its line");
    for (const QStringList& row : cells.rows)
        require(row.size() == cells.headers.size(), "a row of another length");
    const study::Assignment assignment = study::proposed(cells.headers);
    require(assignment.columns.size() == cells.headers.size(), "a column without a proposal");
    if (!study::whyNotAssigned(cells.headers, assignment).isEmpty()) return;
    const study::Transcript read = study::actsOf(cells, assignment);
    require(read.isDamaged() || read.acts.size() == cells.rows.size(), "a row that is no act, and nobody told of it");
}
