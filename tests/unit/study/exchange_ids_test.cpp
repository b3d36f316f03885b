// What the cards tell, as the Intermediate Data Structure has it.
#include "study/idsTables.h"
#include "study/people.h"

#include "platform/jet/error.h"

#include <QDir>
#include <QFile>

using namespace study;
using namespace study::exchange;

namespace {

class IdsOfAParish : public People
{
protected:
    IdsOfAParish()
    {
        options_.today = QDate(2026, 1, 1);
        run("insert into pais (codpais, nomepais) values ('PT', 'Portugal')");
        run("insert into distrito (coddistrito, nomedistrito, codpais) values ('01', 'Aveiro', 'PT')");
        run("insert into concelho (codconcelho, nomeconcelho, coddistrito) values ('0101', 'Águeda', '01')");
        run("insert into paroquia (codparoquia, nomeparoquia, codconcelho) values ('010102', 'Aguada de Baixo', "
            "'0101'), ('010103', 'Aguada de Cima', '0101')");
        run("insert into lugar (codlugar, nomelugar, codparoquia) values ('01010201', 'Vidoeiro', '010102')");
        run("insert into infopar (cod, nome, pais) values ('010102', 'Aguada de Baixo', 'PT')");
        run("insert into infocomplementar (categoria, codigo, descricao) values ('Filia', '6', 'Exposto'), "
            "('Filia', '1', 'Legítima'), ('Paren', '19', 'Tio paterno'), ('SitFa', '6', 'União não matrimonial'), "
            "('EstCi', '3', 'Viúvo'), ('TipMi', '1', 'Rezada'), ('Sacra', '1', 'Todos'), ('ClaPa', '8', 'Pobre')");
        run("insert into profissao (codprof, profissao, obs) values (7, 'Lavrador', 'HISCO 61110')");
        person({"Rui Dias", 'm', "1720-05-04"});
        person({"Ana da Silva", 'f', "1722-01-01"});
        family_ = couple(1, 2, "1745-01-01");
        child_ = person({"Eva Dias", 'f', "1750-03-10", "1790-06-07", family_}); // 3
    }
    ids::Tables tables() const { return ids::written(bdp, options_); }
    static ids::Row first(const QList<ids::Row>& rows) { return rows.isEmpty() ? ids::Row() : rows.first(); }
    static ids::Row meaning(const ids::Tables& tables, const QString& type, const QString& value)
    {
        for (const ids::Row& row : tables.rows["METADATA"])
            if (row["Type"] == type && row["Value"] == value) return row;
        return {};
    }
    // "Aguada de Baixo", "Union 1"
    static QString context(const ids::Tables& tables, const QString& number)
    {
        for (const ids::Row& row : tables.rows["CONTEXT"])
            if (row["Id_C"] == number && row["Type"] == "Name") return row["Value"];
        return "Union " + QString::number(number.toLongLong() % 1000000);
    }
    static QString dateOfRelation(const ids::Tables& tables, const QString& relation)
    {
        for (const ids::Row& row : tables.rows["INDIV_INDIV"])
            if (row["Relation"] == relation) return ids::date(row);
        return {};
    }
    static QStringList roles(const ids::Tables& tables, qint64 person)
    {
        QStringList all;
        for (const ids::Row& row : tables.rows["INDIV_CONTEXT"])
            if (row["Id_I"] == QString::number(person))
                all << (row["Relation"] + ' ' + context(tables, row["Id_C"]) + ' ' + ids::date(row)).trimmed();
        return all;
    }

    IdsOptions options_;
    qint64 family_ = 0, child_ = 0;
};

} // namespace

TEST_F(IdsOfAParish, SplitsANameAndKeepsIt)
{
    run("update individuo set nome = 'Maria da Conceição', titulo = 'Dona', alcunha = 'a Nova' where nind = 3");
    const ids::Tables all = tables();
    EXPECT_EQ(all.value(3, "Name_original"), "Maria da Conceição");
    EXPECT_EQ(all.value(3, "First_name"), "Maria");
    EXPECT_EQ(all.value(3, "Prefix_last_name"), "da");
    EXPECT_EQ(all.value(3, "Last_name"), "Conceição");
    EXPECT_EQ(all.value(3, "Title"), "Dona");
    EXPECT_EQ(all.value(3, "Nickname"), "a Nova");
    EXPECT_EQ(first(all.of(3, "Last_name"))["Missing"], "Time_invariant");
    run("update individuo set nome = 'Eva/Maria d''Além, \"x\"' where nind = 3");
    EXPECT_EQ(tables().value(3, "Name_original"), "Eva/Maria d'Além, \"x\"");
    EXPECT_FALSE(tables().value(3, "First_name").contains(QChar(0x2215)));
}

