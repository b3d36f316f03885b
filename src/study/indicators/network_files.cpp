// The network as tables and as GraphML.
#include "study/indicators/network.h"
#include "study/indicators/reading.h"

#include <QXmlStreamWriter>

#include <algorithm>
#include <map>

namespace study::indicators {

namespace {

QString dayOf(const parish::Date& date)
{
    return date.isKnown() ? date.date().toString(Qt::ISODate) : QString();
}

// As the card has it.
QString sexOf(const NetworkPerson& person)
{
    if (person.gender == parish::Gender::Male) return "m";
    return person.gender == parish::Gender::Female ? "f" : "d";
}

QString nodeId(parish::PersonNumber number)
{
    return 'n' + parish::shown(number);
}

// XML has no way to hold control characters.
QString printable(const QString& text)
{
    QString all;
    for (const QChar letter : text)
        if (letter >= u' ') all += letter;
    return all;
}

Table edgesTable(const Network& network)
{
    Table table{"arestas",
                "Quem esteve por quem",
                {textColumn("De"), textColumn("Para"), textColumn("Laço"), textColumn("Data"),
                 textColumn("Data exacta"), textColumn("Parentesco"), textColumn("Estado civil"),
                 textColumn("Residência")}};
    for (const NetworkEdge& edge : network.edges)
        table.rows.push_back({report::text(parish::shown(edge.from)), report::text(parish::shown(edge.to)),
                              report::text(idOf(edge.tie)), report::text(dayOf(edge.date)),
                              report::text(edge.date.isExact() ? "sim" : "não"), report::text(edge.kinship),
                              report::text(edge.state), report::text(edge.residence)});
    table.notes = {"De: o padrinho, a madrinha ou a testemunha. Para: o afilhado (padrinho), o pai ou a mãe dele "
                   "(compadre), o noivo ou a noiva (testemunha). Parentesco, estado civil e residência são de quem "
                   "assiste."};
    return table;
}

Table peopleTable(const Network& network)
{
    Table table{"pessoas",
                "As pessoas da rede",
                {textColumn("Pessoa"), textColumn("Nome"), textColumn("Sexo"), countColumn("Laços que faz"),
                 countColumn("Laços que recebe"), countColumn("Componente")}};
    for (const NetworkPerson& person : network.people)
        table.rows.push_back({report::text(parish::shown(person.number)), report::text(person.name),
                              report::text(sexOf(person)), report::number(person.stoodBy),
                              report::number(person.wasStoodBy), report::number(person.component)});
    return table;
}

Table componentsTable(const Network& network)
{
    Table table{"componentes",
                "As componentes da rede",
                {textColumn("Componente"), countColumn("Pessoas"), countColumn("Laços")}};
    std::map<parish::PersonNumber, int> componentOf;
    std::map<int, std::pair<int, int>> sizes;
    for (const NetworkPerson& person : network.people) {
        componentOf.emplace(person.number, person.component);
        ++sizes[person.component].first;
    }
    for (const NetworkEdge& edge : network.edges)
        ++sizes[componentOf.at(edge.from)].second;
    for (const auto& [component, size] : sizes)
        table.rows.push_back(
            {report::text(QString::number(component)), report::number(size.first), report::number(size.second)});
    table.notes = {"Duas pessoas estão na mesma componente se se chega de uma à outra por laços, em qualquer sentido."};
    return table;
}

// An attribute of nodes or of edges.
struct Attribute
{
    const char* id;
    const char* name;
    const char* type;
};
constexpr std::array<Attribute, 5> ofNodes = {{{"nome", "nome", "string"},
                                               {"sexo", "sexo", "string"},
                                               {"faz", "lacos_que_faz", "int"},
                                               {"recebe", "lacos_que_recebe", "int"},
                                               {"componente", "componente", "int"}}};
constexpr std::array<Attribute, 6> ofEdges = {{{"laco", "laco", "string"},
                                               {"data", "data", "string"},
                                               {"exacta", "data_exacta", "boolean"},
                                               {"parentesco", "parentesco", "string"},
                                               {"estado", "estado_civil", "string"},
                                               {"residencia", "residencia", "string"}}};

template <std::size_t n>
void writeKeys(QXmlStreamWriter& xml, const char* of, const std::array<Attribute, n>& attributes)
{
    for (const Attribute& attribute : attributes) {
        xml.writeEmptyElement("key");
        xml.writeAttribute("id", attribute.id);
        xml.writeAttribute("for", of);
        xml.writeAttribute("attr.name", attribute.name);
        xml.writeAttribute("attr.type", attribute.type);
    }
}

// In the order of the attributes; what isn't told is left out.
template <std::size_t n>
void writeData(QXmlStreamWriter& xml, const std::array<Attribute, n>& attributes, const std::array<QString, n>& values)
{
    for (std::size_t i = 0; i < n; ++i) {
        if (values[i].isEmpty()) continue;
        xml.writeStartElement("data");
        xml.writeAttribute("key", attributes[i].id);
        xml.writeCharacters(printable(values[i]));
        xml.writeEndElement();
    }
}

void write(QXmlStreamWriter& xml, const NetworkPerson& person)
{
    xml.writeStartElement("node");
    xml.writeAttribute("id", nodeId(person.number));
    writeData(xml, ofNodes,
              {person.name, sexOf(person), QString::number(person.stoodBy), QString::number(person.wasStoodBy),
               QString::number(person.component)});
    xml.writeEndElement();
}

void write(QXmlStreamWriter& xml, const NetworkEdge& edge)
{
    xml.writeStartElement("edge");
    xml.writeAttribute("source", nodeId(edge.from));
    xml.writeAttribute("target", nodeId(edge.to));
    writeData(xml, ofEdges,
              {idOf(edge.tie), dayOf(edge.date), edge.date.isExact() ? "true" : "false", edge.kinship, edge.state,
               edge.residence});
    xml.writeEndElement();
}

} // namespace

QString idOf(Tie tie)
{
    switch (tie) {
    case Tie::Godparent:
        return "padrinho";
    case Tie::Compadre:
        return "compadre";
    case Tie::Witness:
        break;
    }
    return "testemunha";
}

report::Section sectionOf(const Network& network)
{
    return {.id = "rede",
            .title = "Rede de padrinhos e testemunhas",
            .method =
                "Os padrinhos e madrinhas dos baptismos da freguesia e as testemunhas dos casamentos que têm ficha "
                "de pessoa, pelos ajustes do estudo; santos e imagens não são pessoas.",
            .figures = {edgesTable(network), peopleTable(network), componentsTable(network)}};
}

QByteArray graphMlOf(const Network& network)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(1);
    xml.writeStartDocument();
    xml.writeComment(graphMlComment);
    xml.writeStartElement("graphml");
    xml.writeDefaultNamespace("http://graphml.graphdrawing.org/xmlns");
    writeKeys(xml, "node", ofNodes);
    writeKeys(xml, "edge", ofEdges);
    xml.writeStartElement("graph");
    xml.writeAttribute("id", "rede");
    xml.writeAttribute("edgedefault", "directed");
    for (const NetworkPerson& person : network.people)
        write(xml, person);
    for (const NetworkEdge& edge : network.edges)
        write(xml, edge);
    xml.writeEndDocument();
    return bytes;
}

} // namespace study::indicators
