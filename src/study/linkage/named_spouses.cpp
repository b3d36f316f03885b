// Husbands and wives whom an act or a note names.
#include "platform/jet/nativesql.h"
#include "platform/jet/rows.h"
#include "study/acts/register.h"
#include "study/linkage/candidates.h"

#include <QRegularExpression>

namespace study::linkage {

namespace {

constexpr auto spousesInActs =
    "select who.nind, who.acto, spouse.nome from estudo_pessoa who, estudo_pessoa spouse, individuo i where "
    "spouse.acto = who.acto and spouse.de = who.ordem and spouse.papel = 'conjuge' and spouse.identidade = 'so no "
    "acto' "
    "and i.nind = who.nind order by who.nind, who.acto, spouse.ordem";
constexpr auto spousesInNotes =
    "select nind, obs from individuo where nind not in (select nind from familias where nind is "
    "not null) and (obs like "
    "'%casad%' or obs like '%vi_v%' or obs like '%mulher%' or obs like '%marido%') order by nind";

void addOfActs(jet::Connection& bdp, std::vector<NamedSpouse>& all)
{
    if (!hasActs(bdp)) return;
    for (jet::Rows rows(bdp, jet::NativeSql(spousesInActs)); rows.next();)
        all.push_back({.person = parish::PersonNumber(rows.number(0)),
                       .name = rows.text(2),
                       .source = QString("acto nº %1").arg(rows.number(1))});
}

void addOfNotes(jet::Connection& bdp, std::vector<NamedSpouse>& all)
{
    static const QRegularExpression marriage(
        QString("\\b(?:casad[oa]|vi[uú]v[oa]|mulher|marido)\\s+(?:que\\s+(?:foi|ficou)\\s+)?(?:com|de)\\s+"
                "([^,;.()\\n]{2,80}?)(?:\\s+e\\s+(?:de|com)\\b|[,;.()\\n]|$)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    static constexpr qsizetype longestNote = 10000;
    for (jet::Rows rows(bdp, jet::NativeSql(spousesInNotes)); rows.next();)
        if (const QRegularExpressionMatch told = marriage.match(rows.text(1).left(longestNote)); told.hasMatch())
            all.push_back({.person = parish::PersonNumber(rows.number(0)),
                           .name = told.captured(1).simplified(),
                           .source = "observações"});
}

} // namespace

std::vector<NamedSpouse> namedSpouses(jet::Connection& bdp)
{
    std::vector<NamedSpouse> all;
    addOfActs(bdp, all);
    addOfNotes(bdp, all);
    return all;
}

} // namespace study::linkage
