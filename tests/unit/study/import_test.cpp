#include "study/transcripts/import.h"

#include "parish/acts.h"
#include "platform/desktop/desktop.h"
#include "store/copiasGuardadas.h"
#include "store/session.h"
#include "study/acts/register.h"
#include "study/tellings.h"
#include "study/transcripts/importSources.h"
#include "study/transcripts/kleio.h"
#include "study/transcripts/sexByName.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

using namespace study;

namespace {

Transcript kleio(const QByteArray& acts)
{
    return readKleio("kleio$x\nfonte$b1\n" + acts);
}

// A baptism of a child of the same two parents.
QByteArray child(const char* id, const char* date, const QByteArray& name, const QByteArray& more = {})
{
    return QByteArray("bap$") + id + '/' + date + "\n n$" + name + "/f\n  pai$bento alvz/m\n  mae$catarina luis/f\n" +
           more;
}

class TranscriptImport : public SmallParish
{
protected:
    TranscriptImport() { Desktop::setProgramFolder(ORV_DATA_DIR); }

    static ImportReport import(const QByteArray& acts, const ImportOptions& options = {})
    {
        return importActs(cnBDP, kleio(acts), options);
    }
    static int count(const QString& table) { return value("select count(*) from " + table).toInt(); }
    static int actsStored() { return hasActs(cnBDP) ? count("estudo_acto") : 0; }
    static QStringList reasons(const ImportReport& report)
    {
        QStringList all;
        for (const LeftAct& one : report.left)
            all << QString::number(one.line) + ": " + one.reasons.join(' ');
        return all;
    }
};

TEST_F(TranscriptImport, LinksNobodyWhereItIsNotToldTo)
{
    const ImportReport report = import(child("1", "1/1/1700", "ana") + child("2", "1/3/1702", "eva"));
    EXPECT_EQ(report.storedActs(), 2);
    EXPECT_EQ(report.newPeople, 6);
    EXPECT_EQ(report.knownPeople, 0);
    EXPECT_EQ(report.newFamilies, 2);
    EXPECT_EQ(count("individuo"), 6);
    EXPECT_EQ(count("familia"), 2);
    EXPECT_EQ(actsStored(), 2);
}

TEST_F(TranscriptImport, LinksParentsTogetherWhereTheirSpanOfBirthsIsOpen)
{
    const ImportOptions couples{.rule = LinkRule::CouplesWithOpenSpan};
    const ImportReport report = import(child("1", "1/1/1700", "ana") + child("2", "1/3/1702", "eva"), couples);
    EXPECT_EQ(report.linkedCouples, 1);
    EXPECT_EQ(report.newPeople, 4);
    EXPECT_EQ(report.knownPeople, 2);
    EXPECT_EQ(value("select count(*) from individuo where famorig = 1"), 2.0);

    // A sister eight weeks later can't be theirs, and a mother alone is no couple.
    const ImportReport others =
        import(child("3", "1/5/1702", "rita") + "bap$4/1/1/1705\n n$gil/m\n  mae$catarina luis/f\n", couples);
    EXPECT_EQ(others.linkedCouples, 0);
    EXPECT_EQ(others.knownPeople, 0);

    // Now two couples of these names are open: neither is taken.
    EXPECT_EQ(import(child("5", "1/1/1706", "luisa"), couples).linkedCouples, 0);
}

TEST_F(TranscriptImport, LinksNoParentsWhoseSurnamesAreOthers)
{
    const ImportOptions couples{.rule = LinkRule::CouplesWithOpenSpan};
    import(child("1", "1/1/1700", "ana"), couples);
    const ImportReport others = import(child("2", "1/3/1702", "eva").replace("luis", "pinto") +
                                           child("3", "1/3/1705", "rita").replace("alvz", "lobo"),
                                       couples);
    EXPECT_EQ(others.storedActs(), 2);
    EXPECT_EQ(others.linkedCouples, 0);
    EXPECT_EQ(others.newFamilies, 2);
}

TEST_F(TranscriptImport, GivesTwinsAndThoseBornLaterTheSameParents)
{
    const ImportOptions couples{.rule = LinkRule::CouplesWithOpenSpan};
    const ImportReport report = import(child("1", "1/1/1700", "ana") + child("2", "1/1/1700", "eva") +
                                           child("3", "1/3/1702", "rita") + child("4", "1/3/1704", "luisa"),
                                       couples);
    EXPECT_EQ(report.storedActs(), 4) << qPrintable(reasons(report).join('\n'));
    EXPECT_EQ(report.linkedCouples, 3);
    EXPECT_EQ(count("familia"), 1);
}

TEST_F(TranscriptImport, SpellsNamesAsTodayAndKeepsWhatStands)
{
    import(child("1", "1/1/1700", "ana"));
    EXPECT_EQ(value("select nome from individuo where nind = 2"), "Bento Álvares");
    const auto record = lastAct(cnBDP);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->act.people[1].name.value, "bento alvz");
    EXPECT_EQ(record->act.people[1].standardName, "") << "nobody settled it";
}

