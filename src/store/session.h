// The session: the one BDP in work, and what the program knows of it.
#pragma once

#include "platform/jet/connection.h"

#include <QString>

extern jet::Connection cnBDP;       // the one connection; every form speaks through it
extern QString StrLigacao;          // connection string of the open BDP
extern QString CodParoquia;         // code of the parish under study; "": none chosen yet
extern QString CodPais;             // its country, two characters
extern QString OperacaoBDP;         // what frmIni is open for: "a" open a BDP, "c" create one

// The main window's caption while no parish is shown. The word "BDP" in the long one marks where the parish begins.
inline constexpr auto tituloCurto = "ORV - Sistema de Ordenação de Róis e Vidas";
inline constexpr auto tituloLongo = "ORV - Sistema de Ordenação de Róis e Vidas / BDP: "; // and the parish's name
