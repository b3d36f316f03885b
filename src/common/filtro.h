// The conditions of a search.
#pragma once

#include <QString>

// What stands behind "where": the conditions given so far, each joined to those before it with "and".
class Filtro
{
public:
    void junta(const QString& condicao) { texto_ += (texto_.isEmpty() ? QString() : QString(" and ")) + condicao; }
    bool vazio() const { return texto_.isEmpty(); }
    const QString& texto() const { return texto_; }

private:
    QString texto_;
};
