// Tables as files: read back as they were, and never over what is somebody else's.
#include "jet/recordeddisk.h"
#include "platform/jet/disk.h"
#include "platform/jet/error.h"
#include "sampleReport.h"
#include "study/fileOfBytes.h"
#include "study/report/files.h"
#include "study/report/sheet.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace study;
using namespace study::report;

namespace {

// The cells of a CSV, by RFC 4180.
std::vector<QStringList> readCsv(const QByteArray& bytes)
{
    std::vector<QStringList> rows;
    QStringList row;
    QString cell;
    bool quoted = false;
    const QString all = QString::fromUtf8(bytes);
    for (qsizetype i = 0; i < all.size(); ++i) {
        const QChar c = all[i];
        if (quoted && c == '"' && i + 1 < all.size() && all[i + 1] == '"') {
            cell += c;
            ++i;
        } else if (c == '"') {
            quoted = !quoted;
        } else if (!quoted && (c == ',' || c == '\n')) {
            row << std::exchange(cell, {});
            if (c == '\n') rows.push_back(std::exchange(row, {}));
        } else {
            cell += c;
        }
    }
    EXPECT_TRUE(row.isEmpty() && cell.isEmpty() && !quoted) << "it ends with a whole row";
    return rows;
}

QByteArray bytesOf(const std::vector<ReportFile>& files, const QString& name)
{
    for (const ReportFile& file : files)
        if (file.name == name) return file.bytes;
    ADD_FAILURE() << qPrintable(name) << " isn't there";
    return {};
}

QJsonObject packageOf(const std::vector<ReportFile>& files)
{
    return QJsonDocument::fromJson(bytesOf(files, "datapackage.json")).object();
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString errorOf(const std::vector<ReportFile>& files, const QString& folder)
{
    try {
        writeFiles(files, folder);
    } catch (const jet::Error& error) {
        return error.description;
    }
    return {};
}

TEST(FilesOfAReport, HoldEachTableWithItsLimitsAndItsNotes)
{
    const auto files = filesOf(sample::report());
    QStringList names;
    for (const ReportFile& file : files)
        names << file.name;
    EXPECT_EQ(names, (QStringList{"idade-ao-casamento-idades.csv", "idade-ao-casamento-nao-contados.csv",
                                  "meses-do-casamento-meses.csv", "datapackage.json"}));
    const auto rows = readCsv(bytesOf(files, names[0]));
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[0], (QStringList{"coorte", "n", "media", "media_min", "media_max", "media_nota", "menos_de_20",
                                    "menos_de_20_nota"}));
    EXPECT_EQ(rows[1], (QStringList{"1700–1749", "1234", "24.3", "23.9", "24.8", "", "12.5", ""}));
    EXPECT_EQ(rows[2], (QStringList{"1750–1799", "8", "25.0", "21.0", "29.1", "poucos casos", "", ""}));
    EXPECT_EQ(rows[3], (QStringList{"1800–1849", "3", "", "", "", "suprimido", "", "suprimido"}));
}

TEST(FilesOfAReport, AreReadBackAsTheyWereWhateverTheTexts)
{
    const QStringList texts{"a,b", "\"a\"", "a\nb\r\nc", " a ", "", "ção ‰ 𝛼", "=1+1", ";\t'"};
    Table table{.id = "t", .columns = {{.title = "x", .isText = true}}};
    for (const QString& one : texts)
        table.rows.push_back({text(one)});
    const auto rows = readCsv(csvOf(sheetOf(table)));
    ASSERT_EQ(rows.size(), std::size_t(texts.size() + 1));
    for (qsizetype i = 0; i < texts.size(); ++i)
        EXPECT_EQ(rows[std::size_t(i + 1)], QStringList{texts[i]});
    EXPECT_FALSE(csvOf(sheetOf(table)).contains("\n\n")) << "a line with nothing is no row to most readers";
}

TEST(FilesOfAReport, NeverHoldANumberThatIsNone)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Table table{.id = "t",
                      .columns = {{.title = "x", .decimals = 2}},
                      .rows = {{sample::of(nan)}, {sample::of(1, Standing::Sound, statistics::Interval{nan, 2})}, {}}};
    EXPECT_EQ(csvOf(sheetOf(table)), "x\n\"\"\n1.00\n\"\"\n");
    EXPECT_FALSE(tabSeparated(table).contains("nan"));
}

