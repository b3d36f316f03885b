#include "study/idsTables.h"

#include "study/exchange_tables.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

namespace ids {

namespace {

const QStringList timestamp{"Date_type", "Estimation",  "Day",        "Month",   "Year",      "Hour",     "Minute",
                            "Start_day", "Start_month", "Start_year", "End_day", "End_month", "End_year", "Missing"};

// As the structure names them.
const QMap<QString, QStringList> columns{
    {"INDIVIDUAL", {"Id", "Id_D", "Id_I", "Source", "Type", "Value", "Value_Id_C"}},
    {"INDIV_INDIV", {"Id", "Id_D", "Id_I_1", "Id_I_2", "Source", "Relation"}},
    {"CONTEXT", {"Id", "Id_D", "Id_C", "Source", "Type", "Value"}},
    {"CONTEXT_CONTEXT", {"Id", "Id_D", "Id_C_1", "Id_C_2", "Source", "Relation"}},
    {"INDIV_CONTEXT", {"Id", "Id_D", "Id_I", "Id_C", "Source", "Relation"}}};
const QStringList columnsOfMetadata{"Id_D", "Type", "Value", "Source", "Type_T", "Extract", "Explanation"};

// Each of their values stands in METADATA.
const QSet<QString> codedTypes{"Sex",
                               "Legitimacy",
                               "Legitimacy_original",
                               "Civil_status",
                               "Occupation",
                               "Sacraments",
                               "Parish_class",
                               "Start_observation",
                               "End_observation",
                               "Father_deceased",
                               "Mother_deceased",
                               "Kinship_to_child",
                               "Kinship_to_groom",
                               "Kinship_to_bride",
                               "Kinship_to_testator",
                               "Level",
                               "Family_situation",
                               "Family_type",
                               "Family_type_original"};

QDate dayOf(const Row& row, const QString& before = {})
{
    const auto cell = [&](const char* name) {
        return row[before.isEmpty() ? QString(name) : before + QString(name).toLower()].toInt();
    };
    return QDate(cell("Year"), cell("Month"), cell("Day"));
}

class Check
{
public:
    explicit Check(const Tables& tables) : tables_(tables) {}

    QStringList faults()
    {
        checkFiles();
        for (const Row& row : tables_.rows["METADATA"])
            meanings_.insert(row["Type_T"] + '|' + row["Type"].toLower() + '|' + row["Value"]);
        for (auto table = columns.begin(); table != columns.end(); ++table)
            for (const Row& row : tables_.rows[table.key()]) {
                checkDate(table.key(), row);
                checkMeaning(table.key(), row);
            }
        checkPeople();
        checkContexts();
        checkBothDirections();
        return faults_;
    }

private:
    void fault(const QString& rule, const QString& table, const Row& row)
    {
        faults_ << rule + ": " + table + ' ' + row["Id"] + ' ' + QStringList(row.values()).join(',');
    }

    void checkFiles()
    {
        for (auto table = columns.begin(); table != columns.end(); ++table) {
            if (tables_.headings[table.key()] != table.value() + timestamp) faults_ << "columns: " + table.key();
            qint64 number = 0;
            QSet<QString> databases;
            for (const Row& row : tables_.rows[table.key()]) {
                databases << row["Id_D"];
                if (row["Id"] != QString::number(++number)) fault("numbers count from 1", table.key(), row);
            }
            if (databases.size() > 1) faults_ << "one database: " + table.key();
        }
        if (tables_.headings["METADATA"] != columnsOfMetadata) faults_ << "columns: METADATA";
        for (auto file = tables_.files.begin(); file != tables_.files.end(); ++file) {
            if (file->startsWith("\xEF\xBB\xBF")) faults_ << "no mark of UTF-8: " + file.key();
            if (!QString::fromUtf8(*file).toUtf8().startsWith(*file)) faults_ << "UTF-8: " + file.key();
        }
    }

