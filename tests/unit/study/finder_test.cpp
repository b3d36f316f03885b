// Who somebody of an act may be.
#include "study/found.h"

namespace study {

using TheFinder = Finding;

TEST_F(TheFinder, FindsNobodyInAnEmptyBdp)
{
    EXPECT_EQ(godfathers("Manuel"), QList<qint64>());
    EXPECT_EQ(godfathers("?"), QList<qint64>());
    EXPECT_EQ(godfathers(""), QList<qint64>());
    EXPECT_TRUE(finder.couples(act, 0, conclusions).isEmpty());
}

TEST_F(TheFinder, FindsANameInOldSpellingsAndAbbreviations)
{
    const qint64 manuel = person({"Manuel Rodrigues"});
    const qint64 joao = person({"Joam Gliz"});
    person({"Pedro Rodrigues"});
    for (const char* name :
         {"Manuel Rodrigues", "manoel roiz", "M.el Roiz", "MANOEL RODRIGUEZ", "Padre Manuel Rodrigues"})
        EXPECT_EQ(godfathers(name), QList{manuel}) << name;
    EXPECT_EQ(godfathers("João Gonçalves"), QList{joao});
}

TEST_F(TheFinder, FindsANameWhileItIsTyped)
{
    const qint64 manuel = person({"Manoel Rodrigues"});
    const qint64 mateus = person({"Mateus"});
    EXPECT_EQ(godfathers("Man"), QList{manuel});
    EXPECT_EQ(godfathers("Manuel Rod"), QList{manuel});
    EXPECT_EQ(godfathers("manoel rod"), QList{manuel});
    EXPECT_EQ(godfathers("Mat"), QList{mateus});
    EXPECT_EQ(godfathers("M").size(), 2);
    EXPECT_EQ(godfathers("Rod"), QList{manuel}) << "whom one knows by the surname";
}

TEST_F(TheFinder, TakesFewerElementsForNoDisagreement)
{
    const qint64 shortOne = person({"José António"});
    const qint64 longOne = person({"José António de Carvalho"});
    const qint64 other = person({"José Dias"});
    EXPECT_EQ(godfathers("José António"), (QList{shortOne, longOne}));
    EXPECT_EQ(godfathers("José António de Carvalho"), (QList{longOne, shortOne}));
    EXPECT_EQ(godfathers("José"), (QList{shortOne, longOne, other}));
    const qint64 alone = person({"José"});
    EXPECT_EQ(godfathers("José António de Carvalho"), (QList{longOne, shortOne, alone}));
}

TEST_F(TheFinder, WeighsDevotionalNamesLittle)
{
    const qint64 josefa = person({"Josefa Rosa", 'f', "1670-01-01"});
    const qint64 inFull = person({"Josefa Rosa do Espírito Santo", 'f', "1671-01-01"});
    const qint64 surname = person({"Josefa Lopes", 'f', "1672-01-01"});
    for (int i = 0; i < 50; ++i)
        person({"Ana Dias", 'f'});
    tells(ActKind::Baptism, in1700, {{Role::Child, "Maria"}, {Role::Mother, "Josefa Rosa", 0}});
    EXPECT_EQ(numbers(1).mid(0, 2), (QList{josefa, inFull}));
    tells(ActKind::Baptism, in1700, {{Role::Child, "Maria"}, {Role::Mother, "Josefa da Conceição", 0}});
    EXPECT_GT(of(1, josefa).score, of(1, surname).score - 3) << "a devotional name that differs is no disagreement";
    EXPECT_GT(of(1, josefa).score, 0);
}

TEST_F(TheFinder, GivesAllReadingsOfAnAbbreviationAndWeighsThemLess)
{
    const qint64 costa = person({"Maria da Costa", 'f'});
    const qint64 cunha = person({"Maria da Cunha", 'f'});
    person({"Maria Lopes", 'f'});
    for (int i = 0; i < 50; ++i)
        person({"Ana Dias", 'f'});
    tells(ActKind::Baptism, in1700, {{Role::Child, "Ana"}, {Role::Mother, "Maria Cª", 0}});
    EXPECT_EQ(numbers(1).mid(0, 2), (QList{costa, cunha}));
    const double half = of(1, costa).score;
    tells(ActKind::Baptism, in1700, {{Role::Child, "Ana"}, {Role::Mother, "Maria da Costa", 0}});
    EXPECT_GT(of(1, costa).score, half + 1);
}

TEST_F(TheFinder, TellsHomonymsApartByTheSpouseOfTheAct)
{
    const qint64 wrong = person({"Manuel Dias", 'm', "1665-01-01"});
    couple(wrong, person({"Maria Lopes", 'f'}), "1690-01-01");
    const qint64 right = person({"Manuel Dias", 'm', "1666-01-01"});
    const qint64 ana = person({"Ana Gomes", 'f'});
    couple(right, ana, "1691-01-01");
    const qint64 single = person({"Manuel Dias", 'm', "1667-01-01"});
    tells(ActKind::Baptism, in1700,
          {{Role::Child, "Maria"}, {Role::Father, "Manuel Dias", 0}, {Role::Mother, "Anna Gomes", 0}});
    EXPECT_EQ(numbers(1), (QList{right, single, wrong}));
    EXPECT_EQ(of(1, right).reasons.first(), "casado com Ana Gomes (nome da mãe)");
    EXPECT_TRUE(of(1, wrong).against.contains("casado com Maria Lopes"));
    isKnown(2, ana);
    EXPECT_EQ(numbers(1), (QList{right, single, wrong}));
    EXPECT_EQ(of(1, right).reasons.first(), "casado com Ana Gomes, mãe neste acto");
}

TEST_F(TheFinder, FindsTheSpouseOfWhoIsKnownWhateverTheName)
{
    const qint64 husband = person({"Manuel Dias"});
    const qint64 wife = person({"Joana Gomes", 'f'});
    couple(husband, wife);
    tells(ActKind::Baptism, in1700,
          {{Role::Child, "Maria"}, {Role::Father, "Manuel Dias", 0}, {Role::Mother, "Josefa", 0}});
    EXPECT_EQ(numbers(2), QList<qint64>());
    isKnown(1, husband);
    EXPECT_EQ(numbers(2), QList{wife});
    EXPECT_EQ(of(2, wife).against, QStringList("chama-se Joana Gomes"));
}

TEST_F(TheFinder, TellsHomonymsApartByAge)
{
    const qint64 young = person({"Manuel Dias", 'm', "1675-01-01"});
    const qint64 old = person({"Manuel Dias", 'm', "1640-01-01"});
    tells(ActKind::Burial, in1700, {{Role::Deceased, "Manuel Dias"}});
    isTold(0, attribute::age, "60 anos");
    EXPECT_EQ(numbers(0), (QList{old, young}));
    EXPECT_TRUE(of(0, old).reasons.contains("tinha 60 anos"));
    EXPECT_EQ(of(0, young).against, QStringList("tinha 25 anos, e não 60"));
    act.people[0].attributes.clear();
    isTold(0, attribute::age, "25");
    EXPECT_EQ(numbers(0), (QList{young, old}));
}

TEST_F(TheFinder, TellsHomonymsApartByResidenceProfessionAndNickname)
{
    run("insert into lugar (codlugar, nomelugar) values ('03089901', 'Pouca Pena'), ('03089902', 'Souto')");
    run("insert into profissao (codprof, profissao) values (7, 'Moleiro')");
    const qint64 one = person({"Manuel Dias"}), other = person({"Manuel Dias"}), third = person({"Manuel Dias"});
    const qint64 fourth = person({"Manuel Dias"});
    run("insert into residencia (numero, tiporesid, dataref, localresid, tipolocal) values (?, 'i', '1690-02-03', "
        "'03089902', 'L'), (?, 'i', '1690-02-03', '03089901', 'L'), (?, 'i', '1710-02-03', '03089902', 'L')",
        {one, other, other});
    run("insert into profissoes (nind, idprofissao, codprof) values (?, 1, 7)", {third});
    run("update individuo set alcunha = 'O Torto' where nind = ?", {fourth});
    tells(ActKind::Baptism, in1700, {{Role::Child, "Maria"}, {Role::Godfather, "Manuel Dias"}});
    isTold(1, attribute::residence, "Poucapena");
    EXPECT_EQ(numbers(1).first(), other);
    EXPECT_TRUE(of(1, other).reasons.contains("morava em Pouca Pena (03/02/1690)"));
    EXPECT_EQ(of(1, other).residence, "Pouca Pena") << "that of 1710 came later";
    conclusions.places["Poucapena"] = {"03089902", 'L'};
    EXPECT_EQ(numbers(1).mid(0, 2), (QList{one, other}));
    act.people[1].attributes.clear();
    isTold(1, attribute::profession, "moleiro");
    EXPECT_EQ(numbers(1).first(), third);
    act.people[1].attributes.clear();
    isTold(1, attribute::nickname, "o torto");
    EXPECT_EQ(numbers(1).first(), fourth);
    EXPECT_TRUE(of(1, fourth).reasons.contains("alcunha: O Torto"));
}

TEST_F(TheFinder, FindsAGroomBaptisedWithAFirstNameAloneByHisParents)
{
    const qint64 father = person({"Manuel Dias"}), mother = person({"Ana Gomes", 'f'});
    const qint64 family = couple(father, mother);
    for (int i = 0; i < 30; ++i)
        person({"José", 'm', "1675-01-01"});
    const qint64 jose = person({"José", 'm', "1675-05-05", "", family});
    const qint64 brother = person({"António", 'm', "1677-05-05", "", family});
    tells(ActKind::Marriage, in1700,
          {{Role::Groom, "José Dias de Carvalho"}, {Role::Father, "Manuel Diaz", 0}, {Role::Mother, "Ana Gomez", 0}});
    EXPECT_EQ(numbers(0).first(), jose);
    EXPECT_FALSE(numbers(0).contains(brother));
    isKnown(1, father);
    EXPECT_EQ(numbers(0).first(), jose);
    EXPECT_FALSE(numbers(0).contains(brother));
    EXPECT_TRUE(of(0, jose).reasons.contains("filho de Manuel Dias, pai do noivo neste acto"));
}

TEST_F(TheFinder, FindsTheParentsOfWhoIsKnown)
{
    const qint64 father = person({"Manuel Dias"}), mother = person({"Ana Gomes", 'f'});
    const qint64 jose = person({"José", 'm', "1675-05-05", "", couple(father, mother)});
    const qint64 homonym = person({"Manuel Dias"});
    tells(ActKind::Marriage, in1700, {{Role::Groom, "José"}, {Role::Father, "Manuel Dias", 0}, {Role::Mother, "", 0}});
    isKnown(0, jose);
    EXPECT_EQ(numbers(1), (QList{father, homonym}));
    EXPECT_EQ(of(1, father).reasons.first(), "pai de José, noivo neste acto");
    EXPECT_EQ(of(1, homonym).against, QStringList("pai de José é Manuel Dias"));
    EXPECT_EQ(numbers(2), QList{mother}) << "without a name";
}

TEST_F(TheFinder, GivesNoMoreThanAskedForAndNobodyTwice)
{
    for (int i = 0; i < 40; ++i)
        person({"Manuel Manuel Dias Dias"});
    godfathers("Manuel Dias");
    EXPECT_EQ(find(1, 7).size(), 7);
    EXPECT_EQ(find(1, 0).size(), 0);
    EXPECT_EQ(find(1, -1).size(), 0);
    QList<qint64> all = numbers(1);
    EXPECT_EQ(all.size(), 20);
    std::ranges::sort(all);
    EXPECT_TRUE(std::ranges::adjacent_find(all) == all.end());
    EXPECT_TRUE(finder.find(act, 2, conclusions).isEmpty()) << "nobody of the act";
    EXPECT_TRUE(finder.find(act, -1, conclusions).isEmpty());
    EXPECT_FALSE(finder.find(act, 1, {}).isEmpty()) << "nothing decided yet";
}

TEST_F(TheFinder, FindsANameWhateverStandsInIt)
{
    for (const QString& odd : {QString("D'Ávila; drop table individuo --"), QString::fromUtf8("Zoë 👶"), QString("%_%"),
                               QString(10000, 'x'), QString(QChar(0)) + "Rui", QString("\"\"")})
    {
        run("insert into individuo (nind, nome, sexo) values (?, ?, 'm')", {++lastPerson, odd.left(255)});
        tells(ActKind::Baptism, in1700, {{Role::Child, "Maria"}, {Role::Godfather, ""}});
        act.people[1].name.value = odd;
        EXPECT_NO_THROW(find(1)) << qPrintable(odd.left(50));
    }
    EXPECT_EQ(godfathers("d'avila").size(), 1);
    EXPECT_EQ(godfathers("ZOE").size(), 1);
}

TEST_F(TheFinder, FindsTheFamilyOfFatherAndMotherWithItsChildren)
{
    const qint64 father = person({"Manuel de Abreu", 'm', "1665-01-01"});
    const qint64 mother = person({"Joana do Espírito Santo", 'f', "1668-01-01"});
    const qint64 family = couple(father, mother, "1690-01-02");
    person({"Ana", 'f', "1698-05-06", "", family});
    person({"Rui", 'm', "1691-05-06", "", family});
    couple(person({"Manuel de Abreu"}), person({"Maria Dias", 'f'}));
    tells(ActKind::Baptism, in1700,
          {{Role::Child, "Maria"}, {Role::Mother, "Joanna", 0}, {Role::Father, "Manoel de Abreo", 0}});
    const QList<CoupleCandidate> found = finder.couples(act, 0, conclusions);
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0].nfamilia, family);
    EXPECT_EQ(found[0].husband, father);
    EXPECT_EQ(found[0].wife, mother);
    EXPECT_EQ(found[0].names, "Manuel de Abreu e Joana do Espírito Santo");
    EXPECT_EQ(found[0].children, 2);
    EXPECT_EQ(shown(found[0].marriage), "02/01/1690");
    EXPECT_EQ(shown(found[0].firstChild), "06/05/1691");
    EXPECT_EQ(shown(found[0].lastChild), "06/05/1698");
    EXPECT_TRUE(found[0].open);
    EXPECT_TRUE(found[0].reasons.contains("pai: o mesmo nome"));
}

