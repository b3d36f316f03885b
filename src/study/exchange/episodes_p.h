// What the writers of episodes share.
#pragma once

#include "study/exchange/episodeTimes.h"
#include "study/exchange/tableList.h"
#include "study/indicators/subject.h"
#include "study/report/csv.h"
#include "study/report/packageFiles.h"

#include <QSet>

#include <map>
#include <optional>

namespace study::exchange {

// Who may be alive, and what would tell of them.
struct Withheld
{
    QSet<qint64> people = {};

    bool hides(const parish::Person* person) const;
    bool hides(const parish::Family* family) const;    // one of the couple
    bool hidesAny(const parish::Family& family) const; // one of the couple, or of their children
};

// One file of data: cells by its columns, row by row.
class EpisodeFile
{
public:
    EpisodeFile(const TableInfo& table, const Withheld& withheld, report::PackageFiles& files);

    void text(const QString& value) { rows_.add(value); }
    void raw(const QByteArray& value) { rows_.add(value); } // ASCII
    void none() { rows_.add(QByteArrayView()); }
    void number(std::optional<qint64> value);
    void flag(std::optional<bool> value);
    // The number of a record, where there is one that is written, too.
    void person(const parish::Person* person);
    void family(const parish::Family* family);
    void date(const parish::Date& value); // its middle
    void dateAndYear(const parish::Date& value);
    void age(const parish::Date& origin, const parish::Date& at); // nothing where one is unknown or they are reversed
    // Number of the spell, first and last day, and these in decimal years.
    void days(int spell, const Spell& of);
    void between(const parish::Date& from, const parish::Date& until); // the same without a number
    // Enter, exit, event and days at risk.
    void risk(const parish::Date& origin, const Spell& of);
    void endRow();

    // Whoever isn't in the file; told in nao_contados.csv.
    void leaveOut(const char* reason) { ++leftOut_[reason]; }

    const TableInfo& table() const { return table_; }
    qint64 rows() const { return count_; }
    const std::map<QString, qint64>& leftOut() const { return leftOut_; }
    report::PackageFiles::Written end();

private:
    const TableInfo& table_;
    const Withheld& withheld_;
    report::PackageFiles& files_;
    report::CsvRows rows_;
    std::map<QString, qint64> leftOut_ = {};
    qint64 count_ = 0;
};

// What they are made of.
struct EpisodeSource
{
    const indicators::Study& study;
    const Withheld& withheld;
};

// One file of data, and who writes its rows: those of one person, or those of one union.
struct EpisodeTable
{
    TableInfo info;
    void (*ofPerson)(const parish::Person& person, const EpisodeSource& source, EpisodeFile& file) = nullptr;
    void (*ofUnion)(const observation::Union& of, const EpisodeSource& source, EpisodeFile& file) = nullptr;
};

// In their order.
const std::vector<EpisodeTable>& episodeTables();
const TableInfo& leftOutTable();    // behind them: nao_contados.csv
const TableInfo& dictionaryTable(); // and dicionario.csv, of all columns

// Precondition of those of a person: nothing withholds it.
void writePerson(const parish::Person& person, const EpisodeSource& source, EpisodeFile& file);
void writeChildhood(const parish::Person& person, const EpisodeSource& source, EpisodeFile& file);
void writeAdulthood(const parish::Person& person, const EpisodeSource& source, EpisodeFile& file);
void writeBounds(const parish::Person& person, const EpisodeSource& source, EpisodeFile& file);
void writeSingleLife(const parish::Person& person, const EpisodeSource& source, EpisodeFile& file);
void writeFamily(const observation::Union& of, const EpisodeSource& source, EpisodeFile& file);
void writeFertility(const observation::Union& of, const EpisodeSource& source, EpisodeFile& file);
void writeWidowhood(const observation::Union& of, const EpisodeSource& source, EpisodeFile& file);

// The words of columns.
namespace word {
QByteArray of(parish::Gender gender);
QByteArray of(parish::Precision precision);
QByteArray of(indicators::Legitimacy legitimacy);
QByteArray of(observation::Proof proof);
QByteArray of(observation::EndBy how);
QByteArray of(observation::BirthBy how);
// Those that a column may hold; "" is nothing.
extern const QStringList genders, precisions, legitimacies, proofs, ends, births;
} // namespace word

// Whether a parent had died by then: nothing for nobody.
std::optional<bool> isDead(const parish::Person* parent, const parish::Date& at);
// The days on which the parents died, as far as they are known.
std::vector<parish::Date> deathsOfParents(const parish::Person& child);

void writeDictionary(EpisodeFile& file);
QByteArray episodeScript(); // episodios.R

} // namespace study::exchange
