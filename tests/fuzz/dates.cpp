#include "fuzz/targets.h"

#include "platform/jet/date.h"
#include "platform/jet/dialect.h"

namespace {

void isWhole(const std::optional<QDate>& date, const QString& text)
{
    if (!date) return;
    Fuzz::require(date->isValid() && date->year() >= 100 && date->year() <= 9999, "no date of the system: " + text);
    Fuzz::require(jet::readDate(date->toString("dd/MM/yyyy")) == date, "a date is read as another one: " + text);
    Fuzz::require(jet::readStoredDate(jet::storedDate(*date)) == date, "a date is stored as another one: " + text);
    Fuzz::require(jet::readDateLiteral(date->toString("MM/dd/yyyy")) == date, "a literal is another date: " + text);
    Fuzz::require(jet::comparedDate(jet::storedDate(*date)) == jet::storedDate(*date), "not compared: " + text);
}

} // namespace

void Fuzz::dates(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes);
    const auto typed = jet::readDate(text), eitherWay = jet::readDateEitherWay(text);
    for (const auto& date : {typed, eitherWay, jet::readDateLiteral(text), jet::readStoredDate(text)})
        isWhole(date, text);
    if (typed && text.size() == 10) require(eitherWay == typed, "the day comes first: " + text);
    if (const auto compared = jet::comparedDate(text))
        require(jet::readStoredDate(*compared).has_value(), "compared with what is no date: " + text);
}
