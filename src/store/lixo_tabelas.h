// The tables that a deletion of a person or a family reaches, told once for what is kept and what is put back.
#pragma once

#include "store/lixo.h"

#include <QJsonValue>
#include <QList>

namespace lixo {

// The rows of a table that may go with a record, or be changed by its deletion: ?1 is its number.
struct Dependente
{
    QString tabela;
    QString condicao;
};
const QList<Dependente>& dependentesDe(Tipo tipo);

// A column that names a person or a family, and is emptied, or goes, when that one is deleted.
struct Referencia
{
    QString tabela;
    QString coluna;
    Tipo tipo;
    QString tipoacto = {}; // of those rows alone; "" for all
};
const QList<Referencia>& referencias();

inline QString letraDe(Tipo tipo)
{
    return tipo == Tipo::Familia ? "f" : "i";
}

// The number of a record as the fields show it; "" for null.
QString numeroDe(const QJsonValue& valor);

inline constexpr auto criacao = "create table estudo_lixo (id integer primary key, quando varchar not null, tipo "
                                "char(1) not null, numero double not "
                                "null, nome varchar, familias varchar, linhas text not null)";

} // namespace lixo
