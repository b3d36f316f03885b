#include "study/windows/linkList.h"

#include "study/parish/record.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace study {

using linkage::Link;
using linkage::LinkKind;
using linkage::Record;

void LinkList::take(const parish::Snapshot& parish, const linkage::Model& model, std::vector<Link> links)
{
    later_.clear();
    arrange(parish, model, std::move(links));
}

void LinkList::arrange(const parish::Snapshot& parish, const linkage::Model& model, std::vector<Link> links)
{
    lines_.clear();
    lines_.reserve(links.size());
    int number = 0;
    for (linkage::Group group : linkage::groups(parish, links, model.suggestFrom)) {
        ++number;
        std::ranges::stable_sort(group.links, {}, [&](size_t at) { return links[at].one.isPerson() ? 0 : 1; });
        for (const size_t at : group.links)
            lines_.push_back({links[at], number, links[at].isSuggested(model)});
    }
}

void LinkList::takeFor(const parish::Snapshot& parish, const linkage::Model& model, const std::vector<Record>& records,
                       const std::vector<Link>& links)
{
    const std::set<Record> those(records.begin(), records.end());
    std::vector<Link> all;
    all.reserve(lines_.size() + links.size());
    for (const Line& line : lines_)
        if (!those.contains(line.link.one) && !those.contains(line.link.other)) all.push_back(line.link);
    all.insert(all.end(), links.begin(), links.end());
    arrange(parish, model, std::move(all));
}

void LinkList::drop(const Record& one, const Record& other)
{
    std::erase_if(lines_, [&](const Line& line) {
        return (line.link.one == one && line.link.other == other) || (line.link.one == other && line.link.other == one);
    });
}

void LinkList::postpone(const Link& link, bool later)
{
    if (later)
        later_.insert(keyOf(link));
    else
        later_.erase(keyOf(link));
}

std::vector<LinkList::Line> LinkList::ofKind(std::optional<LinkKind> kind, Shown shown) const
{
    std::vector<Line> found;
    std::ranges::copy_if(lines_, std::back_inserter(found), [&](const Line& line) {
        return (!kind || line.link.kind == *kind) && later_.contains(keyOf(line.link)) == (shown == Shown::Later) &&
               (shown != Shown::Suggested || line.suggested);
    });
    return found;
}

std::vector<Record> LinkList::whoseRunnerUp(const std::vector<Record>& records) const
{
    std::vector<Record> found;
    for (const Line& line : lines_)
        if (line.link.runnerUp && std::ranges::find(records, line.link.runnerUp->record) != records.end()) {
            found.push_back(line.link.one);
            found.push_back(line.link.other);
        }
    return found;
}

std::vector<Record> around(const parish::Snapshot& parish, const Record& record)
{
    std::vector<Record> found{record};
    const auto addFamily = [&](const parish::Family* family) {
        if (!family) return;
        found.push_back(linkage::recordOf(family->number));
        for (const parish::Membership& row : family->members)
            found.push_back(linkage::recordOf(row.member.number));
        for (const parish::Person* child : family->children)
            found.push_back(linkage::recordOf(child->number));
    };
    if (!record.isPerson()) {
        addFamily(parish.family(parish::FamilyNumber(record.number)));
    } else if (const auto* person = parish.person(parish::PersonNumber(record.number))) {
        addFamily(person->origin);
        for (const parish::Membership* row : person->unions)
            addFamily(row->family);
    }
    return found;
}

QString inWords(LinkKind kind)
{
    switch (kind) {
    case LinkKind::SameFamily:
        return "Mesma família";
    case LinkKind::SamePerson:
        return "Mesma pessoa";
    case LinkKind::MissingBirth:
        return "Óbito sem nascimento";
    case LinkKind::MissingOrigin:
        return "Cônjuge sem pais";
    case LinkKind::NamedCouple:
        return "Pais nomeados num acto";
    case LinkKind::Doubtful:
        break;
    }
    return "Ligação duvidosa";
}

QString labelOf(const parish::Snapshot& parish, const Record& record)
{
    if (!record.isGiven()) return {};
    if (record.isPerson()) {
        const parish::Person* person = parish.person(parish::PersonNumber(record.number));
        return person ? parish::label(*person) : QString();
    }
    const parish::Family* family = parish.family(parish::FamilyNumber(record.number));
    return family ? parish::label(*family) : QString();
}

QString shownBits(double bits)
{
    const QString number = QLocale(QLocale::Portuguese).toString(std::abs(bits), 'f', 1);
    return (bits < 0 ? "−" : "+") + number;
}

QStringList cellsOf(const parish::Snapshot& parish, const LinkList::Line& line)
{
    return {QString::number(line.group),      shownBits(line.link.bits),
            inWords(line.link.kind),          labelOf(parish, line.link.one),
            labelOf(parish, line.link.other), line.suggested ? QString("proposto") : QString()};
}

QStringList cellsOf(const linkage::Evidence& evidence)
{
    return {evidence.field, evidence.one, evidence.other, shownBits(evidence.bits)};
}

bool canMerge(const Link& link)
{
    return link.kind != LinkKind::Doubtful && link.one.kind == link.other.kind && link.one.isGiven();
}

QString runnerUpIn(const parish::Snapshot& parish, const Link& link)
{
    if (link.kind == LinkKind::Doubtful) return {};
    if (!link.runnerUp) return "Não há outro candidato.";
    const auto& [record, ofOne, bits] = *link.runnerUp;
    return QString("O melhor a seguir, para %1: %2 (%3 bits)")
        .arg(labelOf(parish, ofOne ? link.one : link.other), labelOf(parish, record), shownBits(bits));
}

} // namespace study
