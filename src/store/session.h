// The session: the one BDP in work, and what the program knows of it.
#pragma once

#include "platform/jet/connection.h"

#include <QString>
#include <QVariant>

#include <functional>

extern jet::Connection cnBDP; // the one connection; every form uses it
extern QString StrLigacao;    // connection string of the open BDP
extern QString CodParoquia;   // code of the parish under study; "": none chosen yet
extern QString CodPais;       // its country, two characters
extern QString OperacaoBDP;   // what frmIni is open for: "a" open a BDP, "c" create one

// The main window's caption while no parish is shown. The word "BDP" in the long one marks where the parish begins.
inline constexpr auto shortTitle = "ORV - Sistema de Ordenação de Róis e Vidas";
inline constexpr auto longTitle = "ORV - Sistema de Ordenação de Róis e Vidas / BDP: "; // and the parish's name

// The filter of every dialog that names a BDP.
inline constexpr auto bdpFilter = "BDP - ORV (*.orv)|*.orv";

// Connection string of the BDP at `path`, which is taken as it is.
QString connectionString(const QString& path);

// The three menu items that follow the session: mnuEditInd, mnuEditFam, mnuManut. The main window, which owns them,
// registers once how they are enabled.
void setSessionMenus(bool enabled);
void onSessionMenus(std::function<void(bool enabled)> enable);

// The text of a field.
// Precondition: it isn't null; Error 94 otherwise.
QString requiredText(const QVariant& value);

// Ends the program once control is back in the event loop, nested ones included: what is pending is rolled back, the
// connection closed, and no form is asked or shown any more.
void endProgram(int status = 0);
bool programEnding();