TEST_F(IdsOfAParish, SaysWhichSexEvenWhereItIsNotKnown)
{
    run("update individuo set sexo = 'd' where nind = 3");
    const ids::Tables all = tables();
    EXPECT_EQ(all.value(1, "Sex"), "Male");
    EXPECT_EQ(all.value(2, "Sex"), "Female");
    EXPECT_EQ(all.value(3, "Sex"), "Unknown");
    EXPECT_EQ(meaning(all, "Sex", "Unknown")["Explanation"], "d");
}

TEST_F(IdsOfAParish, HasABirthAsDeclaredAndInTheParishAsAnEvent)
{
    ids::Tables all = tables();
    const ids::Row date = first(all.of(3, "Birth_date")), event = first(all.of(3, "Birth"));
    EXPECT_EQ(ids::date(date), "10/3/1750");
    EXPECT_EQ(date["Date_type"] + ' ' + date["Estimation"], "Declared Exact");
    EXPECT_EQ(date["Source"], "Registos de baptismos");
    EXPECT_EQ(event["Date_type"] + ' ' + ids::date(event), "Event 10/3/1750");
    run("update individuo set localnasc = '010103', tipolocalnasc = 'F', localobito = '01010201', "
        "tipolocalobito = 'L' where nind = 3");
    all = tables();
    EXPECT_EQ(all.of(3, "Birth_date").size(), 1);
    EXPECT_TRUE(all.of(3, "Birth").isEmpty()) << "elsewhere";
    EXPECT_EQ(first(all.of(3, "Birth_date"))["Source"], "");
    EXPECT_EQ(all.value(3, "Birth_location"), "Aguada de Cima");
    EXPECT_EQ(context(all, first(all.of(3, "Birth_location"))["Value_Id_C"]), "Aguada de Cima");
    EXPECT_EQ(all.of(3, "Death").size(), 1);
    EXPECT_EQ(all.value(3, "Death_location"), "Vidoeiro");
}

TEST_F(IdsOfAParish, HasAnEstimatedDateAsAYearAndItsSpan)
{
    run("update individuo set DnascFixa = 0 where nind in (1, 2)");
    const ids::Tables all = tables();
    const ids::Row about = first(all.of(1, "Birth_date")), year = first(all.of(2, "Birth_date"));
    EXPECT_EQ(ids::date(about), "1720");
    EXPECT_EQ(about["Estimation"], "Estimated");
    EXPECT_EQ(about["Start_day"] + about["Start_month"] + about["Start_year"], "111720");
    EXPECT_EQ(about["End_day"] + about["End_month"] + about["End_year"], "31121720");
    EXPECT_EQ(about["Value"], "1720-05-04") << "as it is written";
    EXPECT_EQ(ids::date(year), "1722");
    EXPECT_EQ(year["Value"], "");
}

TEST_F(IdsOfAParish, CountsFiliationsAsTheStudyDoes)
{
    run("update individuo set filiacao = 6 where nind = 3");
    run("update individuo set filiacao = 99 where nind = 1");
    ids::Tables all = tables();
    EXPECT_EQ(all.value(3, "Legitimacy"), "Foundling");
    EXPECT_EQ(all.value(3, "Legitimacy_original"), "Exposto");
    EXPECT_EQ(meaning(all, "Legitimacy_original", "Exposto")["Explanation"], "Filia 6");
    EXPECT_TRUE(all.of(1, "Legitimacy").isEmpty());
    EXPECT_EQ(all.value(1, "Legitimacy_original"), "(99)");
    EXPECT_EQ(all.counts.unmapped, 1);
    options_.study.filiations = {{6, indicators::Legitimacy::Illegitimate}, {99, indicators::Legitimacy::Legitimised}};
    all = tables();
    EXPECT_EQ(all.value(3, "Legitimacy"), "Illegitimate");
    EXPECT_EQ(all.value(1, "Legitimacy"), "Legitimate");
    EXPECT_EQ(all.counts.unmapped, 0);
}

