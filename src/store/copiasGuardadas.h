// Which daily copies of a BDP there are, and which of them are kept.
#pragma once

#include <QDate>
#include <QList>
#include <QString>

// The name of the copy of a day, beside others of the same BDP: "paroquia_2026-11-22.orv" of "paroquia.orv".
QString nomeDaCopia(const QString& bdp, const QDate& dia);

// The day of a copy with that name; an invalid one where it is no copy of that BDP.
QDate diaDaCopia(const QString& bdp, const QString& nome);

// Which of the days' copies go. Kept are those of the last seven days that have one, and the last copy of each of the
// last four weeks and of the last twelve months that have one: who works seldom keeps as many. A day after `hoje`
// comes of a clock that was wrong; its copy neither goes nor counts.
QList<QDate> copiasASair(QList<QDate> dias, const QDate& hoje);
