// orv-kill-exchange: takes a BDP out and in again with the real shell command, kills it at any moment, and looks at
// what stands there: whole files, of this export or of an earlier one, or none; and after a kill the same work can be
// done.
#include "dice.h"
#include "raw.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

#include <algorithm>
#include <functional>

namespace {

using Files = QMap<QString, QByteArray>;

constexpr auto description = "datapackage.json";

// What has its name already.
Files filesIn(const QString& folder)
{
    Files all;
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
        QFile file(QDir(folder).filePath(name));
        if (!name.contains(".orvtmp-") && file.open(QIODevice::ReadOnly)) all[name] = file.readAll();
    }
    return all;
}

// One way, played again and again at one place.
struct Way
{
    QString name;
    QStringList arguments;
    QString folder;                      // where it writes, alone
    std::function<void()> begin = {};    // what stands there before
    std::function<QString()> judge = {}; // what is wrong after a kill; "" for nothing
};

class Attack
{
public:
    explicit Attack(const QString& folder) : folder_(folder)
    {
        for (const QString name : {"a.orv", "b.orv"}) {
            if (!QFile::copy(ORV_DEMO, path(name))) qFatal("%s can't be made", qPrintable(path(name)));
            QFile::setPermissions(path(name), QFile::ReadOwner | QFile::WriteOwner);
        }
        // The earlier export is of another state, with a file more.
        if (!Raw(path("a.orv")).run("update individuo set nome = 'Ana ' || nind, famorig = 77777 where nind % 2 = 0"))
            qFatal("the BDP can't be altered");
        for (const QString name : {"a", "b", "out", "gedcom", "in"})
            QDir(folder_).mkdir(name);
        before_ = written("a");
        after_ = written("b");
        everything_ = Raw(path("b.orv")).dump();
    }

    std::vector<Way> ways()
    {
        return {tables("tables out", {}), tables("tables out, over earlier ones", before_), gedcom(), tablesIn()};
    }

    // How long the work takes that nobody kills, in milliseconds.
    qint64 measure(const Way& way)
    {
        way.begin();
        QElapsedTimer clock;
        clock.start();
        if (!finishes(way)) qFatal("%s: it isn't done", qPrintable(way.name));
        return clock.elapsed();
    }

    QString kill(const Way& way, qint64 moment)
    {
        way.begin();
        start(way);
        QThread::msleep(ulong(moment));
        command_.kill();
        command_.waitForFinished(-1);
        if (const QString wrong = way.judge(); !wrong.isEmpty()) return wrong;
        if (filesIn(way.folder) == whole(way)) {
            ++over_;
            return {};
        }
        return finishes(way) ? afterwards(way) : QString("it can't be done again: ") + told_;
    }

    int over() const { return over_; }
    int inTheMiddle() const { return inTheMiddle_; }

private:
    QString path(const QString& name) const { return folder_ + '/' + name; }

    // The tables of one of both BDPs.
    Files written(const QString& bdp)
    {
        if (!finishes({bdp, {"exportar", "tabelas", path(bdp + ".orv"), path(bdp)}, path(bdp)})) qFatal("no tables");
        return filesIn(path(bdp));
    }

    void start(const Way& way)
    {
        command_.setStandardOutputFile(QProcess::nullDevice());
        command_.start(ORV_ESTUDO, way.arguments);
        command_.waitForStarted();
    }

    bool finishes(const Way& way)
    {
        start(way);
        command_.waitForFinished(-1);
        told_ = QString::fromUtf8(command_.readAllStandardError()).left(300);
        return command_.exitStatus() == QProcess::NormalExit && command_.exitCode() == 0;
    }

