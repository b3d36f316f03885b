#include "measures/startup.h"

#include "measures/all.h"
#include "shell/application.h"
#include "shell/frmORV.h"
#include "shell/startup.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QProcess>
#include <QStatusBar>
#include <QWindow>

#include <cstdlib>
#include <cstring>

namespace {

constexpr auto startProgramOption = "--start-program";
constexpr auto startBareOption = "--start-bare";

void untilShown(const QWidget& window)
{
    while (!window.windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents();
}

void start(const char* option)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(option)});
    if (!process.waitForFinished() || process.exitCode() != 0) qFatal("the process failed: %s", option);
}

// The bare one has a document area and one line in its status bar, as the first text that a process draws brings up the
// fonts.
class Start : public bench::Sides
{
public:
    void ours(int) override { start(startProgramOption); }
    void bare(int) override { start(startBareOption); }
};

} // namespace

namespace bench {

std::vector<Measure> processes()
{
    return {{.name = "start",
             .event = "start of the program to its window",
             .goal = {.flat = false},
             .make = [](int) { return std::make_unique<Start>(); },
             .turns = 15,
             .sized = false}};
}

} // namespace bench

bool isStartedOnly(int argc, char** argv)
{
    return argc == 2 && (!std::strcmp(argv[1], startProgramOption) || !std::strcmp(argv[1], startBareOption));
}

int startOnly(int argc, char** argv)
{
    if (!std::strcmp(argv[1], startProgramOption)) {
        Application application(argv);
        prepareApplication();
        untilShown(startProgram({}));
        std::quick_exit(EXIT_SUCCESS);
    }
    QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QMdiArea);
    window.resize(1280, 800);
    window.statusBar()->showMessage("ORV");
    window.show();
    untilShown(window);
    std::quick_exit(EXIT_SUCCESS);
}