TEST_F(TranscriptImport, TakesTheSexFromTheNameWhereItIsLeftToIt)
{
    const ImportReport report = import("bap$1/1/1/1700\n n$josé\nbap$2/1/1/1700\n n$ynes\nbap$3/1/1/1700\n n$rita/m\n"
                                       "bap$4/1/1/1700\n n$?/m\nbap$5/1/1/1700\n n$rita?\nbap$6/1/1/1700\n n$mel\n");
    EXPECT_EQ(report.sexesByName, 2);
    QStringList sexes;
    for (const char* name : {"1", "2", "3", "5", "6"})
        sexes << value("select individuo.sexo from individuo, estudo_pessoa p, estudo_acto a where p.nind = "
                       "individuo.nind and "
                       "p.acto = a.id and a.id_transcricao = ?",
                       {QString(name)})
                     .toString();
    EXPECT_EQ(sexes, (QStringList{"m", "f", "m", "d", "d"})) << qPrintable(sexes.join(' '));
    EXPECT_EQ(value("select count(*) from estudo_pessoa where razao = 'Sexo pelo nome'"), 2);
    EXPECT_EQ(value("select count(*) from estudo_pessoa where sexo is not null"), 2)
        << "what the file tells, of act 4 too";
}

TEST(SexByName, IsThatOfTheFirstGivenName)
{
    Desktop::setProgramFolder(ORV_DATA_DIR);
    for (const char* man :
         {"Manoel", "joam", "José Maria", "Thomé", "Antº", "Garcia", "Nicolau", "Domingos", "Ventura", "Boaventura"})
        EXPECT_EQ(sexByName(man), Sex::Male) << man;
    for (const char* woman :
         {"Izabel", "Mª", "D. Leonor", "Ignez", "Maria José", "Antónia", "Guiomar", "Anunciação", "Ascensão", "Carmo"})
        EXPECT_EQ(sexByName(woman), Sex::Female) << woman;
    for (const char* open : {"", "?", "Mel", "Cª", "exposto"})
        EXPECT_EQ(sexByName(open), Sex::Unknown) << open;
}

TEST_F(TranscriptImport, KeepsPriestsAndTheNamelessInTheAct)
{
    const QByteArray act = "bap$1/1/1/1700\n n$ana/f\n  pai$?\n celebrante$padre rui\n";
    const ImportReport kept = import(act);
    EXPECT_EQ(kept.newPeople, 1);
    EXPECT_EQ(kept.keptNames, 2);
    EXPECT_EQ(import(QByteArray(act).replace("$1/1", "$2/1"), {.newPriests = true}).newPeople, 2);
    EXPECT_EQ(value("select primpadrebapt from individuo where nind = 2"), 3.0);
}

TEST_F(TranscriptImport, KeepsSaintsAndThePoorWithoutANameInTheAct)
{
    const ImportReport report = import("bap$1/1/1/1700\n n$ana/f\n  pad$santo antonio\n  mad$uma pobre\n");
    EXPECT_EQ(report.newPeople, 1);
    EXPECT_EQ(report.keptNames, 2);
}

TEST_F(TranscriptImport, KnowsPlacesByTheirKey)
{
    const auto living = [](const char* place) { return "   ls$residencia/" + QByteArray(place) + "\n"; };
    const ImportReport report = import(child("1", "1/1/1700", "a", living("ri-beira")) +
                                       child("2", "1/1/1701", "b", living("ribeira, freguesia de santa maria")) +
                                       child("3", "1/1/1702", "c", living("ribeira, freguesia de loivos")) +
                                       child("4", "1/1/1703", "d", living("longe")) +
                                       child("5", "1/1/1704", "e", living("lugar da ribeira, desta freguesia")));
    EXPECT_EQ(report.unplaced, (QMap<QString, int>{{"longe", 1}, {"ribeira, freguesia de loivos", 1}}));
    EXPECT_EQ(value("select count(*) from residencia where localresid = '03030102'"), 3.0);
    EXPECT_EQ(count("residencia"), 3);
}

