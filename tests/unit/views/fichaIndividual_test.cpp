// The sheet of one person: nine marks of a template, and what comes in their places.
#include "views/fichaIndividual.h"

#include "common/dono.h"
#include "individuals/individual_card.h"
#include "platform/desktop/desktop.h"
#include "views/rtfDocument.h"

#include <QClipboard>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>

namespace {

const QStringList marks{"@nome",     "@titulo",   "@sexo",    "@datanasc", "@localnasc",
                        "@filiacao", "@nomepais", "@dataobi", "@localobi"};

class Sheet : public IndividualCard
{
protected:
    Sheet()
    {
        Desktop::setProgramFolder(program.path());
        EXPECT_TRUE(QFile::copy(ORV_DATA_DIR "/fichInd.doc", path("fichInd.doc")));
        cnBDP.execute("insert into infocomplementar (categoria, codigo, descricao) values ('Filia', '1', 'Legítima')");
        cnBDP.execute("insert into paroquia (codparoquia, nomeparoquia) values ('030303', 'São Mamede')");
        cnBDP.execute("insert into lugar (codlugar, nomelugar) values ('03030301', '*Além-Rio')");
    }
    ~Sheet() override { Desktop::setProgramFolder({}); }

    QString path(const char* name) const { return program.filePath(name); }

    // Alters the person on the card, and shows it again.
    static void set(const QString& columns)
    {
        cnBDP.execute("update individuo set " + columns + " where nind = 7");
        frmInd().mostra("7");
    }

    static void setAll()
    {
        set("nome = 'Ana da Conceição', titulo = 'D.', sexo = 'f', datanasc = #03/09/1750#, localnasc = '03030301', "
            "tipolocalnasc = 'L', filiacao = 1, famorig = 4, dataobito = #12/31/1799#, localobito = '030303', "
            "tipolocalobito = 'F'");
    }

