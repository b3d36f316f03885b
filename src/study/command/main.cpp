#include "study/command/command.h"

#include <QCoreApplication>
#include <QTextStream>

#include <csignal>

static volatile std::sig_atomic_t interruptions = 0;

static void interrupt(int)
{
    interruptions = 1;
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("ORV");
    std::signal(SIGINT, interrupt);
    std::signal(SIGTERM, interrupt);
    QTextStream out(stdout);
    QTextStream err(stderr);
    return study::runCommand(QCoreApplication::arguments().mid(1), out, err, [] { return interruptions == 0; });
}
