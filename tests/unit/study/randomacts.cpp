#include "study/randomacts.h"

using namespace study;

QString RandomActs::text()
{
    static const QStringList texts{"",
                                   "",
                                   "Ana Maria",
                                   " São João d'Além ",
                                   "dois \"lados\"\r\n--;",
                                   QString::fromUtf8("\xF0\x9F\x98\x80"),
                                   "0012",
                                   "1e3",
                                   "null",
                                   "?",
                                   "%_'",
                                   QString(10000, u'x'),
                                   QString::fromUtf8("antes\0depois", 12),
                                   QString(QChar(0))};
    return texts[any(0, int(texts.size()) - 1)];
}

Told RandomActs::told()
{
    return {.value = text(), .source = text(), .comment = text(), .doubtful = maybe()};
}

PartialDate RandomActs::date()
{
    return {.year = any(0, 2000), .month = any(0, 13), .day = any(0, 32), .about = maybe(), .text = text()};
}

QList<Attribute> RandomActs::attributes(int most)
{
    static const QStringList types{attribute::residence, attribute::profession, attribute::age, "outro", ""};
    QList<Attribute> all;
    for (int left = any(0, most); left > 0; --left)
        all << Attribute{.type = types[any(0, int(types.size()) - 1)], .told = told(), .date = text()};
    return all;
}

ActPerson RandomActs::person(int place)
{
    ActPerson one{.role = Role(any(0, int(Role::Mentioned))),
                  .of = any(-1, place - 1),
                  .ordinal = any(0, 2),
                  .name = told(),
                  .standardName = text(),
                  .attributes = attributes(4),
                  .notes = text(),
                  .id = text()};
    if (maybe()) one.toldSex = Sex(any(0, 2));
    for (int left = any(0, 2); left > 0; --left)
        one.sameAs << text();
    return one;
}

Act RandomActs::act()
{
    Act act{.kind = ActKind(any(0, 2)),
            .date = date(),
            .book = text(),
            .folio = text(),
            .number = text(),
            .place = told(),
            .facts = attributes(5),
            .notes = text(),
            .id = text()};
    for (int left = any(0, 12); left > 0; --left)
        act.people << person(int(act.people.size()));
    const int last = int(act.people.size()) - 1;
    for (int left = any(0, 3); left > 0; --left)
        act.relations << Relation{.type = text(),
                                  .told = told(),
                                  .person = any(-1, last),
                                  .other = any(-1, last),
                                  .otherName = text(),
                                  .otherId = text()};
    return act;
}

Conclusions RandomActs::conclusionsOf(const Act& act)
{
    Conclusions all;
    for (qsizetype left = act.people.size(); left > 0; --left) {
        Identity one{.kind = Identity::Kind(any(0, 3)), .reason = text()};
        if (one.kind == Identity::Kind::Known) one.nind = any(1, 1000000);
        all.people << one;
    }
    for (int left = any(0, 3); left > 0; --left) {
        all.places[text()] = {.code = text(), .level = QChar("PZDCFLS"[any(0, 6)]), .name = text(), .parish = text()};
        all.professions[text()] = any(0, 300);
        all.overruled[text()] = text();
    }
    return all;
}

QVariant RandomActs::value()
{
    switch (any(0, 5)) {
    case 0:
        return {};
    case 1:
        return QDate(any(1500, 1900), any(1, 12), any(1, 28));
    case 2:
        return maybe();
    case 3:
        return any(-1, 100000);
    case 4:
        return any(0, 100) / 4.0;
    default:
        return text();
    }
}

RowChange::Columns RandomActs::columns(int least)
{
    RowChange::Columns all;
    for (int left = any(least, 6); left > 0; --left)
        all.push_back({QString("coluna%1").arg(left), value()});
    return all;
}

Plan RandomActs::planOf(const Act& act, const Conclusions& conclusions)
{
    static const QStringList tables{"individuo", "residencia", "assistente", "familias"};
    Plan plan;
    for (int left = any(0, 20); left > 0; --left)
        plan.rows << RowChange{.table = tables[any(0, int(tables.size()) - 1)],
                               .key = columns(1),
                               .values = columns(0),
                               .before = columns(0)};
    for (qsizetype i = 0; i < act.people.size(); ++i) {
        const Identity& identity = conclusions.people[i];
        const bool made = identity.kind == Identity::Kind::New;
        plan.people << (made ? any(1, 1000000) : identity.nind);
    }
    for (int left = any(0, 3); left > 0; --left)
        plan.families << any(1, 100000);
    return plan;
}
