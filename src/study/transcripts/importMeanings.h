// Which places and professions of a BDP the words of a file mean, asked once for each word.
#pragma once

#include "platform/jet/connection.h"
#include "study/acts/act.h"
#include "study/acts/conclusions.h"
#include "study/transcripts/import.h"

#include <QHash>
#include <QString>

#include <optional>

namespace study {

class Meanings
{
public:
    Meanings(jet::Connection& bdp, const ImportOptions& options);

    // Puts what the words of the act mean into its conclusions; counts those that mean nothing.
    void conclude(const Act& act, Conclusions& conclusions, ImportReport& report);

    // An act was stored: what was made new with it is there from now on.
    void stored(const Conclusions& conclusions);

private:
    struct Place
    {
        std::optional<PlaceChoice> choice; // none: the text means no place
        bool isNew = false;
    };
    void concludePlace(const Told& told, Conclusions& conclusions, ImportReport& report);
    void concludeProfession(const Told& told, Conclusions& conclusions, ImportReport& report);
    Place placeOf(const Told& told);
    std::optional<int> professionOf(const Told& told);
    std::optional<PlaceChoice> knownPlace(const QString& name);

    jet::Connection& bdp_;
    const ImportOptions& options_;
    QString ownParish_;            // code
    QHash<QString, Place> places_; // by the text
    QHash<QString, std::optional<int>> professions_;
};

} // namespace study
