// The mark of what the researcher has added to the places, the professions and the codes: a "*" before the name.
#pragma once

#include <QString>

inline bool temMarca(const QString& nome)
{
    return nome.startsWith('*');
}

inline QString comMarca(const QString& nome)
{
    return '*' + nome;
}

// As a name is shown: every "*" is gone, also one within it.
inline QString semMarca(QString nome)
{
    return nome.remove('*');
}
