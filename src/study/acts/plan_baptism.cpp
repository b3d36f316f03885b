// What a baptism writes.
#include "study/acts/work.h"

namespace study {

namespace {

QVariant ageOf(Work& work, int person)
{
    const Attribute* told = nullptr;
    const auto age = ageTold(work.act, person, &told);
    if (!age) return {};
    work.takeThis(told);
    return double(age->years);
}

void fillParent(Work& work, int child, PlannedRow& row, Role role)
{
    const int parent = work.parent(child, role);
    if (parent < 0) return;
    const bool father = role == Role::Father;
    const QString whose = father ? " do pai" : " da mãe";
    work.fillTold(row, child, {{father ? "idadepai" : "idademae", ageOf(work, parent)}}, "idade" + whose);
    work.fillTold(row, child,
                  {{father ? "estadocivilpai" : "estadocivilmae", work.code(parent, attribute::civilState, "EstCi")}},
                  "estado civil" + whose);
}

QString childSentence(Work& work, int child, qint64 family)
{
    QString sentence = QString(work.isNew(child) ? "Nova criança %1 (nº %2)" : "Criança %1 (nº %2)")
                           .arg(work.nameIn(work.number(child)), QString::number(work.number(child)));
    if (family != 0)
        sentence +=
            QString(", %1 da família %2 de %3")
                .arg(work.agreeing(child, "filho", "filha"), QString::number(family), coupleNames(work, family));
    if (work.day) sentence += ", baptismo em " + shown(work.act.date);
    return sentence + '.';
}

// Many registers just don't name the other parent: what follows from it is told, so that it may be read.
void sayWhatFollows(Work& work, int child)
{
    const bool father = work.parent(child, Role::Father) >= 0, mother = work.parent(child, Role::Mother) >= 0;
    const QVariant code = work.row(child)->now("filiacao");
    if (father == mother || code.isNull() || filiationOf(work, child) != Filiation::Untold) return;
    work.say(QString("O acto não diz %1 de %2: toma-se por incógnit%3.")
                 .arg(father ? "a mãe" : "o pai", work.nameIn(work.number(child)), father ? "a" : "o"));
}

} // namespace

// The notes of the act are about whom it is about.
void fillNotes(Work& work, int person, PlannedRow& row, const QString& column)
{
    QStringList notes{person < 0 ? QString() : work.act.people[person].notes.trimmed(), work.act.notes.trimmed()};
    notes.removeAll(QString());
    work.fillText(row, column, notes.join('\n'), "notas do acto");
}

void planBaptism(Work& work)
{
    const int child = personWith(work.act, Role::Child);
    if (PlannedRow* row = child < 0 ? nullptr : work.row(child)) {
        const qint64 family = planParents(work, child);
        work.plan.family = family;
        planBirth(work, child);
        work.fillTold(*row, child, {{"filiacao", filiationCode(work, child)}}, "filiação");
        sayWhatFollows(work, child);
        fillParent(work, child, *row, Role::Father);
        fillParent(work, child, *row, Role::Mother);
        fillNotes(work, child, *row, "obs");
        planPriests(work, *row, {{"primpadrebapt", "funcprimpbapt"}, {"segpadrebapt", "funcsegpbapt"}});
        planFamilies(work);
        planAssistants(work, "b", work.number(child));
        work.plan.sentences.prepend(childSentence(work, child, family));
    } else {
        planFamilies(work);
    }
}

} // namespace study
