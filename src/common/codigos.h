// Lists of codes that have their blank entry also where there is nothing to choose.
#pragma once

#include "platform/jet/recordset.h"

#include <QString>

class ComboBox;

// As PreencheCombo() of modGeral, and the blank entry where there are no rows.
void PreencheComBranco(ComboBox& lista, jet::Recordset& registos, int colunaTexto, int colunaDados);

// The rows of a category: `codigo`, `descricao`.
jet::Recordset codigosDaCategoria(const QString& categoria);

// Fills a list with the codes of a category: an entry of two blanks, also where there are no codes, then one a code,
// without the "*" of what the researcher has added.
void PreencheCodigos(ComboBox& lista, const QString& categoria);
