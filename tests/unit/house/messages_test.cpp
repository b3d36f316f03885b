#include "house/messages.h"

#include "help/messageEntry.h"
#include "house/messages_aside.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>

using namespace house;

namespace {

// Where a text of these begins with a small letter, the function puts the name of a file or the number of a line
// before.
const Takers& takers()
{
    static const Takers all{{"Error", {}},
                            {"RecusaDeIndividuo", {}},
                            {"VerificaInteiro", {}},
                            {"ask", {}},
                            {"askWhetherToStore", {}},
                            {"fail", {}},
                            {"invalidStatement", {}},
                            {"object", {}},
                            {"recusa", {}},
                            {"recusaData", {}},
                            {"recusado", "\"…\" "},
                            {"refuse", "…: "},
                            {"refuseGedcom", "Linha …: "},
                            {"showMessage", {}},
                            {"showStatus", {}},
                            {"vigiaFraccao", {}},
                            {"vigiaInteiro", {}},
                            {"vigiaNumero", {}}};
    return all;
}

QStringList told(const char* source)
{
    QStringList texts;
    for (const Message& one : messagesOf("frm.cpp", source, takers()))
        texts << one.text;
    return texts;
}

TEST(TheReaderOfMessages, TakesWhatABoxAQuestionOrAnErrorIsGiven)
{
    EXPECT_EQ(told(R"(showMessage("sem título", Icon::None);)"), QStringList("sem título"));
    EXPECT_EQ(told(R"(if (!ask("Continuar?")) return;)"), QStringList("Continuar?"));
    EXPECT_EQ(told(R"(throw jet::Error{number::overflow, "Falta"};)"), QStringList("Falta"));
    EXPECT_EQ(told(R"(refuse(path, "não se lê"); refuse(path, "Não se lê");)"),
              QStringList({"…: não se lê", "Não se lê"}));
    EXPECT_EQ(told(R"(lista->add("sem título"); showMessage(texto); ask();)"), QStringList());
}

TEST(TheReaderOfMessages, PutsTheSignForWhatChanges)
{
    EXPECT_EQ(told(R"re(showMessage("O ficheiro \"" + nome() + "\" tem " + QString::number(n + 1) + '.');)re"),
              QStringList("O ficheiro \"…\" tem …."));
    EXPECT_EQ(told(R"(throw Error{n, QStringLiteral("De %1 a %2 vai " "longe").arg(a, b)};)"),
              QStringList("De … a … vai longe"));
    EXPECT_EQ(told(R"(showMessage("Uma linha.\r\nOutra " + a + b);)"), QStringList("Uma linha. Outra …"));
    EXPECT_EQ(told(R"(showMessage("Há " + (n == 1 ? "um. " : "dois. ") + "Veja.");)"), QStringList("Há …Veja."));
}

TEST(TheReaderOfMessages, TakesEachBranchOfAChoice)
{
    EXPECT_EQ(told(R"(showMessage(um ? "sem um" : dois ? "sem dois" : "sem " + nome);)"),
              QStringList({"sem um", "sem dois", "sem …"}));
}

TEST(TheReaderOfMessages, TakesASentenceWhereverItStands)
{
    EXPECT_EQ(told(R"(constexpr auto falta = "Falta dizer quem."; const QString a = "nome", b = "Nome próprio";)"),
              QStringList("Falta dizer quem."));
    EXPECT_EQ(told(R"(return QString("O %1 não existe.").arg(n);)"), QStringList("O … não existe."));
    EXPECT_EQ(told(R"(fora << quem + " já não existe.";)"), QStringList("… já não existe."));
    EXPECT_EQ(told(R"(return "A BDP não foi lida: " + razao;)"), QStringList("A BDP não foi lida: …"));
    EXPECT_EQ(told(R"({{"Deve ter nome!", "Já há um nome assim!"}, "codigo = ?"};)"),
              QStringList({"Deve ter nome!", "Já há um nome assim!"}));
}

TEST(TheReaderOfMessages, TakesTheArgumentsAloneWhereItIsTold)
{
    const char* source = R"(const char* um = "Isto é uma nota."; ask("Continuar?"); object("sem-nome", 1, "Falta");)";
    QStringList texts;
    for (const Message& one : messagesOf("frm.cpp", source, {{"ask", {}}, {"object", {}}}, Read::Taken))
        texts << one.text;
    EXPECT_EQ(texts, QStringList({"Continuar?", "Falta"}));
}

TEST(TheReaderOfMessages, TellsTheFileAndTheLine)
{
    const QList<Message> found = messagesOf("a/b.cpp", "// um\n\nask(\"Sai\" + x);", takers());
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0].file, "a/b.cpp");
    EXPECT_EQ(found[0].line, 3);
}