TEST_F(IdsOfAParish, HasAMarriageOnBothSpousesAndWhatItsActTells)
{
    run("update familia set localcasam = '010102', tipolocalcasam = 'F'");
    run("update familias set idade = 24, estadocivil = 3, numcasam = 2 where nind = 1");
    const ids::Tables all = tables();
    for (const qint64 who : {1, 2}) {
        const ids::Row marriage = first(all.of(who, "Marriage"));
        EXPECT_EQ(marriage["Date_type"] + ' ' + context(all, marriage["Value_Id_C"]), "Event Union 1");
        EXPECT_EQ(all.value(who, "Marriage_location"), "Aguada de Baixo");
    }
    EXPECT_EQ(all.value(1, "Age_at_marriage"), "24");
    EXPECT_EQ(all.value(1, "Marriage_order"), "2");
    EXPECT_EQ(all.value(1, "Civil_status"), "Widowed");
    EXPECT_EQ(ids::date(first(all.of(1, "Civil_status"))), ids::date(first(all.of(1, "Marriage"))));
    EXPECT_EQ(meaning(all, "Civil_status", "Widowed")["Explanation"], "EstCi 3: Viúvo");
}

TEST_F(IdsOfAParish, CallsAUnionThatIsNoMarriageByItsName)
{
    run("update familia set sfamilia = '6', tipocasal = 3");
    const ids::Tables all = tables();
    EXPECT_TRUE(all.of(1, "Marriage").isEmpty());
    EXPECT_EQ(all.of(1, "Union").size(), 1);
    QStringList told;
    for (const ids::Row& row : all.rows["CONTEXT"])
        if (context(all, row["Id_C"]) == "Union 1") told << row["Type"] + '=' + row["Value"];
    EXPECT_EQ(told, (QStringList{"Level=Union", "Family_situation=União não matrimonial", "Family_type=3",
                                 "Family_type_original=3"}));
}

TEST_F(IdsOfAParish, ComputesTheTypeOfAFamilyWhateverItsCardHas)
{
    run("update familia set tipocasal = 5");
    run("update individuo set dataobito = '1780-01-01', dobitofixa = 1 where nind in (1, 2)");
    const ids::Tables all = tables();
    QStringList told;
    for (const ids::Row& row : all.rows["CONTEXT"])
        if (row["Type"].startsWith("Family_type")) told << row["Value"];
    EXPECT_EQ(told, (QStringList{"1", "5"}));
}

TEST_F(IdsOfAParish, TiesParentsChildrenAndSpousesInBothDirections)
{
    ids::Tables all = tables();
    EXPECT_EQ(all.relations(1, 2), QStringList("Husband"));
    EXPECT_EQ(all.relations(2, 1), QStringList("Wife"));
    EXPECT_EQ(all.relations(1, 3), QStringList("Father"));
    EXPECT_EQ(all.relations(2, 3), QStringList("Mother"));
    EXPECT_EQ(all.relations(3, 2), QStringList("Child"));
    EXPECT_EQ(meaning(all, "Relation", "Definition")["Explanation"],
              "Id_I_1 is the Relation of Id_I_2; each pair is written in both directions");
    EXPECT_EQ(roles(all, 3), QStringList("Child Union 1"));
    options_.reversedRelations = true;
    run("update individuo set sexo = 'd' where nind = 1");
    all = tables();
    EXPECT_EQ(all.relations(3, 1), QStringList("Parent")) << "of unknown sex";
    EXPECT_EQ(all.relations(2, 3), QStringList("Child"));
    EXPECT_EQ(all.relations(2, 1), QStringList("Spouse"));
    EXPECT_TRUE(meaning(all, "Relation", "Definition")["Explanation"].startsWith("Id_I_2 is the Relation of Id_I_1"));
}

