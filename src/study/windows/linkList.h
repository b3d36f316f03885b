// The candidates of frmLigacoes as a list: what is to be decided, in which order, and what follows from a decision.
#pragma once

#include "study/linkage/candidates.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <set>
#include <tuple>
#include <vector>

namespace study {

class LinkList
{
public:
    struct Line
    {
        linkage::Link link;
        int group = 0; // from 1; lines of one group are one case, people before the families that become one by them
        bool suggested = false; // by the model: strong, and clear of its runner-up

        bool operator==(const Line&) const = default;
    };

    // All that was found, in the order of its groups. Nothing is put off any more.
    void take(const parish::Snapshot& parish, const linkage::Model& model, std::vector<linkage::Link> links);
    // What was found for these records alone, after a decision: their links are others now. What was put off stays so.
    void takeFor(const parish::Snapshot& parish, const linkage::Model& model,
                 const std::vector<linkage::Record>& records, const std::vector<linkage::Link>& links);

    // What was decided about two: their lines go until they are found again.
    void drop(const linkage::Record& one, const linkage::Record& other);
    // For later: it is among the lines that are put off, until take(); or not any more.
    void postpone(const linkage::Link& link, bool later = true);
    // Those whose records the BDP doesn't have any more.
    template <class IsThere>
    void dropGone(const IsThere& isThere)
    {
        std::erase_if(lines_, [&](const Line& line) {
            return !isThere(line.link.one) || (line.link.other.isGiven() && !isThere(line.link.other));
        });
    }

    enum class Shown
    {
        Suggested,
        All,  // but what is put off
        Later // what is put off
    };
    const std::vector<Line>& lines() const { return lines_; }
    std::vector<Line> ofKind(std::optional<linkage::LinkKind> kind, Shown shown = Shown::All) const; // none: all

    // Who is shown beside one of these records, as its runner-up: both of each such line.
    std::vector<linkage::Record> whoseRunnerUp(const std::vector<linkage::Record>& records) const;

private:
    using Key = std::tuple<linkage::LinkKind, linkage::Record, linkage::Record>;
    static Key keyOf(const linkage::Link& link) { return {link.kind, link.one, link.other}; }
    void arrange(const parish::Snapshot& parish, const linkage::Model& model, std::vector<linkage::Link> links);

    std::vector<Line> lines_;
    std::set<Key> later_;
};

// The record itself, and those whose evidence it is part of: spouses, parents, children, their families. Of one that
// the parish hasn't, itself.
std::vector<linkage::Record> around(const parish::Snapshot& parish, const linkage::Record& record);

// All kinds, in the order in which they are shown.
inline constexpr std::array linkKinds{linkage::LinkKind::SamePerson,   linkage::LinkKind::SameFamily,
                                      linkage::LinkKind::MissingBirth, linkage::LinkKind::MissingOrigin,
                                      linkage::LinkKind::NamedCouple,  linkage::LinkKind::Doubtful};
QString inWords(linkage::LinkKind kind); // "Mesma pessoa"
// "nº 85 Domingos Luís", "família 29: …"; "" for none.
QString labelOf(const parish::Snapshot& parish, const linkage::Record& record);
// Group, bits, kind, both, whether it is proposed.
QStringList cellsOf(const parish::Snapshot& parish, const LinkList::Line& line);
QStringList cellsOf(const linkage::Evidence& evidence); // what, one, other, bits
QString shownBits(double bits);                         // "+8,1", "−2,0"

// "Não há outro candidato.", or who it is, and for which of the two.
QString runnerUpIn(const parish::Snapshot& parish, const linkage::Link& link);

// Whether the two can become one: two people, or two families.
bool canMerge(const linkage::Link& link);

} // namespace study
