// What holds of any acts: they are planned alike each time, stored as planned, and taken back without a trace.
#include "study/acts/register.h"
#include "study/acts/writer.h"
#include "study/randomacts.h"
#include "study/tellings.h"

#include <random>

using namespace study;

namespace {

// Acts as registers have them, about people of a small place who come again and again.
class Registers
{
public:
    explicit Registers(unsigned seed) : random_(seed) {}

    Telling any()
    {
        const int kind = pick(0, 2);
        Telling told = Telling::of(ActKind(kind), QDate(1690 + pick(0, 30), pick(1, 12), pick(1, 28)));
        told.act.number = QString::number(++number_);
        if (pick(0, 5) == 0) told.act.date.day = 0;
        if (kind == 0) baptism(told);
        if (kind == 1) marriage(told);
        if (kind == 2) burial(told);
        for (int person = 0; person < told.act.people.size(); ++person)
            describe(told, person);
        conclude(told);
        return told;
    }

private:
    int pick(int first, int last) { return std::uniform_int_distribution(first, last)(random_); }

    int add(Telling& told, Role role, int owner = -1)
    {
        static const char* const names[] = {"Ana", "Rui d'Além", "José", "Maria \"a Nova\"", "Gil", "Eva"};
        const int who = pick(0, 9);
        if (who == 0) return told.kept(role, "?", owner);
        if (who <= 4 && known_ > 0) return told.known(role, pick(1, known_), owner);
        return told.isNew(role, names[pick(0, 5)], owner);
    }

    int subject(Telling& told, Role role)
    {
        if (known_ > 0 && pick(0, 2) == 0) return told.known(role, pick(1, known_));
        return told.isNew(role, "Sujeito");
    }

    void parents(Telling& told, int owner, int depth = 0)
    {
        for (const Role role : {Role::Father, Role::Mother})
            if (pick(0, 2) > 0) {
                const int parent = add(told, role, owner);
                if (depth < 2 && pick(0, 3) == 0) parents(told, parent, depth + 1);
            }
    }

    void baptism(Telling& told)
    {
        parents(told, subject(told, Role::Child));
        const int godfather = add(told, Role::Godfather), godmother = add(told, Role::Godmother);
        if (pick(0, 1)) parents(told, godfather);
        if (pick(0, 1)) add(told, Role::Spouse, godmother);
        if (pick(0, 1)) add(told, Role::Proxy, godfather);
        if (pick(0, 1)) told.relate(godfather, "irmão", pick(0, 3));
        add(told, Role::Celebrant);
    }

    void marriage(Telling& told)
    {
        const int groom = subject(told, Role::Groom), bride = subject(told, Role::Bride);
        parents(told, groom);
        parents(told, bride);
        if (pick(0, 2) == 0) add(told, Role::EarlierSpouse, groom);
        add(told, Role::Witness);
        add(told, Role::Witness);
        add(told, Role::Celebrant);
    }

    void burial(Telling& told)
    {
        const int dead = subject(told, Role::Deceased);
        if (pick(0, 1)) add(told, Role::Spouse, dead);
        parents(told, dead);
        const int heir = add(told, Role::Mentioned);
        told.tell(heir, "herdeiro", "s");
        told.fact(attribute::masses, "20 rezadas");
        told.fact(attribute::offices, "3 de 9 lições");
        told.fact(attribute::will, pick(0, 1) ? "s" : "n");
    }

    void describe(Telling& told, int person)
    {
        if (pick(0, 3) == 0) told.act.people[person].toldSex = Sex(pick(0, 2));
        if (pick(0, 2) == 0) told.tell(person, attribute::residence, pick(0, 1) ? "outeiro" : "novo");
        if (pick(0, 3) == 0) told.tell(person, attribute::profession, pick(0, 1) ? "moleiro" : "tamanqueiro");
        if (pick(0, 3) == 0) told.tell(person, attribute::civilState, pick(0, 1) ? "casado" : "solteiro");
        if (pick(0, 4) == 0) told.tell(person, attribute::age, QString::number(pick(0, 90)));
        if (pick(0, 5) == 0) told.tell(person, attribute::nickname, "o 'Ruivo'");
        if (pick(0, 5) == 0) told.tell(person, attribute::birthplace, "outeiro");
    }