TEST_F(TranscriptImport, MakesNewPlacesAndProfessionsOnceAndOnlyWhenToldTo)
{
    const QByteArray living = "   ls$residencia/pouca pena\n   ls$profissao/tamanqueiro\n";
    const QByteArray acts = child("1", "1/1/1700", "a", living) + child("2", "1/1/1701", "b", living);
    ImportReport report = importActs(cnBDP, kleio(acts), {});
    EXPECT_EQ(report.unplaced.value("pouca pena"), 2);
    EXPECT_EQ(report.unknownProfessions.value("tamanqueiro"), 2);
    EXPECT_EQ(count("lugar"), 2);

    report = importActs(cnBDP, kleio(QByteArray(acts).replace("bap$", "bap$n")),
                        {.newPlaces = true, .newProfessions = true});
    EXPECT_TRUE(report.unplaced.isEmpty());
    EXPECT_TRUE(report.unknownProfessions.isEmpty());
    EXPECT_EQ(value("select count(*) from lugar where nomelugar = '*Pouca pena'"), 1.0);
    EXPECT_EQ(value("select count(*) from residencia where localresid = '03030103'"), 2.0);
    EXPECT_EQ(value("select count(*) from profissao where profissao = '*tamanqueiro' collate nocase"), 1.0);
}

TEST_F(TranscriptImport, LeavesOutWhatContradictsAndSaysWhere)
{
    const ImportReport report = import(child("1", "1/1/2400", "ana") + child("2", "1/1/1701", "eva"));
    EXPECT_EQ(report.storedActs(), 1);
    ASSERT_EQ(report.left.size(), 1);
    EXPECT_EQ(report.left[0].line, 3);
    EXPECT_EQ(report.left[0].act, "Baptismos b1: Ana");
    EXPECT_FALSE(report.left[0].reasons.isEmpty());
    EXPECT_FALSE(report.left[0].there);
    EXPECT_EQ(actsStored(), 1);
    EXPECT_EQ(count("individuo"), 3);
}

TEST_F(TranscriptImport, StoresWithoutCardsWhatTheyCannotTake)
{
    const QByteArray odd = "bap$1/31/9/1700\n n$ana\n  ls$residencia/pouca pena\n"
                           "bap$3\n n$rita/f\nbap$4/1/1/1702\n pad$rui\nbap$5/1/1/1702\n n$/m\n  pai$gil\n"
                           "c$6/1/1/1702\n noivo$rui\n noiva$?\n";
    const ImportReport report = import(odd + child("2", "1/1/1701", "eva"), {.newPlaces = true});
    EXPECT_EQ(report.storedActs(), 6) << qPrintable(reasons(report).join('\n'));
    EXPECT_TRUE(report.left.isEmpty());
    ASSERT_EQ(report.alone.size(), 5);
    EXPECT_EQ(report.alone[0].line, 3);
    EXPECT_EQ(report.alone[0].act, "Baptismos b1: Ana");
    EXPECT_TRUE(report.alone[0].reasons.first().startsWith("A data 31/09/1700 não existe"));
    EXPECT_TRUE(report.lines().join('\n').contains("Só o acto, sem fichas, que não o podem receber: 5 actos."));
    EXPECT_EQ(actsStored(), 6);
    EXPECT_EQ(count("individuo"), 3) << "of the one whole act";
    EXPECT_EQ(count("lugar"), 2) << "no place is made for an act alone";
    EXPECT_EQ(value("select count(*) from estudo_pessoa where identidade <> 'so no acto'"), 3.0);
    EXPECT_EQ(value("select sexo from estudo_pessoa where nome = 'ana'").toString(), "") << "nobody told it";
    EXPECT_EQ(value("select count(distinct acto) from estudo_ressalva where razao = 'A importação guardou só o acto.'"),
              5.0);

    const ImportReport again = import(odd);
    EXPECT_EQ(again.storedActs(), 0) << "they are there";
    EXPECT_EQ(again.left.size(), 5);
}

