// Whether the rows of the cards are others than at some moment.
#pragma once

#include "platform/jet/follower.h"

#include <QStringList>

namespace study {

// Follows the tables that a snapshot of a parish is read from, and others that are named. Precondition: the connection
// outlives it.
class ParishWatch
{
public:
    explicit ParishWatch(const jet::Connection& bdp, const QStringList& others = {});

    // From this moment on. Throws jet::Error.
    void begin();
    // Whether a row was touched since, by whoever; once true, it stays so until begin(). Where nobody can tell, as the
    // file was opened anew, or the connection is busy, what was known stays.
    bool hasChanged();
    // The same, but true once for each time that rows were touched.
    bool hasChangedAgain();
    // What was read then is no more what stands there, whoever says so.
    void outdate() { changed_ = true; }

    // What was done since the last look touches no row of the cards, whatever it has done to the BDP, or is known.
    void passOver();
    // The same of what is done between two looks.
    template <class Work>
    void without(Work&& work)
    {
        hasChanged();
        std::forward<Work>(work)();
        passOver();
    }

private:
    void look();

    jet::Follower follower_;
    bool begun_ = false;
    bool changed_ = false, again_ = false;
};

} // namespace study
