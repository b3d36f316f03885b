// What the words of an act mean in the codes, the places and the professions of the BDP.
#pragma once

#include "common/niveis.h"
#include "platform/jet/connection.h"
#include "study/acts/act.h"
#include "study/acts/conclusions.h"

#include <QHash>
#include <QList>
#include <QPair>
#include <QString>

#include <optional>

namespace study {

// Small letters without accents, one blank between words, nothing but letters and digits.
QString plainWords(const QString& text);

// Whether a text says that there is none: "não", "nenhum", "não deixou", "sem missas", "n".
bool isDenied(const QString& text);

// A word of the registers, and the description of the code that it means. The table of them is tested entry by entry.
struct CodeWord
{
    QString category; // of infocomplementar
    QString words;    // as plainWords() gives them
    QString description;

    bool operator==(const CodeWord&) const = default;
};
const QList<CodeWord>& codeWords();

// The description that a text means in one category by that table alone: the words of exactly one description stand in
// it, those within longer words of another not counted. None where it is uncertain.
std::optional<QString> meaningOf(const QString& category, const QString& text);

// How the sacraments received at death are told: "confissão e viático"; by what each word stands for, or why there were
// none. None where it is uncertain.
std::optional<QString> sacramentsMeant(const QString& text);

// What the assistant is to the baptised (or to a groom or a bride) who is so to a parent of theirs: the brother of the
// mother is "Tio materno". None where it isn't certain.
std::optional<QString> kinshipThrough(Role parent, const QString& relation, Sex assistant);
// Who is so to them directly.
std::optional<QString> kinshipTold(const QString& relation, Sex assistant);

// The codes of a BDP by their descriptions, as it has them: read once for each category. A provisional code counts as
// any other. Throws jet::Error.
class Catalogue
{
public:
    explicit Catalogue(jet::Connection& bdp) : bdp_(bdp) {}

    // The code whose description that is; the code that the text means, by its description itself or by the table.
    std::optional<int> codeOf(const QString& category, const QString& description);
    std::optional<int> codeFor(const QString& category, const QString& text);

private:
    using Codes = QHash<QString, int>; // by their plain words
    const Codes& codes(const QString& category);

    jet::Connection& bdp_;
    QHash<QString, Codes> codes_;
};

// The name of a place as a user reads it; none where the BDP doesn't have it. Throws jet::Error.
std::optional<QString> placeName(jet::Connection& bdp, const QString& code, QChar level);

// The locality of that name in that parish, whether provisional or not: "" for none.
QString localityNamed(jet::Connection& bdp, const QString& name, const QString& parish);
// The code that the editor of localities would give next.
QString nextLocality(jet::Connection& bdp, const QString& parish);

// The profession of that name; none where there is none. And the code that its editor would give next.
std::optional<int> professionNamed(jet::Connection& bdp, const QString& name);
int nextProfession(jet::Connection& bdp);
std::optional<QString> professionName(jet::Connection& bdp, int code);

// What a text tells of a place: "lugar do Outeiro, desta freguesia", "Fonte, freguesia de Azurém", "freguesia de
// Azurém".
struct PlaceTold
{
    QString place = {};  // within the parish; "" for the parish itself
    QString parish = {}; // "" where none is named
    bool own = false;    // "desta freguesia"

    bool operator==(const PlaceTold&) const = default;
    bool isParishTold() const { return own || !parish.isEmpty(); }
};
PlaceTold placeToldBy(const QString& text);

// Where a place that a text tells would be made: its name, and the parish that is told, or else `usual`. Without a code
// where the parish told isn't in the BDP, or is all that is told. Throws jet::Error.
struct NewPlacesIn
{
    QString code = {}; // of the parish
    QString name = {};

    bool operator==(const NewPlacesIn&) const = default;
};
NewPlacesIn newPlacesFor(jet::Connection& bdp, const QString& text, const QString& usual);

// The places of the BDP that a text may mean by its name, or by what it tells of one; of the parish that is told alone:
// the same, whatever its case, accents, blanks and hyphens, or likely the same; best first, those of the own parish
// before others. At most `limit`.
struct PlaceFound
{
    PlaceChoice place;
    QString shown; // "Poucapena (Santa Maria, Braga)"
    bool same = false;

    bool operator==(const PlaceFound&) const = default;
};

// The places of a BDP as they are when it is made, for many questions. The connection outlives it. Throws jet::Error.
class Gazetteer
{
public:
    explicit Gazetteer(jet::Connection& bdp);
    QList<PlaceFound> named(const QString& text, int limit = 10) const;
    QList<PlaceFound> parishesNamed(const QString& name) const; // the same, whatever its case

private:
    struct Place
    {
        QString key;
        QString name;
        QString code;
        QString above;
        Nivel level;
    };
    QString shown(const Place& place) const;
    PlaceFound found(const Place& place, const QString& wanted) const;
    QList<PlaceFound> ofName(const QString& name, const QString& parish, int limit) const;

    jet::Connection& bdp_;
    QString ownParish_;
    QList<Place> places_;
};
QList<PlaceFound> placesNamed(jet::Connection& bdp, const QString& name, int limit = 10); // for one

// The professions that a word may mean, as above: codes and names.
QList<QPair<int, QString>> professionsNamed(jet::Connection& bdp, const QString& name, int limit = 10);

} // namespace study
