// The seven levels of the places, told once.
#pragma once

#include "platform/jet/nativesql.h"

#include <QString>

#include <array>

// From the widest to the narrowest.
enum class Nivel
{
    Pais,
    Zona,
    Distrito,
    Concelho,
    Paroquia,
    Lugar,
    Sitio
};

inline constexpr int numNiveis = 7;

// How a place stands on the working list.
enum class Prioridade
{
    Nenhuma,
    NaLista,
    DaBDP // the BDP's own parish, which is on it too
};

struct DadosDoNivel
{
    Nivel nivel;
    const char* tipo;    // the letter of its places
    const char* palavra; // what the search calls it
    const char* tabela;
    const char* codigo;   // the column of the code,
    const char* nome;     // that of the name,
    const char* superior; // and that of the code of the place above; null: none
    int inicio;           // where in a code the level's own number begins; 0: the code is no number

    // The names of all places on the working list, behind their codes.
    jet::NativeSql locaisDaLista() const;
    // The name of the place with a code.
    jet::NativeSql nomeDe(const QString& codigoDoLocal) const;
    // The code above that of a place.
    // Precondition: there is a level above.
    jet::NativeSql superiorDe(const QString& codigoDoLocal) const;
    // All columns of all places, or of those below one.
    // Precondition of the second: there is a level above.
    jet::NativeSql locais() const;
    jet::NativeSql locaisDe(const QString& codigoSuperior) const;
    // Writes how a place stands on the working list.
    jet::NativeSql marca(const QString& codigoDoLocal, Prioridade prioridade) const;
};

extern const std::array<DadosDoNivel, numNiveis> niveis; // in the order of Nivel

const DadosDoNivel& dadosDe(Nivel nivel);
const DadosDoNivel* nivelDaLetra(const QString& tipo); // in upper case; null for a letter of no level
