#include "platform/jet/date.h"
#include "platform/jet/errors.h"
#include "platform/jet/functions.h"
#include "platform/jet/select.h"
#include "platform/jet/tokens.h"

#include <QLocale>

#include <algorithm>

namespace jet {

namespace {

QString literal(const Token& value, Type type)
{
    const auto mismatch = [&](const char* wanted) {
        return Error{number::typeMismatch,
                     QStringLiteral("O texto '%1' não é %2.").arg(value.text, QString::fromUtf8(wanted))};
    };
    if (value.is("true") || value.is("false")) return value.is("true") ? QStringLiteral("1") : QStringLiteral("0");
    if (value.kind == Token::Number) return value.sql;
    if (value.kind == Token::Date) {
        const auto date = comparedDate(value.text);
        return date ? textLiteral(*date) : value.sql;
    }
    if (value.kind != Token::Text)
        throw invalidStatement(QStringLiteral("Erro de sintaxe no critério, junto de \"%1\".").arg(value.text));
    if (type == Type::Date) {
        const auto date = comparedDate(value.text);
        if (!date) throw mismatch("uma data");
        return textLiteral(*date);
    }
    if (type == Type::Number || type == Type::Bit) {
        bool ok = false;
        const double number = QLocale::c().toDouble(value.text, &ok);
        if (!ok) throw mismatch("um número");
        return QString::number(number, 'g', QLocale::FloatingPointShortest);
    }
    const bool ascii = std::all_of(value.text.begin(), value.text.end(), [](QChar c) { return c.unicode() < 128; });
    return ascii ? value.sql : value.sql + QLatin1String(" collate ") + QLatin1String(functions::caseBlind);
}

} // namespace

Criterion::Criterion(const QString& text) : tokens_(tokenize(text))
{
    static constexpr auto operators = {"=", "<>", "<", ">", "<=", ">=", "like"};
    const size_t name = tokens_.size() > 1 && tokens_[1].is(".") ? 2 : 0;
    operator_ = name + 1;
    value_ = operator_ + 1;
    if (value_ < tokens_.size() && tokens_[value_].is("-")) ++value_;
    if (value_ + 1 != tokens_.size() || !tokens_[name].isName() ||
        std::none_of(operators.begin(), operators.end(), [&](const char* word) { return tokens_[operator_].is(word); }))
        throw invalidStatement(QStringLiteral("Erro de sintaxe no critério \"%1\".").arg(text));
    field_ = tokens_[name].text;
}

std::optional<qint64> Criterion::wholeNumber() const
{
    if (!tokens_[operator_].is("=") || tokens_[value_].kind != Token::Number) return {};
    bool ok = false;
    const qint64 number = tokens_[value_].text.toLongLong(&ok);
    if (!ok) return {};
    return value_ > operator_ + 1 ? -number : number;
}

QString Criterion::condition(Type type) const
{
    if (tokens_[operator_].is("like")) return QLatin1String(" like ") + tokens_[value_].sql;
    const QLatin1String sign(value_ > operator_ + 1 ? "-" : "");
    return u' ' + tokens_[operator_].sql + sign + literal(tokens_[value_], type);
}

} // namespace jet