    void checkDate(const QString& table, const Row& row)
    {
        const QString missing = row["Missing"], kind = row["Date_type"], sure = row["Estimation"];
        const bool hasYear = !row["Year"].isEmpty(), hasDay = !row["Day"].isEmpty() && !row["Month"].isEmpty();
        const bool hasSpan = !row["Start_year"].isEmpty();
        bool isRight = false;
        if (missing == "Time_invariant")
            isRight = !hasYear && !hasDay && !hasSpan && kind.isEmpty() && sure.isEmpty();
        else if (missing == "Unavailable")
            isRight = !hasYear && !hasDay && !hasSpan && sure.isEmpty() && !kind.isEmpty();
        else if (sure == "Exact")
            isRight = missing.isEmpty() && dayOf(row).isValid() && !hasSpan;
        else if (sure == "Estimated")
            isRight = missing.isEmpty() && hasYear && !hasDay && dayOf(row, "Start_").year() == row["Year"].toInt() &&
                      dayOf(row, "End_").year() == row["Year"].toInt() && dayOf(row, "Start_") < dayOf(row, "End_");
        if (!isRight) fault("date", table, row);
        if (!QStringList{"", "Event", "Declared", "Assigned"}.contains(kind)) fault("Date_type", table, row);
        for (const QString& column : timestamp.mid(2, 11)) {
            bool isNumber = false;
            row[column].toInt(&isNumber);
            if (!row[column].isEmpty() && !isNumber) fault("number", table, row);
        }
    }

    void checkMeaning(const QString& table, const Row& row)
    {
        if (row.contains("Relation")) {
            if (!meanings_.contains(table + "|relation|" + row["Relation"])) fault("coded relation", table, row);
            return;
        }
        const QString type = row["Type"].toLower(), before = table + '|' + type + '|';
        if (!meanings_.contains(before + "Definition")) fault("defined type", table, row);
        const bool isCoded = std::any_of(codedTypes.begin(), codedTypes.end(),
                                         [&](const QString& one) { return one.toLower() == type; });
        if (isCoded && !meanings_.contains(before + row["Value"])) fault("coded value", table, row);
    }

    void checkPeople()
    {
        QMap<QString, QMap<QString, QList<Row>>> people;
        for (const Row& row : tables_.rows["INDIVIDUAL"])
            people[row["Id_I"]][row["Type"].toLower()] << row;
        for (auto one = people.begin(); one != people.end(); ++one) {
            if ((*one)["sex"].size() != 1) faults_ << "one Sex: " + one.key();
            for (const char* const type : {"birth_date", "death_date", "start_observation", "end_observation"})
                if ((*one)[type].size() > 1) faults_ << QString("at most one %1: %2").arg(type, one.key());
            if ((*one)["start_observation"].size() != (*one)["end_observation"].size())
                faults_ << "start and end: " + one.key();
            else if (!(*one)["start_observation"].isEmpty())
                checkOrder((*one)["start_observation"].first(), (*one)["end_observation"].first());
        }
        for (const Row& row : tables_.rows["INDIV_INDIV"])
            if (!people.contains(row["Id_I_1"]) || !people.contains(row["Id_I_2"])) fault("person", "INDIV_INDIV", row);
        for (const Row& row : tables_.rows["INDIV_CONTEXT"])
            if (!people.contains(row["Id_I"])) fault("person", "INDIV_CONTEXT", row);
    }

    void checkOrder(const Row& start, const Row& end)
    {
        const QDate from = start["Day"].isEmpty() ? dayOf(start, "Start_") : dayOf(start);
        const QDate until = end["Day"].isEmpty() ? dayOf(end, "End_") : dayOf(end);
        if (!from.isValid() || !until.isValid() || from > until) fault("start before end", "INDIVIDUAL", start);
    }