TEST_F(IdsOfAParish, TiesGodparentsAndWitnessesAtTheDateOfTheAct)
{
    const qint64 gil = person({"Gil", 'm', "1700-01-02"}), ines = person({"Inês", 'f', "1700-01-02"}),
                 ivo = person({"Ivo", 'm', "1700-01-02"});
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente, parentbapt, estadocivil, "
        "falecidopai) values ('b', 3, '1750-03-10', ?, 'p', 19, 3, 1)",
        {gil});
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values ('b', 3, '1750-03-12', ?, "
        "'p'), ('b', 3, null, ?, 't'), ('c', 1, '1745-01-01', ?, 't')",
        {ines, ivo, ivo});
    run("update individuo set DnascFixa = 0 where nind = 3");
    const ids::Tables all = tables();
    EXPECT_EQ(all.relations(gil, 3), QStringList("Godfather"));
    EXPECT_EQ(all.relations(ines, 3), QStringList("Godmother"));
    EXPECT_EQ(all.relations(3, ines), QStringList("Godchild"));
    EXPECT_EQ(all.relations(ivo, 3), QStringList("Baptism_witness"));
    EXPECT_EQ(all.relations(ivo, 1), QStringList("Marriage_witness"));
    EXPECT_EQ(all.relations(2, ivo), QStringList("Married_person"));
    EXPECT_EQ(all.value(gil, "Kinship_to_child"), "Tio paterno");
    EXPECT_EQ(all.value(gil, "Civil_status"), "Widowed");
    EXPECT_EQ(all.value(gil, "Father_deceased"), "Yes");
    EXPECT_TRUE(all.of(gil, "Mother_deceased").isEmpty());
    EXPECT_EQ(ids::date(first(all.of(gil, "Kinship_to_child"))), "1750") << "the copy of a date that isn't exact";
    EXPECT_EQ(dateOfRelation(all, "Godmother"), "12/3/1750");
    EXPECT_EQ(dateOfRelation(all, "Godfather"), "1750");
}

TEST_F(IdsOfAParish, TiesOnceWhereRowsSayTheSameTwice)
{
    const qint64 gil = person({"Gil", 'm', "1700-01-02"}), ivo = person({"Ivo", 'm', "1700-01-02"});
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values "
        "('b', 3, '1750-03-10', ?1, 'p'), ('b', 3, '1750-03-10', ?2, 'p'), ('b', 3, '1750-03-10', ?1, 'P'), "
        "('b', 3, '1750-03-10', ?1, 't'), ('b', 3, null, ?2, 't'), ('b', 3, null, ?2, 't'), "
        "('c', 1, '1745-01-01', ?1, 't'), ('c', 1, '1745-01-01', ?2, 'p'), ('c', 1, '1745-01-01', ?1, 'p'), "
        "('c', 1, null, ?2, 't'), ('c', 1, null, ?2, 't')",
        {gil, ivo});
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values ('b', 3, '1750-03-10', 99, "
        "'p'), ('b', 3, '1750-03-10', 99, 'p')");
    const ids::Tables all = tables();
    EXPECT_EQ(all.relations(gil, 3), (QStringList{"Godfather", "Baptism_witness"}));
    EXPECT_EQ(all.relations(ivo, 3), (QStringList{"Baptism_witness", "Godfather"})) << "those without a date first";
    for (const qint64 spouse : {1, 2}) {
        EXPECT_EQ(all.relations(gil, spouse), QStringList("Marriage_witness")) << "in whatever role";
        EXPECT_EQ(all.relations(ivo, spouse), (QStringList{"Marriage_witness", "Marriage_witness"})) << "at two dates";
        EXPECT_EQ(all.relations(spouse, gil), QStringList("Married_person"));
    }
    EXPECT_EQ(all.counts.lostLinks, 1);
}

TEST_F(IdsOfAParish, TiesHeirsAndExecutorsAtTheDeathOfTheTestator)
{
    run("update individuo set testam = 1, testamenteiro = 1 where nind = 3");
    run("insert into legadosprofanos (nind, idlegprof, nindherd, parentesco) values (3, 1, 2, 19), (3, 2, 2, null)");
    const ids::Tables all = tables();
    EXPECT_EQ(all.relations(2, 3), (QStringList{"Mother", "Heir"})) << "of two bequests once";
    EXPECT_EQ(all.relations(3, 1), (QStringList{"Child", "Testator"}));
    EXPECT_EQ(all.relations(1, 3), (QStringList{"Father", "Executor"}));
    EXPECT_EQ(all.value(2, "Kinship_to_testator"), "Tio paterno");
    EXPECT_EQ(dateOfRelation(all, "Executor"), "7/6/1790");
}

