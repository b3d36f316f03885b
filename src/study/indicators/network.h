// The network of godparents and witnesses: who stands by whom, as files for programs of networks.
#pragma once

#include "study/indicators/subject.h"
#include "study/report/report.h"

#include <QByteArray>

#include <functional>
#include <vector>

namespace study::indicators {

enum class Tie : quint8
{
    Godparent, // godparent → godchild
    Compadre,  // godparent → father or mother of the godchild
    Witness    // witness of a marriage → husband or wife
};
QString idOf(Tie tie); // "padrinho", "compadre", "testemunha"

struct NetworkEdge
{
    parish::PersonNumber from = {}, to = {};
    Tie tie = Tie::Godparent;
    parish::Date date = {}; // of the act
    QString kinship = {};   // of the one who assists to the child, the groom or the bride; "" where it isn't told
    QString state = {};     // civil state of the one who assists; the same
    QString residence = {}; // where the one who assists lived on that day; the same

    bool operator==(const NetworkEdge&) const = default;
};

struct NetworkPerson
{
    parish::PersonNumber number = {};
    QString name = {};
    parish::Gender gender = parish::Gender::Undetermined;
    int stoodBy = 0, wasStoodBy = 0; // edges from and to
    int component = 0;               // from 1 on, the largest first; of the same size by their lowest number

    bool operator==(const NetworkPerson&) const = default;
};

struct Network
{
    std::vector<NetworkPerson> people = {}; // those of an edge alone, in the order of their numbers
    std::vector<NetworkEdge> edges = {};    // in the order of the acts: by child, then by family
    int components = 0;

    bool operator==(const Network&) const = default;
};

// Of the baptisms that count for godparenthood, and the marriages that count by the settings. Godparents without a
// card, and saints, are nobody. Asked now and then whether to go on; throws parish::Snapshot::Interrupted where not.
Network networkOf(const Study& study, const std::function<bool()>& goesOn = {});

// The edges ("arestas"), the people ("pessoas") and the components ("componentes") as tables of one section.
report::Section sectionOf(const Network& network);
// GraphML 1.0, in UTF-8. Same bytes for the same network.
QByteArray graphMlOf(const Network& network);
inline constexpr auto graphMlComment = " ORV: rede de padrinhos e testemunhas "; // by which a file of ours is known

} // namespace study::indicators
