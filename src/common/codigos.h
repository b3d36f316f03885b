// Lists of codes that have their blank entry also where there is nothing to choose.
#pragma once

#include "platform/jet/recordset.h"

#include <QString>

class ComboBox;

// As PreencheCombo() of modGeral, and the blank entry where there are no rows.
void PreencheComBranco(ComboBox& lista, jet::Recordset& registos, int colunaTexto, int colunaDados);

// Fills a list from a select of `codigo`, `descricao`: an entry of two blanks, also where there are no codes, then one
// a code, without the "*" of what the researcher has added.
void PreencheCodigos(ComboBox& lista, const QString& instrucao);