TEST(TheChapterOfMessages, IsReadByItsHeadings)
{
    const QList<Entry> entries =
        entriesOf("# Mensagens {#mensagens}\n\nAntes.\n\n### \"Sai \"…\"?\" {#msg-sai .mensagem}\n"
                  "Diga que sim.\n\n## Outras {#outras}\nNada.\n");
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0].text, "Sai \"…\"?");
    EXPECT_EQ(entries[0].id, "msg-sai");
    EXPECT_EQ(entries[0].explanation, "Diga que sim.");
}

TEST(TheChapterOfMessages, IsComparedByTheWords)
{
    const QList<Message> messages{{"a.cpp", 1, "O nome \"…\" não existe."}, {"a.cpp", 2, "Sai?"}};
    EXPECT_EQ(disagreements(messages, {{"a", "O nome … não existe", "x"}}, {"Sai?"}), QStringList());
    EXPECT_EQ(disagreements(messages, {{"a", "O nome … não existe", "x"}}, {}),
              QStringList("a.cpp:2: the chapter lacks \"Sai?\""));
    EXPECT_EQ(disagreements(messages, {{"a", "O nome … não existe", "x"}, {"b", "Entra?", "x"}}, {"Sai?"}),
              QStringList("no source tells \"Entra?\""));
    EXPECT_EQ(disagreements(messages, {{"a", "O nome … não existe", "x"}}, {"Sai?", "Vai?"}),
              QStringList("no source tells \"Vai?\", put aside"));
    EXPECT_EQ(disagreements(messages, {{"a", "O nome … não existe", "x"}, {"b", "Sai?", "x"}}, {"Sai?"}),
              QStringList("explained, and put aside: \"Sai?\""));
}

QString sources()
{
    return ORV_DATA_DIR "/../src";
}

QString sourceOf(const QString& file)
{
    QFile source(sources() + '/' + file);
    return source.open(QIODevice::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}

QStringList files()
{
    QStringList names;
    for (QDirIterator it(sources(), {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        names << QDir(sources()).relativeFilePath(it.next());
    names.sort();
    return names;
}

const QList<Message>& ofTheProgram()
{
    static const QList<Message> all = [] {
        Takers ofOthers = takers();
        ofOthers.remove("ask"); // rules and counts have functions of that name
        QList<Message> messages;
        for (const QString& file : files())
            messages += isOfMessages(file) ? messagesOf(file, sourceOf(file), takers())
                                           : messagesOf(file, sourceOf(file), ofOthers, Read::Taken);
        for (const Joined& joined : joinedAtRunTime())
            if (sourceOf(joined.file).contains('"' + joined.piece)) messages << Message{joined.file, 1, joined.text};
        return messages;
    }();
    return all;
}

QString chapter()
{
    QFile file(ORV_DATA_DIR "/../docs/manual/80-mensagens.md");
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

TEST(TheManual, ExplainsEveryMessageOfTheProgramAndNoOther)
{
    EXPECT_GT(ofTheProgram().size(), 800);
    const QStringList found = disagreements(ofTheProgram(), entriesOf(chapter()), toldAside());
    EXPECT_TRUE(found.isEmpty()) << qPrintable(found.join('\n'));
}

TEST(TheManual, IsFoundToLackAMessageThatIsTakenOut)
{
    QList<Entry> entries = entriesOf(chapter());
    ASSERT_GT(entries.size(), 600);
    const Entry one = entries.takeAt(entries.size() / 2);
    const QStringList found = disagreements(ofTheProgram(), entries, toldAside());
    const bool isTold = std::any_of(found.begin(), found.end(), [&](const QString& each) {
        return each.contains("the chapter lacks") && wordsOf(each).endsWith(wordsOf(one.text));
    });
    EXPECT_TRUE(isTold) << qPrintable(one.text);
}

TEST(TheManual, SaysOfEachMessageWhatToDoAndIsFoundByIt)
{
    const QList<Entry> entries = entriesOf(chapter());
    QList<help::MessageEntry> titles;
    for (const Entry& one : entries)
        titles << help::MessageEntry{one.id, '"' + one.text + '"'};
    QSet<QString> ids;
    for (const Entry& one : entries) {
        EXPECT_TRUE(one.explanation.endsWith('.')) << qPrintable(one.text);
        EXPECT_FALSE(ids.contains(one.id)) << qPrintable(one.id);
        ids.insert(one.id);
        if (wordsOf(one.text).remove(' ').remove(u'…').size() < help::fewestLetters) continue;
        const QString shown = QString(one.text).replace(u'…', "xis");
        const bool leads = one.text.endsWith(u'…');
        EXPECT_EQ(help::messageEntry(leads ? shown : "Ocorreu o erro 13\r\n" + shown, titles), one.id)
            << qPrintable(one.text);
    }
}

} // namespace
