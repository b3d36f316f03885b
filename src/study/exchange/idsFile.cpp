#include "study/exchange/idsFile.h"

#include "study/exchange/portions.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace study::exchange {

namespace {

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

// Written one behind the other, where a row of a large file leaves no time for texts of their own.
class DateCells
{
public:
    void add(QByteArrayView bytes) { end_ = std::copy(bytes.begin(), bytes.end(), end_); }
    void add(QByteArrayView before, int number)
    {
        add(before);
        end_ = std::to_chars(end_, at_.data() + at_.size(), number).ptr;
    }
    QByteArrayView bytes() const { return {at_.data(), end_ - at_.data()}; }

private:
    std::array<char, 128> at_ = {}; // three years and all words take half of it
    char* end_ = at_.data();
};

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

void IdsFile::end()
{
    csv_.endRow();
    if (csv_.bytes().size() >= bytesAtOnce) files_.write(csv_.take());
}

// Each cell that a date has, in one piece: most rows have the same few.
void IdsFile::end(const char* dateType, const parish::Date& date)
{
    // From Estimation, and from Year, to Missing.
    static constexpr QByteArrayView nothing = ",,,,,,,,,,,,", noSpan = ",,,,,,,,,";
    DateCells cells;
    cells.add(QByteArrayView(dateType));
    if (!dateType || !date.isKnown()) {
        cells.add(nothing);
        cells.add(dateType ? QByteArrayView(",Unavailable") : QByteArrayView(",Time_invariant"));
    } else {
        int year = 0, month = 0, day = 0;
        date.date().getDate(&year, &month, &day);
        if (date.isExact()) {
            cells.add(",Exact,", day);
            cells.add(",", month);
            cells.add(",", year);
            cells.add(noSpan);
        } else {
            cells.add(",Estimated,,,", year);
            cells.add(",,,1,1,", year);
            cells.add(",31,12,", year);
            cells.add(",");
        }
    }
    csv_.addWritten(cells.bytes());
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