    // A template of the marks alone, but for those given.
    void writeTemplate(const QStringList& texts) const
    {
        QFile file(path("fichInd.doc"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("{\\rtf1\\ansi " + texts.join('|').toLatin1() + "}");
    }

    static void run()
    {
        Answer answer("OK");
        FichaIndividual(*frmInd().dono().registo);
        EXPECT_EQ(answer.given, 1);
        EXPECT_EQ(answer.text, "Ficha Individual concluída.");
        EXPECT_EQ(answer.icon, QMessageBox::NoIcon);
        EXPECT_EQ(answer.title, "NUBE - ORV");
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }

    QString result() const
    {
        const auto document = RtfDocument::open(path("resultfichInd.doc"));
        return document ? document->text() : "no document";
    }

    // The values in the places of the marks of a template of nothing else.
    QStringList values() const
    {
        writeTemplate(marks);
        run();
        return result().split('|');
    }

    // The text of the sheet with the values in the places of its marks.
    QString expected(const QStringList& texts) const
    {
        QString text = RtfDocument::open(path("fichInd.doc"))->text();
        for (qsizetype i = 0, from = 0; i < marks.size(); from += texts[i++].size()) {
            from = text.indexOf(marks[i], from);
            text.replace(from, marks[i].size(), texts[i]);
        }
        return text;
    }

    QTemporaryDir program;
};

const QStringList ofAna{"Ana da Conceição", "D.", "Feminino",   "09/03/1750", "*Além-Rio",
                        "Legítima",         "",   "31/12/1799", "São Mamede"};

TEST_F(Sheet, TheTemplateHoldsEachMarkOnceInTheOrderOfTheirFilling)
{
    const QString text = RtfDocument::open(path("fichInd.doc"))->text();
    QFile file(path("fichInd.doc"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_TRUE(std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte > 0; }));
    qsizetype from = 0;
    for (const QString& mark : marks) {
        EXPECT_GE(text.indexOf(mark, from), 0) << qPrintable(mark);
        from = text.indexOf(mark, from) + mark.size();
        EXPECT_EQ(bytes.count(mark.toLatin1()), mark == "@nome" ? 2 : 1) << qPrintable(mark); // and in "@nomepais"
    }
    EXPECT_EQ(text.count('@'), marks.size());
}

TEST_F(Sheet, TheNineValuesStandInTheSheet)
{
    setAll();
    run();
    EXPECT_EQ(result(), expected(ofAna));

    QFile file(path("resultfichInd.doc"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_TRUE(bytes.contains("Ana da Concei\\'e7\\'e3o"));
    EXPECT_EQ(bytes.count('{'), bytes.count('}'));
}

TEST_F(Sheet, NamesKeepEveryCharacter)
{
    set("nome = 'Ana {a \\Velha\\} ÀÁÂÃÇÉÊÍÓÔÕÚÜàáâãçéêíóôõúü ªº «» – € Łódź'");
    const QString seen = values()[0];
    EXPECT_EQ(seen.toStdString(), "Ana {a \\Velha\\} ÀÁÂÃÇÉÊÍÓÔÕÚÜàáâãçéêíóôõúü ªº «» – € Łódź");
    QFile file(path("resultfichInd.doc"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_EQ(bytes.count('{') - bytes.count("\\{"), bytes.count('}') - bytes.count("\\}"));
}

TEST_F(Sheet, AMarkThatIsMissingGetsItsValueBehindTheOneBefore)
{
    setAll();
    writeTemplate({"Nome @nome", "Sexo @sexo", "@datanasc", "@localnasc", "@filiacao", "@nomepais", "@dataobi"});
    run();
    EXPECT_EQ(result(), "Nome Ana da ConceiçãoD.|Sexo Feminino|09/03/1750|*Além-Rio|Legítima||31/12/1799São Mamede");
}

TEST_F(Sheet, AFirstMarkThatIsMissingGetsItsValueAtTheBeginning)
{
    set("nome = 'Ana', titulo = 'D.'");
    writeTemplate({"Folha", "@titulo", "@sexo"});
    run();
    EXPECT_TRUE(result().startsWith("AnaFolha|D.|Feminino")) << qPrintable(result());
}

// Kept: the mark of the parents begins as that of the name does.
TEST_F(Sheet, WithoutTheMarkOfTheNameThatOfTheParentsIsTaken)
{
    set("nome = 'Ana'");
    writeTemplate({"Folha", "@nomepais"});
    run();
    EXPECT_TRUE(result().startsWith("Folha|Ana")) << qPrintable(result());
    EXPECT_TRUE(result().endsWith("pais")) << qPrintable(result());
}

TEST_F(Sheet, AMarkBeforeTheLastOneIsntReached)
{
    setAll();
    QStringList turned = marks;
    turned.swapItemsAt(1, 2);
    writeTemplate(turned);
    run();
    const QStringList seen = result().split('|');
    EXPECT_EQ(seen[1], "@sexo");
    EXPECT_EQ(seen[2], "D.Feminino");
    EXPECT_EQ(seen[3], "09/03/1750");
}

TEST_F(Sheet, AMarkWithinAValueIsntFilled)
{
    set("nome = 'Ana @titulo @sexo', titulo = '@sexo'");
    const QStringList seen = values();
    EXPECT_EQ(seen[0], "Ana @titulo @sexo");
    EXPECT_EQ(seen[1], "@sexo");
    EXPECT_EQ(seen[2], "Feminino");
}

TEST_F(Sheet, MarksAreFoundWhateverTheirCase)
{
    writeTemplate({"@NOME", "@Titulo", "@sexo"});
    run();
    EXPECT_TRUE(result().startsWith("Ana|Ana|Feminino")) << qPrintable(result());
}

// Kept: what can't be read leaves the text of the mark before.
TEST_F(Sheet, APersonWithoutATitleGetsTheName)
{
    EXPECT_EQ(values()[1], "Ana");
    set("titulo = ''");
    EXPECT_EQ(values()[1], "");
}

TEST_F(Sheet, WithoutAFiliationThePlaceOfBirthStandsTwice)
{
    set("localnasc = '030303', tipolocalnasc = 'F'");
    EXPECT_EQ(values()[5], "São Mamede");
    set("filiacao = 99"); // a code that isn't known
    EXPECT_EQ(values()[5], "");
}

TEST_F(Sheet, WhoIsntAWomanIsAMan)
{
    EXPECT_EQ(values()[2], "Feminino");
    for (const char* sex : {"'m'", "'d'", "null"}) {
        set(QStringLiteral("sexo = %1").arg(sex));
        EXPECT_EQ(values()[2], "Masculino") << sex;
    }
}

TEST_F(Sheet, DatesAndPlacesThatArentKnownAreABlank)
{
    const QStringList seen = values();
    for (const int i : {3, 4, 7, 8})
        EXPECT_EQ(seen[i], " ") << qPrintable(marks[i]);
    set("localnasc = '999999', tipolocalnasc = 'F', localobito = '  '");
    EXPECT_EQ(values()[4], "");
    EXPECT_EQ(values()[8], " ");
}

// Kept: the statement that would read them is none.
TEST_F(Sheet, TheParentsAreNeverNamed)
{
    EXPECT_EQ(values()[6], " ");
    cnBDP.execute("insert into familia (nfamilia) values (4)");
    cnBDP.execute("insert into individuo (nind, nome, tipo, sexo) values (8, 'Rui', 'T', 'm'), (9, 'Eva', 'T', 'f')");
    cnBDP.execute("insert into familias (nfamilia, nind) values (4, 8), (4, 9)");
    set("famorig = 4, filiacao = 1");
    EXPECT_EQ(values()[6], "");
}

TEST_F(Sheet, ThePersonIsTheOneShownWhereverTheListStands)
{
    cnBDP.execute("insert into individuo (nind, nome, tipo, sexo) values (3, 'Rui', 'T', 'm')");
    set("titulo = 'D.'");
    FrmInd::abrePeloMenu(); // the list goes to its first row
    EXPECT_EQ(values()[0], "Ana");
}

TEST_F(Sheet, ASecondRunOverwritesTheResult)
{
    run();
    set("nome = 'Eva'");
    run();
    EXPECT_TRUE(result().contains("Eva"));
    EXPECT_FALSE(result().contains("Ana"));
    EXPECT_EQ(QDir(program.path()).entryList(QDir::Files), (QStringList{"fichInd.doc", "resultfichInd.doc"}));
}

TEST_F(Sheet, WhatCantBeWrittenOrReadIsToldNowhere)
{
    run();
    const QString first = result();
    set("nome = 'Eva'");
    const auto before = QFile::permissions(program.path());
    QFile::setPermissions(program.path(), QFile::ReadOwner | QFile::ReadUser | QFile::ExeOwner | QFile::ExeUser);
    run();
    EXPECT_EQ(result(), first);
    QFile::setPermissions(program.path(), before);

    EXPECT_TRUE(QFile::resize(path("fichInd.doc"), 0));
    run();
    EXPECT_EQ(result(), first);
    EXPECT_TRUE(QFile::remove(path("fichInd.doc")));
    run();
    EXPECT_EQ(result(), first);
}

TEST_F(Sheet, TheClipboardIsntTouched)
{
    QApplication::clipboard()->setText("meu");
    run();
    EXPECT_EQ(QApplication::clipboard()->text(), "meu");
}

TEST_F(Sheet, AWordProcessorReadsTheSheet)
{
    const QString office = QStandardPaths::findExecutable("soffice");
    if (office.isEmpty()) GTEST_SKIP() << "no office suite is installed to open the sheet with";
    setAll();
    set("nome = 'Ana {a \\Velha\\} da Conceição – Łódź'");
    run();
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(office, {"-env:UserInstallation=file://" + path("office"), "--headless", "--convert-to",
                           "txt:Text:UTF8", "--outdir", program.path(), path("resultfichInd.doc")});
    ASSERT_TRUE(process.waitForFinished(120000));
    QFile file(path("resultfichInd.txt"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << process.readAll().constData();
    const QString text = QString::fromUtf8(file.readAll());
    QStringList texts = ofAna;
    texts[0] = "Ana {a \\Velha\\} da Conceição – Łódź";
    qsizetype from = 0;
    for (const QString& value : texts) {
        from = text.indexOf(value, from);
        EXPECT_GE(from, 0) << qPrintable(value) << " in\n" << qPrintable(text);
        from += value.size();
    }
    EXPECT_FALSE(text.contains('@'));
}

} // namespace