TEST(FilesOfAReport, AreDescribedInADataPackage)
{
    const auto files = filesOf(sample::report());
    const QJsonObject package = packageOf(files);
    EXPECT_EQ(package["profile"].toString(), "tabular-data-package");
    EXPECT_EQ(package["name"].toString(), "orv-estudo-c-030899");
    EXPECT_EQ(package["created"].toString(), "2026-11-22T09:31:30Z");
    EXPECT_TRUE(package["sources"][0]["title"].toString().contains(QString(64, 'a')));
    EXPECT_EQ(package["sources"][0]["file"], "/home/ana/moinhos & vale.orv");
    EXPECT_EQ(package["settings"][0]["value"].toString(), "1700–1850");
    const QJsonArray resources = package["resources"].toArray();
    ASSERT_EQ(resources.size(), 3);
    for (const QJsonValue resource : resources) {
        const QByteArray bytes = bytesOf(files, resource["path"].toString());
        EXPECT_EQ(resource["path"].toString(), resource["name"].toString() + ".csv");
        EXPECT_EQ(resource["bytes"].toInteger(), bytes.size());
        const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
        EXPECT_EQ(resource["hash"].toString(), "sha256:" + QString::fromLatin1(hash));
        QStringList names;
        for (const QJsonValue field : resource["schema"]["fields"].toArray())
            names << field["name"].toString();
        EXPECT_EQ(names, readCsv(bytes).at(0));
        EXPECT_EQ(resource["schema"]["missingValues"].toArray(), QJsonArray{""});
    }
    const QJsonArray fields = resources[0]["schema"]["fields"].toArray();
    QStringList types;
    for (const QJsonValue field : fields)
        types << field["type"].toString();
    EXPECT_EQ(types, (QStringList{"string", "integer", "number", "number", "number", "string", "number", "string"}));
    EXPECT_EQ(fields[2]["unit"].toString(), "anos");
    EXPECT_EQ(fields[2]["title"].toString(), "Média");
    EXPECT_TRUE(fields[3]["description"].toString().contains("inferior"));
    EXPECT_TRUE(resources[0]["description"].toString().contains("Contam os primeiros casamentos"));
}

TEST(FilesOfAReport, AreOneDescriptionWhereThereIsNoTable)
{
    const auto files = filesOf({});
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(packageOf(files)["resources"].toArray().size(), 0);
    EXPECT_EQ(packageOf(files)["name"].toString(), "orv-estudo");
}

TEST(FilesOfAReport, HaveNamesOfTheirOwnWhateverTheIds)
{
    const Table table{.id = "../É {b}", .columns = {{.title = "x"}}};
    const Report report{.chapters = {{"C", {{"", "", "", {table, table}}, {"A/B", "", "", {Table{.columns = {{}}}}}}}}};
    const auto files = filesOf(report);
    QStringList names;
    for (const ReportFile& file : files)
        names << file.name;
    EXPECT_EQ(names, (QStringList{"estudo-e-b.csv", "estudo-e-b-2.csv", "a-b-quadro.csv", "datapackage.json"}));
    EXPECT_EQ(files[2].bytes, "coluna_1\n");
}

TEST(FilesOfAReport, AreWrittenAgainOverTheirOwn)
{
    const QTemporaryDir folder;
    Report report = sample::report();
    writeFiles(filesOf(report), folder.path());
    report.chapters[0].sections[0].figures.resize(1);
    report.made = report.made.addDays(1);
    const auto files = filesOf(report);
    EXPECT_EQ(errorOf(files, folder.path()), "");
    for (const ReportFile& file : files)
        EXPECT_EQ(contentOf(folder.filePath(file.name)), file.bytes) << qPrintable(file.name);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 4) << "nothing is left over";
}

TEST(FilesOfAReport, NeverGoOverAFileOfSomebodyElse)
{
    const auto files = filesOf(sample::report());
    for (const QString& name : {files[1].name, QString("datapackage.json")}) {
        const QTemporaryDir folder;
        writeFile(folder.filePath(name), "meu");
        const QString error = errorOf(files, folder.path());
        EXPECT_TRUE(error.contains(name) && error.contains("não foi escrito por um estudo")) << qPrintable(error);
        EXPECT_EQ(contentOf(folder.filePath(name)), "meu");
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{name}) << "nothing is written";
    }
}

