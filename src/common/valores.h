// What the system numbers, places and dates, as types of their own. Values are converted where a row or a field is read
// or written; nothing in between can mistake one for another.
#pragma once

#include <QDate>
#include <QString>
#include <QVariant>

#include <cmath>
#include <compare>
#include <optional>

// The number of a person or of a family, or none. It is kept as its column keeps it: any number that the column takes
// is valid, 0 and 30.5 too, so "none" is no number at all. It comes before every number.
template <class Tag>
class Numero
{
public:
    constexpr Numero() = default; // none
    constexpr explicit Numero(double numero) : valor_(numero) {}

    // None for null. Error 13 for anything that is no number.
    static Numero daColuna(const QVariant& coluna);

    // As numeroDoTexto(): Error 13 for a text that is no number, an empty one included.
    static Numero doCampo(const QString& texto);
    // The same, but none for a blank text.
    static Numero doCampoOuNenhum(const QString& texto);

    constexpr explicit operator bool() const { return valor_.has_value(); } // whether there is one

    // Error 94 for none.
    double valor() const;

    QString texto() const;       // as textoDoNumero() shows it; "" for none
    QString paraSQL() const;     // within a statement: "null" for none
    QVariant paraColuna() const; // null for none

    // The next whole number; 1 after none.
    Numero seguinte() const { return Numero(std::floor(valor_.value_or(0)) + 1); }

    friend bool operator==(const Numero&, const Numero&) = default;
    // NOLINTNEXTLINE(modernize-use-nullptr): it takes the comparison with 0 behind the default for a pointer
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
    QString nivel; // P, Z, D, C, F, L or S; any letter if it was read from a misleading text. "" for no place

    // From the two columns; "" for null.
    static Local daLinha(const QVariant& codigo, const QVariant& nivel);

    bool operator==(const Local&) const = default;
};

// A date with its flag, as datanasc with DnascFixa, dataobito with dobitofixa, datacasam with dcasamfixa and dataref
// with datafixa. The flag is kept even without a date.
struct DataRegistada
{
    QDate data;        // null if it isn't known
    bool fixa = false; // known to the day

    // From the two columns; a null flag is false. Error 13 for anything that is neither null nor a date.
    static DataRegistada daLinha(const QVariant& data, const QVariant& fixa);

    bool conhecida() const { return data.isValid(); }
    bool exacta() const { return conhecida() && fixa; }

    bool operator==(const DataRegistada&) const = default;
};
