#include "study/exchange/tableReader.h"

#include "study/exchange/gedcomEncoding.h"
#include "study/exchange/portions.h"

#include <algorithm>

namespace study::exchange {

namespace {

constexpr qsizetype shownLetters = 40;

QString shown(const QByteArray& cell)
{
    const QString text = QString::fromUtf8(cell).simplified();
    return '"' + (text.size() > shownLetters ? text.left(shownLetters) + "…" : text) + '"';
}

QString whyNot(const QByteArray& cell, Kind kind)
{
    switch (kind) {
    case Kind::Text:
        return "o texto não está em UTF-8, ou tem um carácter nulo";
    case Kind::Whole:
        return shown(cell) + " não é um número inteiro";
    case Kind::Number:
        return shown(cell) + " não é um número";
    case Kind::Day:
        return shown(cell) + " não é uma data, como 1702-02-14 ou 14/02/1702";
    case Kind::Flag:
        break;
    }
    return shown(cell) + " não é 0 nem 1";
}

QByteArray standard(const QByteArray& cell, Kind kind, char separator)
{
    return separator == ',' ? cell : fromSpreadsheet(cell, kind);
}

// One letter of UTF-8 shows that the file is in it, and that whatever isn't is damage.
bool hasOnly1252(const QString& path)
{
    QFile file(path);
    ForeignBytes bytes;
    if (!file.open(QIODevice::ReadOnly)) return false;
    while (!file.atEnd() && !bytes.areEnough())
        bytes.count(file.read(bytesAtOnce));
    bytes.countRest();
    return bytes.notUtf8 > 0 && bytes.utf8Letters == 0;
}

QFile& opened(QFile& device, const QString& path)
{
    if (!device.open(QIODevice::ReadOnly))
        throw jet::Error(jet::number::permissionDenied, QString("O ficheiro \"%1\" não pode ser lido.").arg(path));
    return device;
}

} // namespace

TableReader::TableReader(const TableFile& file, const QStringList& filled, Complaint complain)
    : file_(file), complain_(std::move(complain)), device_(file.path), reader_(opened(device_, file.path))
{
    readHeader(filled);
}

void TableReader::readHeader(const QStringList& filled)
{
    if (!reader_.next()) return complain_({file_.name, 0, "Falta o cabeçalho."});
    headers_ = reader_.cells().size();
    bool isWhole = true;
    for (std::size_t i = 0; i < headers_; ++i)
        isWhole = takeHeader(QString::fromUtf8(reader_.cells()[i].text).trimmed(), i, filled) && isWhole;
    for (const QString& key : file_.table->key)
        if (!names_.contains(key)) {
            complain(QString("Falta a coluna \"%1\".").arg(key));
            isWhole = false;
        }
    if (!isWhole) taken_.clear();
}

bool TableReader::takeHeader(const QString& name, std::size_t at, const QStringList& filled)
{
    const TableColumn* column = file_.table->column(name);
    const bool isPlace = !column && file_.table->showsPlace() && name.compare(placeColumn, Qt::CaseInsensitive) == 0;
    const auto isLabel = [&](const TableColumn& each) {
        return each.hasLabel() && each.labelName().compare(name, Qt::CaseInsensitive) == 0;
    };
    if (!column && !isPlace && std::ranges::any_of(file_.table->columns, isLabel)) return true;
    if (!column && !isPlace) {
        complain(QString("A tabela não tem nenhuma coluna %1.").arg(shown(name.toUtf8())));
        return false;
    }
    const QString known = isPlace ? placeColumn : column->name;
    if (names_.contains(known)) {
        complain(QString("A coluna \"%1\" está duas vezes.").arg(known));
        return false;
    }
    names_ << known;
    taken_.push_back({at, column, filled.contains(known)});
    return true;
}

bool TableReader::next()
{
    if (taken_.empty()) return false;
    while (reader_.next())
        if (takeRow()) return true;
    return false;
}

bool TableReader::hasSurplus() const
{
    const auto& cells = reader_.cells();
    return cells.size() > headers_ && std::any_of(cells.begin() + static_cast<std::ptrdiff_t>(headers_), cells.end(),
                                                  [](const CsvCell& cell) { return !cell.isNothing(); });
}

bool TableReader::takeRow()
{
    values_.clear();
    place_ = 0;
    if (const QString damage = reader_.damage(); !damage.isEmpty()) {
        complain(damage);
        return false;
    }
    if (hasSurplus()) {
        complain("A linha tem mais células do que o cabeçalho.");
        return false;
    }
    bool isSound = true;
    static const CsvCell nothing = {};
    for (const Taken& taken : taken_)
        isSound =
            takeCell(taken, taken.cell < reader_.cells().size() ? reader_.cells()[taken.cell] : nothing) && isSound;
    return isSound;
}

bool TableReader::takeCell(const Taken& taken, const CsvCell& cell)
{
    const Kind kind = taken.column ? taken.column->kind : Kind::Whole;
    const bool isEmptyText = kind == Kind::Text && (cell.isQuoted || taken.isFilled);
    if (cell.text.isEmpty()) {
        values_ << (isEmptyText ? QVariant(QString("")) : QVariant());
        return true;
    }
    const QByteArray text = standard(cell.text, kind, reader_.separator());
    std::optional<QVariant> value = valueOf(text, kind);
    if (!value && kind == Kind::Text) value = textOf1252(text);
    const QString name = taken.column ? taken.column->name : placeColumn;
    if (!value) {
        complain(QString("Coluna \"%1\": %2.").arg(name, whyNot(cell.text, kind)));
        return false;
    }
    const bool isOwnPlace = !file_.table->showsPlace() && name == file_.table->key.first();
    if (!taken.column || isOwnPlace) place_ = value->toLongLong();
    values_ << *value;
    return true;
}

std::optional<QVariant> TableReader::textOf1252(const QByteArray& cell)
{
    if (cell.contains('\0')) return {};
    if (!isOf1252_) isOf1252_ = hasOnly1252(file_.path);
    if (!*isOf1252_) return {};
    const GedcomText read = decoded(cell, GedcomEncoding::Windows1252);
    return read.guessed.isEmpty() ? std::optional<QVariant>(read.text) : std::nullopt;
}

namespace {

// The file of the cells that stand apart.
class ApartReader
{
public:
    ApartReader(const TableFile& file, const Complaint& complain)
        : name_(file.name), complain_(complain), device_(file.path), reader_(opened(device_, file.path))
    {
    }