TEST_F(TheFinder, FindsTheFamiliesOfOneParentAlone)
{
    const qint64 father = person({"Manuel de Abreu"});
    const qint64 first = couple(father, person({"Joana", 'f'})), second = couple(father, person({"Ana", 'f'}));
    tells(ActKind::Baptism, in1700, {{Role::Child, "Maria"}, {Role::Father, "Manuel de Abreu", 0}});
    EXPECT_EQ(finder.couples(act, 0, conclusions).size(), 2);
    tells(ActKind::Baptism, in1700, {{Role::Child, "Maria"}, {Role::Father, "?", 0}, {Role::Mother, "Ana", 0}});
    ASSERT_EQ(finder.couples(act, 0, conclusions).size(), 1);
    EXPECT_EQ(finder.couples(act, 0, conclusions)[0].nfamilia, second);
    isKnown(1, father);
    EXPECT_EQ(finder.couples(act, 0, conclusions)[0].nfamilia, second);
    act.people[2].name.value = "Joana";
    EXPECT_EQ(finder.couples(act, 0, conclusions)[0].nfamilia, first);
    act.people[2].name.value = "Rita";
    EXPECT_TRUE(finder.couples(act, 0, conclusions).isEmpty());
    EXPECT_TRUE(finder.couples(act, 1, conclusions).isEmpty());
}

