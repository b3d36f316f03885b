// What was concluded from an act: who its people are, and which of the BDP's places and codes its words mean.
#pragma once

#include "study/acts/act.h"

#include <QChar>
#include <QList>
#include <QMap>
#include <QString>

namespace study {

// Who a person of an act is. Nobody is ever taken for a known person but by the user's word, or by the rule that the
// user has chosen for an import.
struct Identity
{
    enum class Kind
    {
        Open,  // not decided: the act can't be stored
        New,   // a new person
        Known, // the person `nind`
        Kept   // no person of the BDP: the name stays in the act
    };
    Kind kind = Kind::Open;
    qint64 nind = 0;
    QString reason = {};    // why it was taken for that person, in the words of the finder or of the user
    Sex sex = Sex::Unknown; // as the BDP has it, or as it was concluded; an act that tells another one comes first

    bool operator==(const Identity&) const = default;
};

// A place of the BDP, as the cards' place pairs have it, or one that is made with the act.
struct PlaceChoice
{
    QString code = {};   // "" for a new locality
    QChar level = 'L';   // P Z D C F L S
    QString name = {};   // of the new one
    QString parish = {}; // in which it is made

    bool operator==(const PlaceChoice&) const = default;
};

// The texts are those of the act, as they stand there; what isn't mapped gets no row in the tables of the cards, and
// stays in the act.
struct Conclusions
{
    QList<Identity> people = {}; // one for each of Act::people, in its order
    QMap<QString, PlaceChoice> places = {};
    QMap<QString, int> professions = {};   // codprof; 0: a new one, made with the act
    QMap<QString, QString> overruled = {}; // objection (Objection::id) → why it doesn't hold

    bool operator==(const Conclusions&) const = default;
};

// The act with the sexes that were concluded where it tells none: for whoever asks what follows from a sex. What is
// stored is the act itself.
Act withConcludedSexes(const Act& act, const Conclusions& conclusions);

} // namespace study
