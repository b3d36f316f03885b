#include "study/windows/mergeSubjects.h"

#include "common/marca.h"
#include "platform/forms/msgbox.h"
#include "platform/jet/rows.h"
#include "platform/time/clock.h"
#include "store/copiaDiaria.h"
#include "store/session.h"
#include "study/acts/catalogue.h"

#include <QDate>

namespace study {

namespace {

constexpr int categoryLetters = 5;

QString firstText(const jet::Connection& bdp, const jet::NativeSql& select)
{
    jet::Rows row(bdp, select);
    return row.next() ? row.text(0) : QString();
}

std::optional<Pick> person(const jet::Connection& bdp, qint64 number)
{
    jet::Rows row(bdp, jet::NativeSql("select nome from individuo where nind = ?", {number}));
    if (!row.next()) return {};
    const QString name = row.text(0).isEmpty() ? QString("(sem nome)") : row.text(0);
    return Pick{QString::number(number), "nº " + QString::number(number) + ' ' + name};
}

std::optional<Pick> family(const jet::Connection& bdp, qint64 number)
{
    if (firstText(bdp, jet::NativeSql("select nfamilia from familia where nfamilia = ?", {number})).isEmpty())
        return {};
    jet::Rows row(bdp, jet::NativeSql("select coalesce(individuo.nome, '') from familias left join individuo on "
                                      "individuo.nind = familias.nind where nfamilia = ? order by familias.nind",
                                      {number}));
    QStringList names;
    while (row.next())
        names << row.text(0);
    return Pick{QString::number(number), "família " + QString::number(number) + ": " + names.join(" e ")};
}

Pick code(const QString& category, const QString& categoryName, const QString& number, const QString& words)
{
    return {category + number,
            categoryName + ": " + semMarca(words) + " (" + number + (temMarca(words) ? ", próprio)" : ")")};
}

QList<Pick> codesNamed(const jet::Connection& bdp, const QString& typed)
{
    const QString wanted = plainWords(typed);
    QList<Pick> found;
    jet::Rows row(bdp, jet::NativeSql("select infocomplementar.categoria, coalesce(nomecat, ''), codigo, "
                                      "coalesce(descricao, '') from infocomplementar left join categoria on codcat = "
                                      "infocomplementar.categoria order by infocomplementar.categoria, codigo"));
    while (row.next())
        if (plainWords(semMarca(row.text(3))).contains(wanted))
            found << code(row.text(0), row.text(1), row.text(2), row.text(3));
    return found;
}

std::optional<Pick> codeWithKey(const jet::Connection& bdp, const QString& key)
{
    jet::Rows row(bdp, jet::NativeSql("select infocomplementar.categoria, coalesce(nomecat, ''), codigo, "
                                      "coalesce(descricao, '') from infocomplementar left join categoria on codcat = "
                                      "infocomplementar.categoria where infocomplementar.categoria = ? and codigo = ?",
                                      {key.left(categoryLetters), key.mid(categoryLetters)}));
    if (!row.next()) return {};
    return code(row.text(0), row.text(1), row.text(2), row.text(3));
}

linkage::MergePlan refusal(const QString& text)
{
    linkage::MergePlan plan;
    plan.refusals << text;
    return plan;
}

// Two that no plan can compare.
QString whyApart(MergeSubject subject, const QString& kept, const QString& other)
{
    if (subject == MergeSubject::Places && kept.left(1) != other.left(1))
        return "Os dois locais não são do mesmo nível.";
    if (subject == MergeSubject::Codes && kept.left(categoryLetters) != other.left(categoryLetters))
        return "Os dois códigos não são da mesma categoria.";
    return {};
}

} // namespace

QString title(MergeSubject subject)
{
    switch (subject) {
    case MergeSubject::People:
        return "Indivíduos";
    case MergeSubject::Families:
        return "Famílias";
    case MergeSubject::Places:
        return "Locais";
    case MergeSubject::Professions:
        return "Profissões";
    case MergeSubject::Codes:
        break;
    }
    return "Códigos";
}

bool isNumbered(MergeSubject subject)
{
    return subject == MergeSubject::People || subject == MergeSubject::Families;
}

std::optional<Pick> pickNumbered(jet::Connection& bdp, MergeSubject subject, const QString& typed)
{
    bool isNumber = false;
    const qint64 number = typed.trimmed().toLongLong(&isNumber);
    if (!isNumber || !isNumbered(subject)) return {};
    return subject == MergeSubject::People ? person(bdp, number) : family(bdp, number);
}

std::optional<Pick> pickWithKey(jet::Connection& bdp, MergeSubject subject, const QString& key)
{
    if (isNumbered(subject)) return pickNumbered(bdp, subject, key);
    if (key.isEmpty()) return {};
    if (subject == MergeSubject::Codes) return codeWithKey(bdp, key);
    if (subject == MergeSubject::Professions) {
        const auto name = professionName(bdp, key.toInt());
        return name ? std::optional(Pick{key, *name + " (" + key + ')'}) : std::nullopt;
    }
    const auto name = placeName(bdp, key.mid(1), key.at(0));
    return name ? std::optional(Pick{key, *name + " (" + key.mid(1) + ')'}) : std::nullopt;
}

QList<Pick> picks(jet::Connection& bdp, MergeSubject subject, const QString& typed)
{
    QList<Pick> found;
    if (typed.trimmed().isEmpty() || isNumbered(subject)) return found;
    if (subject == MergeSubject::Codes) return codesNamed(bdp, typed);
    if (subject == MergeSubject::Professions) {
        for (const auto& [number, name] : professionsNamed(bdp, typed))
            found << Pick{QString::number(number), name + " (" + QString::number(number) + ')'};
        return found;
    }
    for (const PlaceFound& place : placesNamed(bdp, typed))
        found << Pick{place.place.level + place.place.code, place.shown + " (" + place.place.code + ')'};
    return found;
}

linkage::MergePlan planned(jet::Connection& bdp, MergeSubject subject, const QString& kept, const QString& other,
                           const linkage::MergeChoices& choices)
{
    if (const QString reason = whyApart(subject, kept, other); !reason.isEmpty()) return refusal(reason);
    switch (subject) {
    case MergeSubject::People:
        return linkage::planMerge(bdp, kept.toLongLong(), other.toLongLong(), choices);
    case MergeSubject::Families:
        return linkage::planJoin(bdp, kept.toLongLong(), other.toLongLong(), choices);
    case MergeSubject::Places:
        return linkage::planPlaces(bdp, kept.left(1), kept.mid(1), other.mid(1), choices);
    case MergeSubject::Professions:
        return linkage::planProfessions(bdp, kept.toLongLong(), other.toLongLong(), choices);
    case MergeSubject::Codes:
        break;
    }
    return linkage::planCodes(bdp, kept.left(categoryLetters), kept.mid(categoryLetters), other.mid(categoryLetters),
                              choices);
}

qint64 merged(jet::Connection& bdp, MergeSubject subject, const QString& kept, const QString& other,
              const linkage::MergeChoices& choices)
{
    if (const QString reason = whyApart(subject, kept, other); !reason.isEmpty()) throw linkage::MergeRefused{reason};
    switch (subject) {
    case MergeSubject::People:
        return linkage::mergePeople(bdp, kept.toLongLong(), other.toLongLong(), choices);
    case MergeSubject::Families:
        return linkage::joinFamilies(bdp, kept.toLongLong(), other.toLongLong(), choices);
    case MergeSubject::Places:
        return linkage::mergePlaces(bdp, kept.left(1), kept.mid(1), other.mid(1), choices);
    case MergeSubject::Professions:
        return linkage::mergeProfessions(bdp, kept.toLongLong(), other.toLongLong(), choices);
    case MergeSubject::Codes:
        break;
    }
    return linkage::mergeCodes(bdp, kept.left(categoryLetters), kept.mid(categoryLetters), other.mid(categoryLetters),
                               choices);
}

bool isCopiedForToday()
{
    static QString agreed; // the day, and the BDP
    const QString now = Clock::moment().date().toString(Qt::ISODate) + cnBDP.dataSource();
    QString why;
    {
        const Hourglass hourglass;
        why = garanteCopiaDeHoje();
    }
    if (why.isEmpty() || agreed == now) return true;
    if (!ask("Não há cópia da BDP de hoje: " + why + "\nDeseja juntar mesmo assim?")) return false;
    agreed = now;
    return true;
}

} // namespace study