    static void conclude(Telling& told)
    {
        told.conclusions.places = {{"outeiro", {.code = "03030101", .level = 'L'}},
                                   {"novo", {.name = "Poucapena", .parish = "030301"}}};
        told.conclusions.professions = {{"moleiro", 2}, {"tamanqueiro", 0}};
        for (const Objection& objection : told.plan().objections)
            told.overrule(objection.id);
    }

public:
    void knows(int people) { known_ = people; }

private:
    std::mt19937 random_;
    int number_ = 0;
    int known_ = 0;
};

class AnyActs : public SmallParish
{
protected:
    // Whatever else stands in the act: it has a date, whom it is about, and each new person a name.
    static void makeLikely(Telling& told, RandomActs& random)
    {
        told.act.date = partialDate(QDate(1700, 1, 1).addDays(random.any(0, 9000)));
        const QList<Role> roles = told.act.kind == ActKind::Baptism    ? QList{Role::Child}
                                  : told.act.kind == ActKind::Marriage ? QList{Role::Groom, Role::Bride}
                                                                       : QList{Role::Deceased};
        for (const Role role : roles)
            if (personWith(told.act, role) < 0) told.isNew(role, "Sujeito");
        for (int person = 0; person < told.act.people.size(); ++person) {
            ActPerson& one = told.act.people[person];
            const bool isIt = roles.contains(one.role) && personWith(told.act, one.role) == person;
            const bool another = !isIt && subjects(told.act).contains(person);
            told.conclusions.people[person] = {.kind = another || (!isIt && random.maybe()) ? Identity::Kind::Kept
                                                                                            : Identity::Kind::New};
            if (one.standardName.size() > 200) one.standardName.clear();
            if (nameOf(one).size() > 200 || nameOf(one).remove(QChar(0)).simplified().isEmpty())
                one.standardName = "Ana d'Além";
        }
        told.conclusions.places.clear();
        told.conclusions.professions.clear();
        for (const ActPerson& one : told.act.people)
            for (const Attribute& each : one.attributes) {
                if (random.maybe()) told.conclusions.places[each.told.value] = {.code = "03030101"};
                if (random.maybe()) told.conclusions.professions[each.told.value] = random.any(0, 3);
            }
    }

    // 0 where the plan has a reason that can't be overruled.
    static qint64 stored(const Telling& told)
    {
        try {
            return storeAct(cnBDP, told.act, told.conclusions).act;
        } catch (const Refused&) {
            return 0;
        }
    }
};

} // namespace

TEST_F(AnyActs, AreTakenBackOneByOneWithoutATrace)
{
    for (unsigned seed = 1; seed <= 3; ++seed) {
        Registers registers(seed);
        QList<qint64> acts;
        QList<QMap<QString, QStringList>> before;
        for (int left = 30; left > 0; --left) {
            registers.knows(value("select max(nind) from individuo").toInt());
            const auto rows = cardRows();
            const Telling told = registers.any();
            const Plan plan = told.plan();
            ASSERT_EQ(plan, told.plan()) << seed;
            ASSERT_EQ(cardRows(), rows) << seed;
            if (const qint64 act = stored(told)) {
                ASSERT_EQ(readAct(cnBDP, act)->written, plan.rows) << seed;
                acts << act;
                before << rows;
            } else {
                ASSERT_EQ(cardRows(), rows) << seed;
            }
        }
        ASSERT_GT(acts.size(), 15) << seed;
        while (!acts.isEmpty()) {
            ASSERT_EQ(undoAct(cnBDP, acts.takeLast()).toStdString(), "") << seed;
            ASSERT_EQ(cardRows(), before.takeLast()) << seed;
        }
    }
}

TEST_F(AnyActs, AreTakenBackWholeOrNotAtAll)
{
    for (unsigned seed = 1; seed <= 2; ++seed) {
        Registers registers(seed);
        QList<qint64> acts;
        for (int left = 20; left > 0; --left) {
            registers.knows(value("select max(nind) from individuo").toInt());
            if (const qint64 act = stored(registers.any())) acts << act;
        }
        // In the order in which they were stored, as often as it takes: in the end all have gone.
        for (int round = 0; round < 20 && !acts.isEmpty(); ++round)
            acts.removeIf([](qint64 act) {
                const auto rows = cardRows();
                const QString why = whyNotUndone(cnBDP, act);
                EXPECT_EQ(undoAct(cnBDP, act), why);
                EXPECT_EQ(cardRows() == rows, !why.isEmpty()) << qPrintable(why);
                return why.isEmpty();
            });
        EXPECT_TRUE(acts.isEmpty()) << seed;
        EXPECT_EQ(value("select count(*) from individuo").toInt(), 0) << seed;
        EXPECT_EQ(value("select count(*) from familia").toInt(), 0) << seed;
        EXPECT_EQ(value("select count(*) from assistente").toInt(), 0) << seed;
    }
}

TEST_F(AnyActs, ArePlannedWhateverStandsInThem)
{
    RandomActs random(1);
    int kept = 0;
    for (int round = 0; round < 400; ++round) {
        Telling told;
        told.act = random.act();
        told.conclusions = random.conclusionsOf(told.act);
        for (Identity& identity : told.conclusions.people)
            if (random.maybe()) identity = {.kind = Identity::Kind::New};
        if (round % 2 == 0) makeLikely(told, random);
        const auto rows = cardRows();
        const Plan plan = told.plan();
        ASSERT_EQ(plan, told.plan()) << round;
        for (const Objection& objection : plan.objections)
            told.overrule(objection.id);
        const qint64 act = stored(told);
        if (act == 0) {
            ASSERT_EQ(cardRows(), rows) << round;
            continue;
        }
        ++kept;
        ASSERT_EQ(undoAct(cnBDP, act).toStdString(), "") << round;
        ASSERT_EQ(cardRows(), rows) << round;
    }
    EXPECT_GT(kept, 150);
}