TEST_F(TheFinder, TellsHusbandAndWifeBySexAndByTheirOrderWhereItIsntKnown)
{
    const auto coupleOf = [&](char one, char other) {
        const qint64 first = person({"Rui Dias", one}), second = person({"Rui Dias", other});
        const qint64 family = couple(first, second);
        for (const Role role : {Role::Father, Role::Mother}) {
            tells(ActKind::Baptism, {}, {{Role::Child, "Maria"}, {role, "Rui Dias", 0}});
            for (const CoupleCandidate& each : finder.couples(act, 0, conclusions, 100))
                if (each.nfamilia == family) return std::pair(each.husband == first, each.wife == second);
        }
        return std::pair(false, false);
    };
    for (const auto& [one, other] : {std::pair('m', 'f'), std::pair('d', 'f'), std::pair('m', 'd'), std::pair('d', 'd'),
                                     std::pair('m', 'm'), std::pair('f', 'f')})
        EXPECT_EQ(coupleOf(one, other), std::pair(one != 'f', one != 'f')) << one << other;
    EXPECT_EQ(coupleOf('f', 'm'), std::pair(false, false));
    EXPECT_EQ(coupleOf('d', 'm'), std::pair(false, false));
}

TEST_F(TheFinder, TellsWhetherACoupleCanHaveAChildAtThatDate)
{
    const qint64 father = person({"Rui Dias"}), mother = person({"Ana Gomes", 'f', "1655-01-01"});
    const qint64 family = couple(father, mother);
    tells(ActKind::Baptism, in1700,
          {{Role::Child, "Maria"}, {Role::Father, "Rui Dias", 0}, {Role::Mother, "Ana Gomes", 0}});
    const auto isOpen = [&] {
        const QList<CoupleCandidate> found = finder.couples(act, 0, conclusions);
        return !found.isEmpty() && found[0].open;
    };
    EXPECT_TRUE(isOpen()) << "she was 45";
    const qint64 child = person({"Rui", 'm', "1699-10-01", "", family});
    EXPECT_FALSE(isOpen()) << "a child five months before";
    run("update individuo set datanasc = '1699-05-01' where nind = ?", {child});
    EXPECT_TRUE(isOpen());
    run("update individuo set datanasc = '1648-01-01' where nind = ?", {mother});
    EXPECT_FALSE(isOpen()) << "she was 52";
    run("update individuo set datanasc = null, dataobito = '1699-12-01' where nind = ?", {mother});
    EXPECT_FALSE(isOpen()) << "she was dead";
    run("update individuo set dataobito = null where nind = ?", {mother});
    EXPECT_TRUE(isOpen());
    run("update individuo set dataobito = '1699-04-01' where nind = ?", {father});
    EXPECT_FALSE(isOpen()) << "he was dead";
    run("update individuo set dataobito = null where nind = ?", {father});
    run("update familia set datacasam = '1650-01-01'");
    EXPECT_FALSE(isOpen()) << "married for 50 years";
}