    ApartCells run()
    {
        if (!readHeader()) {
            complain_({name_, reader_.line(), "Falta uma das colunas " + wanted().join(", ") + '.'});
            return {};
        }
        while (reader_.next())
            if (!takeRow())
                complain_({name_, reader_.line(), "A linha não diz a tabela, o lugar e a coluna de uma célula."});
        return std::move(apart_);
    }

private:
    static const QStringList& wanted()
    {
        static const QStringList names{problem::table, problem::place, problem::column, problem::value, problem::form};
        return names;
    }

    bool readHeader()
    {
        if (!reader_.next()) return false;
        for (const QString& name : wanted())
            for (std::size_t i = 0; i < reader_.cells().size(); ++i)
                if (QString::fromUtf8(reader_.cells()[i].text) == name) at_ << i;
        return at_.size() == wanted().size();
    }

    // By the place of the column among the wanted ones.
    QByteArray cell(qsizetype which) const
    {
        return at_[which] < reader_.cells().size() ? reader_.cells()[at_[which]].text : QByteArray();
    }

    bool takeRow()
    {
        const TableInfo* table = tableOf(QString::fromUtf8(cell(0)));
        const TableColumn* column = table ? table->column(QString::fromUtf8(cell(2))) : nullptr;
        bool isNumber = false;
        const qint64 place = cell(1).toLongLong(&isNumber);
        if (!column || !isNumber || !reader_.damage().isEmpty()) return false;
        const bool isJson = QString::fromUtf8(cell(4)) == problem::json;
        const QByteArray value = standard(cell(3), isJson ? Kind::Text : column->kind, reader_.separator());
        apart_[table->name][place].insert(column->name, {value, isJson, reader_.line()});
        return true;
    }

    QString name_;
    const Complaint& complain_;
    QFile device_;
    CsvReader reader_;
    QList<std::size_t> at_ = {}; // where the wanted columns stand
    ApartCells apart_ = {};
};

} // namespace

ApartCells apartCells(const TableFile& file, const Complaint& complain)
{
    return ApartReader(file, complain).run();
}

} // namespace study::exchange