TEST_F(TranscriptImport, LeavesAnActAloneOutWhereTheUserHasToDecide)
{
    const QByteArray twice = "bap$1/1/1/1700/numero=5\n n$ana/f\nbap$2/31/9/1701/numero=5\n n$eva/f\n";
    const ImportReport report = import(twice);
    EXPECT_EQ(report.storedActs(), 1);
    EXPECT_EQ(report.left.size(), 1);
    EXPECT_TRUE(report.alone.isEmpty());
    EXPECT_EQ(import(twice, {.overruling = "o livro repete os números"}).alone.size(), 1);
}

TEST_F(TranscriptImport, OverrulesForAReasonThatIsKept)
{
    const QByteArray future = "bap$1/1/1/1700/numero=5\n n$ana/f\nbap$2/2/1/1700/numero=5\n n$eva/f\n";
    EXPECT_EQ(import(future).left.size(), 1) << "the same number twice";
    const ImportReport report = import(QByteArray(future).replace("numero=5", "numero=6").replace("bap$", "bap$x"),
                                       {.overruling = "o livro repete os números"});
    EXPECT_TRUE(report.left.isEmpty());
    EXPECT_EQ(value("select razao from estudo_ressalva"), "o livro repete os números");
}

TEST_F(TranscriptImport, StoresNothingTwice)
{
    const QByteArray byId = child("1", "1/1/1700", "ana") + child("2", "1/1/1701", "eva");
    const QByteArray byNumber = "bap$/3/1/1700/numero=8\n n$rui/m\n";
    const QByteArray byContent = "bap$/4/1/1700/fol.3\n n$gil/m\nbap$/4/1/1700/fol.3\n n$tome/m\n";
    const QByteArray all = byId + byNumber + byContent;
    EXPECT_EQ(import(all).storedActs(), 5);
    const auto before = cardRows();
    const ImportReport again = import(all + child("9", "1/1/1704", "luisa").replace("bento", "nuno"));
    EXPECT_EQ(again.storedActs(), 1);
    EXPECT_EQ(again.left.size(), 5);
    for (const LeftAct& one : again.left)
        EXPECT_TRUE(one.there) << qPrintable(one.reasons.join(' '));
    EXPECT_EQ(reasons(again).first(), "3: Já está transcrito na BDP.");
    EXPECT_EQ(actsStored(), 6);
}

TEST_F(TranscriptImport, TakesActsForOthersWhereTheirNumbersBeginAgain)
{
    import("bap$/3/1/1700/numero=1\n n$rui/m\n");
    const ImportOptions overruled{.overruling = "os números começam de novo"};
    const ImportReport refused = import("bap$/9/2/1701/numero=1\n n$gil/m\n");
    ASSERT_EQ(refused.left.size(), 1);
    EXPECT_FALSE(refused.left.first().there) << "another act, which the user may overrule";
    EXPECT_EQ(import("bap$/9/2/1701/numero=1\n n$gil/m\n", overruled).storedActs(), 1) << "each year";
    EXPECT_EQ(import("bap$/9/2/1701/numero=1\n n$gil lido melhor/m\n").storedActs(), 0);
    const auto withoutABook = [&](const QByteArray& acts) {
        return importActs(cnBDP, readKleio("kleio$x\n" + acts), overruled).storedActs();
    };
    EXPECT_EQ(withoutABook("bap$/9/2/1701/numero=1\n n$tome/m\n"), 1);
    EXPECT_EQ(withoutABook("bap$/9/2/1701/numero=1\n n$simao/m\n"), 1) << "of whatever book";
    EXPECT_EQ(withoutABook("bap$/9/2/1701/numero=1\n n$simao/m\n"), 0);
}

TEST_F(TranscriptImport, TakesTheSameIdTwiceInOneFile)
{
    EXPECT_EQ(import(child("1", "1/1/1700", "ana") + child("1", "1/1/1703", "eva")).storedActs(), 2);
}

