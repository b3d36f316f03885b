#include "study/exchange/idsFile.h"

namespace study::exchange {

namespace {

constexpr qsizetype bytesAtOnce = 1 << 16;

report::PackageJson schemaOf(const IdsTableWords& words)
{
    report::PackageJson fields = report::PackageJson::array();
    const auto add = [&](const char* column) {
        fields.push_back({{"name", column}, {"type", isIdsNumber(column) ? "integer" : "string"}});
    };
    for (const char* const column : words.columns)
        add(column);
    if (words.isDated)
        for (const char* const column : idsDateColumns())
            add(column);
    report::PackageJson schema{{"fields", fields}, {"missingValues", report::PackageJson::array({""})}};
    if (words.isDated) schema["primaryKey"] = words.columns.front();
    return schema;
}

} // namespace

IdsFile::IdsFile(report::PackageFiles& files, IdsTable table, const QByteArray& database)
    : files_(files), words_(wordsOf(table)), database_(database)
{
    files_.begin(QString(words_.name) + ".csv");
    for (const char* const column : words_.columns)
        add(column);
    if (words_.isDated)
        for (const char* const column : idsDateColumns())
            add(column);
    csv_.endRow();
}

void IdsFile::begin()
{
    ++rows_;
    if (words_.isDated) add(rows_);
    csv_.add(database_);
}

void IdsFile::add(qint64 number)
{
    csv_.add(QByteArray::number(number));
}

void IdsFile::end()
{
    csv_.endRow();
    if (csv_.bytes().size() >= bytesAtOnce) files_.write(csv_.take());
}

// Each cell that a date has, in one piece: most rows have the same few.
void IdsFile::end(const char* dateType, const parish::Date& date)
{
    static constexpr auto nothing = ",,,,,,,,,,,,", noSpan = ",,,,,,,,,"; // from Estimation, and from Year, to Missing
    QByteArray cells = dateType;
    if (!dateType || !date.isKnown())
        cells += nothing + QByteArray(dateType ? ",Unavailable" : ",Time_invariant");
    else if (const QDate day = date.date(); date.isExact())
        cells += ",Exact," + QByteArray::number(day.day()) + ',' + QByteArray::number(day.month()) + ',' +
                 QByteArray::number(day.year()) + noSpan;
    else {
        const QByteArray year = QByteArray::number(day.year());
        cells += ",Estimated,,," + year + ",,,1,1," + year + ",31,12," + year + ',';
    }
    csv_.addWritten(cells);
    end();
}

report::PackageJson IdsFile::finish()
{
    files_.write(csv_.take());
    const report::PackageFiles::Written file = files_.end();
    const QString name = words_.name;
    report::PackageJson resource = report::resourceOf({.name = name.toLower(),
                                                       .path = name + ".csv",
                                                       .title = name,
                                                       .description = words_.portuguese,
                                                       .bytes = file.bytes,
                                                       .hash = file.hash,
                                                       .form = {}},
                                                      schemaOf(words_));
    report::put(resource, "description_en", words_.english);
    return resource;
}

} // namespace study::exchange
