// Names of the registers: how they were spelled, and which are the same.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

namespace study {

enum class NameKind
{
    Given,
    Surname,
    Any
};

// One way to read one word of a name. "Cª" has three: Catarina, Costa, Cunha.
struct Reading
{
    QString standard; // as it is spelled today: "Álvares"
    QString klass;    // the same for forms that one person may use: Álvares, Alves
    NameKind kind = NameKind::Any;
    bool devotional = false; // "da Conceição", "de Jesus", "Rosa": many women bear it for a time, so it tells little

    bool operator==(const Reading&) const = default;
};

// A name taken apart. Particles (de, da, do, das, dos, e, d', del) and titles are in no key.
struct NameParts
{
    struct Word
    {
        QString written;
        QString key;             // by the rules of old spelling: no case, no accents
        QList<Reading> readings; // of the table, all that there are, those that fit its place in the name first; at
                                 // least one: what the word itself is
        int fitting = 1;         // how many of them fit its place: a first word is a given name where it can be one
        bool known = false;      // the table has it
        bool particle = false;

        bool operator==(const Word&) const = default;
    };
    QList<Word> words;    // without the titles, and without what only tells apart: "o Velho", "exposto", "da Roda"
    QStringList titles;   // "Padre", "Dona"
    QStringList asides;   // "o Velho", "exposto", and what stands behind a comma or in brackets: "solteiro"
    QStringList quoted;   // nicknames: Maria "a Nova"
    bool unknown = false; // "?", "pais incógnitos", "exposto", "hum pobre": no name

    bool operator==(const NameParts&) const = default;
};

// The table of forms: data/nomes.csv of the program's folder, and what the user's own nomes.csv adds. Both are
// "forma;padrao;classe;tipo;fonte" in UTF-8, told in data/SOURCES.md. A line that can't be read is left out, and told
// by problems(). A word is looked up as it is written, then without case, accents and full stops, then by nameKey()
// among the standards.
class NameTable
{
public:
    NameTable() = default;
    // `own`: the path of the user's file; "" or a path where nothing stands for none.
    static NameTable load(const QString& shipped, const QString& own = {});
    // Of the program's folder; the user's own is nomes.csv in the folder of the program's settings. Read once.
    static const NameTable& shared();

    QList<Reading> readings(const QString& word) const; // [] where the table doesn't have it
    QStringList problems() const;                       // in Portuguese, each with its file and line
    QByteArray version() const; // the same for tables that read every word alike; "" for an empty one

private:
    struct Private;
    std::shared_ptr<const Private> d_;
};

// The key of one word: small letters without accents, old spellings undone by rule, in their order; "" where it has no
// letter. The key of a key is the key itself.
QString nameKey(const QString& word);

NameParts partsOf(const QString& name, const NameTable& table = NameTable::shared());

// The name as it is spelled today: "bento alvz" → "Bento Álvares", "joam gliz" → "João Gonçalves"; particles small,
// accents by the table; a word with several readings that fit its place, or none, stays as written but for its capital.
// Titles and asides stay where they are, but what stands behind a comma, in brackets or in quotes is no part of it;
// what is no name stays as written.
QString standardName(const QString& written, const NameTable& table = NameTable::shared());

// The titles of a text that holds nothing else, as they are compared: "P.e", "padre" → "padre"; D., Dom and Dona → "d";
// a word that is no title in the lists of the system stands for itself.
QStringList titleKeys(const QString& text);

// What tells somebody from their namesakes, as it is compared, of a nickname and of a name: "o Ferreiro" → "ferreiro";
// "Maria «a Nova»", "João Dias, o Moço" → "novo". States ("exposto", "solteiro") tell nobody apart.
QStringList bynameKeys(const QString& nickname);
QStringList bynameKeys(const NameParts& name);
bool isTag(const QString& key); // "velho", "novo": of two of one name, which

// "Nossa Senhora do Rosário", "Santo António": saints stand as godparents in the registers, and are nobody.
bool isSaint(const QString& name);

// How alike two names are, 0 to 1: first names equal, of one class, or likened; surnames as sets, of which one may be
// a part of the other. A name of fewer elements is no disagreement.
double nameLikeness(const NameParts& a, const NameParts& b);

// Jaro–Winkler, 0 to 1 (Winkler 1990): prefix scale 0.1, at most 4 letters.
double likeness(const QString& a, const QString& b);

// Places: case, accents, blanks and hyphens don't count ("Poucapena", "Pouca Pena", "Pouca-Pêna").
QString placeKey(const QString& name);

} // namespace study