TEST_F(TheFinder, SeesAtOnceWhatWasWrittenOfTheFamilies)
{
    const qint64 father = person({"Rui Dias"}), mother = person({"Ana Gomes", 'f'}), other = person({"Rita Vaz", 'f'});
    const qint64 family = couple(father, mother);
    tells(ActKind::Baptism, in1700, {{Role::Child, "Maria"}, {Role::Father, "Rui Dias", 0}});
    EXPECT_EQ(find(1)[0].spouse, "Ana Gomes");
    EXPECT_EQ(finder.couples(act, 0, conclusions)[0].children, 0);
    const qint64 child = person({"João", 'm', "1699-01-01", "", family});
    EXPECT_EQ(finder.couples(act, 0, conclusions)[0].children, 1);
    run("update individuo set famorig = null where nind = ?", {child});
    EXPECT_EQ(finder.couples(act, 0, conclusions)[0].children, 0);
    run("update familias set nind = ? where nind = ?", {other, mother});
    EXPECT_EQ(find(1)[0].spouse, "Rita Vaz");
    run("update individuo set nome = 'Rita Novais' where nind = ?", {other});
    EXPECT_EQ(find(1)[0].spouse, "Rita Novais");
    run("update individuo set sexo = 'f' where nind = ?", {father});
    run("update individuo set sexo = 'm' where nind = ?", {other});
    act.people[1].role = Role::Mother;
    EXPECT_EQ(finder.couples(act, 0, conclusions)[0].wife, father);
    run("delete from familias where nind = ?", {other});
    EXPECT_EQ(find(1)[0].spouse, "");
    run("update familia set datacasam = '1690-01-01'");
    EXPECT_EQ(shown(finder.couples(act, 0, conclusions)[0].marriage), "01/01/1690");
    elsewhere("update familia set datacasam = '1691-01-01'");
    EXPECT_EQ(shown(finder.couples(act, 0, conclusions)[0].marriage), "01/01/1691");
    run("delete from familia where nfamilia = 1");
    EXPECT_TRUE(finder.couples(act, 0, conclusions).isEmpty());
}

} // namespace study
