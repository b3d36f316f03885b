// The daily copy of the BDP in work, made without asking.
#pragma once

#include <QDate>
#include <QString>

#include <functional>

// From now on, before the first statement of a day that writes on cnBDP, a copy of the BDP as it is goes to the folder
// "copias" beside it, and older copies of it go (copiasGuardadas.h); the status bar tells of it. Nothing of that ever
// stops or fails the statement: a failure is told in the status bar, and the next try is that of the next day or
// session. A BDP in a folder of that name makes none.
//
// What can be copied within a moment is copied before the statement, and brought to the disk by another thread. A
// larger BDP is copied by that thread alone: such a copy holds a confirmed state from about that moment, with the
// statement or without it. The end of the session waits for the first, and drops the second, to be made another time.
void vigiaCopiaDiaria();

// Where the copies of a BDP are, or would be: beside the file itself, whatever link leads to it.
QString pastaDasCopias(const QString& bdp);

// Waits until none is under way.
void esperaCopiaDiaria();

// Makes the copy of today now, unless there is one, and waits until it is on the disk: for who is about to write what a
// copy is wanted of. "", or why there is none, in Portuguese. Precondition: cnBDP is open, and no transaction is.
QString garanteCopiaDeHoje();

// For tests: what day it is, and how long a statement may have to wait.
void setDiaDaCopia(std::function<QDate()> hoje);
void setEsperaDaCopia(int milissegundos);
