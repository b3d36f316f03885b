#include "study/command/command.h"

#include <QApplication>
#include <QCoreApplication>
#include <QTextStream>

#include <csignal>
#include <memory>

static volatile std::sig_atomic_t interruptions = 0;

static void interrupt(int)
{
    interruptions = 1;
}

// Charts are drawn by what draws windows; none is shown, and no screen is needed.
static std::unique_ptr<QCoreApplication> applicationFor(int& argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    if (!study::needsWindows(arguments)) return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QApplication>(argc, argv);
}

int main(int argc, char** argv)
{
    const std::unique_ptr<QCoreApplication> application = applicationFor(argc, argv);
    QCoreApplication::setApplicationName("ORV");
    std::signal(SIGINT, interrupt);
    std::signal(SIGTERM, interrupt);
    QTextStream out(stdout);
    QTextStream err(stderr);
    return study::runCommand(QCoreApplication::arguments().mid(1), out, err, [] { return interruptions == 0; });
}
