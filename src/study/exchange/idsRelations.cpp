// INDIV_INDIV: what people are to each other.
#include "study/exchange/idsFamilies_p.h"

namespace study::exchange {

namespace {

const char* bySex(char sex, const char* male, const char* female, const char* unknown)
{
    if (sex == 'm') return male;
    return sex == 'f' ? female : unknown;
}

// Whether a row differs from the one before in any of some columns; by the letters, whatever their case.
class Unrepeated
{
public:
    explicit Unrepeated(std::vector<int> columns) : columns_(std::move(columns)), before_(columns_.size()) {}

    bool operator()(const jet::Rows& row)
    {
        bool isOther = std::exchange(isFirst_, false);
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const jet::Rows::Kind kind = row.kind(columns_[i]);
            const QByteArrayView bytes = row.bytes(columns_[i]);
            Cell& before = before_[i];
            if (kind == before.kind && bytes.compare(before.bytes, Qt::CaseInsensitive) == 0) continue;
            before = {kind, bytes.toByteArray()};
            isOther = true;
        }
        return isOther;
    }

private:
    struct Cell
    {
        jet::Rows::Kind kind = jet::Rows::Kind::Null;
        QByteArray bytes = {};
    };

    std::vector<int> columns_;
    std::vector<Cell> before_;
    bool isFirst_ = true;
};

} // namespace

// Each relation in both directions; which of the two its word is of, is the user's choice.
void IdsWriter::tie(Tie what, const IdsEnd& one, const IdsEnd& other, const parish::Date& date, const QString& source)
{
    const TieWords& words = wordsOf(what);
    const char* const ofOne = bySex(one.sex, words.male, words.female, words.unknown);
    const char* const ofOther = bySex(other.sex, words.otherMale, words.otherFemale, words.otherUnknown);
    const auto writeRow = [&](const IdsEnd& first, const IdsEnd& second, const char* word) {
        file_->begin();
        file_->add(first.number);
        file_->add(second.number);
        file_->add(source);
        file_->add(word);
        file_->end(words.dateType, date);
    };
    writeRow(one, other, options_.reversedRelations ? ofOther : ofOne);
    writeRow(other, one, options_.reversedRelations ? ofOne : ofOther);
}

bool IdsWriter::canBeTied(const Link& one, const Link& other)
{
    if (!one.isThere || !other.isThere) ++counts_.lostLinks;
    return one.isThere && other.isThere && isShown(one.number) && isShown(other.number);
}

std::vector<IdsEnd> IdsWriter::coupleOf(const FamilyAt& family, OfFamilies& rows)
{
    std::vector<IdsEnd> couple;
    while (rows.members.next(family.number)) {
        const jet::Rows& row = rows.members.row();
        const Known* const member = personAt(row, 1);
        if (member && isShown(row.number(1))) couple.push_back({row.number(1), member->sex});
    }
    return couple;
}

std::vector<IdsWriter::Child> IdsWriter::childrenOf(const FamilyAt& family, OfFamilies& rows)
{
    std::vector<Child> children;
    while (rows.children.next(family.number)) {
        const jet::Rows& row = rows.children.row();
        if (isShown(row.number(1)))
            children.push_back({row.number(1), dateAt(row, 2), dateAt(row, 4), exactDateAt(row, 6)});
    }
    return children;
}

QString IdsWriter::sourceOf(const FamilyAt& family, const QString& page) const
{
    return family.isWithheld ? QString() : sourceOf(Register::Marriages, family.marriage, family.at, page);
}

void IdsWriter::writeRelations()
{
    begin(IdsTable::IndivIndiv);
    forEachFamily([this](const FamilyAt& family, OfFamilies& rows) { writeKinOf(family, rows); });
    writeGodparents();
    writeMarriageWitnesses();
    writeHeirs();
    writeExecutors();
    finish();
    jet::Rows lost(bdp_,
                   jet::NativeSql("select (select count(*) from familias where nind not in "
                                  "(select nind from individuo) or nfamilia not in (select nfamilia from familia)"
                                  ") + (select count(*) from individuo where famorig <> 0 and famorig not in "
                                  "(select nfamilia from familia)) + (select count(*) from assistente where tipoacto = "
                                  "'c' and (nind not in (select nind from individuo) or entidade not in (select "
                                  "nfamilia from familia)))"));
    if (lost.next()) counts_.lostLinks += lost.number(0);
}

