// The export: each table is read once, in the order of its rows.
#include "platform/jet/draft.h"
#include "platform/jet/jsonrow.h"
#include "study/exchange/labels.h"
#include "study/exchange/portions.h"
#include "study/exchange/tablePackage.h"
#include "study/report/packageFiles.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryFile>

#include <algorithm>

namespace study::exchange {

namespace {

using report::PackageJson;

constexpr auto byteOrderMark = "\xEF\xBB\xBF";

// A table as this BDP has it.
struct Present
{
    const TableInfo* info = nullptr;
    std::vector<const TableColumn*> columns = {};
    qint64 rows = 0;
};

QStringList columnsOf(const jet::Connection& bdp, const QString& table)
{
    QStringList names;
    for (jet::Rows row(bdp, jet::NativeSql("select lower(name) from pragma_table_info(?)", {table})); row.next();)
        names << row.text(0);
    return names;
}

// Whether the rows can be read back as a table of ours: one of other columns under the name of an own one can't.
bool isOurs(const TableInfo& info, const QStringList& columns)
{
    const auto& wanted = info.columns;
    return !info.isOwn() || std::ranges::all_of(wanted, [&](const auto& one) { return columns.contains(one.name); });
}

qint64 rowsOf(const jet::Connection& bdp, const QString& table)
{
    jet::Rows row(bdp, jet::NativeSql(QString("select count(*) from \"%1\"").arg(table)));
    return row.next() ? row.number(0) : 0;
}

std::vector<Present> presentTables(const jet::Connection& bdp, QStringList& leftOut)
{
    std::vector<Present> all;
    const QStringList there = bdp.tables();
    for (const TableInfo& info : allTables()) {
        if (!there.contains(info.name, Qt::CaseInsensitive)) continue;
        const QStringList columns = columnsOf(bdp, info.name);
        if (!isOurs(info, columns)) {
            leftOut << info.name;
            continue;
        }
        Present present{.info = &info, .columns = {}, .rows = rowsOf(bdp, info.name)};
        for (const TableColumn& column : info.columns)
            if (columns.contains(column.name)) present.columns.push_back(&column);
        for (const QString& column : columns)
            if (!info.column(column)) leftOut << info.name + '.' + column;
        all.push_back(present);
    }
    for (const QString& table : there)
        if (!tableOf(table) && !isIndexOfNames(table) && !table.startsWith("sqlite_")) leftOut << table;
    return all;
}

// The place, the columns, and behind them for each column whether it leads to no record.
QString selectOf(const Present& table, const QStringList& present)
{
    QStringList columns{"t.rowid"}, orphans;
    for (const TableColumn* column : table.columns) {
        const QString name = "t.\"" + column->name + '"';
        columns << name;
        // Compared as they stand, as every other program does; the index of the key narrows it first.
        orphans << (present.contains(column->table)
                        ? QString("%1 is not null and %1 <> '' and not exists (select 1 from \"%2\" as o where "
                                  "o.\"%3\" = %1 and o.\"%3\" = %1 collate binary)")
                              .arg(name, column->table, column->key)
                        : QString("0"));
    }
    columns += orphans;
    return QString("select %1 from \"%2\" as t order by t.rowid").arg(columns.join(", "), table.info->name);
}

class Export
{
public:
    Export(const jet::Connection& bdp, const QString& folder, const TablesOptions& options)
        : bdp_(bdp), options_(options), files_(folder), labels_(bdp), problems_(formOf(options.dialect))
    {
        if (!spool_.open()) throw jet::Error(jet::number::diskFull, "Não foi possível fazer um ficheiro temporário.");
    }

    TablesWritten run()
    {
        const std::vector<Present> tables = presentTables(bdp_, written_.leftOut);
        for (const Present& table : tables) {
            present_ << table.info->name;
            all_ += table.rows;
        }
        PackageJson resources = PackageJson::array();
        for (const Present& table : tables)
            resources.push_back(write(table));
        if (written_.apart > 0) resources.push_back(writeProblems());
        files_.add(report::packageFile, report::bytesOf(package(resources)));
        if (options_.goesOn && !options_.goesOn(1)) throw Interrupted{};
        files_.place();
        return std::move(written_);
    }

private:
    bool isSheet() const { return options_.dialect == Dialect::Spreadsheet; }

