// What speaks for and against somebody's being the one whom an act tells of.
#pragma once

#include "study/people/dates.h"
#include "study/people/kin.h"
#include "study/people/sought.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace study {

// Bits: log2 of how much likelier an agreement (or a disagreement) is for the same person than for any other one, after
// I. P. Fellegi and A. B. Sunter, "A theory for record linkage", JASA 64 (1969). How often a name agrees by chance is
// counted in the BDP itself; how often it agrees for the same person is told in the table of evidence.cpp.
struct Reason
{
    double bits = 0;
    QString text = {};

    bool operator==(const Reason&) const = default;
};

struct Evidence
{
    double bits = 0;
    std::vector<Reason> reasons = {}; // the strongest first
    QStringList against = {};
    bool impossible = false; // sex, date or age speak against it
    bool related = false;    // some relative agrees

    bool operator==(const Evidence&) const = default;
};

class Judge
{
public:
    Judge(jet::Connection& bdp, NameIndex& index, Kin& kin, const Act& act)
        : bdp_(bdp), index_(index), kin_(kin), act_(act)
    {
    }

    // Of the names alone. 0 where either isn't one.
    double nameBits(const CodedName& sought, const CodedName& candidate, Sex sex);
    bool firstNamesAgree(const CodedName& sought, const CodedName& candidate);

    // The bits of ofThePerson(), but for a stated age, without a word of why.
    double atAGlance(const Sought& sought, const Person& candidate);
    // Of sex, dates and ages, and the name.
    Evidence ofThePerson(const Sought& sought, const Person& candidate);
    // Of where they lived, what they did, how they were called beside their name; added to what there is.
    void addWhereabouts(const Sought& sought, const Person& candidate, Evidence& evidence);
    // All of it, and what the relatives tell.
    Evidence whole(const Sought& sought, const Person& candidate);

    // "Lugar de Baixo"; "" where the BDP doesn't know it.
    QString placeName(const QString& code, const QString& level);

private:
    double share(WordCode word); // of the people of the BDP who have it in their names
    std::optional<double> wordBits(const CodedWord& sought, const CodedWord& candidate, double agreesForTheSame);
    double firstNameBits(const CodedName& sought, const CodedName& candidate);
    bool surnamesDisagree(const CodedName& sought, const CodedName& candidate);
    double otherNamesBits(const CodedName& sought, const CodedName& candidate, Sex sex);

    void judgeName(const Sought& sought, const Person& candidate, Evidence& evidence);
    Dates datesOf(const Sought& sought, const Person& candidate);
    void judgeDates(const Sought& sought, const Person& candidate, Evidence& evidence);
    void judgeStatedAge(const Sought& sought, const Person& candidate, Evidence& evidence);

    void judgeLife(const Sought& sought, const Person& candidate, Evidence& evidence);

    std::vector<qint64> kinOf(const Person& candidate, Relative::Kind kind);
    QString nameOfPerson(qint64 nind);
    void judgeRelative(const Relative& relative, const Person& candidate, Evidence& evidence);
    void judgeKnown(const Relative& relative, const Person& candidate, const std::vector<qint64>& kin,
                    const QString& words, Evidence& evidence);
    struct LikestKin
    {
        const Person* who = nullptr; // null: none of them has a name
        double bits = 0;
    };
    LikestKin likestOf(const Relative& relative, const std::vector<qint64>& kin);
    void judgeNamed(const Relative& relative, const std::vector<qint64>& kin, const QString& words, Evidence& evidence);
    void judgeOtherParent(const Relative& relative, const Person& candidate, Evidence& evidence);

    void judgeResidence(const Sought& sought, const Person& candidate, Evidence& evidence);
    void judgeProfession(const Sought& sought, const Person& candidate, Evidence& evidence);
    void judgeTitleAndNickname(const Sought& sought, const Person& candidate, Evidence& evidence);

    jet::Connection& bdp_;
    NameIndex& index_;
    Kin& kin_;
    const Act& act_;
};

} // namespace study
