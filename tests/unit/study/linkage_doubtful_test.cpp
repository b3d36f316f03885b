// Links that the BDP has, and that the names of its acts speak against.
#include "study/people.h"

#include "study/acts/register_tables.h"
#include "study/linkage/candidates.h"
#include "study/parish/snapshot.h"

#include <algorithm>
#include <optional>

using namespace study::linkage;
using study::parish::FamilyNumber;
using study::parish::PersonNumber;
using study::parish::Snapshot;

namespace {

class DoubtfulLink : public People
{
protected:
    // Somebody of an act; `of` the place of whom they belong to, -1 for nobody; `nind` 0: a name alone.
    void tell(int act, const char* role, const char* name, qint64 nind, int of = -1)
    {
        if (place_ == 0) study::tables::make(bdp, study::tables::ofActs());
        run("insert into estudo_pessoa (acto, ordem, papel, de, ordinal, nome, nome_duvida, identidade, nind) values "
            "(?, ?, ?, ?, 0, ?, 0, ?, ?)",
            {act, ++place_, QString(role), of < 0 ? QVariant() : QVariant(of), QString::fromUtf8(name),
             QString(nind > 0 ? "conhecida" : "so no acto"), nind > 0 ? QVariant(nind) : QVariant()});
    }
    int lastPlace() const { return place_; }

    std::optional<Link> doubt(const Record& one, const Record& other)
    {
        Question question;
        question.inActs = namesInActs(bdp);
        for (const Link& link : links(Snapshot::read(bdp), startModel(), question))
            if (link.kind == LinkKind::Doubtful && link.one == one && link.other == other) return link;
        return {};
    }
    std::optional<Link> doubtOfOrigin(qint64 child, qint64 family)
    {
        return doubt(recordOf(PersonNumber(child)), recordOf(FamilyNumber(family)));
    }

private:
    int place_ = 0;
};

} // namespace

TEST_F(DoubtfulLink, IsAChildWhoseActNamesOtherParents)
{
    const qint64 family = couple(person({"Bento de Abreu"}), person({"Clara Lopes", 'f'}));
    const qint64 child = person({"Rita", 'f', "1700-02-03", "", family});
    tell(5, "baptizado", "Rita", child);
    const int baptised = lastPlace();
    tell(5, "pai", "Bento Dias", 0, baptised);
    tell(5, "mae", "Clara", 0, baptised);
    EXPECT_FALSE(doubtOfOrigin(child, family)) << "one other surname is no more than a variant";
    run("update estudo_pessoa set nome = 'Umbelina Dias' where papel = 'mae'");
    const std::optional<Link> link = doubtOfOrigin(child, family);
    ASSERT_TRUE(link);
    EXPECT_EQ(link->evidence.front(), (Evidence{"mãe, no acto nº 5", "Umbelina Dias", "Clara Lopes", -5}));
    EXPECT_EQ(link->evidence.back().field, "apelidos do pai, no acto nº 5");
    EXPECT_EQ(link->bits, -7.5);
}

TEST_F(DoubtfulLink, IsNoneWhereTheActOnlySpellsThemOtherwise)
{
    const qint64 family = couple(person({"Bento Álvares"}), person({"Maria Josefa da Conceição", 'f'}));
    const qint64 child = person({"Rita", 'f', "1700-02-03", "", family});
    tell(5, "baptizado", "Ritta", child);
    const int baptised = lastPlace();
    tell(5, "pai", "Bemto Alvz", 0, baptised);
    tell(5, "mae", "Jozefa de Jesus", 0, baptised);
    EXPECT_FALSE(doubtOfOrigin(child, family));
    for (const char* unread : {"U[...] Dias", "Um... Dias", "?", "mãe incógnita", ""}) {
        run("update estudo_pessoa set nome = ? where papel = 'mae'", {QString::fromUtf8(unread)});
        EXPECT_FALSE(doubtOfOrigin(child, family)) << unread;
    }
    run("update estudo_pessoa set nome = 'Umbelina' where papel = 'mae'");
    EXPECT_TRUE(doubtOfOrigin(child, family));
    run("update estudo_pessoa set nome_duvida = 1 where papel = 'mae'");
    EXPECT_FALSE(doubtOfOrigin(child, family)) << "the transcriber doubts it already";
}

TEST_F(DoubtfulLink, IsASpouseWhoHasAnotherNameInTheMarriage)
{
    const qint64 origin = couple(person({"Bento de Abreu"}), person({"Clara Lopes", 'f'}));
    const qint64 groom = person({"Manuel de Abreu", 'm', "1700-02-03", "", origin});
    const qint64 first = couple(groom, person({"Ana", 'f'}), "1722-02-03"), bride = person({"Rita Dias", 'f'});
    const qint64 second = couple(groom, bride, "1730-02-03");
    tell(7, "noivo", "Domingos", groom);
    const int told = lastPlace();
    tell(7, "pai", "Pedro Gomes", 0, told);
    tell(7, "noiva", "Rita Dias", bride);
    const std::optional<Link> link = doubt(recordOf(PersonNumber(groom)), recordOf(FamilyNumber(second)));
    ASSERT_TRUE(link);
    EXPECT_EQ(link->evidence.size(), 2U);
    EXPECT_EQ(link->evidence.front(), (Evidence{"nome, no acto nº 7", "Domingos", "Manuel de Abreu", -5}));
    EXPECT_EQ(link->bits, -10);
    EXPECT_FALSE(doubt(recordOf(PersonNumber(groom)), recordOf(FamilyNumber(first)))) << "of another act";
    EXPECT_FALSE(doubt(recordOf(PersonNumber(bride)), recordOf(FamilyNumber(second))));
    EXPECT_FALSE(doubtOfOrigin(groom, origin)) << "the marriage is doubted, not the baptism";
}

TEST_F(DoubtfulLink, IsABurialThatNamesASpouseWhomNobodyKnows)
{
    const qint64 deceased = person({"Manuel de Abreu", 'm', "", "1760-02-03"});
    couple(deceased, person({"Ana", 'f'}), "1722-02-03");
    couple(deceased, person({"Rita Dias", 'f'}), "1730-02-03");
    tell(9, "defunto", "Manuel de Abreu", deceased);
    tell(9, "conjuge", "Rita", 0, lastPlace());
    EXPECT_FALSE(doubt(recordOf(PersonNumber(deceased)), {}));
    run("update estudo_pessoa set nome = 'Umbelina' where papel = 'conjuge'");
    const std::optional<Link> link = doubt(recordOf(PersonNumber(deceased)), {});
    ASSERT_TRUE(link);
    EXPECT_EQ(link->evidence.front().field, "cônjuge, no acto nº 9");
}

TEST_F(DoubtfulLink, IsNoneInABdpWithoutActs)
{
    const qint64 family = couple(person({"Bento de Abreu"}), person({"Clara Lopes", 'f'}));
    EXPECT_TRUE(namesInActs(bdp).empty());
    EXPECT_FALSE(doubtOfOrigin(person({"Rita", 'f', "1700-02-03", "", family}), family));
}
