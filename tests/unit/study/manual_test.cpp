// The manual tells the rules of the contradictions and the subjects of a study as they are.
#include "study/checks/rule.h"
#include "study/indicators/subject.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QStringList>

#include <algorithm>

using namespace study;

namespace {

QStringList linesOf(const char* chapter)
{
    QFile file(QString(ORV_DATA_DIR "/../docs/manual/") + chapter);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << chapter;
    return QString::fromUtf8(file.readAll()).split('\n');
}

// "Idade máxima ao óbito (anos): 100; Idade que ninguém atinge (anos): 115"
QString limitsOf(const checks::Rule& rule)
{
    QStringList limits;
    for (const checks::Limit& limit : rule.limits)
        limits << QString::fromUtf8(limit.title) + ": " + QString::number(limit.standard).replace('.', ',');
    return limits.isEmpty() ? QString() : " *" + limits.join("; ") + '*';
}

QString rowOf(const checks::Rule& rule)
{
    return QString("| %1 | **%2**%3.%4 | %5 | %6 |")
        .arg(QString::fromUtf8(rule.id), QString::fromUtf8(rule.title),
             rule.standard ? QString() : QString(" (no início não é usada)"), limitsOf(rule),
             checks::inWords(rule.severity), QString::fromUtf8(rule.remark));
}

} // namespace

TEST(Manual, TellsEachRuleOfTheContradictionsAsItIs)
{
    QStringList rows = linesOf("45-regras.md");
    rows.removeIf([](const QString& line) { return !line.startsWith("| ") || line.startsWith("| Regra"); });
    EXPECT_EQ(rows.size(), static_cast<qsizetype>(checks::rules().size()));
    for (const checks::Rule& rule : checks::rules())
        EXPECT_TRUE(rows.contains(rowOf(rule))) << rowOf(rule).toStdString();
}

TEST(Manual, HasEachSubjectOfAStudyInItsGroup)
{
    const QStringList lines = linesOf("51-temas.md");
    QString group;
    QStringList told;
    for (const QString& line : lines) {
        if (line.startsWith("## ")) group = line.section(" {", 0, 0).mid(3);
        if (line.startsWith("| ") && !line.startsWith("| Tema"))
            told << group + ": " + line.section(" | ", 0, 0).mid(2);
    }
    QStringList known;
    for (const indicators::Subject* subject : indicators::subjects())
        known << QString::fromUtf8(subject->group) + ": " + QString::fromUtf8(subject->title);
    EXPECT_EQ(told, known);
    const QString count = QString::number(known.size());
    EXPECT_TRUE(std::ranges::any_of(lines, [&](const QString& line) { return line.startsWith("Os " + count + ' '); }));
}