TEST_F(TranscriptImport, KeepsWhatIsToldOfABookAlsoWithoutAnActOfIt)
{
    const QByteArray file = "kleio$x\nfonte$b1/1702/paroquiais/arquivo/obs=folhas soltas\n" +
                            child("1", "1/1/1702", "ana") + "fonte$b2/1703/paroquiais\ncrisma$k/1/1/1703\n n$ze\n" +
                            "fonte$b3\n" + child("2", "1/1/1704", "eva");
    const ImportReport report = importActs(cnBDP, readKleio(file), {});
    EXPECT_EQ(report.books, (QStringList{"Livro b1: 1702; paroquiais; arquivo; folhas soltas",
                                         "Livro b2: 1703; paroquiais; crisma$k/1/1/1703\nn$ze"}));
    EXPECT_TRUE(report.lines().contains("O que se diz dos livros:"));
    ASSERT_EQ(keptSources(cnBDP).size(), 2);
    EXPECT_EQ(keptSources(cnBDP).first(), (Source{"b1", "1702", "paroquiais", "arquivo", "folhas soltas"}));
    EXPECT_EQ(value("select count(*) from estudo_acto where observacoes <> ''"), 0) << "an act tells what it told";

    EXPECT_TRUE(importActs(cnBDP, readKleio(file), {}).books.isEmpty()) << "nothing twice";
    EXPECT_EQ(keptSources(cnBDP).size(), 2);
}

TEST_F(TranscriptImport, LeavesNoBookOfAFileThatWasCancelled)
{
    const Transcript read = readKleio("kleio$x\nfonte$b1/1702/paroquiais\n" + child("1", "1/1/1702", "ana"));
    importActs(cnBDP, read, {}, [](int done, int all) { return done < all; });
    EXPECT_TRUE(keptSources(cnBDP).isEmpty());
}

TEST_F(TranscriptImport, SaysWhereTheEncodingWasGuessed)
{
    const QByteArray old = child("1", "1/1/1702", "Concei\xE7\xE3o");
    const QString doubt = doubtOfEncoding("1252");
    EXPECT_TRUE(import(old).lines().contains(doubt));
    EXPECT_FALSE(import(child("2", "1/1/1704", "Conceição")).lines().contains(doubt));
}

TEST_F(TranscriptImport, LeavesNothingOfADamagedFile)
{
    const auto before = cardRows();
    const ImportReport report = import(child("1", "1/1/1700", "ana") + " pad$x/obs=\"\"\"sem fim\n");
    EXPECT_EQ(report.storedActs(), 0);
    EXPECT_EQ(report.problems.size(), 1);
    EXPECT_EQ(cardRows(), before);
    EXPECT_EQ(actsStored(), 0);
}

TEST_F(TranscriptImport, LeavesNothingWhereItIsCancelledAtAnyAct)
{
    const Transcript read =
        kleio(child("1", "1/1/1700", "ana") + child("2", "1/1/1702", "eva") + child("3", "1/1/1704", "rui"));
    const auto before = cardRows();
    for (int last = 0; last <= 3; ++last) {
        const ImportReport report = importActs(cnBDP, read, {.rule = LinkRule::CouplesWithOpenSpan},
                                               [last](int done, int all) { return all == 3 && done < last; });
        EXPECT_TRUE(report.cancelled);
        EXPECT_EQ(report.storedActs(), 0);
        EXPECT_EQ(cardRows(), before) << last;
        EXPECT_EQ(actsStored(), 0) << last;
    }
    EXPECT_EQ(importActs(cnBDP, read, {.rule = LinkRule::CouplesWithOpenSpan}).linkedCouples, 2)
        << "what was given up is forgotten by the finder, too";
}

TEST_F(TranscriptImport, LeavesNothingBehindAnError)
{
    const auto before = cardRows();
    const Transcript read = kleio(child("1", "1/1/1700", "ana") + child("2", "1/1/1702", "eva"));
    const auto fails = [](int done, int) -> bool {
        if (done == 1) throw jet::Error(jet::number::diskFull, "cheio");
        return true;
    };
    EXPECT_THROW(importActs(cnBDP, read, {}, fails), jet::Error);
    EXPECT_EQ(cardRows(), before);
    EXPECT_EQ(actsStored(), 0);
}

TEST_F(TranscriptImport, RehearsesWithoutChangingAByte)
{
    cnBDP.commitTrans();
    const Transcript read = readKleio(toKleio(bench::parishActs(150)));
    const ImportOptions options{.rule = LinkRule::CouplesWithOpenSpan, .newPlaces = true, .newProfessions = true};
    const QByteArray before = bytesOf(cnBDP.dataSource());
    const QDateTime touched = QFileInfo(cnBDP.dataSource()).lastModified();
    ImportReport rehearsal = rehearsed(cnBDP, read, options);
    EXPECT_TRUE(bytesOf(cnBDP.dataSource()) == before);
    EXPECT_EQ(QFileInfo(cnBDP.dataSource()).lastModified(), touched);
    EXPECT_EQ(QDir(QFileInfo(cnBDP.dataSource()).path()).entryList(QDir::Files).size(), 1);

    EXPECT_TRUE(rehearsal.isRehearsal);
    rehearsal.isRehearsal = false;
    EXPECT_EQ(rehearsal, importActs(cnBDP, read, options)) << "it told what was done then";
    cnBDP.beginTrans();
}

