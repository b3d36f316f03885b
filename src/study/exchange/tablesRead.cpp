// The import: a new BDP, made of the tables of a folder in one transaction.
#include "platform/desktop/desktop.h"
#include "platform/jet/jsonrow.h"
#include "platform/jet/transaction.h"
#include "store/modBD.h"
#include "store/session.h"
#include "study/exchange/portions.h"
#include "study/exchange/tableReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace study::exchange {

namespace {

constexpr std::size_t mostErrors = 100;

// Why nothing is to take its name.
struct Refused
{
};
struct Rehearsed
{
};
struct Failed
{
    jet::Error error;
};

// After these no further row can be written, whatever it holds.
bool isOfTheFile(const jet::Error& error)
{
    using namespace jet::number;
    return error.number == diskFull || error.number == engineFailure || error.number == outOfMemory ||
           error.number == permissionDenied;
}

bool isReference(const TableInfo& table)
{
    static const std::vector<TableInfo> all = tablesOfPlaces();
    return table.name != "infopar" &&
           std::ranges::any_of(all, [&](const TableInfo& one) { return one.name == table.name; });
}

QJsonValue inJson(const QVariant& value)
{
    return value.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue::fromVariant(value);
}

class Import
{
public:
    Import(const QString& folder, const GoesOn& goesOn) : found_(filesIn(folder)), goesOn_(goesOn)
    {
        read_.warnings = found_.warnings;
        for (const TableFile& file : found_.files)
            all_ += file.bytes;
    }

    void fill(const QString& path)
    {
        bdp_.open(connectionString(path));
        try {
            fillOpen();
        } catch (...) {
            bdp_.close();
            throw;
        }
        bdp_.close();
    }

    TablesRead report() { return std::move(read_); }

private:
    void fillOpen()
    {
        jet::Transaction transaction(bdp_);
        CriaTabelas(bdp_, Desktop::programFolder() + "/CriarTab.dat");
        makeReferenceData();
        for (const TableFile& file : found_.files) {
            file.table ? readTable(file) : readApart(file);
            before_ += file.bytes;
        }
        tellUnusedCells();
        if (!read_.errors.empty()) throw Refused{};
        tellOrphans();
        ask(1);
        transaction.commit();
    }

    bool hasFile(const QString& table) const
    {
        return std::ranges::any_of(found_.files,
                                   [&](const TableFile& file) { return file.table && file.table->name == table; });
    }

    void makeReferenceData()
    {
        read_.referenceData = std::ranges::none_of(
            found_.files, [](const TableFile& file) { return file.table && isReference(*file.table); });
        if (read_.referenceData) CarregaDadosIniciais(bdp_);
        if (hasFile("categoria")) bdp_.execute(jet::NativeSql("delete from categoria")); // made with the tables
    }

    Complaint complaint()
    {
        return [this](const TableProblem& problem) {
            read_.errors.push_back(problem);
            if (read_.errors.size() >= mostErrors) throw Refused{};
        };
    }

    void ask(double done) const
    {
        if (goesOn_ && !goesOn_(done)) throw Interrupted{};
    }

    void readApart(const TableFile& file) { apart_ = apartCells(file, complaint()); }

    QStringList filledColumns(const TableInfo& table) const
    {
        QStringList names;
        for (jet::Rows row(bdp_, jet::NativeSql("select lower(name) from pragma_table_info(?) where \"notnull\" <> 0",
                                                {table.name}));
             row.next();)
            if (!table.key.contains(row.text(0))) names << row.text(0);
        return names;
    }

    void readTable(const TableFile& file)
    {
        const TableInfo& table = *file.table;
        for (const QString& statement : table.statements)
            bdp_.execute(jet::NativeSql(statement));
        TableReader reader(file, filledColumns(table), complaint());
        QHash<qint64, ApartRow> apart = apart_.take(table.name);
        const qint64 ofTheFile = reader.columns().isEmpty() ? 0 : readRows(reader, table, apart);
        read_.tables.push_back({table.name, ofTheFile + putWhole(table, apart)});
        if (reader.isOf1252())
            read_.warnings.push_back({file.name, 0,
                                      "O ficheiro não está em UTF-8 e foi lido na página de código 1252: veja se os "
                                      "acentos estão certos."});
    }

    // Takes the cells of `apart` that belong to rows of the file; what is left are rows that stand apart as a whole.
    qint64 readRows(TableReader& reader, const TableInfo& table, QHash<qint64, ApartRow>& apart)
    {
        const QString places = QStringList(reader.columns().size(), "?").join(", ");
        jet::Repeated insert(bdp_, jet::NativeSql(QString("insert into \"%1\" (\"%2\") values (%3)")
                                                      .arg(table.name, reader.columns().join("\", \""), places)));
        qint64 rows = 0;
        while (reader.next()) {
            const bool isHalf = !apart.isEmpty() && apart.contains(reader.place());
            put(reader,
                [&] { isHalf ? insertWith(apart.take(reader.place()), table, reader) : insert.run(reader.values()); });
            if (++rows % rowsBetweenQuestions == 0)
                ask(static_cast<double>(before_ + reader.bytesRead()) / static_cast<double>(all_));
        }
        return rows;
    }

