// The short sheet of a record, and two of them side by side.
#include "study/people.h"

#include "study/parish/record.h"

#include <algorithm>
#include <optional>

namespace study::parish {

namespace {

using Mark = ComparedLine::Mark;

QStringList valuesOf(const std::vector<RecordLine>& lines, const QString& title)
{
    QStringList values;
    for (const RecordLine& line : lines)
        if (line.title == title) values << line.value;
    return values;
}

std::optional<ComparedLine> lineOf(const std::vector<ComparedLine>& lines, const QString& title)
{
    const auto found = std::ranges::find(lines, title, &ComparedLine::title);
    return found == lines.end() ? std::nullopt : std::optional(*found);
}

class ARecord : public People
{
protected:
    std::vector<RecordLine> ofPerson(qint64 nind)
    {
        const Snapshot parish = Snapshot::read(bdp);
        return record(parish, *parish.person(PersonNumber(nind)));
    }
};

} // namespace

TEST_F(ARecord, TellsAPersonInTheOrderOfTheCards)
{
    const qint64 father = person({"Manuel Luís", 'm'}), mother = person({"Ana Lopes", 'f'});
    const qint64 family = couple(father, mother, "1701-05-02");
    const qint64 child = person({"Domingos", 'm', "1702-02-14", "", family});
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values ('b', ?, '1702-02-14', ?, "
        "'p')",
        {child, mother});

    EXPECT_EQ(ofPerson(child), (std::vector<RecordLine>{{"Nome", "Domingos", false},
                                                        {"Sexo", "masculino", false},
                                                        {"Nascimento", "14/02/1702", false},
                                                        {"Pai", "nº 1 Manuel Luís", false},
                                                        {"Mãe", "nº 2 Ana Lopes", false},
                                                        {"Padrinhos", "nº 2 Ana Lopes", true}}));
    EXPECT_EQ(valuesOf(ofPerson(mother), "Casamento"),
              (QStringList{"família 1: nº 1 Manuel Luís, cerca de 02/05/1701"}));
    EXPECT_EQ(valuesOf(ofPerson(mother), "Filhos"), (QStringList{"nº 3 Domingos, 14/02/1702"}));
    EXPECT_EQ(valuesOf(ofPerson(mother), "Assistiu"), (QStringList{"baptismo de nº 3 Domingos, 14/02/1702"}));
}

TEST_F(ARecord, TellsWhatLeadsNowhere)
{
    const qint64 lone = person({"", 'd'});
    run("insert into familias (nfamilia, nind) values (77, ?)", {lone});
    run("update individuo set testamenteiro = 99 where nind = ?", {lone});
    EXPECT_EQ(valuesOf(ofPerson(lone), "Casamento"), (QStringList{"família 77 (não existe)"}));
    EXPECT_EQ(valuesOf(ofPerson(lone), "Testamenteiro"), (QStringList{"nº 99 (não existe)"}));
    EXPECT_EQ(valuesOf(ofPerson(lone), "Nome"), QStringList());
}

TEST_F(ARecord, CountsTheRowsBehindTheDozen)
{
    const qint64 sexton = person({"Bento", 'm'});
    for (int i = 0; i < 15; ++i)
        run("insert into assistente (tipoacto, entidade, nind, tipoassistente) values ('b', ?, ?, 't')",
            {500 + i, sexton});
    const QStringList rows = valuesOf(ofPerson(sexton), "Assistiu");
    ASSERT_EQ(rows.size(), 13);
    EXPECT_EQ(rows.last(), "… e mais 3");
    EXPECT_EQ(rows.first(), "baptismo de nº 500");
}

TEST(TwoSheets, MarkWhatContradictsAndNothingElse)
{
    const std::vector<RecordLine> one{{"Nome", "Ana Lopes", false},
                                      {"Sexo", "feminino", false},
                                      {"Nascimento", "1702", false},
                                      {"Residência", "Outeiro", true},
                                      {"Residência", "Vale", true}},
        other{{"Nome", "Ana Luís", false},
              {"Sexo", "feminino", false},
              {"Óbito", "1760", false},
              {"Residência", "Cabo", true},
              {"Residência", "Outeiro", true}};
    EXPECT_EQ(compared(one, other), (std::vector<ComparedLine>{{"Nome", "Ana Lopes", "Ana Luís", Mark::Differs},
                                                               {"Sexo", "feminino", "feminino", Mark::Same},
                                                               {"Nascimento", "1702", "", Mark::OnlyOne},
                                                               {"Óbito", "", "1760", Mark::OnlyOther},
                                                               {"Residência", "Outeiro", "Outeiro", Mark::Same},
                                                               {"Residência", "Vale", "Cabo", Mark::Beside}}));
}

TEST(TwoSheets, OfOneRecordAreTheSameInEveryLine)
{
    const std::vector<RecordLine> lines{{"Nome", "Ana", false}, {"Filhos", "nº 3", true}, {"Filhos", "nº 3", true}};
    for (const ComparedLine& line : compared(lines, lines))
        EXPECT_EQ(line.mark, Mark::Same) << line.title.toStdString();
    EXPECT_EQ(compared(lines, lines).size(), lines.size());
    EXPECT_EQ(lineOf(compared(lines, {}), "Nome")->mark, Mark::OnlyOne);
}

} // namespace study::parish
