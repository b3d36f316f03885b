// orv-hostile: damaged and hostile files, looked through in the real windows.
#include "attack.h"
#include "prober.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

namespace {

// Under the sanitizers everything takes longer.
#ifdef __SANITIZE_ADDRESS__
constexpr auto secondsForAStep = "40";
#else
constexpr auto secondsForAStep = "10";
#endif

QStringList words(int argc, char** argv)
{
    QStringList all;
    for (int i = 0; i < argc; ++i)
        all << QString::fromLocal8Bit(argv[i]);
    return all;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc > 1 && qstrcmp(argv[1], "--probe") == 0) return probe(words(argc, argv).mid(2), argv);

    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription("Looks through damaged and hostile files in the real windows: the cases known by "
                                     "name, and mutants of a good BDP.");
    parser.addHelpOption();
    const QCommandLineOption seed("seed", "The chance behind the mutants.", "N", "1");
    const QCommandLineOption count("count", "How many mutants.", "N", "100");
    const QCommandLineOption first("first", "The number of the first one; with --count 1 it is played alone.", "N",
                                   "0");
    const QCommandLineOption only("case", "Only the case of this title.", "TITLE");
    const QCommandLineOption noCases("no-cases", "Only mutants.");
    const QCommandLineOption limit("limit", "The time for one step.", "SECONDS", secondsForAStep);
    const QCommandLineOption keep("keep", "Where files are kept that broke a promise.", "DIR");
    parser.addOptions({seed, count, first, only, noCases, limit, keep});
    parser.process(application);

    Attack attack;
    attack.seed = parser.value(seed).toULongLong();
    attack.count = parser.value(count).toInt();
    attack.first = parser.value(first).toInt();
    attack.only = parser.values(only);
    attack.withCases = !parser.isSet(noCases);
    attack.seconds = parser.value(limit).toInt();
    attack.keep = parser.isSet(keep) ? QDir(parser.value(keep)).absolutePath() : QString();
    return Attacker(attack).run() ? EXIT_SUCCESS : EXIT_FAILURE;
}
