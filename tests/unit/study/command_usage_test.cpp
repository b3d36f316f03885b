// What the arguments of orv-estudo ask for.
#include "study/command/usage.h"

#include <gtest/gtest.h>

#include <algorithm>

using study::Order;
using study::readArguments;

namespace {

Order orderOf(const QStringList& arguments)
{
    Order order;
    EXPECT_EQ(readArguments(arguments, order), "") << qPrintable(arguments.join(' '));
    return order;
}

} // namespace

TEST(TheArguments, AskForOneWorkEach)
{
    using enum Order::Work;
    const std::pair<QStringList, Order::Work> all[] = {
        {{"importar", "kleio", "a.cli", "--bdp", "b.orv"}, ImportKleio},
        {{"importar", "tabela", "a.csv", "--bdp", "b.orv", "--colunas", "c.json"}, ImportTable},
        {{"exportar", "kleio", "--bdp", "b.orv", "a.cli"}, ExportKleio},
        {{"verificar", "b.orv", "--vistos"}, Check},
        {{"contagens", "b.orv"}, Count},
        {{"juntar", "a.json", "b.json"}, Join},
        {{"relatorio", "b.orv", "-o", "c.html"}, Report},
        {{"tabelas", "b.orv", "-o", "c"}, Tables},
        {{"smam", "a.csv"}, Smam},
        {{"rede", "b.orv", "-o", "c"}, Network},
        {{"definicoes", "b.orv", "--de", "c.json"}, Settings},
        {{"baptismos", "b.orv", "--gravar"}, Baptisms},
        {{"--ajuda"}, Help},
    };
    for (const auto& [arguments, work] : all)
        EXPECT_EQ(orderOf(arguments).work, work) << qPrintable(arguments.join(' '));
}

TEST(TheArguments, TellWordsThatAreNoneFromNoWords)
{
    const Order none = orderOf({"baptismos", "b.orv", "--nascido", ""});
    EXPECT_EQ(none.birthWords, QString());
    EXPECT_EQ(none.baptismWords, std::nullopt);
    EXPECT_EQ(orderOf({"baptismos", "b.orv", "--baptizado", "baptizado a"}).baptismWords, "baptizado a");
}

TEST(TheArguments, OfNoWorkAreRefused)
{
    for (const QStringList& arguments : {QStringList(), QStringList{"importar"}, QStringList{"exportar"}}) {
        Order order;
        EXPECT_EQ(readArguments(arguments, order), "Falta dizer o que fazer.") << qPrintable(arguments.join(' '));
    }
}

TEST(TheHelp, BeginsEachParagraphBehindABlankLine)
{
    const QStringList lines = study::helpText().split('\n');
    const QStringList works{"Exportar gedcom",    "Exportar tabelas", "Exportar ids",
                            "Exportar episodios", "Importar tabelas", "Importar gedcom"};
    for (const QString& work : works) {
        const auto first = std::ranges::find_if(lines, [&](const QString& line) { return line.startsWith(work); });
        ASSERT_TRUE(first > lines.begin() && first < lines.end()) << qPrintable(work);
        EXPECT_EQ(*std::prev(first), "") << qPrintable(work);
    }
    EXPECT_FALSE(study::helpText().contains("\n\n\n"));
}