TEST(FilesOfAReport, NeverGoOverAPackageOfAnotherKind)
{
    const QTemporaryDir folder;
    for (const QByteArray& other : {QByteArray("{\"profile\":\"tabular-data-package\",\"name\":\"outra\"}"),
                                    QByteArray("{\"profile\":7,\"name\":[]}"), QByteArray("[1]"), QByteArray("{")})
    {
        writeFile(folder.filePath("datapackage.json"), other);
        EXPECT_NE(errorOf(filesOf(sample::report()), folder.path()), "") << other.constData();
        EXPECT_EQ(contentOf(folder.filePath("datapackage.json")), other);
    }
}

TEST(FilesOfAReport, NeverGoOverOneThatWasChangedByHand)
{
    const QTemporaryDir folder;
    const auto files = filesOf(sample::report());
    writeFiles(files, folder.path());
    writeFile(folder.filePath(files[0].name), files[0].bytes + "meu\n");
    EXPECT_TRUE(errorOf(files, folder.path()).contains("foi alterado depois de escrito"));
    EXPECT_EQ(contentOf(folder.filePath(files[0].name)), files[0].bytes + "meu\n");
    EXPECT_TRUE(QFile::remove(folder.filePath(files[0].name)));
    EXPECT_EQ(errorOf(files, folder.path()), "") << "one that was taken away is made again";
}

TEST(FilesOfAReport, TellThatTheFolderIsMissing)
{
    const QTemporaryDir folder;
    EXPECT_TRUE(errorOf(filesOf({}), folder.filePath("nada")).contains("A pasta não existe"));
    EXPECT_TRUE(QDir(folder.path()).mkdir("estudo-e-b.csv"));
    const Report report{.chapters = {{"C", {{"", "", "", {Table{.id = "e b", .columns = {{.title = "x"}}}}}}}}};
    EXPECT_TRUE(errorOf(filesOf(report), folder.path()).contains("há outra coisa"));
}

// Gives no more names past the first few, as where the program is killed.
class DyingDisk : public jet::Disk
{
public:
    explicit DyingDisk(int names) : left_(names) { jet::setDisk(this); }
    ~DyingDisk() override { jet::setDisk(nullptr); }

    std::error_code replace(const QString& from, const QString& to) override
    {
        return left_-- > 0 ? Disk::replace(from, to) : std::make_error_code(std::errc::io_error);
    }
    std::error_code place(const QString& from, const QString& to) override
    {
        return left_-- > 0 ? Disk::place(from, to) : std::make_error_code(std::errc::io_error);
    }

private:
    int left_;
};

TEST(FilesOfAReport, AreKnownForOursWhereverTheirNamingHasStopped)
{
    const auto before = filesOf(sample::report());
    Report report = sample::report();
    report.chapters[0].sections[0].figures.resize(1);
    report.made = report.made.addDays(1);
    const auto after = filesOf(report);
    QStringList stops;
    for (int names = 0; stops.isEmpty() || !stops.last().isEmpty(); ++names) {
        const QTemporaryDir folder;
        writeFiles(before, folder.path());
        {
            const DyingDisk disk(names);
            stops << errorOf(after, folder.path());
        }
        const QByteArray told = contentOf(folder.filePath("datapackage.json"));
        if (names == 0) {
            EXPECT_EQ(told, bytesOf(before, "datapackage.json"));
        } else if (!stops.last().isEmpty()) {
            EXPECT_TRUE(told.contains("\"unfinished\": true")) << names;
        }
        EXPECT_EQ(errorOf(after, folder.path()), "") << names;
        for (const ReportFile& file : after)
            EXPECT_EQ(contentOf(folder.filePath(file.name)), file.bytes) << qPrintable(file.name);
    }
    EXPECT_EQ(stops.size(), qsizetype(after.size()) + 2) << "one name more, of what isn't finished";
}

TEST(FilesOfAReport, AreAllOnTheDiskBeforeTheFirstTakesItsName)
{
    const QTemporaryDir folder;
    const auto files = filesOf(sample::report());
    jet::test::RecordedDisk disk;
    writeFiles(files, folder.path());
    const qsizetype first = disk.done().indexOf(QRegularExpression("^(place|replace) .*"));
    ASSERT_GT(first, 0);
    EXPECT_GE(disk.done().mid(0, first).count("sync x"), qsizetype(files.size()));
}