void IdsWriter::writeKinOf(const FamilyAt& family, OfFamilies& rows)
{
    const QString source = sourceOf(family, rows.acts.next(family.number) ? pageAt(rows.acts.row()) : QString());
    const std::vector<IdsEnd> couple = coupleOf(family, rows);
    for (auto one = couple.begin(); one != couple.end(); ++one)
        for (auto other = std::next(one); other != couple.end(); ++other)
            tie(Tie::Spouses, *one, *other, family.marriage, source);
    for (const Child& child : childrenOf(family, rows))
        for (const IdsEnd& parent : couple)
            tie(Tie::ParentAndChild, parent, {child.number});
}

// Rows that say the same twice stand side by side, as they are ordered by what they say: the engine would keep all to
// tell them apart.
void IdsWriter::writeGodparents()
{
    const jet::WideView view(bdp_);
    Unrepeated isOther({0, 1, 2, 3});
    jet::Rows row(bdp_, jet::NativeSql("select entidade, nind, tipoassistente, dataref from assistente "
                                       "where tipoacto = 'b' order by entidade, dataref, nind, tipoassistente"));
    while (row.next()) {
        if (!isOther(row)) continue;
        const Known *const child = personAt(row, 0), *const assistant = personAt(row, 1);
        const qint64 ofChild = row.number(0), ofAssistant = row.number(1);
        if (!canBeTied({ofChild, child != nullptr}, {ofAssistant, assistant != nullptr})) continue;
        const bool isGodparent = row.text(2).compare("p", Qt::CaseInsensitive) == 0;
        tie(isGodparent ? Tie::GodparentAndChild : Tie::BaptismWitness, {ofAssistant, assistant->sex}, {ofChild},
            actDate(row.date(3), child->birth));
    }
}

void IdsWriter::writeMarriageWitnesses()
{
    const jet::WideView view(bdp_);
    Unrepeated isOther({0, 2, 3, 4});
    jet::Rows row(bdp_, jet::NativeSql("select s.entidade, f.nfamilia, s.nind, m.nind, s.dataref, f.datacasam, "
                                       "f.dcasamfixa from assistente s "
                                       "left join familia f on f.nfamilia = s.entidade "
                                       "left join familias m on m.nfamilia = f.nfamilia where s.tipoacto = 'c' "
                                       "order by s.entidade, s.dataref, s.nind, m.nind"));
    while (row.next()) {
        if (!isOther(row)) continue;
        const Link family = linkAt(row, 0), assistant = linkTo(row, 2), spouse = linkTo(row, 3);
        if (!family.isThere || !assistant.isThere || !spouse.isThere || closed_.contains(family.number)) continue;
        if (isShown(assistant.number) && isShown(spouse.number))
            tie(Tie::MarriageWitness, {assistant.number}, {spouse.number}, actDate(row.date(4), dateAt(row, 5)));
    }
}

void IdsWriter::writeHeirs()
{
    jet::Rows row(bdp_, jet::NativeSql("select distinct l.nindherd, h.nind, l.nind, t.nind, t.dataobito, t.dobitofixa "
                                       "from legadosprofanos l left join individuo h on h.nind = l.nindherd "
                                       "left join individuo t on t.nind = l.nind where l.nindherd <> 0 "
                                       "order by l.nind, l.nindherd"));
    while (row.next()) {
        const Link heir = linkAt(row, 0), testator = linkAt(row, 2);
        if (canBeTied(heir, testator)) tie(Tie::Heir, {heir.number}, {testator.number}, dateAt(row, 4));
    }
}

void IdsWriter::writeExecutors()
{
    jet::Rows row(bdp_, jet::NativeSql("select i.testamenteiro, e.nind, i.nind, i.nind, i.dataobito, i.dobitofixa "
                                       "from individuo i left join individuo e on e.nind = i.testamenteiro "
                                       "where i.testamenteiro <> 0 order by i.nind"));
    while (row.next()) {
        const Link executor = linkAt(row, 0), testator = linkAt(row, 2);
        if (canBeTied(executor, testator)) tie(Tie::Executor, {executor.number}, {testator.number}, dateAt(row, 4));
    }
}

} // namespace study::exchange
