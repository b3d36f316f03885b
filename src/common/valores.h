// What the system numbers, places and dates, as types of their own. A value becomes one of them at the border of a row
// or of a field, and a column's value or a text again there; nothing in between can take one for another.
#pragma once

#include <QDate>
#include <QString>
#include <QVariant>

#include <compare>
#include <optional>

// The number of a person or of a family, or none. It is kept as its column keeps it: any number that the column takes
// is one, 0 and 30.5 too, so that none is not a number at all. None comes before every number.
template <class Tag>
class Numero
{
public:
    constexpr Numero() = default; // none
    constexpr explicit Numero(double numero) : valor_(numero) {}

    // None for null. Error 13 for what is no number.
    static Numero daColuna(const QVariant& coluna);

    // As numeroDoTexto(): Error 13 for a text that is no number, an empty one included.
    static Numero doCampo(const QString& texto);
    // The same, but none for nothing but blanks.
    static Numero doCampoOuNenhum(const QString& texto);

    constexpr explicit operator bool() const { return valor_.has_value(); } // whether there is one

    // Error 94 for none.
    double valor() const;

    QString texto() const;       // as textoDoNumero() shows it; "" for none
    QString paraSQL() const;     // within a statement: "null" for none
    QVariant paraColuna() const; // null for none

    // The number that follows in the numbering, which counts from 1: 1 after none.
    Numero seguinte() const { return Numero(valor_.value_or(0) + 1); }

    friend bool operator==(const Numero&, const Numero&) = default;
    friend auto operator<=>(const Numero&, const Numero&) = default;
    friend size_t qHash(const Numero& numero, size_t seed = 0) { return numero ? qHash(*numero.valor_, seed) : seed; }

private:
    std::optional<double> valor_;
};

using Nind = Numero<struct DoIndividuo>;
using Nfam = Numero<struct DaFamilia>;

extern template class Numero<struct DoIndividuo>;
extern template class Numero<struct DaFamilia>;

// A place: its code, and the level of the table that holds it.
struct Local
{
    QString codigo;
    QString nivel; // P, Z, D, C, F, L or S; out of a misled text form any letter. "" for no place

    // Out of the two columns; "" for null.
    static Local daLinha(const QVariant& codigo, const QVariant& nivel);

    bool operator==(const Local&) const = default;
};

// A date with its flag, as datanasc with DnascFixa, dataobito with dobitofixa, datacasam with dcasamfixa and dataref
// with datafixa. The flag is kept also where it stands without a date.
struct DataRegistada
{
    QDate data;        // null where it isn't known
    bool fixa = false; // known to the day

    // Out of the two columns; a null flag is false. Error 13 for what is neither null nor a date.
    static DataRegistada daLinha(const QVariant& data, const QVariant& fixa);

    bool conhecida() const { return data.isValid(); }
    bool exacta() const { return conhecida() && fixa; }

    bool operator==(const DataRegistada&) const = default;
};
