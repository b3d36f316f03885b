// orv-estudo rede: who stood by whom.
#include "study/people.h"

#include "study/command/command.h"
#include "study/indicators/network.h"

#include <QDir>
#include <QFile>
#include <QTextStream>
#include <QXmlStreamReader>

using namespace study;
using indicators::Network;
using indicators::Tie;

namespace {

class TheNetworkOfAParish : public People
{
protected:
    TheNetworkOfAParish()
    {
        person({"Rui", 'm'});
        person({"Ana", 'f'});
        const qint64 family = couple(1, 2, "1745-01-01");
        child_ = person({"Eva", 'f', "1750-03-10", "", family});                            // 3
        assists(child_, "1750-03-10", person({"Gil <Paz> & \"Lopes\"", 'm'}), 'b', 'p');    // 4
        assists(child_, "1750-03-10", person({"Nossa Senhora do Rosário", 'f'}), 'b', 'p'); // 5
        assists(family, "1745-01-01", person({"Ivo", 'm'}), 'c', 't');                      // 6
        person({"Luís", 'm'});
        person({"Inês", 'f'});
        const qint64 other = couple(7, 8, "1760-01-01");
        assists(other, "1760-01-01", person({"Tomé", 'm'}), 'c', 't'); // 9
        person({"Sozinho", 'm'});                                      // 10
        run("insert into infocomplementar (categoria, codigo, descricao) values ('Paren', '19', 'Tio paterno')");
    }
    void assists(qint64 entity, const char* day, qint64 who, char act, char as)
    {
        run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente, parentbapt) "
            "values (?, ?, ?, ?, ?, 19)",
            {QString(QChar(act)), entity, QString(day), who, QString(QChar(as))});
    }
    Network network(const indicators::Settings& settings = {}) const
    {
        const auto parish = parish::Snapshot::read(bdp);
        return networkOf(studyOf(parish, settings));
    }
    int orv(const QStringList& arguments)
    {
        out_.clear();
        err_.clear();
        QTextStream out(&out_), err(&err_);
        return runCommand(arguments, out, err, [] { return true; });
    }
    QByteArray bytes(const QString& name) const
    {
        QFile file(folder.filePath("rede/" + name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    qint64 child_ = 0;
    QString out_, err_;
};

std::vector<std::tuple<qint64, qint64, Tie>> tiesOf(const Network& network)
{
    std::vector<std::tuple<qint64, qint64, Tie>> ties;
    for (const auto& edge : network.edges)
        ties.emplace_back(value(edge.from), value(edge.to), edge.tie);
    return ties;
}

} // namespace

TEST_F(TheNetworkOfAParish, TiesGodparentsToChildAndParentsAndWitnessesToTheCouple)
{
    const Network all = network();
    EXPECT_EQ(tiesOf(all), (std::vector<std::tuple<qint64, qint64, Tie>>{{4, 3, Tie::Godparent},
                                                                         {4, 1, Tie::Compadre},
                                                                         {4, 2, Tie::Compadre},
                                                                         {6, 1, Tie::Witness},
                                                                         {6, 2, Tie::Witness},
                                                                         {9, 7, Tie::Witness},
                                                                         {9, 8, Tie::Witness}}));
    EXPECT_EQ(all.edges[0].kinship, "Tio paterno");
    EXPECT_EQ(all.edges[1].kinship, "") << "of the child alone";
    EXPECT_EQ(all.edges[0].date.date(), QDate(1750, 3, 10));
}

TEST_F(TheNetworkOfAParish, HasItsComponentsTheLargestFirst)
{
    const Network all = network();
    EXPECT_EQ(all.components, 2);
    ASSERT_EQ(all.people.size(), 8U) << "no saint, and nobody without an edge";
    const auto& godparent = all.people[3];
    EXPECT_EQ(value(godparent.number), 4);
    EXPECT_EQ(godparent.stoodBy, 3);
    EXPECT_EQ(godparent.wasStoodBy, 0);
    EXPECT_EQ(godparent.component, 1);
    EXPECT_EQ(all.people.back().component, 2);
    EXPECT_EQ(all.people[0].wasStoodBy, 2);
}

TEST_F(TheNetworkOfAParish, TakesTheActsOfTheStudyAlone)
{
    indicators::Settings settings;
    settings.period = {1755, 1800};
    EXPECT_EQ(tiesOf(network(settings)),
              (std::vector<std::tuple<qint64, qint64, Tie>>{{9, 7, Tie::Witness}, {9, 8, Tie::Witness}}));
    settings.period = {1800, 1900};
    EXPECT_EQ(network(settings), Network());
}

TEST_F(TheNetworkOfAParish, IsWrittenAsListsAndAsGraphMl)
{
    const QString target = folder.filePath("rede");
    ASSERT_EQ(orv({"rede", path(), "-o", target}), counted) << qPrintable(err_);
    EXPECT_EQ(out_, "Pessoas: 8; laços: 7; componentes: 2.\n");
    const QByteArray edges = bytes("rede-arestas.csv");
    EXPECT_TRUE(edges.startsWith("de,para,laco,data")) << edges.constData();
    EXPECT_TRUE(edges.contains("\n4,3,padrinho,1750-03-10,")) << edges.constData();
    EXPECT_EQ(edges.count('\n'), 8);
    EXPECT_TRUE(bytes("rede-pessoas.csv").contains("\n9,Tomé,m,2,0,2\n")) << bytes("rede-pessoas.csv").constData();
    EXPECT_TRUE(bytes("rede-componentes.csv").contains("\n1,5,5\n")) << bytes("rede-componentes.csv").constData();
    QXmlStreamReader xml(bytes("rede.graphml"));
    int nodes = 0, arrows = 0;
    bool hasName = false;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        EXPECT_EQ(xml.namespaceUri(), QString("http://graphml.graphdrawing.org/xmlns"));
        if (xml.name() == QString("node")) ++nodes;
        if (xml.name() == QString("edge")) ++arrows;
        if (xml.name() == QString("data") && xml.attributes().value("key") == QString("nome"))
            hasName = hasName || xml.readElementText() == "Gil <Paz> & \"Lopes\"";
    }
    EXPECT_FALSE(xml.hasError()) << qPrintable(xml.errorString());
    EXPECT_EQ(nodes, 8);
    EXPECT_EQ(arrows, 7);
    EXPECT_TRUE(hasName);
    EXPECT_EQ(orv({"rede", path(), "-o", target}), counted) << "over its own: " << qPrintable(err_);
}

TEST_F(TheNetworkOfAParish, IsNotWrittenOverTheFileOfAnybodyElse)
{
    QDir(folder.path()).mkdir("rede");
    QFile file(folder.filePath("rede/rede.graphml"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<graphml/>");
    file.close();
    EXPECT_EQ(orv({"rede", path(), "-o", folder.filePath("rede")}), notCounted);
    EXPECT_TRUE(err_.contains("não é uma rede escrita por um estudo")) << qPrintable(err_);
    EXPECT_EQ(bytes("rede.graphml"), "<graphml/>");
    EXPECT_EQ(bytes("rede-arestas.csv"), "");
    EXPECT_EQ(orv({"rede", path()}), wrongUsage);
}
