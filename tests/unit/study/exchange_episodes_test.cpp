// Episodes of event history, as a few people tell them.
#include "study/episodes.h"
#include "study/generated.h"
#include "study/natal.h"

#include "demo.h"
#include "study/exchange/episodes.h"
#include "study/exchange/episodeTimes.h"
#include "study/indicators/settingsJson.h"

#include <QDirIterator>

using namespace study;
using episodes::File;

namespace {

class Episodes : public Natal
{
protected:
    Episodes() { QDir().mkdir(out()); }
    QString out() const { return folder.filePath("episodios"); }
    exchange::EpisodesWritten write(int limit = 0)
    {
        return exchange::exportEpisodes(bdp, out(), {.limitYears = limit, .today = QDate(2026, 11, 23)});
    }
    File file(const char* name) const { return {out(), name}; }
    QMap<QString, QByteArray> allBytes() const
    {
        QMap<QString, QByteArray> all;
        for (QDirIterator files(out(), QDir::Files); files.hasNext();) {
            const QString name = QFileInfo(files.next()).fileName();
            all[name] = episodes::bytes(out(), name);
        }
        return all;
    }
};

} // namespace

TEST_F(Episodes, OfAWifeEndAtEachBirthAndAtHerBirthdays)
{
    const qint64 family = married({"1700-03-01", "1679-03-01", "1704-07-01", "1730-01-01"});
    child(family, "1701-03-01");
    child(family, "1703-03-02");
    write();
    EXPECT_EQ(file("fecundidade")
                  .told({"spell_start_date", "spell_end_date", "age_enter", "age_exit", "event", "parity", "age_group",
                         "since_enter", "prev_ivl_days", "days"}),
              (QStringList{"1700-03-01|1701-03-01|21.000|22.000|1|0|20|0.000||365",
                           "1701-03-01|1703-03-02|22.000|24.003|1|1|20|0.000|365|731",
                           "1703-03-02|1704-03-01|24.003|25.000|0|2|20|0.000|731|365",
                           "1704-03-01|1704-07-01|25.000|25.334|0|2|25|0.997|731|122"}));
    EXPECT_EQ(file("fecundidade").told({"marriage_age", "marriage_cohort", "class", "first_marriage", "approx"})[0],
              "21.000|1700|MF I|1|0");
}

TEST_F(Episodes, OfAWifeTakeABirthOnABirthdayIntoTheAgeThatBegins)
{
    const qint64 family = married({"1700-03-01", "1679-03-01", "1706-03-01", "1730-01-01"});
    child(family, "1704-03-01");
    write();
    EXPECT_EQ(
        file("fecundidade")
            .told({"spell_start_date", "spell_end_date", "age_enter", "age_exit", "event", "age_group", "days"}),
        (QStringList{"1700-03-01|1704-03-01|21.000|25.000|0|20|1461", "1704-03-01|1704-03-01|25.000|25.001|1|25|0.5",
                     "1704-03-01|1706-03-01|25.001|27.000|0|25|729.5"}));
}

TEST_F(Episodes, OfAWifeTakeTwinsForOneEventAndAPosthumousChildForOneWithoutTime)
{
    const qint64 family = married({"1700-03-01", "1679-03-01", "1730-01-01", "1702-05-01"});
    child(family, "1701-04-01");
    child(family, "1701-04-02");
    child(family, "1702-10-01");
    write();
    EXPECT_EQ(file("fecundidade")
                  .told({"spell_start_date", "spell_end_date", "event", "births", "parity", "posthumous", "days"}),
              (QStringList{"1700-03-01|1701-04-01|1|2|0|0|396", "1701-04-01|1702-05-01|0|0|2|0|395",
                           "1702-10-01|1702-10-01|1|1|2|1|0"}));
}

TEST_F(Episodes, OfAWifeEndInABirthOnTheDayOfHerDeath)
{
    const qint64 family = married({"1700-03-01", "1679-03-01", "1701-06-01", "1730-01-01"});
    child(family, "1701-06-01");
    write();
    EXPECT_EQ(file("fecundidade").told({"spell_start_date", "spell_end_date", "event", "posthumous"}),
              (QStringList{"1700-03-01|1701-06-01|1|0"}));
}

