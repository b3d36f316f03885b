// What is written as GEDCOM is by the published grammar, and tells as many people and families as the BDP has.
#include "data/datafolder.h"
#include "data/demobdp.h"
#include "study/gedcomGrammar.h"
#include "truth/truth.h"

#include "study/exchange/gedcom.h"

#include <gtest/gtest.h>

#include <QBuffer>

using namespace study;
using exchange::GedcomCounts;
using exchange::GedcomOptions;
using exchange::GedcomVersion;

namespace {

QByteArray written(const jet::Connection& bdp, const GedcomOptions& options, GedcomCounts* counts = nullptr)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const GedcomCounts all = writeGedcom(bdp, buffer, options);
    if (counts) *counts = all;
    return buffer.data();
}

GedcomOptions optionsOf(GedcomVersion version)
{
    GedcomOptions options;
    options.version = version;
    options.today = QDate(2026, 1, 1);
    options.programVersion = "1.0.6";
    return options;
}

int rowsOf(datafolder::MadeBdp& bdp, const QString& select)
{
    return bdp.rows(select).value(0).toInt();
}

int eventsOf(const QList<gedcom::Structure>& records, const char* tag)
{
    int count = 0;
    for (const gedcom::Structure& record : records)
        count += static_cast<int>(record.all(tag).size());
    return count;
}

// Every record, event and link of the BDP, and no other.
void expectCounts(datafolder::MadeBdp& bdp, const gedcom::File& file)
{
    const auto people = file.all("INDI"), families = file.all("FAM");
    EXPECT_EQ(people.size(), rowsOf(bdp, "select count(*) from individuo"));
    EXPECT_EQ(families.size(), rowsOf(bdp, "select count(*) from familia"));
    EXPECT_EQ(eventsOf(people, "BIRT"), rowsOf(bdp, "select count(datanasc) from individuo"));
    int deaths = 0, christenings = 0, marriages = 0;
    for (const gedcom::Structure& person : people) {
        const gedcom::Structure* const death = person.first("DEAT");
        if (death && death->first("DATE")) ++deaths;
        const gedcom::Structure* const christening = person.first("CHR");
        if (christening && christening->first("DATE")) ++christenings;
    }
    for (const gedcom::Structure& family : families)
        for (const char* const tag : {"MARR", "EVEN"})
            for (const gedcom::Structure& event : family.all(tag))
                if (event.first("DATE") && event.text("TYPE") != "Observação") ++marriages;
    EXPECT_EQ(christenings, rowsOf(bdp, "select count(datanasc) from individuo"));
    EXPECT_EQ(deaths, rowsOf(bdp, "select count(dataobito) from individuo"));
    EXPECT_EQ(marriages, rowsOf(bdp, "select count(datacasam) from familia"));
    EXPECT_EQ(eventsOf(people, "FAMC"), rowsOf(bdp, "select count(famorig) from individuo"));
    EXPECT_EQ(eventsOf(people, "FAMS"), rowsOf(bdp, "select count(*) from familias"));
    EXPECT_EQ(eventsOf(people, "OCCU"), rowsOf(bdp, "select count(*) from profissoes"));
    EXPECT_EQ(eventsOf(people, "EMIG"), rowsOf(bdp, "select count(*) from passaporte"));
    EXPECT_EQ(eventsOf(people, "RESI") + eventsOf(families, "RESI"), rowsOf(bdp, "select count(*) from residencia"));
}

void expectSound(const jet::Connection& bdp, GedcomVersion version)
{
    const bool is551 = version == GedcomVersion::V551;
    const QStringList problems = gedcom::problemsOf(gedcom::read(written(bdp, optionsOf(version)), is551), is551);
    EXPECT_TRUE(problems.isEmpty()) << problems.size() << '\n' << qPrintable(problems.mid(0, 10).join('\n'));
}

class GedcomOfTheDemonstration : public DemoBdp
{
};

} // namespace

TEST_F(GedcomOfTheDemonstration, IsByTheGrammarOf70)
{
    expectSound(bdp_->connection, GedcomVersion::V70);
}

TEST_F(GedcomOfTheDemonstration, IsByTheGrammarAndTheLengthsOf551)
{
    expectSound(bdp_->connection, GedcomVersion::V551);
}

TEST_F(GedcomOfTheDemonstration, HasAsManyOfEachAsTheBdp)
{
    for (const GedcomVersion version : {GedcomVersion::V70, GedcomVersion::V551}) {
        GedcomCounts counts;
        const QByteArray bytes = written(bdp_->connection, optionsOf(version), &counts);
        const gedcom::File file = gedcom::read(bytes, version == GedcomVersion::V551);
        expectCounts(*bdp_, file);
        EXPECT_EQ(counts.people, file.all("INDI").size());
        EXPECT_EQ(counts.families, file.all("FAM").size());
        EXPECT_EQ(counts.withheldPeople, 0) << "the books end long ago";
        EXPECT_EQ(counts.lostLinks, 0);
    }
}