TEST_F(IdsOfAParish, TellsADeathAndItsSuffrages)
{
    run("update individuo set causa = 'Tísica', idadeobito = 40, estadoobito = 3, sacramentos = 1, classparoquial = 8, "
        "altura = 160, estatura = 'alta', cFisicas = 'cega' where nind = 3");
    run("insert into rituaismorte (nind, idlegpio, tipolegpio, tipo, quantidade, valorunit, tipoMoeda, valortotal) "
        "values (3, 1, 'missa', 1, 50, 60, 'Re', null), (3, 2, 'oficio', null, 1.5, null, null, 480), "
        "(3, 3, 'trinta', null, null, null, null, null)");
    const ids::Tables all = tables();
    EXPECT_EQ(ids::date(first(all.of(3, "Death_date"))), "7/6/1790");
    EXPECT_EQ(all.value(3, "Cause_of_death"), "Tísica");
    EXPECT_EQ(all.value(3, "Age_at_death"), "40");
    EXPECT_EQ(all.value(3, "Civil_status"), "Widowed");
    EXPECT_EQ(all.value(3, "Sacraments"), "Todos");
    EXPECT_EQ(all.value(3, "Parish_class"), "Pobre");
    EXPECT_EQ(all.value(3, "Height"), "160");
    EXPECT_EQ(first(all.of(3, "Height"))["Missing"], "Unavailable");
    EXPECT_EQ(all.value(3, "Stature"), "alta");
    EXPECT_EQ(all.value(3, "Physical_description"), "cega");
    EXPECT_EQ(all.value(3, "Mass"), "Rezada|50|3000|Re");
    EXPECT_EQ(all.value(3, "Office"), "|1.5|480|");
    EXPECT_EQ(all.value(3, "Other_suffrage"), "trinta|||");
}

TEST_F(IdsOfAParish, TellsProfessionsSignaturesAndPassports)
{
    run("insert into profissoes (nind, idprofissao, dataref, datafixa, codprof, fonte) values (1, 1, '1746-02-03', 1, "
        "7, 'Rol'), (1, 2, null, 0, 8, null)");
    run("insert into assinatura (nind, idassinatura, dataref, datafixa, nivelassinatura, assina) values (1, 1, "
        "'1747-02-03', 1, 4, 'R. Dias')");
    run("insert into passaporte (nind, nPass, dataref, localdestino, tipolocaldest) values (1, 12, '1748-02-03', "
        "'010103', 'F')");
    const ids::Tables all = tables();
    const QList<ids::Row> occupations = all.of(1, "Occupation");
    ASSERT_EQ(occupations.size(), 2);
    EXPECT_EQ(occupations[0]["Value"] + occupations[0]["Missing"], "(8)Unavailable");
    EXPECT_EQ(occupations[1]["Value"] + ' ' + occupations[1]["Source"] + ' ' + ids::date(occupations[1]),
              "Lavrador Rol 3/2/1746");
    EXPECT_EQ(meaning(all, "Occupation", "Lavrador")["Explanation"], "profissao 7, HISCO 61110");
    EXPECT_EQ(all.value(1, "Signature_level"), "4");
    EXPECT_EQ(all.value(1, "Signs_as"), "R. Dias");
    EXPECT_EQ(all.value(1, "Passport"), "12");
    EXPECT_EQ(all.value(1, "Destination"), "Aguada de Cima");
}

TEST_F(IdsOfAParish, HasPlacesWithWhatTheyLieInAndNoOthers)
{
    run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (1, 'i', "
        "'1746-02-03', 1, '01010201', 'L'), (2, 'i', '1746-02-03', 1, '9999', 'F')");
    const ids::Tables all = tables();
    EXPECT_EQ(roles(all, 1).last(), "Resident Vidoeiro 3/2/1746");
    EXPECT_EQ(roles(all, 2).last(), "Resident (9999) 3/2/1746") << "in no table";
    QStringList relations, names;
    for (const ids::Row& row : all.rows["CONTEXT_CONTEXT"])
        relations << row["Relation"] + ": " + context(all, row["Id_C_1"]) + ", " + context(all, row["Id_C_2"]);
    for (const ids::Row& row : all.rows["CONTEXT"])
        if (row["Type"] == "Name") names << row["Value"];
    EXPECT_EQ(relations,
              (QStringList{"District and Country: Aveiro, Portugal", "Municipality and District: Águeda, Aveiro",
                           "Parish and Municipality: Aguada de Baixo, Águeda",
                           "Locality and Parish: Vidoeiro, Aguada de Baixo"}));
    EXPECT_EQ(names, (QStringList{"Portugal", "Aveiro", "Águeda", "Aguada de Baixo", "Vidoeiro", "(9999)"}));
    EXPECT_TRUE(ids::faultsOf(all).isEmpty()) << qPrintable(ids::faultsOf(all).join('\n'));
}

