// Groups become acts.
#pragma once

#include "study/transcripts/kleioRoles.h"
#include "study/transcripts/kleioText.h"
#include "study/transcripts/transcript.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <optional>

namespace study::kleio {

// Takes the groups of one file in their order.
// Precondition: the transcript outlives it; end() is called once, behind the last group.
class Reader
{
public:
    explicit Reader(Transcript& read) : read_(read) {}

    void take(const Group& group);
    void end();

private:
    // kleioReader.cpp: the file and its acts
    bool takeFile(const Group& group);
    void takeSource(const Group& group);
    void beginAct(const Group& group);
    void endAct();
    void endRelations(Act& act);
    void checkAct(const TranscribedAct& one);
    void checkRelatives(const TranscribedAct& one, int person);
    void takeUnknown(const Group& group);
    void settleOpenUnknown(const Group& next);
    void standOutside(const Group& group);
    void noteInTheBook(const Group& group);
    void warn(int line, const QString& text);
    void fail(int line, const QString& text);
    Act& current() { return read_.acts.last().act; }

    // kleioPeople.cpp: people and what hangs on them
    void takePerson(const Group& group, Place place);
    ActPerson personOf(const Group& group, bool hasOwnPlace, bool& sexIsOpen);
    bool takeOwnPlace(const Group& group, Place& place) const;
    int addPerson(const Group& group, const ActPerson& person);
    int celebrantOfHead(const ActPerson& person) const;
    void takePersonElement(ActPerson& person, const Element& element, int line);
    void checkPerson(const ActPerson& person, int line);

    // kleioAttributes.cpp: what is told of people and of the act
    void takeAttribute(const Group& group);
    void takeFact(const Group& group);
    void addAttributes(const Group& group, const Attribute& model, const Element& values, QList<Attribute>& attributes);
    void takeRelation(const Group& group);
    QString& notesHere();

    struct LaterCheck
    {
        int line = 0;
        QString id;
        QString text; // the warning, where nobody in the file has the id
    };

    Transcript& read_;
    QList<Standing> standing_; // one for each person of the act
    int lastPerson_ = -1;      // who was told last; -1: nobody yet
    int headCelebrants_ = 0;   // people of the act that its head has told of
    int actIndent_ = 0;
    bool actIsOpen_ = false;
    bool standsOutside_ = false; // within a group that is no act of these kinds
    int outsideIndent_ = 0;
    std::optional<Group> openUnknown_; // the next group tells whether it is part of the act
    bool hasHeader_ = false;
    QSet<QString> ids_;
    QList<int> byId_;        // relations of the act that an id leads to their other person
    QList<int> linesOfThem_; // one for each relation of the act
    QList<LaterCheck> later_;
};

} // namespace study::kleio
