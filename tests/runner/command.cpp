#include "player.h"
#include "runner.h"

#include "platform/desktop/desktop.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QThread>

namespace {

QString programFolder()
{
    return QFileInfo::exists(ORV_DATA_DIR) ? QString(ORV_DATA_DIR) : Desktop::programFolder();
}

// Made where it isn't there, and absolute: the scenarios are played in folders of their own.
QString folderNamed(const QString& name)
{
    if (!name.isEmpty()) QDir().mkpath(name);
    return name.isEmpty() ? name : QFileInfo(name).absoluteFilePath();
}

QString emptied(const QString& folder)
{
    if (!folder.isEmpty()) QDir(folder).removeRecursively();
    return folder;
}

} // namespace

int runScenarios(int argc, char** argv, std::chrono::milliseconds second)
{
    if (argc > 1 && qstrcmp(argv[1], "--play") == 0) {
        QStringList arguments;
        for (int i = 2; i < argc; ++i)
            arguments.append(QString::fromLocal8Bit(argv[i]));
        return playScenario(arguments, argv);
    }

    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription("Plays scenarios, each in a process and a folder of its own.");
    parser.addHelpOption();
    const QCommandLineOption only("only", "Plays only the scenarios of this title.", "TITLE");
    const QCommandLineOption keep("keep", "Leaves the folders of failed scenarios in place.");
    const QCommandLineOption program("program", "The program's folder.", "DIR", programFolder());
    const QCommandLineOption limit("limit", "The time for one scenario.", "SECONDS", "120");
    const QCommandLineOption jobs("jobs", "How many are played at once, where no display is needed.", "NUMBER",
                                  QString::number(QThread::idealThreadCount()));
    const QCommandLineOption slowest("slowest", "Tells the times of so many, the slowest first, on the standard error.",
                                     "NUMBER", "0");
    const QCommandLineOption cost("cost", "Tells what each scenario costs a person: clicks, keys, boxes, seconds.");
    const QCommandLineOption shots("shots", "The folder that pictures go to; they are drawn at twice the scale.",
                                   "DIR");
    const QCommandLineOption bring("bring", "A file of which each scenario finds a copy in its folder.", "FILE");
    const QCommandLineOption folder("folder",
                                    "Where the scenarios are played, as its name is seen in pictures; what it holds "
                                    "is removed before.",
                                    "DIR");
    parser.addOptions({only, keep, program, limit, jobs, slowest, cost, shots, bring, folder});
    parser.addPositionalArgument("FILE...", "The scenario files.");
    parser.process(application);
    if (parser.positionalArguments().isEmpty()) parser.showHelp(2);

    Runner runner({parser.positionalArguments(), parser.values(only), parser.isSet(keep), parser.value(program),
                   std::max(1, parser.value(limit).toInt()), second, std::max(1, parser.value(jobs).toInt()),
                   std::max(0, parser.value(slowest).toInt()), parser.isSet(cost), folderNamed(parser.value(shots)),
                   folderNamed(emptied(parser.value(folder))), parser.values(bring)});
    return runner.run() ? EXIT_SUCCESS : EXIT_FAILURE;
}
