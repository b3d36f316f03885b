// The conditions of a search.
#pragma once

#include <QString>

// What follows "where": the conditions given so far, joined with "and".
class Filtro
{
public:
    void junta(const QString& condicao) { texto_ += (texto_.isEmpty() ? QString() : QString(" and ")) + condicao; }
    bool vazio() const { return texto_.isEmpty(); }
    const QString& texto() const { return texto_; }

private:
    QString texto_;
};