TEST_F(Episodes, OfAWifeTellWhatBecameOfTheLastChild)
{
    indicators::Settings settings;
    settings.books[static_cast<std::size_t>(indicators::Series::ChildBurials)] = {1690, 1705};
    keepSettings(bdp, settings);
    const qint64 family = married({"1700-03-01", "1680-03-01", "1708-01-01", "1730-01-01"});
    child(family, "1701-03-01", 'm', "1702-05-05");
    child(family, "1704-03-01");
    write();
    EXPECT_EQ(file("fecundidade").told({"spell_start_date", "spell_end_date", "prev_child_fate", "event"}),
              (QStringList{"1700-03-01|1701-03-01|none|1", "1701-03-01|1702-05-05|alive|0",
                           "1702-05-05|1704-03-01|dead|1", "1704-03-01|1705-03-01|alive|0",
                           "1705-03-01|1706-01-01|alive|0", "1706-01-01|1708-01-01|unknown|0"}));
}

TEST_F(Episodes, OfAChildArePartedByTheDeathOfAParent)
{
    const qint64 family = married({"1700-03-01", "1680-03-01", "1704-01-01", "1730-01-01"});
    child(family, "1702-01-01", 'f', "1706-01-01");
    child(family, "1703-01-01", 'm', "1703-01-01");
    child(family, "1703-12-20", 'm', "1708-01-01");
    write();
    EXPECT_EQ(file("mortalidade_infancia")
                  .told({"id", "enter", "exit", "event", "mother_dead", "father_dead", "birth_order", "exit_by"}),
              (QStringList{"3|0.000|2.000|0|0|0|1|death", "3|2.000|4.000|1|1|0|1|death", "4|0.000|0.001|1|0|0|2|death",
                           "5|0.000|0.033|0|0|0|3|death", "5|0.033|4.033|1|1|0|3|death"}));
}

TEST_F(Episodes, OfTheMarriedBeginAtTheMarriageAndArePartedByWidowhood)
{
    married({"1700-03-01", "1680-03-01", "1740-03-01", "1720-03-01"});
    write();
    EXPECT_EQ(file("mortalidade_adultos").told({"id", "enter", "exit", "event", "status"}),
              (QStringList{"2|20.000|40.000|0|married", "2|40.000|60.000|1|widowed"}));
    EXPECT_EQ(file("mortalidade_adultos_limites").told({"estimate", "enter", "exit", "event"}),
              (QStringList{"closed|20.000|40.000|0", "least|20.000|60.000|1", "most|20.000|60.000|1"}));
}

TEST_F(Episodes, OfTheSingleRunFromTwelveToTheMarriage)
{
    const qint64 family = married({"1700-03-01", "1680-03-01", "1750-01-01", "1755-01-01"});
    const qint64 bride = child(family, "1702-03-01", 'f');
    const qint64 maid = child(family, "1704-03-01", 'f', "1770-01-01");
    child(family, "1706-03-01", 'm', "1710-01-01");
    const qint64 next = couple(person({"Rui"}), bride, "1724-03-01");
    write();
    const QStringList told =
        file("nupcialidade").told({"id", "enter", "exit", "event", "marriage_family", "exit_by", "mother_dead"});
    EXPECT_TRUE(told.contains(QString("%1|12.000|22.000|1|%2|marriage|0").arg(bride).arg(next)))
        << qPrintable(told.join('\n'));
    EXPECT_TRUE(told.contains(QString("%1|12.000|45.838|0||age|0").arg(maid))) << qPrintable(told.join('\n'));
    EXPECT_TRUE(told.contains(QString("%1|45.838|50.000|0||age|1").arg(maid))) << qPrintable(told.join('\n'));
    EXPECT_EQ(told.size(), 4) << "with the mother herself; the little boy had died\n" << qPrintable(told.join('\n'));
}

