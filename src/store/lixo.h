// What deletions of people and families have taken away, kept in the BDP until it is put back: the table estudo_lixo
// (docs/bdp.md).
#pragma once

#include "platform/jet/connection.h"
#include "platform/jet/recordset.h"

#include <QDateTime>
#include <QJsonArray>
#include <QString>
#include <QStringList>

namespace lixo {

enum class Tipo
{
    Individuo,
    Familia
};

// One deletion, as a list shows it.
struct Eliminacao
{
    qint64 id = 0;
    QDateTime quando;
    Tipo tipo = Tipo::Individuo;
    QString numero;
    QString nome; // of the person, or those of the couple

    bool operator==(const Eliminacao&) const = default;
    QString designacao() const; // "Indivíduo 12 – Ana Maria"
};

// Follows one deletion. It is made before the first row goes, and guarda() is called behind the last one, in the same
// transaction: so that nothing goes that isn't kept. Which rows have gone is read from the tables, and not repeated
// from the statements of the deletion. Precondition: the connection is open and outlives it. Both throw Error.
class Recolha
{
public:
    Recolha(jet::Connection& bdp, Tipo tipo, QString numero);

    // Writes what has gone, and the family of origin of those who have lost it, as one row, and lets go the links of
    // acts (lixo_actos.h); makes the table where the BDP has none. Where nothing has gone, nothing is written. Throws
    // for a table of that name that is another one.
    void guarda();

private:
    QJsonArray eliminadas() const;
    QJsonArray filhosSoltos() const;
    QString nome() const;

    jet::Connection& bdp_;
    Tipo tipo_;
    QString numero_;
    QJsonArray antes_;
    QString nome_;
};

// Whether the BDP has the table. Throws Error for one of that name that is another one.
bool temLixo(jet::Connection& bdp);

// The deletions, newest first, and one of them.
jet::NativeSql consulta();
Eliminacao eliminacao(const jet::Recordset& linha);

// Puts back all that the deletion has taken, in one transaction, and drops it from the table. Returns "", or else the
// reason in Portuguese why nothing was changed: a number that is taken, a record that isn't as the deletion has left
// it, or one that belongs to it and was deleted or
// made one with another later, and has to be put back first. Throws Error; nothing is changed
// then.
QString repoe(jet::Connection& bdp, qint64 id);

} // namespace lixo
