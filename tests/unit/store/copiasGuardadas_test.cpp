// Which daily copies are kept.
#include "store/copiasGuardadas.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>
#include <QSet>

#include <algorithm>

namespace {

QDate dia(const char* texto)
{
    return QDate::fromString(QString::fromLatin1(texto), Qt::ISODate);
}

// What stands in the folder after a copy on each of the days, and after the pruning that follows each.
QList<QDate> guardadas(const QList<QDate>& trabalho)
{
    QList<QDate> copias;
    for (const QDate& hoje : trabalho) {
        copias << hoje;
        for (const QDate& sai : copiasASair(copias, hoje))
            copias.removeOne(sai);
    }
    return copias;
}

QList<QDate> diasSeguidos(const QDate& primeiro, int quantos)
{
    QList<QDate> todos;
    for (int i = 0; i < quantos; ++i)
        todos << primeiro.addDays(i);
    return todos;
}

} // namespace

TEST(KeptCopies, HaveTheNameOfTheBdpAndTheDay)
{
    EXPECT_EQ(nomeDaCopia("paroquia.orv", dia("2026-11-22")), "paroquia_2026-11-22.orv");
    EXPECT_EQ(nomeDaCopia("S. Mamede.2.orv", dia("2026-01-02")), "S. Mamede.2_2026-01-02.orv");
    EXPECT_EQ(nomeDaCopia("sem", dia("2026-01-02")), "sem_2026-01-02");
    for (const char* bdp : {"paroquia.orv", "S. Mamede.2.orv", "sem"})
        EXPECT_EQ(diaDaCopia(bdp, nomeDaCopia(bdp, dia("2026-01-02"))), dia("2026-01-02")) << bdp;
}

TEST(KeptCopies, AreNotWhatElseStandsInTheFolder)
{
    for (const char* nome : {"a.orv", "a_2026-11-22.orv.bak", "a_2026-11-22", "b_2026-11-22.orv", "a_2026-13-22.orv",
                             "a_2026-1-22.orv", "xa_2026-11-22.orv", "a_2026-11-22 (2).orv", "a_antes.orv",
                             "a_2026-01-01_2026-11-22.orv", "A_2026-11-22.orv", "a_2026-11-22.ORV", ""})
        EXPECT_FALSE(diaDaCopia("a.orv", nome).isValid()) << nome;
}

TEST(KeptCopies, AreThoseOfSevenDaysFourWeeksAndTwelveMonths)
{
    const QList<QDate> copias = guardadas(diasSeguidos(dia("2024-01-01"), 1057)); // to 2026-11-22, a Sunday
    QStringList nomes;
    for (const QDate& copia : copias)
        nomes << copia.toString(Qt::ISODate);
    EXPECT_EQ(nomes.join(' '), "2025-12-31 2026-01-31 2026-02-28 2026-03-31 2026-04-30 2026-05-31 2026-06-30 "
                               "2026-07-31 2026-08-31 2026-09-30 2026-10-31 2026-11-01 2026-11-08 2026-11-15 "
                               "2026-11-16 2026-11-17 2026-11-18 2026-11-19 2026-11-20 2026-11-21 2026-11-22");
}

TEST(KeptCopies, OfWhoWorksSeldomAreNotFewer)
{
    QList<QDate> trabalho;
    for (int mes = 0; mes < 40; ++mes)
        trabalho << dia("2020-01-15").addMonths(mes);
    EXPECT_EQ(guardadas(trabalho), trabalho.last(12));
}

TEST(KeptCopies, OfADayToComeStayAndDoNotCount)
{
    QList<QDate> copias = diasSeguidos(dia("2026-11-01"), 22);
    copias << dia("2031-01-01");
    const QList<QDate> saem = copiasASair(copias, dia("2026-11-22"));
    EXPECT_FALSE(saem.contains(dia("2031-01-01")));
    EXPECT_EQ(saem, copiasASair(diasSeguidos(dia("2026-11-01"), 22), dia("2026-11-22")));
}

// Whatever the days of work: what must be there is there, and no more.
TEST(KeptCopies, HoldEveryRuleOverAnyDaysOfWork)
{
    QRandomGenerator sorte(20261122);
    for (int volta = 0; volta < 200; ++volta) {
        QList<QDate> trabalho;
        QDate hoje = dia("2022-12-20").addDays(sorte.bounded(400));
        const int passo = 1 + sorte.bounded(30);
        for (int i = 0; i < 300; ++i) {
            hoje = hoje.addDays(1 + sorte.bounded(passo));
            trabalho << hoje;
        }
        const QList<QDate> copias = guardadas(trabalho);
        ASSERT_LE(copias.size(), 7 + 4 + 12);
        ASSERT_TRUE(std::is_sorted(copias.begin(), copias.end()));
        for (const QDate& recente : trabalho.last(7))
            ASSERT_TRUE(copias.contains(recente));
        // Each of the last twelve months with work has its last day, each of the last four weeks, too.
        QSet<int> meses, semanas;
        for (auto data = trabalho.crbegin(); data != trabalho.crend(); ++data) {
            const int mes = data->year() * 12 + data->month();
            if (meses.size() < 12 && !meses.contains(mes)) {
                ASSERT_TRUE(copias.contains(*data)) << data->toString().toStdString();
                meses << mes;
            }
            const int semana = int((data->toJulianDay()) / 7); // Julian day 0 was a Monday
            if (semanas.size() < 4 && !semanas.contains(semana)) {
                ASSERT_TRUE(copias.contains(*data)) << data->toString().toStdString();
                semanas << semana;
            }
        }
        ASSERT_TRUE(copiasASair(copias, trabalho.last()).isEmpty()) << "a second pruning takes nothing more";
    }
}
