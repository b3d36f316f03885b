// INDIV_CONTEXT, CONTEXT and CONTEXT_CONTEXT: families and places.
#include "study/exchange/idsFamilies_p.h"

#include "study/observation/marks.h"

namespace study::exchange {

namespace {

const ContextRole& roleOf(char sex)
{
    if (sex == 'm') return contextRole::husband;
    return sex == 'f' ? contextRole::wife : contextRole::spouse;
}

// Whether a child lived with its parents on that day: alive, still a child, and not married.
bool isAtHome(const parish::Date& birth, const parish::Date& death, const parish::Date& married, const parish::Date& at)
{
    if (!birth.isKnown() || !at.isKnown()) return false;
    const QDate day = at.middle();
    const bool isAlive = birth.middle() <= day && !(death.isKnown() && death.middle() < day);
    const bool isChild = day < parish::birthday(birth, observation::endOfChildhood);
    return isAlive && isChild && !(married.isKnown() && married.middle() <= day);
}

} // namespace

void IdsWriter::writeRole(const ContextRole& role, qint64 person, qint64 context, const parish::Date& date,
                          const QString& source)
{
    file_->begin();
    file_->add(person);
    file_->add(context);
    file_->add(source);
    file_->add(role.relation);
    file_->end(role.dateType, date);
}

void IdsWriter::writeRolesInContexts()
{
    begin(IdsTable::IndivContext);
    forEachFamily([this](const FamilyAt& family, OfFamilies& rows) { writeRolesIn(family, rows); },
                  options_.childrenAtHome);
    writeResidences();
    finish();
}

void IdsWriter::writeRolesIn(const FamilyAt& family, OfFamilies& rows)
{
    const QString source = sourceOf(family, rows.acts.next(family.number) ? pageAt(rows.acts.row()) : QString());
    const qint64 context = contextOfFamily(family.number);
    const std::vector<IdsEnd> couple = coupleOf(family, rows);
    const std::vector<Child> children = childrenOf(family, rows);
    for (const IdsEnd& one : couple)
        writeRole(roleOf(one.sex), one.number, context, family.marriage, source);
    for (const Child& child : children)
        writeRole(contextRole::child, child.number, context);
    while (rows.residences.next(family.number)) {
        const jet::Rows& row = rows.residences.row();
        if (family.isWithheld) continue;
        const qint64 place = couple.empty() && children.empty() ? 0 : places_.use(placeAt(row, 3));
        if (place == 0) continue;
        const parish::Date date = dateAt(row, 1);
        const QString told = row.text(5).simplified();
        for (const IdsEnd& one : couple)
            writeRole(contextRole::resident, one.number, place, date, told);
        for (const Child& child : children)
            if (options_.childrenAtHome && isAtHome(child.birth, child.death, child.married, date))
                writeRole(contextRole::resident, child.number, place, date, told);
    }
}

void IdsWriter::writeResidences()
{
    jet::Rows row(bdp_, jet::NativeSql("select r.numero, i.nind, r.dataref, r.datafixa, r.localresid, r.tipolocal, "
                                       "r.fonte from residencia r left join individuo i on i.nind = r.numero "
                                       "where r.tiporesid = 'i' order by r.numero, r.dataref"));
    while (row.next()) {
        const Link who = linkAt(row, 0);
        if (!who.isThere) ++counts_.lostLinks;
        if (!who.isThere || !isShown(who.number)) continue;
        if (const qint64 place = places_.use(placeAt(row, 4)); place != 0)
            writeRole(contextRole::resident, who.number, place, dateAt(row, 2), row.text(6).simplified());
    }
}

void IdsWriter::tellContext(Told what, qint64 context, const IdsCoded& coded, const parish::Date& date,
                            const QString& source)
{
    const ToldWords& words = wordsOf(what);
    if (coded.value.isEmpty()) return;
    if (words.isCoded) note(words, coded);
    file_->begin();
    file_->add(context);
    file_->add(source);
    file_->add(typeOf(words));
    file_->add(coded.value);
    file_->end(words.dateType, date);
}

void IdsWriter::writeContexts()
{
    begin(IdsTable::Context);
    writePlaceContexts();
    forEachFamily([this](const FamilyAt& family, OfFamilies& rows) { writeUnionContext(family, rows); });
    finish();
}

// Of a family of which one of the couple may be alive, there is nothing but what the others belong to.
void IdsWriter::writeUnionContext(const FamilyAt& family, OfFamilies& rows)
{
    const QString source = sourceOf(family, rows.acts.next(family.number) ? pageAt(rows.acts.row()) : QString());
    const bool isNeeded = !family.isWithheld || !coupleOf(family, rows).empty() || !childrenOf(family, rows).empty();
    if (!isNeeded) return;
    const qint64 context = contextOfFamily(family.number);
    tellContext(Told::UnionLevel, context, {unionLevel, unionExplanation}, family.marriage, source);
    if (family.isWithheld) return;
    bool isNumber = false;
    const int situation = family.situation.toInt(&isNumber);
    const QString told = catalogue_.description("SitFa", family.situation).simplified();
    if (!family.situation.isEmpty())
        tellContext(Told::Situation, context,
                    {told.isEmpty() ? '(' + family.situation + ')' : told,
                     "SitFa " + (isNumber ? QString::number(situation) : family.situation)});
    const int type = types_[family.place];
    tellContext(Told::FamilyType, context, {QString::number(type), catalogue_.description("TipFa", type)});
    if (family.storedType)
        tellContext(Told::StoredFamilyType, context,
                    {QString::number(*family.storedType), catalogue_.description("TipFa", family.storedType)});
}

void IdsWriter::writePlaceContexts()
{
    for (qint64 number = 1; number <= places_.count(); ++number) {
        const IdsPlaces::Place& place = places_.at(number);
        if (!place.isUsed) continue;
        tellContext(Told::PlaceLevel, number, {place.level->level, place.level->explanation});
        tellContext(Told::PlaceName, number, {place.name.simplified(), {}});
    }
}

void IdsWriter::writePlacesInPlaces()
{
    for (qint64 number = 1; number <= places_.count(); ++number) {
        const IdsPlaces::Place& place = places_.at(number);
        if (!place.isUsed || place.within == 0) continue;
        const QString relation = relationOf(*place.level, *places_.at(place.within).level);
        placeRelations_.insert(relation);
        file_->begin();
        file_->add(number);
        file_->add(place.within);
        file_->add(QString());
        file_->add(relation);
        file_->end(nullptr, {});
    }
}

} // namespace study::exchange
