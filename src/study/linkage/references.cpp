#include "study/linkage/references.h"

#include "common/niveis.h"

#include <algorithm>

namespace study::linkage {

// clang-format off
const QList<Reference>& references()
{
    static const QList<Reference> all{
        {"familias", "nind", Target::Person},
        {"assistente", "nind", Target::Person},
        {"assistente", "entidade", Target::Person, "", "tipoacto", "b"},
        {"residencia", "numero", Target::Person, "", "tiporesid", "i"},
        {"profissoes", "nind", Target::Person, "", "", "", "idprofissao"},
        {"assinatura", "nind", Target::Person, "", "", "", "idassinatura"},
        {"legadosprofanos", "nind", Target::Person, "", "", "", "idlegprof"},
        {"legadosprofanos", "nindherd", Target::Person},
        {"rituaismorte", "nind", Target::Person, "", "", "", "idlegpio"},
        {"passaporte", "nind", Target::Person}, // whose number is what the paper says
        {"individuo", "testamenteiro", Target::Person},
        {"individuo", "primpadrebapt", Target::Person},
        {"individuo", "segpadrebapt", Target::Person},
        {"individuo", "primpadreobito", Target::Person},
        {"familia", "primpadrecasam", Target::Person},
        {"familia", "segpadrecasam", Target::Person},
        {"estudo_pessoa", "nind", Target::Person},
        {"estudo_escrita", "nind", Target::Person},

        {"familias", "nfamilia", Target::Family},
        {"individuo", "famorig", Target::Family},
        {"residencia", "numero", Target::Family, "", "tiporesid", "f"},
        {"assistente", "entidade", Target::Family, "", "tipoacto", "c"},
        {"estudo_familia", "nfamilia", Target::Family},
        {"estudo_escrita", "nfamilia", Target::Family},

        {"individuo", "localnasc", Target::Place, "", "tipolocalnasc"},
        {"individuo", "localobito", Target::Place, "", "tipolocalobito"},
        {"familia", "localcasam", Target::Place, "", "tipolocalcasam"},
        {"residencia", "localresid", Target::Place, "", "tipolocal"},
        {"passaporte", "localdestino", Target::Place, "", "tipolocaldest"},
        {"estudo_acto", "local", Target::Place, "", "nivel"},
        {"estudo_atributo", "local", Target::Place, "", "nivel"},
        {"estudo_sentido", "codigo", Target::Place, "", "nivel"},

        {"profissoes", "codprof", Target::Profession, "", "", "", "idprofissao"},
        {"estudo_atributo", "codprof", Target::Profession},
        {"estudo_sentido", "codprof", Target::Profession},

        {"individuo", "classparoquial", Target::Code, "ClaPa"},
        {"individuo", "estadocivilpai", Target::Code, "EstCi"},
        {"individuo", "estadocivilmae", Target::Code, "EstCi"},
        {"individuo", "estadoobito", Target::Code, "EstCi"},
        {"familias", "estadocivil", Target::Code, "EstCi"},
        {"assistente", "estadocivil", Target::Code, "EstCi"},
        {"individuo", "filiacao", Target::Code, "Filia"},
        {"individuo", "funcprimpbapt", Target::Code, "FunPa"},
        {"individuo", "funcsegpbapt", Target::Code, "FunPa"},
        {"individuo", "funcprimpobito", Target::Code, "FunPa"},
        {"familia", "funcprimpcasam", Target::Code, "FunPa"},
        {"familia", "funcsegpcasam", Target::Code, "FunPa"},
        {"assistente", "parentbapt", Target::Code, "Paren"},
        {"assistente", "parentnoivo", Target::Code, "Paren"},
        {"assistente", "parentnoiva", Target::Code, "Paren"},
        {"legadosprofanos", "parentesco", Target::Code, "Paren"},
        {"individuo", "sacramentos", Target::Code, "Sacra"},
        {"familia", "sfamilia", Target::Code, "SitFa"},
        {"rituaismorte", "tipo", Target::Code, "TipEs", "tipolegpio", "esmola"},
        {"familia", "tipocasal", Target::Code, "TipFa"},
        {"individuo", "tipo", Target::Code, "TipIn"},
        {"rituaismorte", "tipo", Target::Code, "TipMi", "tipolegpio", "missa"},
        {"rituaismorte", "tipo", Target::Code, "TipOf", "tipolegpio", "oficio"},
        {"zonapais", "tipo", Target::Code, "TipZo"},
    };
    return all;
}

const QList<Unfollowed>& unfollowed()
{
    static const QList<Unfollowed> all{
        {"individuo", "nind", "the person itself"},
        {"familia", "nfamilia", "the family itself"},
        {"estudo_pessoa", "nind_eliminado", "of somebody who was deleted, whose number another may have by now"},
        {"estudo_familia", "nfamilia_eliminada", "the same of a family"},
        {"estudo_nome_individuo", "nind", "made anew from the people"},
        {"estudo_nome_individuo", "famorig", "made anew from the people"},
    };
    return all;
}
// clang-format on

namespace {

QString plain(const QJsonValue& value)
{
    return value.toString().toLower().remove(' ');
}

// A code is a text in its own table, and a number in most that name it.
bool isSame(const QJsonValue& one, const QJsonValue& other)
{
    return one.isNull() == other.isNull() && one.toVariant().toString() == other.toVariant().toString();
}

} // namespace

bool Named::isMeantBy(const Reference& reference, const QJsonObject& row) const
{
    if (reference.target != target || !isSame(row[QLatin1String(reference.column)], value)) return false;
    const QString with = reference.with;
    if (target == Target::Place) return row[with].toString().compare(group, Qt::CaseInsensitive) == 0;
    if (target == Target::Code && group != QLatin1String(reference.category)) return false;
    return with.isEmpty() || plain(row[with]) == QLatin1String(reference.word);
}

std::optional<Named> namedBy(const QString& table, const QJsonObject& row)
{
    if (table == "individuo") return Named{Target::Person, row["nind"]};
    if (table == "familia") return Named{Target::Family, row["nfamilia"]};
    if (table == "profissao") return Named{Target::Profession, row["codprof"]};
    if (table == "infocomplementar") return Named{Target::Code, row["codigo"], row["categoria"].toString()};
    for (const DadosDoNivel& level : niveis)
        if (table == QLatin1String(level.tabela))
            return Named{Target::Place, row[QLatin1String(level.codigo)], level.tipo};
    return {};
}

bool isOne(const Named& one, const Named& other)
{
    return one.target == other.target && one.group.compare(other.group, Qt::CaseInsensitive) == 0 &&
           isSame(one.value, other.value);
}

namespace {

// The letter of the level above; "" where there is none.
QString levelAbove(const DadosDoNivel& level)
{
    if (!level.superior) return {};
    const auto* const above = std::ranges::find_if(
        niveis, [&](const DadosDoNivel& one) { return QLatin1String(one.codigo) == QLatin1String(level.superior); });
    return above == niveis.end() ? QString() : QString(above->tipo);
}

} // namespace

QList<ColumnLink> linksIn(const QString& table, const QJsonObject& row, const QStringList& columns)
{
    QList<ColumnLink> links;
    const auto add = [&](const QString& column, Target target, const QString& group) {
        if (columns.contains(column) && !row[column].toVariant().toString().isEmpty())
            links << ColumnLink{.column = column, .named = {target, row[column], group}};
    };
    for (const Reference& one : references()) {
        const QString with = row[QLatin1String(one.with)].toString();
        if (table == QLatin1String(one.table) && (*one.word == 0 || plain(with) == QLatin1String(one.word)))
            add(one.column, one.target, one.target == Target::Place ? with : QString(one.category));
    }
    for (const DadosDoNivel& level : niveis)
        if (table == QLatin1String(level.tabela) && level.superior)
            add(level.superior, Target::Place, levelAbove(level));
    if (table == "estudo_sentido") add("paroquia", Target::Place, dadosDe(Nivel::Paroquia).tipo);
    return links;
}

bool Presence::has(const Named& named)
{
    const QString name =
        QString::number(int(named.target)) + named.group.toUpper() + ' ' + named.value.toVariant().toString();
    const auto known = known_.constFind(name);
    return known == known_.cend() ? *known_.insert(name, isStored(named)) : *known;
}

bool Presence::isStored(const Named& named) const
{
    const auto any = [&](const QString& table, const QJsonObject& having) {
        return !recording_.rows(table, having).isEmpty();
    };
    switch (named.target) {
    case Target::Person:
        return any("individuo", {{"nind", named.value}});
    case Target::Family:
        return any("familia", {{"nfamilia", named.value}});
    case Target::Profession:
        return any("profissao", {{"codprof", named.value}});
    case Target::Code:
        return any("infocomplementar", {{"categoria", named.group}, {"codigo", named.value.toVariant().toString()}});
    case Target::Place:
        break;
    }
    const DadosDoNivel* level = nivelDaLetra(named.group.toUpper());
    return level && any(level->tabela, {{level->codigo, named.value}});
}

QList<Row> rowsNaming(const Recording& recording, const Reference& reference, const Named& named)
{
    if (reference.target != named.target) return {};
    QList<Row> found = recording.rows(reference.table, {{QLatin1String(reference.column), named.value}});
    found.removeIf([&](const Row& row) { return !named.isMeantBy(reference, row.values); });
    return found;
}

} // namespace study::linkage
