// Values as cells, and back.
#include "study/exchange/tables_p.h"

#include <QDate>

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace study::exchange {

namespace {

constexpr double largestExact = 9007199254740992.0; // up to here each whole number is a double of its own
constexpr qsizetype dateLength = 10;

std::optional<qint64> wholeIn(QByteArrayView text)
{
    qint64 number = 0;
    const auto [end, error] = std::from_chars(text.begin(), text.end(), number);
    if (error != std::errc() || end != text.end()) return {};
    return number;
}

std::optional<double> realIn(QByteArrayView text)
{
    double number = 0;
    const auto [end, error] = std::from_chars(text.begin(), text.end(), number);
    if (error != std::errc() || end != text.end() || !std::isfinite(number)) return {};
    return number;
}

// As short as it can be read back as the same.
QByteArray shortest(double number)
{
    static constexpr std::size_t enough = 32;
    char digits[enough];
    return {digits, std::to_chars(digits, digits + enough, number).ptr - digits};
}

bool isDate(QByteArrayView text)
{
    return text.size() == dateLength && QDate::fromString(QString::fromLatin1(text), Qt::ISODate).isValid() &&
           text[4] == '-' && text[7] == '-';
}

CellText sound(QByteArray text)
{
    return {State::Sound, std::move(text)};
}

CellText numberCell(const jet::Rows& row, int column, bool fractions)
{
    static const CellText odd{State::Odd};
    if (row.kind(column) == jet::Rows::Kind::Whole) return sound(QByteArray::number(row.number(column)));
    if (row.kind(column) != jet::Rows::Kind::Real) return odd;
    const double number = row.real(column);
    if (!std::isfinite(number)) return odd;
    if (std::trunc(number) == number && std::abs(number) <= largestExact)
        return sound(QByteArray::number(static_cast<qint64>(number)));
    return fractions ? sound(shortest(number)) : odd;
}

bool isFormula(char first)
{
    static constexpr QByteArrayView beginnings = "=+-@'\t\r";
    return beginnings.contains(first);
}

} // namespace

CellText cellOf(const jet::Rows& row, int column, Kind kind)
{
    using Engine = jet::Rows::Kind;
    if (row.kind(column) == Engine::Null) return {};
    if (kind == Kind::Whole || kind == Kind::Number) return numberCell(row, column, kind == Kind::Number);
    if (kind == Kind::Flag) {
        const bool isOne = row.kind(column) == Engine::Whole && (row.number(column) == 0 || row.number(column) == 1);
        return isOne ? sound(QByteArray::number(row.number(column))) : CellText{State::Odd};
    }
    const QByteArrayView text = row.bytes(column);
    const bool isSound = row.kind(column) == Engine::Text &&
                         (kind == Kind::Day ? isDate(text) : text.isValidUtf8() && !text.contains('\0'));
    return isSound ? sound(text.toByteArray()) : CellText{State::Odd};
}

QByteArray forSpreadsheet(const QByteArray& text, Kind kind)
{
    switch (kind) {
    case Kind::Text:
        return !text.isEmpty() && isFormula(text[0]) ? '\'' + text : text;
    case Kind::Day:
        return text.mid(8) + '/' + text.mid(5, 2) + '/' + text.left(4);
    case Kind::Number:
        return QByteArray(text).replace('.', ',');
    case Kind::Whole:
    case Kind::Flag:
        break;
    }
    return text;
}

QByteArray fromSpreadsheet(const QByteArray& text, Kind kind)
{
    switch (kind) {
    case Kind::Text:
        return text.size() > 1 && text[0] == '\'' && isFormula(text[1]) ? text.mid(1) : text;
    case Kind::Day:
        if (text.size() == dateLength && text[2] == '/' && text[5] == '/')
            return text.mid(6) + '-' + text.mid(3, 2) + '-' + text.left(2);
        return text;
    case Kind::Number:
        return QByteArray(text).replace(',', '.');
    case Kind::Whole:
    case Kind::Flag:
        break;
    }
    return text;
}

std::optional<QVariant> valueOf(const QByteArray& text, Kind kind)
{
    if (kind == Kind::Text) {
        if (!text.isValidUtf8() || text.contains('\0')) return {};
        return QString::fromUtf8(text);
    }
    if (kind == Kind::Day) {
        if (!isDate(text)) return {};
        return QString::fromLatin1(text);
    }
    const std::optional<qint64> whole = wholeIn(text);
    if (kind == Kind::Flag && whole != 0 && whole != 1) return {};
    if (whole) return QVariant(*whole);
    const std::optional<double> real = kind == Kind::Number ? realIn(text) : std::nullopt;
    if (!real) return {};
    return QVariant(*real);
}

} // namespace study::exchange
