// Episodes of event history: who was at risk of what, from when to when, as CSV for programs of survival analysis.
#pragma once

#include "study/exchange/tables.h"

#include <QDate>

namespace study::exchange {

struct EpisodesOptions
{
    // Who may be alive stays out: born less than so many years before `today`, without a death. 0: nobody stays out.
    int limitYears = 110;
    QDate today = {}; // nothing else of the files depends on it; valid where there is a limit
    QString program = {};
    QDateTime made = {}; // told in the description where it is valid; without it the same BDP gives the same bytes
    parish::Source source = {};
    GoesOn goesOn = {};
};

struct EpisodesWritten
{
    std::vector<TableCount> files = {}; // those of people, families and episodes
    qint64 withheldPeople = 0;          // who may be alive

    bool operator==(const EpisodesWritten&) const = default;
};

// Writes to a folder that is there, of one state of the BDP:
//   fecundidade.csv           marital fertility: a wife, by her age, her children so far and what became of the last
//   one mortalidade_infancia.csv  a child until its fifteenth birthday, by which of its parents live
//   mortalidade_adultos.csv   the married, from the first marriage on, by whether the spouse lives
//   mortalidade_adultos_limites.csv  their whole lives by the other three estimates (adultLife.h)
//   nupcialidade.csv          the single, from twelve to fifty, until the first marriage
//   recasamento.csv           who outlives a spouse, until the next marriage
//   pessoas.csv, familias.csv what doesn't change, to be joined by number
//   nao_contados.csv          who isn't in the files of episodes, and why: how many
//   dicionario.csv, datapackage.json, episodios.R: each column in two languages, and a model of survival in R
// People, times and settings are those of the indicators (marriedLife.h, childhood.h, adultLife.h, widowhood.h; the
// settings that the BDP keeps): the sums of the episodes are their tallies. Names of people aren't written.
//
// Reads the whole BDP into memory, as a study does, and writes row by row, as report::PackageFiles does. Throws
// jet::Error, and Interrupted; the folder is then as it was.
EpisodesWritten exportEpisodes(const jet::Connection& bdp, const QString& folder, const EpisodesOptions& options);

} // namespace study::exchange
