// Lists of codes.
#pragma once

#include <QString>

class ComboBox;

// Fills a list from a select of `codigo`, `descricao`: an entry of two blanks, also where there are no codes, then one
// a code, without the "*" of what the researcher has added.
void PreencheCodigos(ComboBox& lista, const QString& instrucao);
