// Places and professions by their names.
#include "study/acts/catalogue.h"

#include "common/marca.h"
#include "common/niveis.h"
#include "platform/jet/jsonrow.h"
#include "platform/jet/recordset.h"
#include "study/names/names.h"

#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>
#include <tuple>
#include <utility>

namespace study {

namespace {

QVariant firstValue(jet::Connection& bdp, const jet::NativeSql& select)
{
    const jet::Recordset row(bdp, select);
    return row.eof() ? QVariant() : row[0];
}

constexpr double likely = 0.9; // of two keys that may mean the same
constexpr int lettersMore = 3; // of the longer of two that are likely the same

QString ownParishOf(jet::Connection& bdp)
{
    return firstValue(bdp, jet::NativeSql("select cod from infopar limit 1")).toString();
}

// "desta freguesia", and what stands before it.
const QRegularExpression& formOfTheOwn()
{
    static const QRegularExpression form(R"(^(?:(.*?),?\s+)?[dn]esta\s+(?:mesma\s+|dita\s+)?)"
                                         R"((?:freguesia|freg\.?|par[oó]quia)$)",
                                         QRegularExpression::CaseInsensitiveOption);
    return form;
}

// "freguesia de Azurém", and what stands before it.
const QRegularExpression& formOfAParish()
{
    static const QRegularExpression form(R"(^(?:(?!(?:[dn]?a|de)\s+(?:freg|par[oó]q))(.+?),?\s+)?(?:[dn]?a\s+|de\s+)?)"
                                         R"((?:freguesia|freg\.?|par[oó]quia)\s+(?:d[aeo]s?\s+)?(.+)$)",
                                         QRegularExpression::CaseInsensitiveOption);
    return form;
}

// "lugar do Outeiro" is Outeiro.
QString withoutKind(const QString& place)
{
    static const QRegularExpression form(
        R"(^(?:[dn]?[ao]\s+)?(?:lugar|aldeia|s[ií]tio|vila|cidade)\s+d(?:[aeo]s?\s+|['’]\s*)(.+)$)",
        QRegularExpression::CaseInsensitiveOption);
    const auto match = form.match(place);
    return match.hasMatch() ? match.captured(1) : place;
}

// 2 for the same name, 1 for one that begins so, else how alike they are, where that is enough; 0 for others.
double rank(const QString& key, const QString& wanted)
{
    if (key == wanted) return 2;
    if (wanted.size() >= 3 && key.startsWith(wanted)) return 1;
    if (key.isEmpty() || key[0] != wanted[0] || std::abs(key.size() - wanted.size()) > lettersMore) return 0;
    const double alike = likeness(key, wanted);
    return alike >= likely ? alike : 0;
}

} // namespace

PlaceTold placeToldBy(const QString& text)
{
    const QString told = text.simplified();
    if (const auto match = formOfTheOwn().match(told); match.hasMatch())
        return {.place = withoutKind(match.captured(1)), .parish = {}, .own = true};
    if (const auto match = formOfAParish().match(told); match.hasMatch())
        return {.place = withoutKind(match.captured(1)), .parish = match.captured(2)};
    return {.place = withoutKind(told), .parish = {}};
}

std::optional<QString> placeName(jet::Connection& bdp, const QString& code, QChar level)
{
    const DadosDoNivel* table = nivelDaLetra(QString(level.toUpper()));
    if (!table) return {};
    const jet::Recordset row(bdp, table->nomeDe(code));
    if (row.eof()) return {};
    return semMarca(row[0].toString());
}

QString localityNamed(jet::Connection& bdp, const QString& name, const QString& parish)
{
    const QString plain = semMarca(name).trimmed();
    return firstValue(bdp, jet::NativeSql("select codlugar from lugar where codparoquia = ? and (nomelugar = ? collate "
                                          "orv_nocase or nomelugar = ? collate orv_nocase) order by codlugar limit 1",
                                          {parish, plain, comMarca(plain)}))
        .toString();
}

// The number behind the code of the parish, two digits at least; one that another parish's locality has is passed over.
QString nextLocality(jet::Connection& bdp, const QString& parish)
{
    qint64 number = 0;
    for (jet::Recordset rows(bdp, jet::NativeSql("select codlugar from lugar where codparoquia = ?", {parish}));
         !rows.eof(); rows.moveNext())
    {
        const QString code = rows[0].toString();
        const qsizetype begin = code.startsWith(parish) ? parish.size() : dadosDe(Nivel::Lugar).inicio - 1;
        number = std::max(number, code.mid(begin).toLongLong());
    }
    QString code;
    do
        code = parish + QString::number(++number).rightJustified(2, '0');
    while (placeName(bdp, code, 'L'));
    return code;
}

std::optional<int> professionNamed(jet::Connection& bdp, const QString& name)
{
    const QString plain = semMarca(name).trimmed();
    const QVariant code =
        firstValue(bdp, jet::NativeSql("select codprof from profissao where profissao = ? collate orv_nocase or "
                                       "profissao = ? collate orv_nocase order by codprof limit 1",
                                       {plain, comMarca(plain)}));
    return code.isNull() ? std::optional<int>() : code.toInt();
}

int nextProfession(jet::Connection& bdp)
{
    return firstValue(bdp, jet::NativeSql("select max(codprof) from profissao")).toInt() + 1;
}

std::optional<QString> professionName(jet::Connection& bdp, int code)
{
    const QVariant name = firstValue(bdp, jet::NativeSql("select profissao from profissao where codprof = ?", {code}));
    return name.isNull() ? std::optional<QString>() : semMarca(name.toString());
}

Gazetteer::Gazetteer(jet::Connection& bdp) : bdp_(bdp), ownParish_(ownParishOf(bdp))
{
    for (auto level = niveis.rbegin(); level != niveis.rend(); ++level) {
        const QString above = level->superior ? level->superior : "null";
        for (const QJsonObject& row :
             jet::jsonRows(bdp, jet::NativeSql(QString("select %1 as codigo, %2 as nome, %3 as acima from %4")
                                                   .arg(level->codigo, level->nome, above, level->tabela))))
        {
            const QString name = semMarca(row["nome"].toString());
            places_ << Place{.key = placeKey(name),
                             .name = name,
                             .code = row["codigo"].toString(),
                             .above = row["acima"].toString(),
                             .level = level->nivel};
        }
    }
}

// Behind the name of a place that has one above it.
QString Gazetteer::shown(const Place& place) const
{
    const DadosDoNivel& level = dadosDe(place.level);
    if (!level.superior || place.above.isEmpty()) return place.name;
    const bool ofACountry = place.level == Nivel::Distrito || place.level == Nivel::Zona;
    const DadosDoNivel& upper = ofACountry ? dadosDe(Nivel::Pais) : niveis[size_t(place.level) - 1];
    const QString above = placeName(bdp_, place.above, QLatin1Char(*upper.tipo)).value_or(place.above);
    return QString("%1 (%2)").arg(place.name, above);
}

PlaceFound Gazetteer::found(const Place& place, const QString& wanted) const
{
    return {.place = {.code = place.code, .level = QLatin1Char(*dadosDe(place.level).tipo)},
            .shown = shown(place),
            .same = place.key == wanted};
}

QList<PlaceFound> Gazetteer::parishesNamed(const QString& name) const
{
    const QString wanted = placeKey(name);
    QList<PlaceFound> parishes;
    for (const Place& place : places_)
        if (place.level == Nivel::Paroquia && place.key == wanted && !wanted.isEmpty())
            parishes << found(place, wanted);
    return parishes;
}

// A place may be called as others are told: the whole text comes first.
QList<PlaceFound> Gazetteer::named(const QString& text, int limit) const
{
    QList<PlaceFound> whole = ofName(text, {}, limit);
    const PlaceTold told = placeToldBy(text);
    if (std::ranges::any_of(whole, &PlaceFound::same) || told == PlaceTold{.place = text.simplified()}) return whole;
    if (!told.isParishTold()) return ofName(told.place, {}, limit);
    QList<PlaceFound> parishes;
    if (!told.own)
        parishes = parishesNamed(told.parish);
    else if (const auto name = placeName(bdp_, ownParish_, 'F'))
        parishes << PlaceFound{.place = {.code = ownParish_, .level = 'F'}, .shown = *name, .same = true};
    if (told.place.isEmpty()) return parishes.first(std::min<qsizetype>(limit, parishes.size()));
    QList<PlaceFound> places;
    for (const PlaceFound& parish : std::as_const(parishes))
        places << ofName(told.place, parish.place.code, limit);
    return places.first(std::min<qsizetype>(limit, places.size()));
}

// In that parish alone, where one is given.
QList<PlaceFound> Gazetteer::ofName(const QString& name, const QString& parish, int limit) const
{
    const QString wanted = placeKey(name);
    if (wanted.isEmpty()) return {};
    QList<std::tuple<double, bool, const Place*>> all;
    for (const Place& place : places_) {
        const bool within = place.level > Nivel::Paroquia && place.code.startsWith(parish);
        if (!parish.isEmpty() && !within && place.above != parish) continue;
        if (const double fits = rank(place.key, wanted); fits > 0)
            all.emplace_back(fits, !ownParish_.isEmpty() && place.code.startsWith(ownParish_), &place);
    }
    std::ranges::stable_sort(all, [](const auto& one, const auto& other) {
        return std::pair(get<0>(one), get<1>(one)) > std::pair(get<0>(other), get<1>(other));
    });
    QList<PlaceFound> best;
    for (const auto& [fits, own, place] : all.first(std::min<qsizetype>(limit, all.size())))
        best << found(*place, wanted);
    return best;
}

NewPlacesIn newPlacesFor(jet::Connection& bdp, const QString& text, const QString& usual)
{
    const PlaceTold told = placeToldBy(text);
    if (told.place.isEmpty()) return {};
    QString code = usual;
    if (told.own) code = ownParishOf(bdp);
    if (!told.parish.isEmpty()) {
        const QList<PlaceFound> parishes = Gazetteer(bdp).parishesNamed(told.parish);
        code = parishes.size() == 1 ? parishes.first().place.code : QString();
    }
    const auto name = placeName(bdp, code, 'F');
    return name ? NewPlacesIn{code, *name} : NewPlacesIn{};
}

QList<PlaceFound> placesNamed(jet::Connection& bdp, const QString& name, int limit)
{
    return Gazetteer(bdp).named(name, limit);
}

QList<QPair<int, QString>> professionsNamed(jet::Connection& bdp, const QString& name, int limit)
{
    const QString wanted = placeKey(name);
    if (wanted.isEmpty()) return {};
    QList<QPair<double, QPair<int, QString>>> all;
    for (const QJsonObject& row :
         jet::jsonRows(bdp, jet::NativeSql("select codprof, profissao from profissao order by codprof")))
    {
        const QString title = semMarca(row["profissao"].toString());
        if (const double fits = rank(placeKey(title), wanted); fits > 0)
            all << std::pair(fits, std::pair(row["codprof"].toInt(), title));
    }
    std::ranges::stable_sort(all, [](const auto& one, const auto& other) { return one.first > other.first; });
    QList<QPair<int, QString>> found;
    for (const auto& [fits, profession] : all.first(std::min<qsizetype>(limit, all.size())))
        found << profession;
    return found;
}

} // namespace study
