// What a search has found, as the card that has searched hands it over.
#pragma once

#include "platform/jet/recordset.h"
#include "views/arvore.h"

#include <QList>
#include <QStringList>

#include <functional>

// One hit. Everything is empty if its row is gone.
struct Achado
{
    QStringList celulas;          // as the list shows it; the first is the number of the person or the family
    QList<PessoaDaArvore> raizes; // whose ancestors are drawn
};

// The hit of a row of the set, from 1 on. The set isn't moved, as it may be asked at any time; one that was closed has
// no hits.
Achado leAchado(jet::Recordset& filtro, int linha, const std::function<Achado(const jet::Recordset&)>& le);
