// The places of a GEDCOM file among those of the BDP.
#pragma once

#include "study/exchange/gedcomInRows.h"
#include "study/parish/snapshot.h"

#include <QHash>
#include <QMultiHash>
#include <QString>
#include <QStringList>

#include <array>

namespace study::exchange {

class GedcomPlaces
{
public:
    enum class MakesNew : quint8
    {
        Nothing,
        Localities,
        Parishes // too: of an export of ours, whose parish a BDP may have made
    };
    GedcomPlaces(jet::Connection& bdp, GedcomRows& rows, MakesNew makesNew);

    // What became of a place: unknown where nothing fits, not whole where only a wider one does.
    struct Found
    {
        parish::Place place = {};
        bool isWhole = false;
    };
    // "Fonte, Azurém, Guimarães", by the words of its FORM ("Lugar, Freguesia, Concelho"), or without them by the names
    // alone, from the narrowest on; `code` is letter and code of an export ("L03080901"), which counts where the BDP
    // has it with that name. A locality, or a site within one, that its parish hasn't is made there, provisional, with
    // that code where it is free; so is a parish of an export in its municipality, and a place of one word in the own
    // parish, where nothing is called so.
    Found lookUp(const QString& text, const QString& form, const QString& code);

private:
    struct Named
    {
        QString name = {};
        QString within = {}; // letter and code
    };
    using Items = std::array<QString, placeLevels>; // the narrowest first
    Found byCode(const QString& code, const QString& text) const;
    Found byLevels(const Items& items, const QString& code);
    Found byNames(const QStringList& items);
    bool liesIn(const QString& key, const QStringList& names) const;
    QStringList named(const QString& name) const; // letters and codes
    QString make(QChar level, const QString& name, const QString& within, const QString& known = {});
    QString lastParish(const QString& municipality) const;
    QString nextCode(QChar level, const QString& within) const;
    void add(const QString& key, const Named& place);

    GedcomRows& rows_;
    MakesNew makesNew_;
    QString ownParish_ = {};
    QHash<QString, Named> places_ = {}; // by letter and code
    QMultiHash<QString, QString> byName_ = {};
    QHash<QString, Found> known_ = {}; // by all that lookUp() is asked by
    QHash<QString, qint64> last_ = {}; // number of the last one made within a place
};

} // namespace study::exchange