TEST_F(GedcomOfTheDemonstration, HasEachGodparentAndWitnessOnce)
{
    const auto rolesOf = [](const QList<gedcom::Structure>& records, const char* event, const char* role) {
        int count = 0;
        for (const gedcom::Structure& record : records)
            for (const gedcom::Structure& one : record.all(event))
                for (const gedcom::Structure& association : one.all("ASSO"))
                    if (association.text("ROLE") == role) ++count;
        return count;
    };
    const gedcom::File file = gedcom::read(written(bdp_->connection, optionsOf(GedcomVersion::V70)), false);
    const auto people = file.all("INDI"), families = file.all("FAM");
    EXPECT_EQ(rolesOf(people, "CHR", "GODP"),
              rowsOf(*bdp_, "select count(*) from assistente where tipoacto = 'b' and tipoassistente = 'p'"));
    EXPECT_EQ(rolesOf(people, "CHR", "WITN"),
              rowsOf(*bdp_, "select count(*) from assistente where tipoacto = 'b' and tipoassistente = 't'"));
    EXPECT_EQ(rolesOf(families, "MARR", "WITN") + rolesOf(families, "EVEN", "WITN"),
              rowsOf(*bdp_, "select count(*) from assistente where tipoacto = 'c'"));
    const gedcom::File old = gedcom::read(written(bdp_->connection, optionsOf(GedcomVersion::V551)), true);
    int godparents = 0, witnesses = 0;
    for (const gedcom::Structure& person : old.all("INDI"))
        for (const gedcom::Structure& association : person.all("ASSO")) {
            if (association.text("RELA") == "Godparent") ++godparents;
            if (association.text("RELA") == "Witness") ++witnesses;
        }
    EXPECT_EQ(godparents, rolesOf(people, "CHR", "GODP"));
    EXPECT_EQ(godparents + witnesses, rowsOf(*bdp_, "select count(*) from assistente"));
}

TEST_F(GedcomOfTheDemonstration, IsTheSameBytesEachTime)
{
    for (const GedcomVersion version : {GedcomVersion::V70, GedcomVersion::V551})
        EXPECT_EQ(written(bdp_->connection, optionsOf(version)), written(bdp_->connection, optionsOf(version)));
    GedcomOptions later = optionsOf(GedcomVersion::V70);
    later.today = QDate(2050, 5, 5);
    EXPECT_EQ(written(bdp_->connection, later), written(bdp_->connection, optionsOf(GedcomVersion::V70)));
}

TEST(GedcomOfGeneratedParishes, IsByBothGrammarsAndHasAllRecords)
{
    for (const std::uint32_t seed : {7U, 8U, 9U}) {
        const truth::Parish parish = truth::parish(400, seed, ORV_DATA_DIR);
        datafolder::MadeBdp made;
        truth::write(parish.bdp, parish.world, made.connection);
        for (const GedcomVersion version : {GedcomVersion::V70, GedcomVersion::V551}) {
            expectSound(made.connection, version);
            expectCounts(made,
                         gedcom::read(written(made.connection, optionsOf(version)), version == GedcomVersion::V551));
        }
    }
}

// What the check finds, so that its silence tells something.
TEST(TheGrammarOfGedcom, FindsWhatIsAgainstIt)
{
    const auto found = [](const QByteArray& body, bool is551 = false) {
        const QByteArray head = is551 ? "0 HEAD\n1 SOUR X\n1 SUBM @U1@\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n"
                                        "1 CHAR UTF-8\n0 @U1@ SUBM\n1 NAME X\n"
                                      : "0 HEAD\n1 GEDC\n2 VERS 7.0\n";
        const gedcom::File file = gedcom::read(head + body + "0 TRLR\n", is551);
        return gedcom::problemsOf(file, is551).join('\n');
    };
    EXPECT_EQ(found("0 @I1@ INDI\n1 NAME Ana /Dias/\n1 BIRT\n2 DATE ABT 12 MAR 1622\n"), "");
    EXPECT_NE(found("0 @I1@ INDI\n2 NAME Ana\n"), "") << "a level is left out";
    EXPECT_NE(found("0 @I1@ INDI\n1 NAME Ana /Dias\n"), "") << "an open slash";
    EXPECT_NE(found("0 @I1@ INDI\n1 BIRT\n2 DATE 1622-03-12\n"), "");
    EXPECT_NE(found("0 @I1@ INDI\n1 BIRT\n2 DATE 1622\n2 DATE 1623\n"), "") << "one alone";
    EXPECT_NE(found("0 @I1@ INDI\n1 FACT x\n"), "") << "a fact has a type";
    EXPECT_NE(found("0 @I1@ INDI\n1 MARR\n"), "") << "of a family";
    EXPECT_NE(found("0 @I1@ INDI\n1 ASSO @I2@\n2 ROLE GODP\n"), "") << "leads nowhere";
    EXPECT_NE(found("0 @I1@ INDI\n1 FAMS @F1@\n0 @F1@ FAM\n"), "") << "not mutual";
    EXPECT_NE(found("0 @I1@ INDI\n1 NOTE a\n2 CONC b\n"), "");
    EXPECT_NE(found("0 @I1@ INDI\n1 NOTE @a\n"), "");
    EXPECT_NE(found("0 @I1@ INDI\n1 _NOVO a\n"), "") << "not in the schema";
    EXPECT_EQ(found("0 @I1@ INDI\n1 NOTE a\n2 CONC b\n", true), "");
    EXPECT_NE(found("0 @I1@ INDI\n1 NOTE a@b\n", true), "");
    EXPECT_NE(found("0 @I1@ INDI\n1 OCCU " + QByteArray(91, 'x') + '\n', true), "") << "longer than 90";
    EXPECT_NE(found("0 @I1@ INDI\n1 NOTE " + QByteArray(249, 'x') + '\n', true), "") << "256 bytes";
    EXPECT_NE(found("0 @I1@ INDI\n1 BIRT\n2 ASSO @I1@\n3 RELA X\n", true), "") << "of people alone";
}
