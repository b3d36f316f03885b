// orv-kill-imports: imports transcribed acts with the real shell command, kills it at any moment, and looks at the
// file: all acts have to be there, whole, or nothing of them.
#include "dice.h"
#include "raw.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

namespace {

constexpr int acts = 200;

class Imports
{
public:
    explicit Imports(QString folder) : folder_(std::move(folder))
    {
        const QStringList arguments{QString::number(acts), "1", "kleio", file_};
        if (QProcess::execute(ORV_TRANSCRIPTS, arguments) != 0) qFatal("the acts can't be written");
    }

    // How long an import takes that nobody kills, in milliseconds, and how many acts it stores.
    qint64 measure()
    {
        QElapsedTimer clock;
        clock.start();
        begin();
        command_.waitForFinished(-1);
        const qint64 took = clock.elapsed();
        whole_ = count("estudo_acto");
        if (whole_ == 0) qFatal("nothing is imported");
        return took;
    }

    // One import, killed. What is wrong afterwards; empty where nothing is.
    QString kill(qint64 moment)
    {
        begin();
        QThread::msleep(ulong(moment));
        command_.kill();
        command_.waitForFinished(-1);
        if (QFile::exists(bdp_ + "-journal")) ++inTheMiddle_;
        return judge();
    }

    int whole() const { return whole_; }
    int inTheMiddle() const { return inTheMiddle_; }
    int stored() const { return stored_; }

private:
    void begin()
    {
        QFile::remove(bdp_ + "-journal");
        QFile::remove(bdp_);
        if (!QFile::copy(ORV_DEMO, bdp_)) qFatal("%s can't be made", qPrintable(bdp_));
        QFile::setPermissions(bdp_, QFile::ReadOwner | QFile::WriteOwner);
        command_.setStandardOutputFile(QProcess::nullDevice());
        command_.setStandardErrorFile(QProcess::nullDevice());
        command_.start(ORV_ESTUDO, {"importar", "kleio", file_, "--bdp", bdp_, "--lugares-novos"});
        command_.waitForStarted();
    }

    int count(const QString& table) const
    {
        Raw raw(bdp_);
        if (raw.text("select count(*) from sqlite_master where name = '" + table + "'") != "1") return 0;
        return raw.text("select count(*) from " + table).toInt();
    }

    QString judge()
    {
        Raw raw(bdp_); // restored from its journal
        if (const QString whole = raw.text("pragma integrity_check"); whole != "ok") return "it is damaged: " + whole;
        const int found = count("estudo_acto");
        if (found == whole_) ++stored_;
        if (found != 0 && found != whole_) return QString("%1 of %2 acts are there").arg(found).arg(whole_);
        const QString known = Raw(ORV_DEMO, Raw::Way::Untouched).text("select count(*) from individuo");
        const QString people = raw.text("select count(*) from individuo");
        if (found == 0) return people == known ? QString() : "there are people of acts that aren't there";
        const QString made =
            raw.text("select count(*) from estudo_escrita where tabela = 'individuo' and antes is null");
        return people.toInt() == known.toInt() + made.toInt() ? QString() : "people of acts are missing";
    }

    QString folder_;
    QString file_ = folder_ + "/actos.cli";
    QString bdp_ = folder_ + "/paroquia.orv";
    QProcess command_;
    int whole_ = 0;
    int inTheMiddle_ = 0;
    int stored_ = 0;
};

bool attack(int kills, quint64 seed)
{
    QTextStream out(stdout);
    const QTemporaryDir folder;
    Imports imports(folder.path());
    const qint64 longest = imports.measure() * 5 / 4;
    int failed = 0;
    for (int number = 1; number <= kills; ++number) {
        Dice dice(seed, quint64(number));
        const QString reason = imports.kill(dice.below(longest));
        if (reason.isEmpty()) continue;
        ++failed;
        out << "not ok import " << number << " of seed " << seed << ": " << reason << '\n' << Qt::flush;
    }
    out << imports.whole() << " acts an import; " << imports.stored() << " were over before the kill, "
        << imports.inTheMiddle() << " left a journal\n";
    out << kills - failed << " passed, " << failed << " failed\n";
    return failed == 0;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription("Kills the import of transcribed acts, and looks at what is left.");
    parser.addHelpOption();
    const QCommandLineOption seed("seed", "The chance behind the moments.", "N", "1");
    const QCommandLineOption count("count", "How many kills.", "N", "20");
    parser.addOptions({seed, count});
    parser.process(application);
    return attack(parser.value(count).toInt(), parser.value(seed).toULongLong()) ? EXIT_SUCCESS : EXIT_FAILURE;
}