TEST_F(Episodes, OfTheSingleAreNoneOfWhoIsSeenBecauseOfTheMarriage)
{
    const qint64 groom = person({"Rui", 'm', "1680-03-01"});
    run("update individuo set localnasc = '030872', tipolocalnasc = 'F' where nind = ?", {groom});
    run("insert into infopar (cod, nome) values ('030899', 'Moinhos')");
    couple(groom, person({"Ana", 'f'}), "1705-03-01");
    write();
    EXPECT_EQ(file("nupcialidade").size(), 0);
    EXPECT_TRUE(file("nao_contados").told({"file", "reason"}).join('\n').contains("nupcialidade|"));
}

TEST_F(Episodes, OfTheSingleTakeOnlyYearsWithBooksOfMarriages)
{
    indicators::Settings settings;
    settings.gaps[static_cast<std::size_t>(indicators::Series::Marriages)] = {{1720, 1722}};
    keepSettings(bdp, settings);
    const qint64 family = married({"1700-03-01", "1680-03-01", "1750-01-01", "1755-01-01"});
    const qint64 bride = child(family, "1702-03-01", 'f');
    couple(person({"Rui"}), bride, "1724-03-01");
    write();
    EXPECT_EQ(file("nupcialidade").told({"start_date", "end_date", "event"}),
              (QStringList{"1692-03-01|1700-03-01|1", "1714-03-01|1720-01-01|0", "1723-01-01|1724-03-01|1"}))
        << "the mother, and the bride";
}

TEST_F(Episodes, OfTheWidowedCountYearsFromTheEndOfTheUnion)
{
    const qint64 family = married({"1700-03-01", "1680-03-01", "", "1710-03-01"});
    child(family, "1705-03-01");
    const qint64 next = couple(person({"Luís"}), 2, "1712-03-01");
    write();
    EXPECT_EQ(file("recasamento")
                  .told({"id", "family", "age", "duration", "children_under_15", "enter", "exit", "event",
                         "next_family", "days"}),
              (QStringList{QString("2|%1|30.000|10.000|1|0.000|2.000|1|%2|731").arg(family).arg(next)}));
}

TEST_F(Episodes, BeginOnlyWhereALimitThatWasTypedLetsThem)
{
    married({"1700-03-01", "1680-03-01", "1740-03-01", "1720-03-01"});
    run("update individuo set inicioobs = '1710-03-01' where nind = 2");
    write();
    EXPECT_EQ(file("mortalidade_adultos").told({"enter", "exit"})[0], "30.000|40.000") << "left truncation";
    EXPECT_EQ(file("fecundidade").told({"age_enter"})[0], "30.000");
}

TEST_F(Episodes, TellNothingOfWhoMayBeAlive)
{
    const qint64 family = married({"1950-03-01", "1930-03-01", "", "1980-03-01"});
    const qint64 kid = child(family, "1952-03-01", 'f', "1953-01-01");
    const qint64 old = married({"1850-03-01", "1830-03-01", "1880-03-01", "1890-03-01"});
    child(old, "1852-03-01", 'm', "1853-01-01");
    EXPECT_EQ(write(110).withheldPeople, 1);
    for (const char* const name : {"pessoas", "mortalidade_infancia"})
        for (const QString& row : file(name).told({"id", "mother_id"}))
            EXPECT_FALSE(row.split('|').contains("2")) << name << ' ' << qPrintable(row);
    EXPECT_TRUE(file("mortalidade_infancia").told({"id", "family"}).contains(QString("%1|").arg(kid)))
        << "a dead child isn't withheld, and its family isn't told";
    for (const char* const name : {"familias", "fecundidade", "recasamento"})
        for (const QString& told : file(name).told({"family"}))
            EXPECT_EQ(told, QString::number(old)) << name;
    EXPECT_EQ(exchanged::faultsOf(out()), QStringList());
    EXPECT_EQ(write(0).withheldPeople, 0);
    EXPECT_EQ(file("familias").size(), 2);
}