// Takes no file past the first few.
class ShortDisk : public jet::Disk
{
public:
    explicit ShortDisk(int files) : left_(files) { jet::setDisk(this); }
    ~ShortDisk() override { jet::setDisk(nullptr); }

    std::error_code makeFile(const QString& path) override
    {
        return left_-- > 0 ? Disk::makeFile(path) : std::make_error_code(std::errc::no_space_on_device);
    }

private:
    int left_;
};

TEST(FilesOfAReport, LeaveWhatWasThereWhenTheDiskIsFull)
{
    const QTemporaryDir folder;
    const auto before = filesOf(sample::report());
    writeFiles(before, folder.path());
    Report report = sample::report();
    for (Section& section : report.chapters[0].sections)
        for (Figure& figure : section.figures)
            if (auto* table = std::get_if<Table>(&figure)) table->rows.pop_back();
    for (int room = 0; room < 4; ++room) {
        const ShortDisk full(room);
        EXPECT_TRUE(errorOf(filesOf(report), folder.path()).contains("O disco está cheio"));
        for (const ReportFile& file : before)
            EXPECT_EQ(contentOf(folder.filePath(file.name)), file.bytes);
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 4);
    }
    EXPECT_EQ(errorOf(filesOf(report), folder.path()), "");
}

TEST(AWholeFile, LeavesWhatWasThereWhenItCantBeWritten)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("relatorio.html");
    writeWhole(path, "um");
    writeWhole(path, "dois");
    EXPECT_EQ(contentOf(path), "dois");
    const ShortDisk full(0);
    EXPECT_THROW(writeWhole(path, "três"), jet::Error);
    EXPECT_EQ(contentOf(path), "dois");
}

TEST(AnIdentifier, IsSafeAnywhere)
{
    EXPECT_EQ(identifier("Idade média (anos)"), "idade_media_anos");
    EXPECT_EQ(identifier("15–19"), "c_15_19");
    EXPECT_EQ(identifier("50+"), "c_50_mais");
    EXPECT_EQ(identifier("<15"), "menos_de_15");
    EXPECT_EQ(identifier("% até 5"), "pct_ate_5");
    EXPECT_EQ(identifier("₅q₀ (‰)"), "c_5q0_por_mil");
    EXPECT_EQ(identifier(" – "), "");
    const Table table{.columns = {{.title = "a"}, {.title = "A"}, {.title = "á"}, {}}};
    QStringList names;
    for (const SheetColumn& column : sheetOf(table).columns)
        names << column.name;
    EXPECT_EQ(names, (QStringList{"a", "a_2", "a_3", "coluna_4"}));
}

TEST(ACopiedTable, IsPastedIntoASheetWithCommas)
{
    const QStringList lines = tabSeparated(sample::agesTable()).split('\n');
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines[0], "Coorte\tn\tMédia (anos)\tMédia, mín. 95 % (anos)\tMédia, máx. 95 % (anos)\tMédia, nota\t"
                        "Menos de 20 (%)\tMenos de 20, nota");
    EXPECT_EQ(lines[1], "1700–1749\t1234\t24,3\t23,9\t24,8\t\t12,5\t");
    EXPECT_EQ(lines[3], "1800–1849\t3\t\t\t\tsuprimido\t\tsuprimido");
    EXPECT_EQ(lines[4], "");
}

TEST(ACopiedTable, KeepsItsCellsAndRunsNothing)
{
    const Table table{.columns = {{.title = "=a\tb"}, {.title = "c", .decimals = 1}},
                      .rows = {{text("1.2\n3\t4"), sample::of(-1.5)}, {text("=1+1"), text("-x.y")}}};
    EXPECT_EQ(tabSeparated(table), "'=a b\tc\n1.2 3 4\t-1,5\n'=1+1\t'-x.y\n");
}

TEST(ACopiedTable, IsAHeadingAloneWhereItHasNoRows)
{
    EXPECT_EQ(tabSeparated({.columns = {{.title = "a"}, {.title = "b"}}}), "a\tb\n");
}

} // namespace
