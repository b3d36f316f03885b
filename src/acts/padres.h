// Where the rows of a baptism and of a marriage keep their two priests.
#pragma once

struct ColunasDosPadres
{
    const char *tabela, *chave;
    const char *padre[2], *funcao[2]; // of the first priest and of the second
};

inline constexpr ColunasDosPadres padresDoBaptismo{
    "individuo", "nind", {"primpadrebapt", "segpadrebapt"}, {"funcprimpbapt", "funcsegpbapt"}};
inline constexpr ColunasDosPadres padresDoCasamento{
    "familia", "nfamilia", {"primpadrecasam", "segpadrecasam"}, {"funcprimpcasam", "funcsegpcasam"}};

// From where the priests of an act are shown when its window opens.
constexpr const ColunasDosPadres& padresAMostrar(bool casamento)
{
    return casamento ? padresDoCasamento : padresDoBaptismo;
}

// Where they are written, and read again after a cancel.
// Kept: crossed. The priests of a marriage are written to the baptism of the individual with the family's number, those
// of a baptism to the marriage of the family with the individual's number.
constexpr const ColunasDosPadres& padresAGravar(bool casamento)
{
    return casamento ? padresDoBaptismo : padresDoCasamento;
}
