// What an alteration found in the store, so that it doesn't overwrite unasked what was changed elsewhere since.
#pragma once

#include "platform/jet/recordset.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

// A row that was shown, perhaps to be altered. Another program or another window may change it meanwhile.
class RegistoVisto
{
public:
    // Notes the current row as it was read; without one, nothing.
    void ve(const jet::Recordset& linha);

    // Whether the current row, read again, may be written to: these columns (all, where none are named) are as they
    // were seen, or the user wants them overwritten. A row that has gone is left to whoever writes it.
    bool podeGravar(jet::Recordset& linha, const QStringList& colunas = {}) const;

private:
    QHash<QString, QVariant> colunas_; // by their names in small letters
};

// The question that comes before something is overwritten. True for yes.
bool gravaPorCima();