TEST_F(IdsOfAParish, LetsChildrenLiveWithTheirParentsWhereThatIsAskedFor)
{
    const qint64 grown = person({"Tomé", 'm', "1740-01-01", "", family_}),
                 dead = person({"João", 'm', "1751-01-01", "1752-01-01", family_}),
                 later = person({"Rosa", 'f', "1756-01-01", "", family_}),
                 wed = person({"Luzia", 'f', "1741-06-01", "", family_});
    couple(wed, 0, "1755-01-02");
    run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (1, 'f', "
        "'1755-02-03', 1, '01010201', 'L')");
    const auto residents = [this] {
        QStringList who;
        const ids::Tables all = tables();
        for (const ids::Row& row : all.rows["INDIV_CONTEXT"])
            if (row["Relation"] == "Resident") who << row["Id_I"];
        return who;
    };
    EXPECT_EQ(residents(), (QStringList{"1", "2"}));
    options_.childrenAtHome = true;
    EXPECT_EQ(residents(), (QStringList{"1", "2", "3"})) << grown << dead << later << wed;
    run("update residencia set dataref = '1756-01-01'");
    EXPECT_EQ(residents(), (QStringList{"1", "2", "3", "6"})) << "from the day of birth on";
}

TEST_F(IdsOfAParish, TellsFromWhenToWhenEachIsSeen)
{
    const ids::Tables all = tables();
    EXPECT_EQ(all.value(3, "Start_observation"), "Birth");
    EXPECT_EQ(all.value(3, "End_observation"), "Death");
    EXPECT_EQ(all.value(1, "End_observation"), "Last_act");
    EXPECT_EQ(ids::date(first(all.of(1, "End_observation"))), "10/3/1750") << "the baptism of a child";
    run("insert into passaporte (nind, nPass, dataref) values (1, 12, '1760-02-03')");
    EXPECT_EQ(tables().value(1, "End_observation"), "Emigration");
    run("update individuo set fimobs = '1755-01-01' where nind = 1");
    EXPECT_EQ(tables().value(1, "End_observation"), "Researcher");
}

TEST_F(IdsOfAParish, WritesTypesInUpperCaseWhereThatIsAskedFor)
{
    options_.upperCase = true;
    const ids::Tables all = tables();
    EXPECT_EQ(all.of(3, "BIRTH_DATE").size(), 1);
    EXPECT_FALSE(meaning(all, "BIRTH_DATE", "Definition").isEmpty());
    EXPECT_EQ(all.relations(1, 3), QStringList("Father"));
}

TEST_F(IdsOfAParish, NamesTheDatabaseByTheParishAndTheDay)
{
    EXPECT_EQ(first(tables().rows["INDIVIDUAL"])["Id_D"], "ORV_010102");
    options_.version = QDate(2026, 11, 3);
    EXPECT_EQ(first(tables().rows["METADATA"])["Id_D"], "ORV_010102_20261103");
}

TEST_F(IdsOfAParish, CountsLinksThatLeadNowhereAndWritesNone)
{
    run("insert into familias (nfamilia, nind) values (1, 77), (88, 1)");
    run("update individuo set testamenteiro = 77, famorig = 99 where nind = 1");
    run("insert into assistente (tipoacto, entidade, nind, tipoassistente) values ('b', 3, 77, 'p'), ('c', 99, 1, "
        "'t'), ('b', 77, 1, 'p')");
    run("insert into residencia (numero, tiporesid, dataref, localresid, tipolocal) values (77, 'i', '1755-02-03', "
        "'010102', 'F')");
    const ids::Tables all = tables();
    EXPECT_EQ(all.counts.lostLinks, 8);
    EXPECT_TRUE(ids::faultsOf(all).isEmpty()) << qPrintable(ids::faultsOf(all).join('\n'));
    for (const QByteArray& file : all.files)
        EXPECT_FALSE(file.contains(",77,"));
}