    template <class Step>
    void put(const TableReader& reader, Step&& step)
    {
        try {
            std::forward<Step>(step)();
        } catch (const jet::Error& error) {
            if (isOfTheFile(error)) throw;
            reader.complain(error.description);
        }
    }

    // The row of the file with the cells that stand apart.
    void insertWith(const ApartRow& cells, const TableInfo& table, const TableReader& reader)
    {
        QJsonObject row;
        for (qsizetype i = 0; i < reader.columns().size(); ++i)
            row.insert(reader.columns()[i], inJson(reader.values()[i]));
        insertApart(cells, table, row);
    }

    // Rows that stand apart as a whole.
    qint64 putWhole(const TableInfo& table, const QHash<qint64, ApartRow>& apart)
    {
        QList<qint64> places = apart.keys();
        std::ranges::sort(places);
        for (const qint64 place : std::as_const(places)) {
            const ApartRow& cells = apart[place];
            QJsonObject row;
            if (table.showsPlace()) row.insert(placeColumn, place);
            try {
                insertApart(cells, table, row);
            } catch (const jet::Error& error) {
                if (isOfTheFile(error)) throw;
                complaint()({problemFile(), cells.begin()->line, error.description});
            }
        }
        return places.size();
    }

    void insertApart(const ApartRow& cells, const TableInfo& table, QJsonObject row)
    {
        for (auto cell = cells.begin(); cell != cells.end(); ++cell) {
            if (const auto value = valueIn(*cell, table.column(cell.key())->kind))
                row.insert(cell.key(), *value);
            else
                return complaint()({problemFile(), cell->line, "O valor não se entende."});
        }
        jet::insertJsonRow(bdp_, table.name, row);
    }

    static std::optional<QJsonValue> valueIn(const ApartCell& cell, Kind kind)
    {
        if (cell.isJson) {
            const QJsonArray array = QJsonDocument::fromJson(cell.value).array();
            if (array.size() != 1) return {};
            return array.first();
        }
        const std::optional<QVariant> value = valueOf(cell.value, kind);
        if (!value) return {};
        return inJson(*value);
    }

    QString problemFile() const
    {
        const auto found = std::ranges::find_if(found_.files, [](const TableFile& file) { return !file.table; });
        return found == found_.files.end() ? problemTable : found->name;
    }

    void tellUnusedCells()
    {
        for (auto table = apart_.cbegin(); table != apart_.cend(); ++table)
            complaint()({problemFile(), table->begin()->begin()->line,
                         QString("Não há nenhum ficheiro da tabela \"%1\".").arg(table.key())});
    }

    void tellOrphans()
    {
        for (const TableFile& file : found_.files) {
            if (!file.table) continue;
            for (const TableColumn& column : file.table->columns)
                if (!column.table.isEmpty() && (!tableOf(column.table)->isOwn() || hasFile(column.table)))
                    tellOrphans(file, column);
        }
    }

    void tellOrphans(const TableFile& file, const TableColumn& column)
    {
        jet::Rows row(bdp_,
                      jet::NativeSql(QString("select count(*), min(t.\"%2\") from \"%1\" as t where t.\"%2\" is not "
                                             "null and not exists (select 1 from \"%3\" as o where o.\"%4\" = "
                                             "t.\"%2\")")
                                         .arg(file.table->name, column.name, column.table, column.key)));
        if (row.next() && row.number(0) > 0)
            read_.warnings.push_back({file.name, 0,
                                      QString("Coluna \"%1\": %2 vezes não há nenhum registo com este número em %3 "
                                              "(%4, por exemplo).")
                                          .arg(column.name)
                                          .arg(row.number(0))
                                          .arg(column.table, row.text(1))});
    }

    TableFiles found_;
    const GoesOn& goesOn_;
    jet::Connection bdp_;
    TablesRead read_ = {};
    ApartCells apart_ = {};
    qint64 all_ = 1, before_ = 0; // bytes
};

} // namespace

TablesRead importTables(const QString& folder, const QString& path, bool rehearse, const GoesOn& goesOn)
{
    Import import(folder, goesOn);
    try {
        // What the engine throws there would keep what was made before.
        jet::createDatabase(path, [&](const QString& file) {
            try {
                import.fill(file);
            } catch (const jet::Error& error) {
                throw Failed{error};
            }
            if (rehearse) throw Rehearsed{};
        });
    } catch (const Failed& failed) {
        throw jet::Error(failed.error);
    } catch (const Refused&) {
    } catch (const Rehearsed&) {
    }
    return import.report();
}

} // namespace study::exchange