    void clear(const QString& folder, const Files& files) const
    {
        for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden))
            QFile::remove(QDir(folder).filePath(name));
        for (auto each = files.begin(); each != files.end(); ++each) {
            QFile file(QDir(folder).filePath(each.key()));
            if (!file.open(QIODevice::WriteOnly)) qFatal("%s can't be made", qPrintable(file.fileName()));
            file.write(each.value());
        }
    }

    Way tables(const QString& name, const Files& earlier)
    {
        const QString folder = path("out");
        return {name,
                {"exportar", "tabelas", path("b.orv"), folder},
                folder,
                [this, folder, earlier] { clear(folder, earlier); },
                [this, folder, earlier] { return judgeTables(filesIn(folder), earlier); }};
    }

    // A description without a mark stands among files of its own export.
    QString judgeTables(const Files& there, const Files& earlier)
    {
        for (auto each = there.begin(); each != there.end(); ++each)
            if (each.key() != description && each.value() != after_.value(each.key()) &&
                each.value() != earlier.value(each.key()))
                return each.key() + " is half there";
        const QByteArray told = there.value(description);
        if (told.contains("\"unfinished\": true")) {
            ++inTheMiddle_;
            return {};
        }
        if (told.isEmpty() && !there.isEmpty()) return "files stand without their description";
        if (told != earlier.value(description) && told != after_.value(description))
            return "the description is half there";
        const Files& whole = told == after_.value(description) ? after_ : earlier;
        for (auto each = whole.begin(); each != whole.end(); ++each)
            if (there.value(each.key()) != each.value()) return each.key() + " isn't that of its description";
        return {};
    }

    Way gedcom()
    {
        const QString folder = path("gedcom"), file = folder + "/b.ged";
        const QStringList arguments{"exportar", "gedcom", path("b.orv"), file, "--limite", "0"};
        if (!finishes({"gedcom", arguments, folder})) qFatal("no GEDCOM");
        gedcom_ = filesIn(folder);
        return {"GEDCOM out", arguments, folder, [this, folder] { clear(folder, {}); },
                [this, folder] {
                    const Files there = filesIn(folder);
                    return there.isEmpty() || there == gedcom_ ? QString() : QString("half a file is there");
                }};
    }

    Way tablesIn()
    {
        const QString folder = path("in"), bdp = folder + "/b.orv";
        return {"tables in",
                {"importar", "tabelas", path("b"), "--bdp", bdp},
                folder,
                [this, folder] { clear(folder, {}); },
                [this, bdp] { return QFile::exists(bdp) ? judgeBdp(bdp) : QString(); }};
    }

    QString judgeBdp(const QString& bdp) const
    {
        Raw raw(bdp);
        if (const QString whole = raw.text("pragma integrity_check"); whole != "ok") return "it is damaged: " + whole;
        const Dump there = raw.dump(everything_);
        for (auto table = everything_.begin(); table != everything_.end(); ++table)
            if (there.value(table.key()).rows != table->rows) return "half a BDP is there: " + table.key();
        return {};
    }

    // What stands there when all is done; of a BDP its name alone.
    Files whole(const Way& way) const
    {
        if (way.folder == path("out")) return after_;
        if (way.folder == path("gedcom")) return gedcom_;
        return filesIn(way.folder).isEmpty() ? Files{{"b.orv", {}}} : filesIn(way.folder);
    }

    // Nothing of the killed one is left beside the whole.
    QString afterwards(const Way& way) const
    {
        if (const QString wrong = way.judge(); !wrong.isEmpty()) return "done again, " + wrong;
        const Files there = filesIn(way.folder), wanted = whole(way);
        for (auto each = wanted.begin(); each != wanted.end(); ++each)
            if (there.value(each.key()) != each.value()) return "done again, it has no " + each.key();
        const qsizetype names = QDir(way.folder).entryList(QDir::Files | QDir::Hidden).size();
        return names == there.size() ? QString() : QString("something of the killed one is left");
    }

    QString folder_;
    QProcess command_;
    QString told_;
    Files before_, after_, gedcom_;
    Dump everything_;
    int over_ = 0;
    int inTheMiddle_ = 0;
};

bool attack(int kills, quint64 seed)
{
    QTextStream out(stdout);
    const QTemporaryDir folder;
    Attack attacks(folder.path());
    const std::vector<Way> ways = attacks.ways();
    int failed = 0;
    for (std::size_t which = 0; which < ways.size(); ++which) {
        const qint64 longest = attacks.measure(ways[which]) * 5 / 4;
        for (int number = 1; number <= kills; ++number) {
            Dice dice(seed * ways.size() + which, quint64(number));
            const QString reason = attacks.kill(ways[which], dice.below(longest));
            if (reason.isEmpty()) continue;
            ++failed;
            out << "not ok " << ways[which].name << ' ' << number << " of seed " << seed << ": " << reason << '\n'
                << Qt::flush;
        }
    }
    const int all = kills * int(ways.size());
    out << attacks.over() << " were over before the kill, " << attacks.inTheMiddle() << " among the names\n";
    out << all - failed << " passed, " << failed << " failed\n";
    return failed == 0;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription("Kills what takes a BDP out and in again, and looks at what is left.");
    parser.addHelpOption();
    const QCommandLineOption seed("seed", "The chance behind the moments.", "N", "1");
    const QCommandLineOption count("count", "How many kills of each way.", "N", "10");
    parser.addOptions({seed, count});
    parser.process(application);
    return attack(parser.value(count).toInt(), parser.value(seed).toULongLong()) ? EXIT_SUCCESS : EXIT_FAILURE;
}