    PackageJson package(const PackageJson& resources) const
    {
        jet::Rows home(bdp_, jet::NativeSql("select cod, nome from infopar"));
        const bool isKnown = home.next();
        const QString code = isKnown ? home.text(0) : QString(), name = isKnown ? home.text(1) : QString();
        PackageJson json = report::packageOf(code.isEmpty() ? name : code,
                                             name.isEmpty() ? "Tabelas da BDP" : "Tabelas da BDP – " + name,
                                             options_.program, options_.made);
        if (options_.source.isKnown()) json["sources"] = PackageJson::array({report::sourceOf(options_.source)});
        json["resources"] = resources;
        return json;
    }

    void begin(const QString& name)
    {
        files_.begin(name + ".csv");
        if (isSheet()) files_.write(byteOrderMark);
    }

    struct Told
    {
        QString title, description, english;
    };
    PackageJson end(const QString& name, const Told& told, const PackageJson& schema)
    {
        const report::PackageFiles::Written file = files_.end();
        return report::resourceOf({.name = name,
                                   .path = name + ".csv",
                                   .title = told.title,
                                   .description = told.description,
                                   .english = told.english,
                                   .bytes = file.bytes,
                                   .hash = file.hash,
                                   .form = formOf(options_.dialect)},
                                  schema);
    }

    PackageJson write(const Present& table)
    {
        seen_ = {};
        begin(table.info->name);
        report::CsvRows csv(formOf(options_.dialect));
        writeHeader(csv, table);
        for (jet::Rows row(bdp_, jet::NativeSql(selectOf(table, present_))); row.next();) {
            writeRow(csv, table, row);
            if (csv.bytes().size() >= bytesAtOnce) files_.write(csv.take());
            if (++read_ % rowsBetweenQuestions == 0) ask();
        }
        files_.write(csv.take());
        written_.tables.push_back({table.info->name, seen_.rows});
        written_.apart += seen_.apart;
        written_.emptied += seen_.emptied;
        return end(table.info->name,
                   {table.info->portuguese, descriptionOf(*table.info, seen_), englishOf(*table.info, seen_)},
                   schemaOf(*table.info, table.columns, seen_, present_, options_.dialect));
    }

    void ask() const
    {
        const double share = static_cast<double>(read_) / static_cast<double>(std::max<qint64>(1, all_));
        if (options_.goesOn && !options_.goesOn(std::min(1.0, share))) throw Interrupted{};
    }

    static void writeHeader(report::CsvRows& csv, const Present& table)
    {
        if (table.info->showsPlace()) csv.add(placeColumn);
        for (const TableColumn* column : table.columns) {
            csv.add(column->name);
            if (column->hasLabel()) csv.add(column->labelName());
        }
        csv.endRow();
    }

    void writeRow(report::CsvRows& csv, const Present& table, const jet::Rows& row)
    {
        const std::size_t count = table.columns.size();
        cells_.resize(count);
        QStringList reasons;
        bool isApart = false;
        for (std::size_t i = 0; i < count; ++i) {
            const TableColumn& column = *table.columns[i];
            cells_[i] = cellOf(row, static_cast<int>(i) + 1, column.kind);
            const bool isOrphan = row.number(static_cast<int>(i + count) + 1) != 0;
            reasons << reasonOf(column, cells_[i], isOrphan);
            const bool isKey = table.info->key.contains(column.name);
            if (isKey && (!reasons.back().isEmpty() || cells_[i].text.isEmpty())) isApart = true;
        }
        if (isApart) return putApart(table, row, reasons);
        if (table.info->showsPlace()) csv.add(QByteArray::number(row.number(0)));
        for (std::size_t i = 0; i < count; ++i)
            writeCell(csv, table, row, i, reasons[static_cast<qsizetype>(i)]);
        csv.endRow();
        ++seen_.rows;
    }

    // Why the cell can't stand in the table; "" where it can.
    static QString reasonOf(const TableColumn& column, const CellText& cell, bool isOrphan)
    {
        if (cell.state == State::Odd) return "não é um valor desta coluna";
        if (isOrphan) return QString("não há nenhum registo com este número em %1").arg(column.table);
        return {};
    }

