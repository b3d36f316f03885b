#include "study/transcripts/kleio.h"

#include "fuzz/targets.h"

void Fuzz::kleio(const QByteArray& bytes)
{
    const study::Transcript read = study::readKleio(bytes);
    require(read.isDamaged() || !read.acts.isEmpty(), "neither acts nor a reason why there are none");
    QList<study::Act> acts;
    acts.reserve(read.acts.size());
    for (const study::TranscribedAct& one : read.acts) {
        for (int person = 0; person < one.act.people.size(); ++person)
            require(one.act.people[person].of < person, "somebody hangs on who stands behind");
        for (const study::Relation& relation : one.act.relations)
            require(relation.person < one.act.people.size() && relation.other < one.act.people.size(),
                    "a relation to nobody of the act");
        acts << one.act;
    }
    const study::Transcript again = study::readKleio(study::toKleio(acts));
    require(again.acts.size() == acts.size(), "another number of acts when they are written and read");
    for (int act = 0; act < acts.size(); ++act)
        require(again.acts[act].act == acts[act], "another act: " + QString::fromUtf8(study::toKleio({acts[act]})));
}