TEST_F(TranscriptImport, RehearsesFilesThatFollowEachOther)
{
    cnBDP.commitTrans();
    Rehearsal rehearsal(cnBDP);
    const ImportOptions couples{.rule = LinkRule::CouplesWithOpenSpan};
    EXPECT_EQ(rehearsal.play(kleio(child("1", "1/1/1700", "ana")), couples).linkedCouples, 0);
    EXPECT_EQ(rehearsal.play(kleio(child("2", "1/1/1702", "eva")), couples).linkedCouples, 1);
    EXPECT_FALSE(hasActs(cnBDP));
    cnBDP.beginTrans();
}

TEST_F(TranscriptImport, CopiesTheBdpBesideItsDailyCopies)
{
    cnBDP.commitTrans();
    const QFileInfo copy(copyBeforeImport(cnBDP));
    const QFileInfo second(copyBeforeImport(cnBDP));
    EXPECT_NE(copy.filePath(), second.filePath());
    EXPECT_EQ(copy.dir().dirName(), "copias");
    EXPECT_TRUE(copy.fileName().startsWith("teste_antes de importar_")) << qPrintable(copy.fileName());
    EXPECT_FALSE(diaDaCopia(QFileInfo(cnBDP.dataSource()).fileName(), copy.fileName()).isValid()) << "no daily copy";
    jet::Connection opened;
    EXPECT_NO_THROW(opened.open(copy.filePath()));
    cnBDP.beginTrans();
}

TEST_F(TranscriptImport, GivesBackWhatWasTranscribed)
{
    QList<Act> acts = bench::parishActs(120);
    const ImportReport report = importActs(cnBDP, readKleio(toKleio(acts)), {.overruling = "assim está no livro"});
    EXPECT_EQ(report.storedActs(), acts.size()) << qPrintable(reasons(report).join('\n'));
    QMap<QString, Act> stored;
    for (const ActLine& line : listActs(cnBDP))
        if (line.id != 0) {
            const Act act = readAct(cnBDP, line.id)->act;
            stored.insert(act.id, act);
        }
    for (const Act& act : acts) {
        Act again = stored.value(act.id);
        ASSERT_EQ(again.people.size(), act.people.size());
        for (int person = 0; person < act.people.size(); ++person) {
            again.people[person].standardName.clear(); // settled by the import, as is a sex that the name tells
            again.people[person].toldSex = act.people[person].toldSex;
        }
        EXPECT_TRUE(again == act) << qPrintable(act.id);
    }
}

TEST_F(TranscriptImport, TellsWhatItDid)
{
    const ImportReport report =
        import(child("1", "1/1/1700", "ana", " xpto$y\n") + "bap$2\n n$eva/f\n" + "bap$3/1/1/2400\n n$rita/f\n");
    const QStringList lines = report.lines();
    EXPECT_EQ(lines.value(0), "Actos no ficheiro: 3. Guardados: 2 baptismos.");
    EXPECT_EQ(lines.value(1), "Só o acto, sem fichas, que não o podem receber: 1 acto.");
    EXPECT_EQ(lines.value(2), "Não se podem guardar: 1 acto.");
    EXPECT_EQ(lines.value(3), "Pessoas novas: 3; já conhecidas: 0; só no acto: 1.");
    EXPECT_TRUE(lines.contains("Grupos desconhecidos, guardados como notas: xpto (1)."));
    EXPECT_TRUE(lines.contains("Por exemplo:"));
}

TEST(InventedRegisters, MeanTheSameHoweverTheyAreWritten)
{
    for (std::uint32_t seed = 1; seed <= 5; ++seed) {
        const QList<Act> acts = bench::parishActs(200, seed);
        ASSERT_EQ(acts.size(), 200);
        const Transcript read = readKleio(bench::clumsyKleio(toKleio(acts), seed));
        ASSERT_EQ(read.acts.size(), acts.size());
        for (int act = 0; act < acts.size(); ++act)
            ASSERT_TRUE(read.acts[act].act == acts[act])
                << toKleio({acts[act]}).toStdString() << toKleio({read.acts[act].act}).toStdString();
    }
}

} // namespace
