// The BDP: opening, creation, upgrade, reference data.
#pragma once

#include "platform/jet/connection.h"

#include <QString>

// Opens cnBDP on the file, alone among the programs that do so, and brings its schema up to date. If it can't be
// opened, shows the error and returns false; the connection is then closed, and StrLigacao holds the path that failed.
bool AbreBDP(const QString& caminho);

// Makes a BDP from the data files of the program's folder, asking before it replaces a file. It takes its name when it
// is whole. Errors are shown here; what was made before an error takes the name, too, but a file that was to be
// replaced stays as it was.
void CriaBDP(const QString& caminho);

// CriaBDP without windows, over an old file, which stays as it was until the new one is whole. Throws jet::Error.
// Precondition: cnBDP doesn't have it open.
void SubstituiBDP(const QString& caminho);

// CriaBDP without windows, and its two halves. Throw jet::Error; what was made before the error is kept in the file.
// Precondition: there is no file at `caminho` (Error 58 otherwise); `bdp` is open.
void EscreveBDP(const QString& caminho);
void CriaTabelas(jet::Connection& bdp, const QString& ficheiro);
void CarregaDadosIniciais(jet::Connection& bdp);

bool ExisteTabela(const QString& tabela, jet::Connection& ligacao);
bool ExisteColuna(const QString& tabela, const QString& coluna, jet::Connection& ligacao);
void ActualizaEstrutura();

void ActualizaLocais();
void ActualizaProfissoes();
void ActualizaCategorias(); // no handler: throws
