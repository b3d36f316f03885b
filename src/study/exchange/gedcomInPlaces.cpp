#include "study/exchange/gedcomInPlaces.h"

#include "common/marca.h"
#include "common/niveis.h"
#include "common/numeros.h"
#include "study/exchange/gedcomInTables.h"
#include "study/exchange/gedcomValues.h"
#include "study/names/names.h"

#include <algorithm>

namespace study::exchange {

namespace {

constexpr auto letters = "SLFCDP"; // of the items, the narrowest first

QStringList itemsOf(const QString& text)
{
    QStringList items;
    for (const QString& item : text.split(','))
        items << item.simplified();
    return items;
}

bool isNamed(const QString& name, const QString& item)
{
    return placeKey(name) == placeKey(item);
}

QChar letterAt(std::size_t item)
{
    return QLatin1Char(letters[item]);
}

int depthOf(QChar letter) // the narrowest has the highest
{
    static const QString order = "PZDCFLS";
    return static_cast<int>(order.indexOf(letter));
}

} // namespace

GedcomPlaces::GedcomPlaces(jet::Connection& bdp, GedcomRows& rows, MakesNew makesNew) : rows_(rows), makesNew_(makesNew)
{
    jet::Rows home(bdp, jet::NativeSql("select cod from infopar limit 1"));
    if (home.next()) ownParish_ = home.text(0);
    jet::Rows row(bdp, jet::NativeSql(placesSelect));
    while (row.next())
        add(row.text(0), {semMarca(row.text(1)), row.text(2)});
}

void GedcomPlaces::add(const QString& key, const Named& place)
{
    places_.insert(key, place);
    byName_.insert(placeKey(place.name), key);
}

QStringList GedcomPlaces::named(const QString& name) const
{
    QStringList keys = name.isEmpty() ? QStringList() : byName_.values(placeKey(name));
    std::ranges::sort(keys, [](const QString& one, const QString& other) {
        return std::pair(-depthOf(one[0]), one) < std::pair(-depthOf(other[0]), other);
    });
    return keys;
}

GedcomPlaces::Found GedcomPlaces::lookUp(const QString& text, const QString& form, const QString& code)
{
    const QString asked = text + '\n' + form + '\n' + code;
    if (const auto found = known_.constFind(asked); found != known_.constEnd()) return *found;
    Found found = byCode(code, text);
    const QStringList items = itemsOf(text), words = itemsOf(form);
    if (!found.place.isKnown() && items.size() == words.size() && items.size() > 1) {
        Items levels;
        bool areAll = true;
        for (qsizetype i = 0; i < items.size(); ++i)
            if (const int level = levelOfWord(words[i]); level >= 0)
                levels[static_cast<std::size_t>(level)] = items[i];
            else
                areAll = areAll && items[i].isEmpty();
        found = byLevels(levels, code);
        found.isWhole = found.isWhole && areAll;
    }
    if (!found.place.isKnown()) found = byNames(items);
    known_.insert(asked, found);
    return found;
}

GedcomPlaces::Found GedcomPlaces::byCode(const QString& code, const QString& text) const
{
    const auto place = places_.constFind(code);
    if (code.isEmpty() || place == places_.constEnd()) return {};
    for (const QString& item : itemsOf(text)) {
        if (item.isEmpty()) continue;
        if (!isNamed(place->name, item)) return {};
        return {{code.mid(1), code[0]}, true};
    }
    return {};
}

// Whether the wider places of it have these names, the narrowest first; names of others between them don't matter.
bool GedcomPlaces::liesIn(const QString& key, const QStringList& names) const
{
    QString above = places_.value(key).within;
    for (const QString& name : names) {
        if (name.isEmpty()) continue;
        while (!above.isEmpty() && !isNamed(places_.value(above).name, name))
            above = places_.value(above).within;
        if (above.isEmpty()) return false;
        above = places_.value(above).within;
    }
    return true;
}

GedcomPlaces::Found GedcomPlaces::byLevels(const Items& items, const QString& code)
{
    for (std::size_t item = 0; item < items.size(); ++item) {
        if (items[item].isEmpty()) continue;
        QStringList above;
        for (std::size_t wider = item + 1; wider < items.size(); ++wider)
            above << items[wider];
        QStringList fitting;
        for (const QString& key : named(items[item])) {
            const bool isZone = letterAt(item) == u'D' && key[0] == u'Z';
            if ((key[0] == letterAt(item) || isZone) && liesIn(key, above)) fitting << key;
        }
        if (fitting.size() != 1) continue;
        QString key = fitting.first();
        bool isWhole = true;
        for (std::size_t narrower = item; narrower-- > 0;) {
            if (items[narrower].isEmpty()) continue;
            const QString made = make(letterAt(narrower), items[narrower], key, code);
            if (made.isEmpty())
                isWhole = false;
            else
                key = made;
        }
        return {{key.mid(1), key[0]}, isWhole};
    }
    return {};
}

// Without words for the levels: the narrowest item of which there is one place that lies in those behind it.
GedcomPlaces::Found GedcomPlaces::byNames(const QStringList& items)
{
    QStringList told = items;
    told.removeAll(QString());
    for (qsizetype item = 0; item < told.size(); ++item) {
        QStringList fitting;
        for (const QString& key : named(told[item]))
            if (liesIn(key, told.mid(item + 1))) fitting << key;
        QStringList own = fitting;
        own.removeIf([&](const QString& key) { return ownParish_.isEmpty() || !key.mid(1).startsWith(ownParish_); });
        if (fitting.size() != 1 && !own.isEmpty()) fitting = own.mid(0, 1);
        if (fitting.size() > 1 && depthOf(fitting[0][0]) > depthOf(fitting[1][0])) {
            // "Porto, Portugal" is the parish, the municipality and the district: the widest is what is sure
            const bool areOfOneAnother = std::ranges::all_of(
                fitting.mid(1), [&](const QString& key) { return liesIn(fitting[0], {places_[key].name}); });
            if (areOfOneAnother) fitting = fitting.mid(fitting.size() - 1);
        }
        if (fitting.size() != 1) continue;
        QString key = fitting.first();
        if (item == 0) return {{key.mid(1), key[0]}, true};
        const QString made = key[0] == u'F' && item == 1 ? make('L', told[0], key) : QString();
        if (!made.isEmpty()) key = made;
        return {{key.mid(1), key[0]}, !made.isEmpty()};
    }
    if (told.size() != 1 || ownParish_.isEmpty() || !places_.contains('F' + ownParish_)) return {};
    const QString made = make('L', told[0], 'F' + ownParish_);
    return made.isEmpty() ? Found() : Found{{made.mid(1), 'L'}, true};
}

QString GedcomPlaces::nextCode(QChar level, const QString& within) const
{
    qint64 number = last_.value(within);
    if (number == 0)
        for (auto place = places_.cbegin(); place != places_.cend(); ++place)
            if (place->within == within && place.key().mid(1).startsWith(within.mid(1)))
                number = qMax(number, place.key().mid(within.size()).toLongLong());
    QString code;
    do
        code = within.mid(1) + QString::number(++number).rightJustified(2, '0');
    while (places_.contains(level + code));
    return code;
}

// Its codes have two digits behind that of the municipality: those that no parish is likely to get come first.
QString GedcomPlaces::lastParish(const QString& municipality) const
{
    for (int number = 99; number > 0; --number) {
        const QString code = municipality.mid(1) + QString::number(number).rightJustified(2, '0');
        if (!places_.contains('F' + code)) return code;
    }
    return {};
}

// Letter and code; "" where it can't be made, or may not.
QString GedcomPlaces::make(QChar level, const QString& name, const QString& within, const QString& known)
{
    static const QHash<QChar, int> digits{{'F', 6}, {'L', 8}, {'S', 10}};
    static const QHash<QChar, QChar> above{{'F', 'C'}, {'L', 'F'}, {'S', 'L'}};
    const QString plain = semMarca(name).simplified();
    const bool mayBe = makesNew_ == MakesNew::Parishes || (makesNew_ == MakesNew::Localities && level != u'F');
    if (!mayBe || within[0] != above.value(level) || plain.isEmpty() || plain.size() > longestName || eNumero(plain))
        return {};
    QString code = known.mid(1, digits.value(level));
    const bool isOwn = code.size() == digits.value(level) && code.startsWith(within.mid(1));
    if (!isOwn || places_.contains(level + code)) code = level == u'F' ? lastParish(within) : nextCode(level, within);
    if (code.isEmpty()) return {};
    const DadosDoNivel& table = *nivelDaLetra(QString(level));
    rows_.add(table.tabela, {{table.codigo, code},
                             {table.nome, comMarca(plain)},
                             {table.superior, within.mid(1)},
                             {"prioridade", int(Prioridade::NaLista)}});
    last_.insert(within, code.mid(within.size() - 1).toLongLong());
    add(level + code, {plain, within});
    return level + code;
}

} // namespace study::exchange