    void writeCell(report::CsvRows& csv, const Present& table, const jet::Rows& row, std::size_t at,
                   const QString& reason)
    {
        const TableColumn& column = *table.columns[at];
        CellText& cell = cells_[at];
        if (!reason.isEmpty()) {
            if (cell.state == State::Sound && options_.orphans == Orphans::Emptied)
                ++seen_.emptied;
            else
                tell(table, row, at, reason);
            csv.add(QByteArrayView());
        } else if (cell.text.isEmpty()) {
            cell.state == State::Null ? csv.add(QByteArrayView()) : csv.addQuoted({});
        } else {
            csv.add(isSheet() ? forSpreadsheet(cell.text, column.kind) : cell.text);
            if (!column.words.isEmpty() && !column.words.contains(QString::fromUtf8(cell.text)))
                seen_.otherWords.insert(column.name);
        }
        if (column.hasLabel()) writeLabel(csv, table, column, cell);
    }

    void writeLabel(report::CsvRows& csv, const Present& table, const TableColumn& column, const CellText& cell) const
    {
        const QString beside = Labels::otherColumn(column);
        QByteArray other;
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            if (table.columns[i]->name == beside) other = cells_[i].text;
        const QByteArray label = labels_.of(column, cell.text, other);
        csv.add(isSheet() ? forSpreadsheet(label, Kind::Text) : label);
    }

    void putApart(const Present& table, const jet::Rows& row, const QStringList& reasons)
    {
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            if (cells_[i].state == State::Null) continue;
            const QString& reason = reasons[static_cast<qsizetype>(i)];
            tell(table, row, i, reason.isEmpty() ? "a linha não pode estar na tabela" : reason);
        }
    }

    // A cell in problemas.csv.
    void tell(const Present& table, const jet::Rows& row, std::size_t at, const QString& reason)
    {
        const TableColumn& column = *table.columns[at];
        const bool isOdd = cells_[at].state == State::Odd;
        const QByteArray value = isOdd ? jsonOf(table, column, row.number(0)) : cells_[at].text;
        problems_.add(table.info->name);
        problems_.add(QByteArray::number(row.number(0)));
        problems_.add(column.name);
        if (value.isEmpty())
            problems_.addQuoted({});
        else
            problems_.add(isSheet() ? forSpreadsheet(value, isOdd ? Kind::Text : column.kind) : value);
        problems_.add(isOdd ? problem::json : QString());
        problems_.add(reason);
        problems_.endRow();
        ++seen_.apart;
        if (problems_.bytes().size() >= bytesAtOnce) spool();
    }

    // As in jet/jsonrow.h, in an array: a text alone is no JSON to every reader.
    QByteArray jsonOf(const Present& table, const TableColumn& column, qint64 place) const
    {
        const auto rows = jet::jsonRows(
            bdp_,
            jet::NativeSql(QString("select \"%1\" from \"%2\" where rowid = ?").arg(column.name, table.info->name),
                           {place}));
        return QJsonDocument(QJsonArray{rows.first().value(column.name)}).toJson(QJsonDocument::Compact);
    }

    void spool()
    {
        const QByteArray bytes = problems_.take();
        if (spool_.write(bytes) != bytes.size())
            throw jet::writeError(std::make_error_code(std::errc::no_space_on_device), spool_.fileName());
    }

    PackageJson writeProblems()
    {
        spool();
        begin(problemTable);
        report::CsvRows header(formOf(options_.dialect));
        for (const QString& name :
             {problem::table, problem::place, problem::column, problem::value, problem::form, problem::reason})
            header.add(name);
        header.endRow();
        files_.write(header.take());
        for (spool_.seek(0); !spool_.atEnd();)
            files_.write(spool_.read(bytesAtOnce));
        return end(
            problemTable,
            {"Células que não podem estar nas suas tabelas.",
             "Células que não podem estar nas suas tabelas: números que não levam a nenhum registo, e valores que "
             "a coluna não devia ter.",
             "Cells that can't stand in their tables: numbers that lead to no record, and values that the column "
             "shouldn't hold."},
            schemaOfProblems());
    }

    const jet::Connection& bdp_;
    const TablesOptions& options_;
    report::PackageFiles files_;
    Labels labels_;
    report::CsvRows problems_; // of all tables, for a file of their own
    QTemporaryFile spool_;
    TablesWritten written_ = {};
    QStringList present_ = {}; // tables
    TableSeen seen_ = {};      // of the one at hand
    std::vector<CellText> cells_ = {};
    qint64 all_ = 0, read_ = 0;
};

} // namespace

TablesWritten exportTables(const jet::Connection& bdp, const QString& folder, const TablesOptions& options)
{
    const jet::OneLook look(bdp);
    return Export(bdp, folder, options).run();
}

} // namespace study::exchange