    void checkContexts()
    {
        QMap<QString, QString> levels;
        for (const Row& row : tables_.rows["CONTEXT"])
            if (row["Type"].toLower() == "level") {
                if (levels.contains(row["Id_C"])) fault("one level", "CONTEXT", row);
                levels[row["Id_C"]] = row["Value"];
            }
        for (const Row& row : tables_.rows["CONTEXT"])
            if (!levels.contains(row["Id_C"])) fault("level", "CONTEXT", row);
        for (const Row& row : tables_.rows["INDIVIDUAL"])
            if (!row["Value_Id_C"].isEmpty() && !levels.contains(row["Value_Id_C"]))
                fault("context", "INDIVIDUAL", row);
        for (const Row& row : tables_.rows["INDIV_CONTEXT"])
            if (!levels.contains(row["Id_C"])) fault("context", "INDIV_CONTEXT", row);
        for (const Row& row : tables_.rows["CONTEXT_CONTEXT"])
            if (row["Relation"] != levels.value(row["Id_C_1"], "?") + " and " + levels.value(row["Id_C_2"], "?"))
                fault("levels", "CONTEXT_CONTEXT", row);
    }

    void checkBothDirections()
    {
        QMap<QString, int> pairs;
        for (const Row& row : tables_.rows["INDIV_INDIV"])
            ++pairs[row["Id_I_1"] + ' ' + row["Id_I_2"]];
        for (const Row& row : tables_.rows["INDIV_INDIV"])
            if (pairs.value(row["Id_I_2"] + ' ' + row["Id_I_1"]) != pairs.value(row["Id_I_1"] + ' ' + row["Id_I_2"]))
                fault("both directions", "INDIV_INDIV", row);
    }

    const Tables& tables_;
    QSet<QString> meanings_ = {};
    QStringList faults_ = {};
};

} // namespace

QList<Row> Tables::of(qint64 person, const QString& type) const
{
    QList<Row> found;
    for (const Row& row : rows["INDIVIDUAL"])
        if (row["Id_I"] == QString::number(person) && (type.isEmpty() || row["Type"] == type)) found << row;
    return found;
}

QString Tables::value(qint64 person, const QString& type) const
{
    const QList<Row> found = of(person, type);
    return found.isEmpty() ? QString() : found.first()["Value"];
}

QStringList Tables::relations(qint64 one, qint64 other) const
{
    QStringList found;
    for (const Row& row : rows["INDIV_INDIV"])
        if (row["Id_I_1"] == QString::number(one) && row["Id_I_2"] == QString::number(other)) found << row["Relation"];
    return found;
}

Tables written(const jet::Connection& bdp, const study::exchange::IdsOptions& options)
{
    const QTemporaryDir folder;
    Tables tables;
    tables.counts = exportIds(bdp, folder.path(), options);
    for (const QString& name : QDir(folder.path()).entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        tables.files[name] = file.readAll();
        if (!name.endsWith(".csv")) continue;
        const QString table = name.chopped(4);
        const QList<QStringList> cells = exchanged::cells(tables.files[name]);
        tables.headings[table] = cells.value(0);
        for (const QStringList& line : cells.mid(1)) {
            Row row;
            for (qsizetype i = 0; i < line.size(); ++i)
                row[tables.headings[table].value(i)] = line[i];
            tables.rows[table] << row;
        }
    }
    return tables;
}

QStringList faultsOf(const Tables& tables)
{
    return Check(tables).faults();
}

Families familiesOf(const Tables& tables, bool reversed)
{
    static const QSet<QString> ofCouples{"Husband", "Wife", "Spouse"}, ofParents{"Father", "Mother", "Parent"};
    QMap<qint64, QSet<qint64>> parents;
    Families families;
    for (const Row& row : tables.rows["INDIV_INDIV"]) {
        qint64 one = row["Id_I_1"].toLongLong(), other = row["Id_I_2"].toLongLong();
        if (reversed) std::swap(one, other);
        if (ofParents.contains(row["Relation"])) parents[other] << one;
        if (ofCouples.contains(row["Relation"])) families[{std::min(one, other), std::max(one, other)}];
    }
    for (auto child = parents.begin(); child != parents.end(); ++child) {
        QList<qint64> both(child->begin(), child->end());
        std::sort(both.begin(), both.end());
        families[both] << child.key();
    }
    return families;
}

QString date(const Row& row)
{
    QStringList parts;
    for (const char* const column : {"Day", "Month", "Year"})
        if (!row[column].isEmpty()) parts << row[column];
    return parts.join('/');
}

} // namespace ids