TEST_F(Episodes, TellNoNames)
{
    child(married({"1700-03-01", "1680-03-01", "1708-01-01", "1730-01-01"}), "1701-03-01");
    run("update individuo set nome = 'Zebedeu Quintanilha', alcunha = 'O Xarope'");
    write();
    const QMap<QString, QByteArray> all = allBytes();
    EXPECT_EQ(all.size(), 12) << qPrintable(QStringList(all.keys()).join(' '));
    for (auto file = all.begin(); file != all.end(); ++file)
        EXPECT_FALSE(file->contains("Zebedeu") || file->contains("Xarope")) << qPrintable(file.key());
}

TEST_F(Episodes, AreTheSameBytesOfTheSameBdpAndAreWrittenOver)
{
    demo::write(demo::demonstration(), bdp);
    const exchange::EpisodesWritten first = write();
    const QMap<QString, QByteArray> before = allBytes();
    EXPECT_EQ(write(), first);
    EXPECT_EQ(allBytes(), before);
    EXPECT_EQ(first.files.front(), (exchange::TableCount{"pessoas", file("pessoas").size()}));

    QFile script(QDir(out()).filePath("episodios.R"));
    ASSERT_TRUE(script.open(QIODevice::Append));
    script.write("# meu\n");
    script.close();
    EXPECT_THROW(write(), jet::Error) << "somebody has changed it";
    EXPECT_TRUE(episodes::bytes(out(), "episodios.R").endsWith("# meu\n"));
}

TEST_F(Episodes, OfAnInterruptedExportAreNone)
{
    demo::write(demo::demonstration(), bdp);
    int asked = 0;
    double last = 0;
    exchange::EpisodesOptions options{.limitYears = 0};
    options.goesOn = [&](double done) {
        EXPECT_GE(done, last);
        EXPECT_LE(done, 1);
        last = done;
        ++asked;
        return true;
    };
    exchange::exportEpisodes(bdp, out(), options);
    EXPECT_EQ(last, 1);
    const QMap<QString, QByteArray> before = allBytes();
    run("delete from individuo where nind = 1");
    for (const int stop : {1, asked / 2, asked}) {
        int left = stop;
        options.goesOn = [&left](double) { return --left > 0; };
        EXPECT_THROW(exchange::exportEpisodes(bdp, out(), options), exchange::Interrupted) << stop;
        EXPECT_EQ(allBytes(), before) << stop;
    }
}

TEST_F(Episodes, AreDescribedColumnByColumn)
{
    write();
    EXPECT_EQ(exchanged::faultsOf(out()), QStringList());
    const QStringList told = file("dicionario").told({"file", "column", "type"});
    for (const char* const line : {"fecundidade|prev_child_fate|string", "mortalidade_infancia|event|boolean",
                                   "recasamento|exit|number", "pessoas|birth_date|date", "dicionario|column|string"})
        EXPECT_TRUE(told.contains(line)) << line;
    const QByteArray script = episodes::bytes(out(), "episodios.R");
    EXPECT_TRUE(script.contains("library(survival)") && script.contains("coxph(Surv(enter, exit, event)"));
}

TEST_F(Episodes, TellEachDateAsADecimalYearToo)
{
    demo::write(demo::demonstration(), bdp);
    write();
    int dates = 0;
    for (const char* const name : {"pessoas", "familias", "fecundidade", "mortalidade_infancia", "mortalidade_adultos",
                                   "mortalidade_adultos_limites", "nupcialidade", "recasamento"})
    {
        static const QString ending = "_date";
        const File all = file(name);
        ASSERT_GT(all.size(), 0) << name;
        for (const QString& heading : all.header()) {
            if (!heading.endsWith(ending)) continue;
            ++dates;
            const QByteArray date = heading.toLatin1(), year = heading.chopped(ending.size()).toLatin1();
            ASSERT_TRUE(all.header().contains(year)) << name << ": " << date.constData();
            for (qsizetype row = 0; row < all.size(); ++row)
                ASSERT_EQ(all.text(row, year), exchange::decimalYear(all.date(row, date))) << name << ' ' << row;
        }
    }
    EXPECT_EQ(dates, 27);
}
