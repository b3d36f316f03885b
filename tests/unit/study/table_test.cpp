#include "study/transcripts/table.h"

#include "parish/acts.h"
#include "store/session.h"
#include "study/tellings.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace study;

namespace {

QStringList problemsOf(const QList<Problem>& problems)
{
    QStringList all;
    for (const Problem& problem : problems)
        all << (problem.severity == Problem::Severity::Error ? "!" : "") + QString::number(problem.line) + ": " +
                   problem.text;
    return all;
}

std::string rowsOf(const CellTable& sheet)
{
    QStringList rows;
    for (const QStringList& row : sheet.rows)
        rows << row.join('|');
    return rows.join('\n').toStdString();
}

TEST(CellTable, FindsItsSeparator)
{
    EXPECT_EQ(readSheet("Data;Nome\n1/1/1700;Ana, a moça\n").separator, ';');
    EXPECT_EQ(readSheet("Data,Nome\n1/1/1700,Ana; a moça\n").separator, ',');
    EXPECT_EQ(readSheet("Data\tNome\n1/1/1700\tAna, a; moça\n").separator, '\t');
    EXPECT_EQ(readSheet("\"a;b;c\",d\n\"1;2;3\",4\n").separator, ',') << "what is quoted doesn't count";
    EXPECT_EQ(readSheet("sep=,\nDia;x,y\n1,2\n").separator, ',');
    EXPECT_EQ(readSheet("Nome\nAna\n").headers, QStringList("Nome"));
}

TEST(CellTable, ReadsQuotesOverLines)
{
    const CellTable sheet =
        readSheet("Nome;Notas\r\n\"Ana \"\"a moça\"\"\";\"duas;\r\nlinhas\"\r\n\r\nEva;\"\"\r\n;\r\nRui");
    EXPECT_EQ(rowsOf(sheet), "Ana \"a moça\"|duas;\nlinhas\nEva|\nRui|");
    EXPECT_EQ(sheet.lines, (QList<int>{2, 5, 7}));
    EXPECT_TRUE(sheet.problems.isEmpty());
}

TEST(CellTable, IsReadInItsOwnEncoding)
{
    const QString text = "Mãe;Avó\nInês;Conceição €\n";
    QByteArray old = text.toLatin1();
    old.replace("?\n", "\x80\n");
    EXPECT_EQ(rowsOf(readSheet(text.toUtf8())), "Inês|Conceição €");
    EXPECT_EQ(rowsOf(readSheet("\xEF\xBB\xBF" + text.toUtf8())), "Inês|Conceição €");
    EXPECT_EQ(readSheet("\xEF\xBB\xBF" + text.toUtf8()).headers.first(), "Mãe");
    EXPECT_EQ(rowsOf(readSheet(old)), "Inês|Conceição €");
    EXPECT_EQ(readSheet(old).encoding, "1252");
}

TEST(CellTable, TellsWhichRowsAreDamaged)
{
    EXPECT_EQ(problemsOf(readSheet("a;b\n1;2;3\n1\n1;2;;\n").problems),
              QStringList("!2: A linha tem 1 células com texto a mais do que o cabeçalho."));
    EXPECT_EQ(problemsOf(readSheet("a;b\n1;\"2\n3;4\n").problems),
              QStringList("!2: As aspas que aqui abrem não fecham."));
    EXPECT_EQ(problemsOf(readSheet("a;b\n").problems),
              QStringList("!0: A tabela não tem nenhuma linha além do cabeçalho."));
    EXPECT_EQ(problemsOf(readSheet(QByteArray("a;b\n1;\0\n", 8)).problems),
              QStringList("!2: O ficheiro não é de texto: tem caracteres nulos."));
}

std::string proposal(const QString& headers)
{
    return proposed(headers.split('|')).columns.join('|').toStdString();
}

TEST(TableColumns, AreProposedByTheWordsOfTheirHeaders)
{
    EXPECT_EQ(
        proposal(
            "Nº|FÓLIO|Data|Criança|Sexo|Nome do pai|Residência do Pai|MAE|Avó paterna|Avô Materno|Padrinho|madrinha|"
            "Marido da madrinha|Pároco|Observações|Cor"),
        "numero|folio|data|baptizado.nome|baptizado.sexo|pai.nome|pai.residencia|mae.nome|avo_paterna.nome|"
        "avo_materno.nome|padrinho.nome|madrinha.nome|marido_madrinha.nome|celebrante.nome|notas|notas");
    EXPECT_EQ(
        proposal("ano|mes|dia|Noivo|Idade do noivo|Pai do noivo|Noiva|mãe da noiva|Testemunha 1|Testemunha 2"),
        "ano|mes|dia|noivo.nome|noivo.idade|pai_noivo.nome|noiva.nome|mae_noiva.nome|testemunha.nome|testemunha2.nome");
    EXPECT_EQ(proposal("Data do óbito|Nome|Idade|Estado civil|Cônjuge|Ofícios|Testamento|Sepultura|Sacramentos"),
              "data|defunto.nome|defunto.idade|defunto.ec|conjuge.nome|oficios|testamento|locs|sacr");
    EXPECT_EQ(proposal("Data|Nome|Padrinho|Padrinho|Madrinha"),
              "data|baptizado.nome|padrinho.nome|padrinho2.nome|madrinha.nome");
    EXPECT_EQ(proposed({"Noivo"}).kind, ActKind::Marriage);
    EXPECT_EQ(proposed({"Defunto"}).kind, ActKind::Burial);
    EXPECT_EQ(proposed({"Espécie", "Nome"}).kind, std::nullopt);
}

TEST(TableColumns, AreNotProposedForWhatAnotherPersonsHeaderTells)
{
    EXPECT_EQ(proposal("data|baptizado|pai|mae|pai já falecido|residência dos pais|Data de óbito|Lugar de enterro"),
              "data|baptizado.nome|pai.nome|mae.nome|pai.morto|pai.residencia|notas|notas");
    EXPECT_EQ(proposed({"data", "nome", "pai já falecido"}).kind, ActKind::Baptism);
    EXPECT_EQ(proposed({"data", "baptizado", "Data de óbito"}).kind, ActKind::Baptism);
    EXPECT_EQ(proposal("Data|Defunto|Filho de|Menino"), "data|defunto.nome|pai.nome|notas");
}

TEST(TableColumns, AreNotProposedForADateOfSomethingElse)
{
    EXPECT_EQ(proposal("Data de nascimento|Data de baptismo|Nome"), "notas|data|baptizado.nome");
    EXPECT_EQ(proposal("Data de registo|Data de nascimento do pai|Data|Defunto"), "notas|notas|data|defunto.nome");
}

TEST(TableOfActs, TellSexesByWholeWordsAsTheirColumnHasThem)
{
    const auto sexes = [](const QByteArray& words, QStringList& told) {
        const CellTable sheet = readSheet("data;nome;sexo\n" + words);
        const Transcript read = actsOf(sheet, proposed(sheet.headers));
        told = problemsOf(read.problems);
        QString all;
        for (const TranscribedAct& one : read.acts) {
            const auto sex = one.act.people.value(0).toldSex;
            all += !sex ? '-' : *sex == Sex::Male ? 'm' : *sex == Sex::Female ? 'f' : '?';
        }
        return all;
    };
    QStringList told;
    EXPECT_EQ(sexes("1/1/1700;Ana;M\n1/1/1700;Rui;H\n", told), "fm");
    EXPECT_EQ(sexes("1/1/1700;Rui;M\n1/1/1700;Ana;F\n", told), "mf");
    EXPECT_EQ(sexes("1/1/1700;Ana;Mulher\n1/1/1700;Eva;menina\n1/1/1700;Rui;masc.\n", told), "ffm");
    EXPECT_EQ(told, QStringList());
    EXPECT_EQ(sexes("1/1/1700;Ana;Mar\n1/1/1700;Rui;m\n1/1/1700;Gil;h\n1/1/1700;Eva;f\n", told), "--mf");
    EXPECT_EQ(told,
              (QStringList{"2: \"Mar\" não diz o sexo; fica nas notas.", "3: \"m\" não diz o sexo; fica nas notas."}));
}

TEST(TableColumns, AreProposedForEveryFieldByItsOwnId)
{
    QStringList ids;
    for (const TableField& field : tableFields())
        ids << field.id;
    EXPECT_EQ(proposed(ids).columns, ids);
    EXPECT_EQ(QSet<QString>(ids.begin(), ids.end()).size(), ids.size());
}

TEST(TableColumns, AreEnoughForAnActOrSayWhatIsMissing)
{
    const QStringList headers{"Data", "Nome"};
    EXPECT_EQ(whyNotAssigned(headers, {ActKind::Baptism, {}, {"data", "baptizado.nome"}}), "");
    EXPECT_EQ(whyNotAssigned(headers, {{}, {}, {"data", "baptizado.nome"}}), "Falta dizer a espécie dos actos.");
    EXPECT_EQ(whyNotAssigned(headers, {ActKind::Baptism, {}, {"", "baptizado.nome"}}), "Falta a coluna da data.");
    EXPECT_EQ(whyNotAssigned(headers, {ActKind::Baptism, {}, {"data", "pai.nome"}}),
              "Falta a coluna do nome de quem o acto trata.");
    EXPECT_EQ(whyNotAssigned(headers, {ActKind::Baptism, {}, {"data"}}),
              "A tabela tem 2 colunas, e estão atribuídas 1.");
    EXPECT_EQ(whyNotAssigned(headers, {ActKind::Baptism, {}, {"data", "x"}}), "Não há nenhum campo \"x\".");
    EXPECT_EQ(whyNotAssigned(headers, {ActKind::Baptism, {}, {"data", "data"}}),
              "O campo \"data\" está em duas colunas.");
}

TEST(TableOfActs, MakesAnActOfEachRow)
{
    const CellTable sheet =
        readSheet("acto;data;fl;crianca;sexo;pai;resid pai;avó paterna;madrinha;marido da madrinha;obs\n"
                  "B;14/2/1702;9v;Josefa;F;Bento Alvz?;Outeiro;Eva;Rita;Gil;d'aqui\n"
                  "Óbito;?/2/1702;;;;;;;;;\n");
    Assignment assignment = proposed(sheet.headers);
    EXPECT_EQ(whyNotAssigned(sheet.headers, assignment), "");
    const Transcript read = actsOf(sheet, assignment);
    ASSERT_EQ(read.acts.size(), 2);
    const Act& act = read.acts[0].act;
    QStringList people;
    for (int person = 0; person < act.people.size(); ++person)
        people << roleTitle(act, person) + ' ' + act.people[person].name.value;
    EXPECT_EQ(people.join(", ").toStdString(),
              "baptizada Josefa, pai Bento Alvz, avó paterna Eva, madrinha Rita, marido da madrinha Gil");
    EXPECT_TRUE(act.people[1].name.doubtful);
    const Attribute residence{.type = attribute::residence, .told = {.value = "Outeiro"}};
    EXPECT_EQ(act.people[1].attributes, QList<Attribute>{residence});
    EXPECT_EQ(act.date, (PartialDate{.year = 1702, .month = 2, .day = 14}));
    EXPECT_EQ(act.folio, "9v");
    EXPECT_EQ(act.notes, "d'aqui");
    EXPECT_EQ(read.acts[1].act.kind, ActKind::Burial);
    EXPECT_EQ(problemsOf(read.problems), QStringList("3: O acto não diz de quem é."));
}

TEST(TableOfActs, TellsRowsThatItDoesNotUnderstand)
{
    const CellTable sheet = readSheet(
        "acto;ano;mes;dia;crianca;morto\nB;1702;Fevereiro;30;Ana;não\nCrisma;1702;2;3;Eva;\n;1702;2;3;Rui;\n");
    const Transcript read = actsOf(sheet, proposed(sheet.headers));
    EXPECT_TRUE(read.isDamaged());
    EXPECT_EQ(problemsOf(read.problems),
              (QStringList{"2: A data 30/02/1702 não existe.", "!3: \"Crisma\" não é uma espécie de acto.",
                           "!4: Falta a espécie do acto."}));
    EXPECT_FALSE(deadBefore(read.acts.value(0).act, 0));
    EXPECT_EQ(read.acts.value(0).act.people.value(0).notes, "morto: não");
}

QString peopleOf(const Act& act)
{
    QStringList people;
    for (int person = 0; person < act.people.size(); ++person)
        people << roleTitle(act, person) + ' ' + act.people[person].name.value;
    return people.join(", ");
}

TEST(TableOfActs, GivesTheGroomOneFather)
{
    const CellTable sheet = readSheet("data;noivo;pai do noivo;avo;noiva\n1/1/1700;Rui;Simão;Gil;Ana\n");
    const Assignment assignment{
        ActKind::Marriage, {}, {"data", "noivo.nome", "pai_noivo.nome", "avo_paterno.nome", "noiva.nome"}};
    EXPECT_EQ(peopleOf(actsOf(sheet, assignment).acts.first().act),
              "noivo Rui, pai do noivo Simão, pai do pai do noivo Gil, noiva Ana");
    Assignment plain = assignment;
    plain.columns[2] = "pai.nome";
    EXPECT_EQ(peopleOf(actsOf(sheet, plain).acts.first().act),
              "noivo Rui, pai do noivo Simão, pai do pai do noivo Gil, noiva Ana");
}

TEST(TableOfActs, KeepsPeopleOfOtherKindsOfActsAsNotes)
{
    const CellTable sheet = readSheet("acto;data;baptizado;noivo;noiva;defunto;conjuge\n"
                                      "O;1/1/1700;;Gil;;Rui;Ana\nB;2/1/1700;Eva;;;;Ana\n");
    const Transcript read = actsOf(sheet, proposed(sheet.headers));
    ASSERT_EQ(read.acts.size(), 2);
    EXPECT_EQ(peopleOf(read.acts[0].act), "defunto Rui, marido Ana");
    EXPECT_EQ(read.acts[0].act.notes, "noivo: Gil");
    EXPECT_EQ(peopleOf(read.acts[1].act), "baptizado Eva");
    EXPECT_EQ(read.acts[1].act.notes, "conjuge: Ana");
}

TEST(TableOfActs, TakesTheOneColumnOfNamesForTheSubjectsOfEveryKind)
{
    const CellTable sheet = readSheet("acto;data;nome;pai\nB;1/1/1700;Eva;Rui\nO;2/1/1700;Gil;Tomé\n");
    const Transcript read = actsOf(sheet, proposed(sheet.headers));
    ASSERT_EQ(read.acts.size(), 2);
    EXPECT_EQ(peopleOf(read.acts[0].act), "baptizado Eva, pai Rui");
    EXPECT_EQ(peopleOf(read.acts[1].act), "defunto Gil, pai Tomé");
}

TEST(TableOfActs, ReadsDaysAsSpreadsheetsSaveThem)
{
    const CellTable sheet =
        readSheet("data;nome\n1702-02-14 00:00:00;Ana\n14/02/1702 0:00;Eva\n36573;Rui\n14/02/1702 10:30;Gil\n");
    const Transcript read = actsOf(sheet, proposed(sheet.headers));
    const PartialDate day{.year = 1702, .month = 2, .day = 14};
    EXPECT_EQ(read.acts[0].act.date, day);
    EXPECT_EQ(read.acts[1].act.date, day);
    EXPECT_EQ(problemsOf(read.problems),
              (QStringList{"4: A data \"36573\" não se entende. Parece o número de série de um dia: dê à coluna o "
                           "formato de data ou de texto antes de gravar a folha.",
                           "5: A data \"14/02/1702 10:30\" não se entende."}));
}

TEST(CellTable, LeavesTitlesAboveTheHeadersOutAndSaysSo)
{
    const CellTable sheet = readSheet("Baptismos de Loivos;;\n\nData;Nome;Pai\n1/1/1700;Ana;Rui\n");
    EXPECT_EQ(sheet.headers, (QStringList{"Data", "Nome", "Pai"}));
    EXPECT_EQ(rowsOf(sheet), "1/1/1700|Ana|Rui");
    EXPECT_EQ(sheet.lines, QList<int>{4});
    EXPECT_EQ(problemsOf(sheet.problems),
              QStringList("1: A linha fica de fora: está acima dos cabeçalhos (\"Baptismos de Loivos\")."));
    EXPECT_EQ(readSheet("Baptismos de Loivos\nData,Nome\n1/1/1700,Ana\n").separator, ',');
    EXPECT_EQ(rowsOf(readSheet("Nome\nAna\nEva\n")), "Ana\nEva") << "one column";
}

TEST(TableOfActs, HoldsTheInventedRegisters)
{
    const QList<Act> acts = bench::parishActs(300);
    for (const char separator : {';', ',', '\t'}) {
        const CellTable sheet = readSheet(bench::actTable(acts, ActKind::Baptism, separator));
        EXPECT_EQ(sheet.separator, separator);
        const Assignment assignment = proposed(sheet.headers);
        ASSERT_EQ(whyNotAssigned(sheet.headers, assignment), "");
        const Transcript read = actsOf(sheet, assignment);
        EXPECT_FALSE(read.isDamaged());
        auto row = read.acts.begin();
        for (const Act& act : acts) {
            if (act.kind != ActKind::Baptism) continue;
            ASSERT_TRUE(row != read.acts.end());
            const Act& again = (row++)->act;
            EXPECT_EQ(again.number, act.number);
            EXPECT_EQ(shown(again.date), shown(act.date));
            const int child = personWith(act, Role::Child);
            const int childAgain = personWith(again, Role::Child);
            ASSERT_GE(childAgain, 0);
            EXPECT_EQ(again.people[childAgain].name.value, act.people[child].name.value);
            EXPECT_EQ(sexOf(again, childAgain), sexOf(act, child));
            EXPECT_EQ(personWith(again, Role::Father, childAgain) < 0, personWith(act, Role::Father, child) < 0);
            EXPECT_EQ(again.notes, act.notes.trimmed());
        }
        EXPECT_TRUE(row == read.acts.end());
    }
}

using TableKept = SmallParish;

TEST_F(TableKept, IsTheAssignmentForTheSameHeadersInAnyOrder)
{
    const QStringList headers{"Data", "Padrinho", "Padrinho", "Nome d'ele"};
    const Assignment assignment{ActKind::Baptism, "3", {"data", "padrinho.nome", "padrinho2.nome", "baptizado.nome"}};
    EXPECT_EQ(keptAssignment(cnBDP, headers), std::nullopt);
    EXPECT_FALSE(cnBDP.tables().contains("estudo_colunas"));
    keepAssignment(cnBDP, headers, {});
    keepAssignment(cnBDP, headers, assignment);
    EXPECT_EQ(keptAssignment(cnBDP, headers), assignment);
    const Assignment turned{ActKind::Baptism, "3", {"baptizado.nome", "padrinho.nome", "data", "padrinho2.nome"}};
    EXPECT_EQ(keptAssignment(cnBDP, {"Nome d'ele", "Padrinho", "Data", "Padrinho"}), turned);
    EXPECT_EQ(keptAssignment(cnBDP, {"Data", "Padrinho"}), std::nullopt);
}

TEST_F(TableKept, IsLeftAloneWhereATableOfThatNameIsAnotherOne)
{
    cnBDP.execute("create table estudo_colunas (x varchar)");
    EXPECT_THROW(keepAssignment(cnBDP, {"a"}, {}), jet::Error);
    EXPECT_THROW(keptAssignment(cnBDP, {"a"}), jet::Error);
}

TEST(TableJson, NamesTheColumnsByTheirHeaders)
{
    const QStringList headers{"Data", "Nome"};
    const Assignment assignment{ActKind::Burial, "2", {"data", "defunto.nome"}};
    EXPECT_EQ(QJsonDocument(toJson(headers, assignment)).toJson(QJsonDocument::Compact),
              R"({"colunas":{"Data":"data","Nome":"defunto.nome"},"especie":"obito","livro":"2"})");
    EXPECT_EQ(assignmentFromJson(toJson(headers, assignment), headers), assignment);
    EXPECT_EQ(assignmentFromJson(toJson(headers, assignment), {"Nome", "Cor"}).columns,
              (QStringList{"defunto.nome", ""}));
    EXPECT_THROW(assignmentFromJson({{"colunas", QJsonObject{{"Data", "dta"}}}}, headers), jet::Error);
    EXPECT_THROW(assignmentFromJson({{"especie", "crisma"}}, headers), jet::Error);
}

} // namespace
