// What the plan tells of the columns that it sets: for the user to read before it is written.
#include "common/marca.h"
#include "study/acts/work.h"

#include <algorithm>
#include <utility>

namespace study {

namespace {

enum class Shown
{
    Text,
    Number,
    Mark,  // that it is set, and no value
    Code,  // of the category
    Place, // with its level in the column `more`
};

struct ColumnTitle
{
    const char* table;
    const char* column;
    const char* title;
    Shown shown;
    const char* more; // the category of a code, the column of a place's level
};

// clang-format off
constexpr ColumnTitle titles[] = {
    {"individuo", "localnasc", "nascimento em", Shown::Place, "tipolocalnasc"},
    {"individuo", "filiacao", "filiação", Shown::Code, "Filia"},
    {"individuo", "idadepai", "idade do pai", Shown::Number, ""},
    {"individuo", "estadocivilpai", "estado civil do pai", Shown::Code, "EstCi"},
    {"individuo", "idademae", "idade da mãe", Shown::Number, ""},
    {"individuo", "estadocivilmae", "estado civil da mãe", Shown::Code, "EstCi"},
    {"individuo", "localobito", "óbito em", Shown::Place, "tipolocalobito"},
    {"individuo", "idadeobito", "idade ao óbito", Shown::Number, ""},
    {"individuo", "menor", "menor", Shown::Mark, ""},
    {"individuo", "estadoobito", "estado civil ao óbito", Shown::Code, "EstCi"},
    {"individuo", "classparoquial", "classe paroquial", Shown::Code, "ClaPa"},
    {"individuo", "sacramentos", "sacramentos", Shown::Code, "Sacra"},
    {"individuo", "testam", "com testamento", Shown::Mark, ""},
    {"individuo", "causa", "causa da morte", Shown::Text, ""},
    {"individuo", "mortalha", "mortalha", Shown::Text, ""},
    {"individuo", "igreja", "igreja", Shown::Text, ""},
    {"individuo", "enterro", "sepultura", Shown::Text, ""},
    {"individuo", "funcprimpbapt", "função do celebrante", Shown::Code, "FunPa"},
    {"individuo", "funcprimpobito", "função do celebrante", Shown::Code, "FunPa"},
    {"individuo", "obs", "notas", Shown::Mark, ""},
    {"familia", "localcasam", "casamento em", Shown::Place, "tipolocalcasam"},
    {"familia", "sfamilia", "situação", Shown::Code, "SitFa"},
    {"familia", "funcprimpcasam", "função do celebrante", Shown::Code, "FunPa"},
    {"familia", "obs", "notas", Shown::Mark, ""},
    {"familias", "idade", "idade", Shown::Number, ""},
    {"familias", "estadocivil", "estado civil", Shown::Code, "EstCi"},
    {"familias", "numcasam", "número de casamento", Shown::Number, ""},
    {"assistente", "estadocivil", "estado civil", Shown::Code, "EstCi"},
    {"assistente", "falecidopai", "pai já falecido", Shown::Mark, ""},
    {"assistente", "falecidomae", "mãe já falecida", Shown::Mark, ""},
    {"assistente", "parentbapt", "parentesco com quem foi baptizado", Shown::Code, "Paren"},
    {"assistente", "parentnoivo", "parentesco com o noivo", Shown::Code, "Paren"},
    {"assistente", "parentnoiva", "parentesco com a noiva", Shown::Code, "Paren"},
    {"legadosprofanos", "parentesco", "parentesco do herdeiro", Shown::Code, "Paren"},
};
// clang-format on

QString codeText(Work& work, const QString& category, const QVariant& code)
{
    const QString number = QString::number(code.toInt());
    const QVariant text = work.ledger.value(jet::NativeSql(
        "select descricao from infocomplementar where categoria = ? and codigo = ?", {category, number}));
    return text.isNull() ? number : text.toString();
}

// Its name; that of a new one stands in the plan alone.
QString placeText(Work& work, const QString& code, const QString& level)
{
    for (const RowChange& row : std::as_const(work.plan.rows))
        if (row.table == "lugar" && row.key.first().second == code)
            return semMarca(valueIn(row.values, "nomelugar").toString());
    const auto name = level.isEmpty() ? std::nullopt : placeName(work.bdp, code, level.at(0));
    return name.value_or(code);
}

QString shownValue(Work& work, const ColumnTitle& title, const RowChange& row, const QVariant& value)
{
    switch (title.shown) {
    case Shown::Text:
        return value.toString().left(80);
    case Shown::Number:
        return QString::number(value.toInt());
    case Shown::Mark:
        return {};
    case Shown::Code:
        return codeText(work, title.more, value);
    case Shown::Place: {
        const QString level = valueIn(row.values, title.more).toString();
        return placeText(work, value.toString(), level);
    }
    }
    return {};
}

QString whose(Work& work, const RowChange& row)
{
    if (row.table == "familia") return "da família " + QString::number(valueIn(row.key, "nfamilia").toLongLong());
    return "de " + work.label(valueIn(row.key, "nind").toLongLong());
}

} // namespace

void tellOfTheColumns(Work& work)
{
    for (const RowChange& row : std::as_const(work.plan.rows)) {
        QStringList parts;
        for (const ColumnTitle& title : titles) {
            const QVariant value = row.table == title.table ? valueIn(row.values, title.column) : QVariant();
            if (value.isNull() || (title.shown == Shown::Mark && value == false)) continue;
            const bool known = row.table == "familia" && row.before.isEmpty() && QString(title.column) == "sfamilia";
            if (known) continue; // told with the new family
            parts << (QString(title.title) + ' ' + shownValue(work, title, row, value)).trimmed();
        }
        if (!parts.isEmpty()) work.say(QString("Na ficha %1: %2.").arg(whose(work, row), parts.join("; ")));
    }
}

} // namespace study
